#include "sample_server/HttpServerCompat.h"

#include <QHttpServer>
#include <QPointer>
#include <QTcpServer>
#include <QTcpSocket>

namespace Sample::HttpServerCompat {

namespace {

#if QT_VERSION >= QT_VERSION_CHECK(6, 8, 0)

using ResponderArgument = QHttpServerResponder &;

void addHeaders(QHttpServerResponse &response, const HttpAnswer &answer)
{
    QHttpHeaders headers = response.headers();
    for (const auto &header : answer.headers)
        headers.append(header.first, header.second);
    response.setHeaders(std::move(headers));
}

void write(QHttpServerResponder &responder, QHttpServerResponse &&response)
{
    responder.sendResponse(response);
}

/// Whether the client waits; by itself the responder knows that.
std::function<bool()> presence(QHttpServerResponder &)
{
    return [] { return true; };
}

template<typename MissingHandler>
void setMissingHandler(QHttpServer *server, const MissingHandler &handler)
{
    server->setMissingHandler(server, handler);
}

bool bindTo(QHttpServer *server, QTcpServer *listener) { return server->bind(listener); }

#else

using ResponderArgument = QHttpServerResponder &&;

void addHeaders(QHttpServerResponse &response, const HttpAnswer &answer)
{
    for (const auto &header : answer.headers)
        response.addHeader(header.first, header.second);
}

void write(QHttpServerResponder &responder, QHttpServerResponse &&response)
{
    response.write(std::move(responder));
}

/// Whether the client waits; the responder must not be used after its socket has gone.
std::function<bool()> presence(QHttpServerResponder &responder)
{
    return [socket = QPointer<QTcpSocket>(responder.socket())] {
        return socket && socket->state() == QAbstractSocket::ConnectedState;
    };
}

template<typename MissingHandler>
void setMissingHandler(QHttpServer *server, const MissingHandler &handler)
{
    server->setMissingHandler(handler);
}

bool bindTo(QHttpServer *server, QTcpServer *listener)
{
    server->bind(listener);
    return true;
}

#endif

auto serving(const Handler &handler)
{
    return [handler](const QHttpServerRequest &request, ResponderArgument responder) {
        const auto isPresent = presence(responder);
        const auto held = std::make_shared<QHttpServerResponder>(std::move(responder));
        handler(request, [isPresent, held](const HttpAnswer &answer) {
            if (!isPresent())
                return;
            QHttpServerResponse response(answer.body.isEmpty() ? QByteArray()
                                                               : QByteArray("application/json"),
                                         answer.body, answer.status);
            addHeaders(response, answer);
            write(*held, std::move(response));
        });
    };
}

} // namespace

void setHandlers(QHttpServer *server, const QString &path, const Handler &atPath,
                 const Handler &elsewhere)
{
    server->route(path, QHttpServerRequest::Method::AnyKnown, serving(atPath));
    setMissingHandler(server, serving(elsewhere));
}

bool bind(QHttpServer *server, std::unique_ptr<QTcpServer> listener)
{
    return bindTo(server, listener.get()) && listener.release();
}

} // namespace Sample::HttpServerCompat
