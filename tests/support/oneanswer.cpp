#include "support/oneanswer.h"

#include <QTcpServer>
#include <QTcpSocket>

namespace {

QString hostAt(quint16 port)
{
    return QStringLiteral("http://127.0.0.1:%1").arg(port);
}

} // namespace

OneAnswer::OneAnswer(QByteArray answer) : answer_(std::move(answer))
{
    start();
    while (!port_.load())
        msleep(1);
}

OneAnswer::~OneAnswer()
{
    done_ = true;
    wait();
}

QByteArray OneAnswer::http(const QByteArray& status, const QByteArray& body)
{
    return "HTTP/1.1 " + status + "\r\nContent-Length: " + QByteArray::number(body.size()) + "\r\n\r\n" +
           body;
}

QString OneAnswer::closedHost()
{
    QTcpServer server;
    server.listen(QHostAddress::LocalHost);
    return hostAt(server.serverPort());
}

QString OneAnswer::host() const
{
    return hostAt(port_.load());
}

void OneAnswer::run()
{
    QTcpServer server;
    server.listen(QHostAddress::LocalHost);
    port_ = server.serverPort();
    for (int i = 0; i < 600 && !done_ && !server.hasPendingConnections(); ++i)
        server.waitForNewConnection(10);
    QTcpSocket* socket = server.nextPendingConnection();
    if (!socket)
        return;
    socket->waitForReadyRead(2000);
    request_ = socket->readAll();
    while (held_ && !done_)
        msleep(5);
    if (!answer_.isEmpty()) {
        socket->write(answer_);
        socket->waitForBytesWritten(2000);
    } else {
        while (!done_)
            msleep(5);
    }
    socket->disconnectFromHost();
}
