#pragma once

#include <QHash>
#include <QMutex>
#include <QObject>
#include <QSet>

#include <chrono>
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
    std::chrono::milliseconds delay { 0 }; ///< holds the answer back
};

/// HTTP on the loopback interface. libmicrohttpd serves the connections in a thread of its own; the
/// requests are answered one after the other in the thread of this object, which needs a running
/// event loop.
class HttpServer : public QObject
{
    Q_OBJECT

public:
    /// A larger body is not kept, and answered with status 413. The largest question takes half a
    /// kilobyte.
    static constexpr qsizetype largestBody = 64 * 1024;
    using Handler = std::function<HttpAnswer(const HttpRequest &)>;

    explicit HttpServer(const Handler &handler)
        : m_handler(handler)
    { }
    /// Drops all connections.
    ~HttpServer() override;

    /// Starts to listen on 127.0.0.1 and returns the port; 0 lets the system choose a free one.
    /// Absent when that failed, with the reason in errno.
    std::optional<quint16> listen(quint16 port);

private:
    struct Exchange;

    /// In the thread of the connections: has the request answered. False when the server stops.
    bool enqueue(Exchange *exchange);
    void handle(Exchange *exchange);

    Handler m_handler;
    MHD_Daemon *m_daemon = nullptr;
    QMutex m_mutex;
    QSet<Exchange *> m_waiting; ///< for their answers
    bool m_stops = false;
};

} // namespace Sample
