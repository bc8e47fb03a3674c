#pragma once

#include <QByteArray>
#include <QSslConfiguration>
#include <QString>
#include <QThread>
#include <atomic>
#include <optional>

/// A web server on the loopback interface that answers one request with fixed bytes; an empty answer stays
/// silent. hold() before the request keeps the answer back until release().
class OneAnswer : public QThread
{
public:
    explicit OneAnswer(QByteArray answer);
    /// The same over https, under the certificate of `tls`.
    OneAnswer(QByteArray answer, std::optional<QSslConfiguration> tls);
    ~OneAnswer() override;

    /// A whole answer, with its head.
    static QByteArray http(const QByteArray& status, const QByteArray& body);
    /// The address of a server that has gone: nobody listens there.
    static QString closedHost();

    /// Such as "http://127.0.0.1:12345", or with https.
    QString host() const;
    void hold() { held_ = true; }
    void release() { held_ = false; }
    /// What was asked, once the answer is there.
    QByteArray request() const { return request_; }

protected:
    void run() override;

private:
    QByteArray answer_;
    std::optional<QSslConfiguration> tls_;
    QByteArray request_;
    std::atomic<quint16> port_{0};
    std::atomic<bool> held_{false};
    std::atomic<bool> done_{false};
};
