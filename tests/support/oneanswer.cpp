#include "support/oneanswer.h"

#include <QSslSocket>
#include <QTcpServer>

using namespace Qt::StringLiterals;

namespace {

QString hostAt(quint16 port)
{
    return u"http://127.0.0.1:%1"_s.arg(port);
}

/// Its connections can be made safe ones.
class Server : public QTcpServer
{
protected:
    void incomingConnection(qintptr handle) override
    {
        auto* socket = new QSslSocket(this);
        socket->setSocketDescriptor(handle);
        addPendingConnection(socket);
    }
};

} // namespace

OneAnswer::OneAnswer(QByteArray answer) : OneAnswer(std::move(answer), std::nullopt) {}

OneAnswer::OneAnswer(QByteArray answer, std::optional<QSslConfiguration> tls)
    : answer_(std::move(answer)), tls_(std::move(tls))
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
    QString host = hostAt(port_.load());
    return tls_ ? host.replace(QLatin1String("http:"), QLatin1String("https:")) : host;
}

void OneAnswer::run()
{
    Server server;
    server.listen(QHostAddress::LocalHost);
    port_ = server.serverPort();
    for (int i = 0; i < 600 && !done_ && !server.hasPendingConnections(); ++i)
        server.waitForNewConnection(10);
    auto* socket = static_cast<QSslSocket*>(server.nextPendingConnection());
    if (!socket)
        return;
    if (tls_) {
        socket->setSslConfiguration(*tls_);
        socket->startServerEncryption();
        if (!socket->waitForEncrypted(2000))
            return;
    }
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
