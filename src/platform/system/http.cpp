#include "platform/system/http.h"

#include "platform/values/error.h"

#include <QDeadlineTimer>
#include <QEventLoop>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QTimer>
#include <QUrl>
#include <limits>
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

/// The time and the bytes that a server may take; a time of 0 is without end.
struct Limits
{
    std::chrono::milliseconds silence;
    std::chrono::milliseconds whole;
    qint64 size;
};

struct Answer
{
    Response response;
    bool hasLength;      ///< The server told the body's length, and so long it is.
    QByteArray location; ///< where a redirection leads
};

bool isWebAddress(const QUrl& address)
{
    return address.isValid() && !address.host().isEmpty() &&
           (address.scheme() == QLatin1String("http") || address.scheme() == QLatin1String("https"));
}

/// The answer to one request, a redirection being one as well.
Answer answerTo(QNetworkAccessManager& manager, const QNetworkRequest& request, const QDeadlineTimer& end,
                qint64 largest)
{
    const std::unique_ptr<QNetworkReply> reply(manager.get(request));
    QEventLoop loop;
    bool tooLarge = false;
    QObject::connect(reply.get(), &QNetworkReply::finished, &loop, &QEventLoop::quit);
    QObject::connect(reply.get(), &QNetworkReply::readyRead, &loop, [&] {
        tooLarge = reply->bytesAvailable() > largest;
        if (tooLarge)
            reply->abort();
    });
    if (!end.isForever())
        QTimer::singleShot(std::chrono::milliseconds(end.remainingTime()), reply.get(),
                           &QNetworkReply::abort);
    if (!reply->isFinished())
        loop.exec(QEventLoop::ExcludeUserInputEvents);

    const int status = reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    const QString host = reply->url().host();
    if (tooLarge)
        throw RuntimeError(12152, u"A resposta do servidor é grande demais: %1"_s.arg(host));
    if (!isAnswered(*reply, status))
        throw failureOf(*reply);

    // The library may take an answer that breaks off for a whole one.
    const Response response{status, reply->readAll()};
    const QByteArray length = reply->rawHeader("Content-Length");
    if (!length.isEmpty() && length.toLongLong() != response.body.size())
        throw RuntimeError(12030, u"A resposta do servidor foi interrompida: %1"_s.arg(host));
    return {response, !length.isEmpty(), reply->rawHeader("Location")};
}

/// Where the redirection leads.
QUrl redirected(const QUrl& from, const QByteArray& location)
{
    QUrl to = from.resolved(QUrl::fromEncoded(location));
    const bool lessSafe = from.scheme() == QLatin1String("https") && to.scheme() != QLatin1String("https");
    if (location.isEmpty() || !isWebAddress(to) || lessSafe)
        throw RuntimeError(12156,
                           u"O servidor remete a um endereço que não pode ser aberto: %1"_s.arg(from.host()));
    return to;
}

/// The answer that stands behind the redirections. They are followed here since the library joins the headers
/// of answers that come on one connection.
Answer finalAnswer(const QString& url, const Limits& limits, const QByteArray& userAgent)
{
    constexpr int MostRedirections = 10;
    QUrl address(url, QUrl::StrictMode);
    if (!isWebAddress(address))
        throw RuntimeError(12005, u"Endereço inválido: %1"_s.arg(url));

    QNetworkAccessManager manager;
    manager.setRedirectPolicy(QNetworkRequest::ManualRedirectPolicy);
    const QDeadlineTimer end =
        limits.whole.count() > 0 ? QDeadlineTimer(limits.whole) : QDeadlineTimer(QDeadlineTimer::Forever);
    for (int redirections = 0;; ++redirections) {
        QNetworkRequest request(address);
        request.setTransferTimeout(static_cast<int>(limits.silence.count()));
        // Of a body that it unpacks the library drops the length, and does not tell when it is spoilt.
        request.setRawHeader("Accept-Encoding", "identity");
        if (!userAgent.isEmpty())
            request.setHeader(QNetworkRequest::UserAgentHeader, userAgent);

        Answer answer = answerTo(manager, request, end, limits.size);
        if (!QList{301, 302, 303, 307, 308}.contains(answer.response.status))
            return answer;
        address = redirected(address, redirections < MostRedirections ? answer.location : QByteArray());
    }
}

} // namespace

Response get(const QString& url, std::chrono::milliseconds timeout, const QByteArray& userAgent)
{
    return finalAnswer(url, {.silence = {}, .whole = timeout, .size = largestAnswer}, userAgent).response;
}

Response download(const QString& url, std::chrono::milliseconds timeout, const QByteArray& userAgent)
{
    constexpr qint64 AnySize = std::numeric_limits<qint64>::max();
    const Answer answer = finalAnswer(url, {.silence = timeout, .whole = {}, .size = AnySize}, userAgent);
    if (answer.response.status == 200 && !answer.hasLength)
        throw RuntimeError(12152, u"O servidor não informou o tamanho do arquivo: %1"_s.arg(url));
    return answer.response;
}

} // namespace Http
