#pragma once

#include <QByteArray>
#include <QHash>
#include <QList>

#include <functional>
#include <optional>

struct MHD_Daemon;

namespace Sample {

struct HttpRequest
{
    QByteArray method;
    QByteArray path; ///< without the query
    QHash<QByteArray, QByteArray> headers; ///< names in lower case
    QByteArray body;
};

struct HttpAnswer
{
    int status = 200;
    QByteArray body; ///< JSON; empty for an answer without a body
    QList<QPair<QByteArray, QByteArray>> headers;
};

/// HTTP on the loopback interface by libmicrohttpd, which serves each connection in a thread of its
/// own.
class HttpServer
{
public:
    /// A larger body is not kept, and answered with status 413. The largest question takes half a
    /// kilobyte.
    static constexpr qsizetype largestBody = 64 * 1024;
    /// Called in the threads of the connections, at the same time. It may take its time.
    using Handler = std::function<HttpAnswer(const HttpRequest &)>;

    explicit HttpServer(const Handler &handler)
        : m_handler(handler)
    { }
    /// Drops all connections, once the requests under way are answered.
    ~HttpServer();
    Q_DISABLE_COPY_MOVE(HttpServer)

    /// Starts to listen on 127.0.0.1 and returns the port; 0 lets the system choose a free one.
    /// Absent when that failed, with the reason in errno.
    std::optional<quint16> listen(quint16 port);

private:
    Handler m_handler;
    MHD_Daemon *m_daemon = nullptr;
};

} // namespace Sample
