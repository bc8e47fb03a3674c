#include "platform/system/http.h"

#include "platform/values/error.h"

#include <QEventLoop>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QUrl>
#include <memory>

using namespace Qt::StringLiterals;

namespace Http {

namespace {

RuntimeError failureOf(const QNetworkReply& reply)
{
    const QString host = reply.url().host();
    switch (reply.error()) {
    case QNetworkReply::OperationCanceledError:
    case QNetworkReply::TimeoutError:
        return {12002, u"O servidor não respondeu a tempo: %1"_s.arg(host)};
    case QNetworkReply::HostNotFoundError:
        return {12007, u"Servidor não encontrado: %1"_s.arg(host)};
    case QNetworkReply::RemoteHostClosedError:
        return {12030, u"A resposta do servidor foi interrompida: %1"_s.arg(host)};
    case QNetworkReply::ProtocolFailure:
        return {12152, u"A resposta do servidor não é válida: %1"_s.arg(host)};
    case QNetworkReply::TooManyRedirectsError:
    case QNetworkReply::InsecureRedirectError:
    case QNetworkReply::ProtocolUnknownError:
    case QNetworkReply::ProtocolInvalidOperationError:
        return {12156, u"O servidor remete a um endereço que não pode ser aberto: %1"_s.arg(host)};
    case QNetworkReply::SslHandshakeFailedError:
        return {12175, u"A conexão segura com o servidor falhou: %1 (%2)"_s.arg(host, reply.errorString())};
    default:
        return {12029, u"Sem conexão com o servidor: %1 (%2)"_s.arg(host, reply.errorString())};
    }
}

/// Whether the answer came to its end, whatever its status: one from 400 on is an error of its own to the
/// library.
bool isAnswered(const QNetworkReply& reply, int status)
{
    const QNetworkReply::NetworkError error = reply.error();
    return error == QNetworkReply::NoError || (status >= 400 && error >= QNetworkReply::ContentAccessDenied &&
                                               error != QNetworkReply::ProtocolFailure);
}

QNetworkRequest requestFor(const QString& url, std::chrono::milliseconds timeout, const QByteArray& userAgent)
{
    const QUrl address(url, QUrl::StrictMode);
    if (!address.isValid() || address.host().isEmpty() ||
        (address.scheme() != QLatin1String("http") && address.scheme() != QLatin1String("https")))
        throw RuntimeError(12005, u"Endereço inválido: %1"_s.arg(url));

    QNetworkRequest request(address);
    request.setTransferTimeout(static_cast<int>(timeout.count()));
    // Of a body that it unpacks the library drops the length, and does not tell when it is spoilt.
    request.setRawHeader("Accept-Encoding", "identity");
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

    const int status = reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    if (!isAnswered(*reply, status))
        throw failureOf(*reply);

    // The library may take an answer that breaks off for a whole one.
    const Response response{status, reply->readAll()};
    const QByteArray length = reply->rawHeader("Content-Length");
    if (!length.isEmpty() && length.toLongLong() != response.body.size())
        throw RuntimeError(12030, u"A resposta do servidor foi interrompida: %1"_s.arg(reply->url().host()));
    return {response, !length.isEmpty()};
}

} // namespace

Response get(const QString& url, std::chrono::milliseconds timeout, const QByteArray& userAgent)
{
    return answerTo(requestFor(url, timeout, userAgent)).response;
}

Response download(const QString& url, std::chrono::milliseconds timeout, const QByteArray& userAgent)
{
    const Answer answer = answerTo(requestFor(url, timeout, userAgent));
    if (answer.response.status == 200 && !answer.hasLength)
        throw RuntimeError(12152, u"O servidor não informou o tamanho do arquivo: %1"_s.arg(url));
    return answer.response;
}

} // namespace Http
