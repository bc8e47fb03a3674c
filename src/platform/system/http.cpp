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

QNetworkRequest requestFor(const QString& url, std::chrono::milliseconds timeout, const QByteArray& userAgent)
{
    const QUrl address(url, QUrl::StrictMode);
    if (!address.isValid() || address.host().isEmpty() ||
        (address.scheme() != QLatin1String("http") && address.scheme() != QLatin1String("https")))
        throw RuntimeError(12005, QStringLiteral("Endereço inválido: %1").arg(url));

    QNetworkRequest request(address);
    request.setTransferTimeout(static_cast<int>(timeout.count()));
    if (!userAgent.isEmpty())
        request.setHeader(QNetworkRequest::UserAgentHeader, userAgent);
    return request;
}

struct Answer
{
    Response response;
    bool hasLength; ///< The server told the body's length, and so long it is.
};

Answer answerTo(const QNetworkRequest& request)
{
    QNetworkAccessManager manager;
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

    // The library may take an answer that breaks off for a whole one. It has dropped the length of a body
    // that it has decompressed.
    const Response response{status.toInt(), reply->readAll()};
    const QByteArray length = reply->rawHeader("Content-Length");
    if (!length.isEmpty() && length.toLongLong() != response.body.size())
        throw RuntimeError(12030, QStringLiteral("A resposta do servidor foi interrompida"));
    return {response, !length.isEmpty()};
}

} // namespace

Response get(const QString& url, std::chrono::milliseconds timeout, const QByteArray& userAgent)
{
    return answerTo(requestFor(url, timeout, userAgent)).response;
}

Response download(const QString& url, std::chrono::milliseconds timeout, const QByteArray& userAgent)
{
    QNetworkRequest request = requestFor(url, timeout, userAgent);
    request.setRawHeader("Accept-Encoding", "identity"); // a body packed on its way has no length
    const Answer answer = answerTo(request);
    if (answer.response.status == 200 && !answer.hasLength)
        throw RuntimeError(12152,
                           QStringLiteral("O servidor não informou o tamanho do arquivo: %1").arg(url));
    return answer.response;
}

} // namespace Http
