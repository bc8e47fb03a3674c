#include "platform/system/http.h"

#include "platform/system/error.h"

#include <QEventLoop>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QUrl>
#include <memory>

namespace Http {

namespace {

int numberOf(QNetworkReply::NetworkError error)
{
    switch (error) {
    case QNetworkReply::OperationCanceledError:
    case QNetworkReply::TimeoutError:
        return 12002;
    case QNetworkReply::HostNotFoundError:
        return 12007;
    case QNetworkReply::RemoteHostClosedError:
        return 12030;
    case QNetworkReply::SslHandshakeFailedError:
        return 12175;
    case QNetworkReply::ProtocolUnknownError:
    case QNetworkReply::ProtocolInvalidOperationError:
        return 12005;
    default:
        return 12029;
    }
}

} // namespace

Response get(const QString& url, std::chrono::milliseconds timeout, const QByteArray& userAgent)
{
    const QUrl address(url, QUrl::StrictMode);
    if (!address.isValid() || address.host().isEmpty() ||
        (address.scheme() != QLatin1String("http") && address.scheme() != QLatin1String("https")))
        throw RuntimeError(12005, QStringLiteral("Endereço inválido: %1").arg(url));

    QNetworkAccessManager manager;
    QNetworkRequest request(address);
    request.setTransferTimeout(static_cast<int>(timeout.count()));
    if (!userAgent.isEmpty())
        request.setHeader(QNetworkRequest::UserAgentHeader, userAgent);

    const std::unique_ptr<QNetworkReply> reply(manager.get(request));
    QEventLoop loop;
    QObject::connect(reply.get(), &QNetworkReply::finished, &loop, &QEventLoop::quit);
    if (!reply->isFinished())
        loop.exec(QEventLoop::ExcludeUserInputEvents);

    const QVariant status = reply->attribute(QNetworkRequest::HttpStatusCodeAttribute);
    const bool answered = status.isValid();
    const bool whole =
        reply->error() == QNetworkReply::NoError || reply->error() >= QNetworkReply::ContentAccessDenied;
    if (!answered || !whole)
        throw RuntimeError(numberOf(reply->error()), reply->errorString());
    return {status.toInt(), reply->readAll()};
}

} // namespace Http
