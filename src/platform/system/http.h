#pragma once

#include <QByteArray>
#include <QString>
#include <chrono>

/// Synchronous reading from web servers.
namespace Http {

struct Response
{
    int status = 0; ///< The server's status code, such as 200 or 404.
    QByteArray body;
};

/// The greatest body that get() takes, in bytes.
inline constexpr qint64 largestAnswer = 1'000'000;

/// GET of an http or https address; waits for the whole answer, while the windows are painted but take no
/// input. `timeout` is how long all of it may take. Up to ten redirections are followed, but not from https
/// to http; an answer of any other status is returned. Throws RuntimeError 12002 at the time-out, 12007 where
/// the host is not found, 12029 where no connection comes about, 12030 where the answer breaks off, 12152
/// where it is spoilt or too great, 12156 where a redirection cannot be followed, 12175 where the secure
/// connection fails, 12005 for an address that is none (the usual numbers of web clients on workstations).
Response get(const QString& url, std::chrono::milliseconds timeout, const QByteArray& userAgent = {});

/// The same for a file of any size, which takes as long as it takes: `timeout` is how long the server may be
/// silent. The file must be known to be whole: also throws 12152 for an answer of status 200 whose length the
/// server does not tell, since one that breaks off would look like a shorter file.
Response download(const QString& url, std::chrono::milliseconds timeout, const QByteArray& userAgent = {});

} // namespace Http
