#pragma once

#include "sample_server/HttpAnswer.h"

#include <QHttpServerRequest>

#include <functional>
#include <memory>

class QHttpServer;
class QTcpServer;

/// Qt's HTTP server behind the one interface that all supported versions of it can have: it changed
/// with Qt 6.8.
namespace Sample::HttpServerCompat {

/// Writes the answer to the client that waits for it; does nothing when the client has gone. It is
/// called at most once, in the server's thread.
using Send = std::function<void(const HttpAnswer &answer)>;
using Handler = std::function<void(const QHttpServerRequest &request, const Send &send)>;

/// Hands requests for `path` to one handler and all others to another, in the server's thread.
void setHandlers(QHttpServer *server, const QString &path, const Handler &atPath,
                 const Handler &elsewhere);

/// Makes the server answer the connections of a listening socket, which it owns from then on.
/// Returns false when it cannot.
bool bind(QHttpServer *server, std::unique_ptr<QTcpServer> listener);

} // namespace Sample::HttpServerCompat
