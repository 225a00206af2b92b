#include "support/ScriptedServer.h"

#include <QFile>
#include <QHostAddress>
#include <QJsonArray>
#include <QJsonDocument>
#include <QSslCertificate>
#include <QSslConfiguration>
#include <QSslKey>
#include <QSslServer>
#include <QTimer>

#include <sys/socket.h>

using namespace Qt::StringLiterals;

namespace {

QByteArray fixture(const QString &name)
{
    QFile file(u":/test-certificate/data/"_s + name);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("The test certificate is missing: %s", qPrintable(file.fileName()));
    return file.readAll();
}

std::unique_ptr<QTcpServer> tlsServer()
{
    QSslConfiguration configuration = QSslConfiguration::defaultConfiguration();
    configuration.setLocalCertificate(
        QSslCertificate(fixture(u"self-signed-test-fixture.crt"_s), QSsl::Pem));
    configuration.setPrivateKey(
        QSslKey(fixture(u"self-signed-test-fixture.key"_s), QSsl::Ec, QSsl::Pem));
    configuration.setPeerVerifyMode(QSslSocket::VerifyNone);
    auto server = std::make_unique<QSslServer>();
    server->setSslConfiguration(configuration);
    return server;
}

QByteArray headOf(const ScriptedAnswer &answer)
{
    QByteArray head = "HTTP/1.1 " + QByteArray::number(answer.status) + " Scripted\r\n";
    for (const auto &[name, value] : answer.headers)
        head += name + ": " + value + "\r\n";
    if (answer.framing == ScriptedAnswer::Framing::contentLength)
        head += "Content-Length: " + QByteArray::number(answer.body.size()) + "\r\n";
    else
        head += "Transfer-Encoding: chunked\r\n";
    return head + "\r\n";
}

QByteArray chunk(const QByteArray &bytes)
{
    return QByteArray::number(bytes.size(), 16) + "\r\n" + bytes + "\r\n";
}

/// What goes over the wire, piece by piece.
QList<QByteArray> piecesOf(const ScriptedAnswer &answer)
{
    if (!answer.raw.isEmpty())
        return { answer.raw };
    const bool isChunked = answer.framing == ScriptedAnswer::Framing::chunked;
    const qsizetype size = answer.pieceSize > 0 ? answer.pieceSize : answer.body.size();
    QList<QByteArray> pieces { headOf(answer) };
    for (qsizetype at = 0; at < answer.body.size(); at += size) {
        const QByteArray piece = answer.body.mid(at, size);
        pieces.append(isChunked ? chunk(piece) : piece);
    }
    if (isChunked)
        pieces.append("0\r\n\r\n");
    if (answer.pieceInterval == 0)
        pieces = { pieces.join() };
    if (answer.cutAfter >= 0)
        pieces = { pieces.join().left(answer.cutAfter) };
    return pieces;
}

void end(QTcpSocket *socket, ScriptedAnswer::Ending ending)
{
    // Only this direction is closed, so that the connection ends when the client has noticed.
    if (ending == ScriptedAnswer::Ending::close)
        ::shutdown(static_cast<int>(socket->socketDescriptor()), SHUT_WR);
    else if (ending == ScriptedAnswer::Ending::reset)
        socket->abort();
}

void sendPieces(const QPointer<QTcpSocket> &socket, const QList<QByteArray> &pieces,
                const ScriptedAnswer &answer)
{
    if (!socket || socket->state() != QAbstractSocket::ConnectedState)
        return;
    socket->write(pieces.first());
    if (pieces.size() == 1) {
        while (socket->bytesToWrite() > 0 && socket->waitForBytesWritten()) { }
        end(socket, answer.ending);
        return;
    }
    QTimer::singleShot(answer.pieceInterval, socket,
                       [socket, pieces, answer] { sendPieces(socket, pieces.sliced(1), answer); });
}

} // namespace

QByteArray ReceivedRequest::header(const QByteArray &name) const
{
    QByteArrayList values;
    for (const auto &[key, value] : headers) {
        if (key.compare(name, Qt::CaseInsensitive) == 0)
            values.append(value);
    }
    return values.join("; ");
}

QJsonObject ReceivedRequest::json() const { return QJsonDocument::fromJson(body).object(); }
QString ReceivedRequest::rpcMethod() const { return json().value("method"_L1).toString(); }

QString ReceivedRequest::tool() const
{
    return json().value("params"_L1).toObject().value("name"_L1).toString();
}

QJsonObject ReceivedRequest::arguments() const
{
    return json().value("params"_L1).toObject().value("arguments"_L1).toObject();
}

ScriptedAnswer ScriptedAnswer::text(const QByteArray &body, int status)
{
    ScriptedAnswer answer;
    answer.status = status;
    answer.headers = { { "Content-Type", "application/json" } };
    answer.body = body;
    return answer;
}

ScriptedAnswer ScriptedAnswer::json(const QJsonObject &body, int status)
{
    return text(QJsonDocument(body).toJson(QJsonDocument::Compact), status);
}

ScriptedAnswer ScriptedAnswer::content(const QJsonObject &content)
{
    return json({ { u"jsonrpc"_s, u"2.0"_s },
                  { u"result"_s,
                    QJsonObject { { u"content"_s, QJsonArray() },
                                  { u"structuredContent"_s, content } } } });
}

