#include "sample_server/HttpServer.h"

#include <QTimer>

#include <microhttpd.h>
#include <netinet/in.h>

namespace Sample {

namespace {

/// For a connection on which nothing moves.
constexpr unsigned patienceSeconds = 10;

MHD_Result send(MHD_Connection *connection, const HttpAnswer &answer)
{
    MHD_Response *response = MHD_create_response_from_buffer(
        size_t(answer.body.size()), const_cast<char *>(answer.body.constData()),
        MHD_RESPMEM_MUST_COPY);
    if (!answer.body.isEmpty())
        MHD_add_response_header(response, "Content-Type", "application/json");
    for (const auto &[name, value] : answer.headers)
        MHD_add_response_header(response, name.constData(), value.constData());
    const MHD_Result result = MHD_queue_response(connection, unsigned(answer.status), response);
    MHD_destroy_response(response);
    return result;
}

MHD_Result readHeader(void *headers, MHD_ValueKind, const char *name, const char *value)
{
    static_cast<QHash<QByteArray, QByteArray> *>(headers)->insert(QByteArray(name).toLower(),
                                                                  value);
    return MHD_YES;
}

} // namespace

/// One request and its answer.
struct HttpServer::Exchange
{
    MHD_Connection *connection = nullptr;
    HttpRequest request;
    std::optional<HttpAnswer> answer;
};

std::optional<quint16> HttpServer::listen(quint16 port)
{
    // Called when the head is there, for each piece of the body, at its end, and once the answer
    // is.
    const auto receive = [](void *server, MHD_Connection *connection, const char *path,
                            const char *method, const char *, const char *bytes, size_t *size,
                            void **context) -> MHD_Result {
        auto *exchange = static_cast<Exchange *>(*context);
        if (!exchange) {
            *context = exchange = new Exchange { connection, { method, path, {}, {} }, {} };
            MHD_get_connection_values(connection, MHD_HEADER_KIND, &readHeader,
                                      &exchange->request.headers);
            return MHD_YES;
        }
        if (*size > 0) {
            if (exchange->request.body.size() <= largestBody)
                exchange->request.body.append(bytes, qsizetype(*size));
            *size = 0;
            return MHD_YES;
        }
        if (exchange->answer)
            return send(connection, *exchange->answer);
        if (exchange->request.body.size() > largestBody)
            return send(connection, { 413, {}, {}, {} });
        return static_cast<HttpServer *>(server)->enqueue(exchange) ? MHD_YES : MHD_NO;
    };
    const auto forget = [](void *, MHD_Connection *, void **context, MHD_RequestTerminationCode) {
        delete static_cast<Exchange *>(*context);
    };

    sockaddr_in address {};
    address.sin_family = AF_INET;
    address.sin_port = htons(port);
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    m_daemon = MHD_start_daemon(
        MHD_USE_AUTO_INTERNAL_THREAD | MHD_ALLOW_SUSPEND_RESUME, port, nullptr, nullptr, +receive,
        this, MHD_OPTION_SOCK_ADDR, &address, MHD_OPTION_CONNECTION_TIMEOUT, patienceSeconds,
        MHD_OPTION_NOTIFY_COMPLETED, static_cast<MHD_RequestCompletedCallback>(forget), nullptr,
        MHD_OPTION_END);
    if (!m_daemon)
        return std::nullopt;
    const MHD_DaemonInfo *bound = MHD_get_daemon_info(m_daemon, MHD_DAEMON_INFO_BIND_PORT);
    return bound ? std::optional(bound->port) : std::nullopt;
}

HttpServer::~HttpServer()
{
    if (!m_daemon)
        return;
    {
        // The daemon can stop when no connection is suspended. Those that are find it stopping.
        const QMutexLocker lock(&m_mutex);
        m_stops = true;
        for (const Exchange *exchange : std::as_const(m_waiting))
            MHD_resume_connection(exchange->connection);
    }
    MHD_stop_daemon(m_daemon);
}

bool HttpServer::enqueue(Exchange *exchange)
{
    const QMutexLocker lock(&m_mutex);
    if (m_stops)
        return false;
    m_waiting.insert(exchange);
    MHD_suspend_connection(exchange->connection);
    QMetaObject::invokeMethod(
        this, [this, exchange] { handle(exchange); }, Qt::QueuedConnection);
    return true;
}

void HttpServer::handle(Exchange *exchange)
{
    const HttpAnswer answer = m_handler(exchange->request);
    QTimer::singleShot(answer.delay, this, [this, exchange, answer] {
        const QMutexLocker lock(&m_mutex);
        // The timer goes with this object. NOLINTNEXTLINE(clang-analyzer-core.CallAndMessage)
        m_waiting.remove(exchange);
        exchange->answer = answer;
        MHD_resume_connection(exchange->connection);
    });
}

} // namespace Sample
