#include "sample_server/HttpServer.h"

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

/// Called when the head is there, for each piece of the body, and at its end.
MHD_Result receive(void *handler, MHD_Connection *connection, const char *path, const char *method,
                   const char *, const char *bytes, size_t *size, void **context)
{
    auto *request = static_cast<HttpRequest *>(*context);
    if (!request) {
        *context = request = new HttpRequest { method, path, {}, {} };
        MHD_get_connection_values(connection, MHD_HEADER_KIND, &readHeader, &request->headers);
        return MHD_YES;
    }
    if (*size > 0) {
        if (request->body.size() <= HttpServer::largestBody)
            request->body.append(bytes, qsizetype(*size));
        *size = 0;
        return MHD_YES;
    }
    if (request->body.size() > HttpServer::largestBody)
        return send(connection, { 413, {}, {} });
    // The time that the answer takes is not the client's.
    MHD_set_connection_option(connection, MHD_CONNECTION_OPTION_TIMEOUT, 0U);
    const HttpAnswer answer = (*static_cast<const HttpServer::Handler *>(handler))(*request);
    MHD_set_connection_option(connection, MHD_CONNECTION_OPTION_TIMEOUT, patienceSeconds);
    return send(connection, answer);
}

void forget(void *, MHD_Connection *, void **context, MHD_RequestTerminationCode)
{
    delete static_cast<HttpRequest *>(*context);
}

} // namespace

std::optional<quint16> HttpServer::listen(quint16 port)
{
    sockaddr_in address {};
    address.sin_family = AF_INET;
    address.sin_port = htons(port);
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    m_daemon = MHD_start_daemon(MHD_USE_AUTO_INTERNAL_THREAD | MHD_USE_THREAD_PER_CONNECTION, port,
                                nullptr, nullptr, &receive, &m_handler, MHD_OPTION_SOCK_ADDR,
                                &address, MHD_OPTION_CONNECTION_TIMEOUT, patienceSeconds,
                                MHD_OPTION_NOTIFY_COMPLETED, &forget, nullptr, MHD_OPTION_END);
    if (!m_daemon)
        return std::nullopt;
    const MHD_DaemonInfo *bound = MHD_get_daemon_info(m_daemon, MHD_DAEMON_INFO_BIND_PORT);
    return bound ? std::optional(bound->port) : std::nullopt;
}

HttpServer::~HttpServer()
{
    if (m_daemon)
        MHD_stop_daemon(m_daemon);
}

} // namespace Sample