ScriptedAnswer ScriptedAnswer::session(const QByteArray &id, int status)
{
    return text("{}", status).withHeader("mcp-session-id", id);
}

ScriptedAnswer ScriptedAnswer::closedWithoutAnswer()
{
    ScriptedAnswer answer = silence();
    answer.ending = Ending::close;
    return answer;
}

ScriptedAnswer ScriptedAnswer::silence()
{
    ScriptedAnswer answer;
    answer.cutAfter = 0;
    return answer;
}

ScriptedAnswer ScriptedAnswer::held() const
{
    ScriptedAnswer answer = *this;
    answer.isHeld = true;
    return answer;
}

ScriptedAnswer ScriptedAnswer::withHeader(const QByteArray &name, const QByteArray &value) const
{
    ScriptedAnswer answer = *this;
    answer.headers.append({ name, value });
    return answer;
}

ScriptedServer::ScriptedServer(Transport transport)
    : m_server(transport == Transport::tls ? tlsServer() : std::make_unique<QTcpServer>())
    , m_transport(transport)
{
    onInitialize = [this](const ReceivedRequest &) {
        return ScriptedAnswer::session("session-" + QByteArray::number(initializations().size()));
    };
    onToolCall = [](const ReceivedRequest &) { return ScriptedAnswer::content(); };
    connect(m_server.get(), &QTcpServer::pendingConnectionAvailable, this, &ScriptedServer::accept);
    if (!m_server->listen(QHostAddress::LocalHost, 0))
        qFatal("No port on the loopback interface: %s", qPrintable(m_server->errorString()));
}

QUrl ScriptedServer::endpoint() const
{
    QUrl url;
    url.setScheme(m_transport == Transport::tls ? u"https"_s : u"http"_s);
    url.setHost(u"127.0.0.1"_s);
    url.setPort(m_server->serverPort());
    url.setPath(u"/mcp"_s);
    return url;
}

void ScriptedServer::accept()
{
    while (QTcpSocket *socket = m_server->nextPendingConnection()) {
        auto connection = std::make_shared<Connection>();
        connection->socket = socket;
        connection->number = static_cast<int>(m_connections.size()) + 1;
        m_connections.append(connection);
        connect(socket, &QTcpSocket::readyRead, this, [this, connection] { read(connection); });
        connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
        read(connection);
    }
}

void ScriptedServer::read(const std::shared_ptr<Connection> &connection)
{
    connection->received += connection->socket->readAll();
    while (takeRequest(*connection)) {
        const ScriptedAnswer answer = answerTo(m_requests.constLast());
        if (answer.isHeld)
            m_held.append({ connection->socket, answer });
        else
            send(connection->socket, answer);
        if (!connection->socket)
            return;
    }
}

bool ScriptedServer::takeRequest(Connection &connection)
{
    const qsizetype headLength = connection.received.indexOf("\r\n\r\n");
    if (headLength < 0)
        return false;
    QByteArrayList lines = connection.received.left(headLength).replace("\r\n", "\n").split('\n');
    const QByteArrayList start = lines.takeFirst().split(' ');

    ReceivedRequest request;
    request.method = start.value(0);
    request.path = start.value(1);
    request.connection = connection.number;
    for (const QByteArray &line : std::as_const(lines)) {
        const qsizetype colon = line.indexOf(':');
        request.headers.append({ line.left(colon), line.mid(colon + 1).trimmed() });
    }
    const qsizetype bodyAt = headLength + 4;
    const qsizetype bodyLength = request.header("Content-Length").toLongLong();
    if (connection.received.size() < bodyAt + bodyLength)
        return false;
    request.body = connection.received.mid(bodyAt, bodyLength);
    connection.received.remove(0, bodyAt + bodyLength);
    m_requests.append(request);
    return true;
}

ScriptedAnswer ScriptedServer::answerTo(const ReceivedRequest &request)
{
    if (request.rpcMethod() == u"initialize")
        return onInitialize(request);
    return m_queue.isEmpty() ? onToolCall(request) : m_queue.takeFirst();
}

void ScriptedServer::send(const QPointer<QTcpSocket> &socket, const ScriptedAnswer &answer)
{
    sendPieces(socket, piecesOf(answer), answer);
}

void ScriptedServer::release(int position)
{
    const auto [socket, answer] = m_held.takeAt(position);
    send(socket, answer);
}

int ScriptedServer::openConnections() const
{
    return static_cast<int>(
        std::count_if(m_connections.begin(), m_connections.end(), [](const auto &connection) {
            return connection->socket
                && connection->socket->state() == QAbstractSocket::ConnectedState;
        }));
}

void ScriptedServer::close()
{
    m_server->close();
    for (const auto &connection : std::as_const(m_connections)) {
        if (connection->socket)
            connection->socket->abort();
    }
}

QList<ReceivedRequest> ScriptedServer::withMethod(QStringView method) const
{
    QList<ReceivedRequest> found;
    std::copy_if(
        m_requests.begin(), m_requests.end(), std::back_inserter(found),
        [method](const ReceivedRequest &request) { return request.rpcMethod() == method; });
    return found;
}
