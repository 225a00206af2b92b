#include "support/ScriptedServer.h"

#include <QFile>
#include <QHostAddress>
#include <QJsonDocument>
#include <QSslConfiguration>
#include <QSslKey>
#include <QSslServer>
#include <QTimer>

#include <sys/socket.h>

using namespace Qt::StringLiterals;

namespace {

std::unique_ptr<QTcpServer> tlsServer(const QString &certificate, QSsl::SslProtocol protocol)
{
    QFile key(u":/test-certificates/test-fixture.key"_s);
    if (!key.open(QIODevice::ReadOnly))
        qFatal("The test key is missing.");
    QSslConfiguration configuration = QSslConfiguration::defaultConfiguration();
    configuration.setLocalCertificate(ScriptedServer::certificate(certificate));
    configuration.setPrivateKey(QSslKey(&key, QSsl::Ec));
    configuration.setPeerVerifyMode(QSslSocket::VerifyNone);
    configuration.setProtocol(protocol);
    auto server = std::make_unique<QSslServer>();
    server->setSslConfiguration(configuration);
    return server;
}

constexpr char endOfHead[] = "\r\n\r\n";

void send(const QPointer<QTcpSocket> &socket, ScriptedAnswer answer)
{
    if (!socket || socket->state() != QAbstractSocket::ConnectedState)
        return;
    if (!answer.pieces.isEmpty())
        socket->write(answer.pieces.takeFirst());
    if (!answer.pieces.isEmpty()) {
        QTimer::singleShot(answer.interval, socket, [socket, answer] { send(socket, answer); });
        return;
    }
    while (socket->bytesToWrite() > 0 && socket->waitForBytesWritten()) { }
    if (!answer.endless.isEmpty()) {
        const auto sendMore = [socket, endless = answer.endless] {
            if (socket->bytesToWrite() < endless.size())
                socket->write(endless);
        };
        QObject::connect(socket, &QTcpSocket::bytesWritten, socket, sendMore);
        sendMore();
        // Only this direction is closed, so that the connection ends when the client has noticed.
    } else if (answer.ending == ScriptedAnswer::Ending::close)
        ::shutdown(static_cast<int>(socket->socketDescriptor()), SHUT_WR);
    else if (answer.ending == ScriptedAnswer::Ending::reset)
        socket->abort();
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

QString ReceivedRequest::tool() const { return json()["params"_L1]["name"_L1].toString(); }

QJsonObject ReceivedRequest::arguments() const
{
    return json()["params"_L1]["arguments"_L1].toObject();
}

ScriptedAnswer ScriptedAnswer::text(const QByteArray &body, int status)
{
    return { .pieces = { "HTTP/1.1 " + QByteArray::number(status)
                         + " Scripted\r\nContent-Type: application/json\r\nContent-Length: "
                         + QByteArray::number(body.size()) + endOfHead + body } };
}

ScriptedAnswer ScriptedAnswer::content(const QJsonObject &content)
{
    return text(R"({"jsonrpc":"2.0","result":{"content":[],"structuredContent":)"
                + QJsonDocument(content).toJson(QJsonDocument::Compact) + "}}");
}

ScriptedAnswer ScriptedAnswer::failure(const QString &message)
{
    const QJsonObject error { { u"message"_s, message } };
    return text(QJsonDocument(QJsonObject { { u"error"_s, error } }).toJson());
}

ScriptedAnswer ScriptedAnswer::session(const QByteArray &id, int status)
{
    return text("{}", status).withHeader("mcp-session-id", id);
}

QByteArray ScriptedAnswer::body() const
{
    const QByteArray all = bytes();
    return all.sliced(all.indexOf(endOfHead) + qstrlen(endOfHead));
}

ScriptedAnswer ScriptedAnswer::held() const
{
    ScriptedAnswer answer = *this;
    answer.isHeld = true;
    return answer;
}

ScriptedAnswer ScriptedAnswer::cut(qsizetype bytes, Ending ending) const
{
    return { .pieces = { this->bytes().left(bytes) }, .ending = ending };
}

ScriptedAnswer ScriptedAnswer::inChunks(qsizetype size, int interval) const
{
    const QByteArray head = bytes().first(bytes().indexOf("Content-Length"));
    const QByteArray whole = body();
    QByteArrayList chunks { head + "Transfer-Encoding: chunked" + endOfHead };
    for (qsizetype at = 0; at < whole.size(); at += size) {
        const QByteArray chunk = whole.mid(at, size);
        chunks.append(QByteArray::number(chunk.size(), 16) + "\r\n" + chunk + "\r\n");
    }
    return { .pieces = chunks << "0\r\n\r\n", .interval = interval };
}

ScriptedAnswer ScriptedAnswer::withHeader(const QByteArray &name, const QByteArray &value) const
{
    QByteArray all = bytes();
    return { .pieces = {
                 all.insert(all.indexOf("Content-Length"), name + ": " + value + "\r\n") } };
}

QSslCertificate ScriptedServer::certificate(const QString &name)
{
    return QSslCertificate::fromPath(u":/test-certificates/%1.crt"_s.arg(name)).value(0);
}

ScriptedServer::ScriptedServer(const QString &certificate, QSsl::SslProtocol protocol)
    : m_server(certificate.isEmpty() ? std::make_unique<QTcpServer>()
                                     : tlsServer(certificate, protocol))
    , m_isSecure(!certificate.isEmpty())
{
    onInitialize = [this] {
        return ScriptedAnswer::session("session-" + QByteArray::number(initializations().size()));
    };
    onToolCall = [](const ReceivedRequest &) { return ScriptedAnswer::content(); };
    connect(m_server.get(), &QTcpServer::pendingConnectionAvailable, this, [this] {
        while (QTcpSocket *socket = m_server->nextPendingConnection())
            accept(socket);
    });
    if (!m_server->listen(QHostAddress::LocalHost, 0))
        qFatal("No port on the loopback interface: %s", qPrintable(m_server->errorString()));
}

QUrl ScriptedServer::endpoint() const
{
    const QString scheme = m_isSecure ? u"https"_s : u"http"_s;
    return QUrl(u"%1://127.0.0.1:%2/mcp"_s.arg(scheme).arg(m_server->serverPort()));
}

void ScriptedServer::accept(QTcpSocket *socket)
{
    connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
    const auto read = [this, socket, number = ++m_connections, received = QByteArray()]() mutable {
        received += socket->readAll();
        while (takeRequest(received, number))
            answerLastRequest(socket);
    };
    connect(socket, &QTcpSocket::readyRead, this, read);
    if (socket->bytesAvailable() > 0)
        Q_EMIT socket->readyRead();
}

bool ScriptedServer::takeRequest(QByteArray &received, int connection)
{
    const qsizetype headLength = received.indexOf(endOfHead);
    if (headLength < 0)
        return false;
    QByteArrayList lines = received.left(headLength).replace("\r\n", "\n").split('\n');
    const QByteArrayList start = lines.takeFirst().split(' ');

    ReceivedRequest request;
    request.method = start.value(0);
    request.path = start.value(1);
    request.connection = connection;
    for (const QByteArray &line : std::as_const(lines)) {
        const qsizetype colon = line.indexOf(':');
        request.headers.append({ line.left(colon), line.mid(colon + 1).trimmed() });
    }
    const qsizetype bodyAt = headLength + qstrlen(endOfHead);
    const qsizetype bodyLength = request.header("Content-Length").toLongLong();
    if (received.size() < bodyAt + bodyLength)
        return false;
    request.body = received.mid(bodyAt, bodyLength);
    received.remove(0, bodyAt + bodyLength);
    m_requests.append(request);
    return true;
}

void ScriptedServer::answerLastRequest(QTcpSocket *socket)
{
    const ReceivedRequest request = m_requests.constLast();
    ScriptedAnswer answer;
    if (request.rpcMethod() == u"initialize")
        answer = onInitialize();
    else
        answer = m_queue.isEmpty() ? onToolCall(request) : m_queue.takeFirst();
    if (answer.isHeld)
        m_held.append({ socket, answer });
    else
        send(socket, answer);
}

void ScriptedServer::release()
{
    const auto [socket, answer] = m_held.takeFirst();
    send(socket, answer);
}

int ScriptedServer::openConnections() const
{
    return static_cast<int>(m_server->findChildren<QTcpSocket *>().size());
}

void ScriptedServer::close()
{
    m_server->close();
    for (QTcpSocket *socket : m_server->findChildren<QTcpSocket *>())
        socket->abort();
}

QList<ReceivedRequest> ScriptedServer::toolCalls(const QString &tool) const
{
    QList<ReceivedRequest> calls = withMethod(u"tools/call");
    calls.removeIf([&](const auto &call) { return !tool.isEmpty() && call.tool() != tool; });
    return calls;
}

QList<ReceivedRequest> ScriptedServer::withMethod(QStringView method) const
{
    QList<ReceivedRequest> found = m_requests;
    found.removeIf([method](const auto &request) { return request.rpcMethod() != method; });
    return found;
}
