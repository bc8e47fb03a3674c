#include "answers.h"

#include <QCoreApplication>
#include <QSaveFile>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTimer>
#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 longestRequest = 8192;
constexpr int patience = 5000; ///< milliseconds

/// One request a connection; the answer ends it.
void serve(QTcpSocket& socket, const Clinic& clinic)
{
    if (!socket.peek(longestRequest).contains("\r\n\r\n")) {
        if (socket.bytesAvailable() >= longestRequest)
            socket.abort();
        return;
    }
    const QList<QByteArray> words = socket.readAll().split('\r').first().split(' ');
    const Answer answer = words.size() == 3 && words[0] == "GET"
                              ? answerTo(words[1], clinic)
                              : Answer{"400 Bad Request", "text/plain", "400 Bad Request\n"};
    socket.write("HTTP/1.1 " + answer.status + "\r\nContent-Type: " + answer.type + "\r\nContent-Length: " +
                 QByteArray::number(answer.body.size()) + "\r\nConnection: close\r\n\r\n" + answer.body);
    socket.disconnectFromHost();
}

} // namespace

/// tremosilva-lookups FILE TENANT: the look-up services of the demonstration clinic TENANT, for this machine
/// alone, at a port that is free. FILE gets its number once they answer.
int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() != 3) {
        std::fputs("tremosilva-lookups: a file for the port and a tenant are wanted\n", stderr);
        return 2;
    }
    Options options;
    options.tenant = arguments[2].toStdString();
    const Clinic clinic(options);

    QTcpServer server;
    QObject::connect(&server, &QTcpServer::newConnection, &server, [&] {
        while (QTcpSocket* socket = server.nextPendingConnection()) {
            QObject::connect(socket, &QTcpSocket::readyRead, socket,
                             [socket, &clinic] { serve(*socket, clinic); });
            QObject::connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
            QTimer::singleShot(patience, socket, &QTcpSocket::abort);
        }
    });
    QSaveFile port(arguments[1]);
    const bool told = server.listen(QHostAddress::LocalHost) && port.open(QIODevice::WriteOnly) &&
                      port.write(QByteArray::number(server.serverPort())) > 0 && port.commit();
    if (!told) {
        std::fprintf(stderr, "tremosilva-lookups: %s %s\n", qPrintable(server.errorString()),
                     qPrintable(port.errorString()));
        return 1;
    }
    return QCoreApplication::exec();
}
