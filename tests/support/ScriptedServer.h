#pragma once

#include <QJsonObject>
#include <QPointer>
#include <QSslCertificate>
#include <QTcpServer>
#include <QTcpSocket>
#include <QUrl>

#include <functional>
#include <limits>
#include <memory>

using HeaderList = QList<std::pair<QByteArray, QByteArray>>;

/// A request exactly as it arrived.
struct ReceivedRequest
{
    QByteArray method;
    QByteArray path;
    HeaderList headers; ///< in the order received, names as received
    QByteArray body;
    int connection = 0; ///< 1 for the first connection the server accepted

    /// All values of the header joined by "; ", so that a repeated header shows.
    QByteArray header(const QByteArray &name) const;
    QJsonObject json() const;
    QString rpcMethod() const;
    /// The tool and arguments of a tool call.
    QString tool() const;
    QJsonObject arguments() const;
};

/// What the server does about one request.
struct ScriptedAnswer
{
    enum class Ending { keepAlive, close, reset };

    /// What goes over the wire, one piece each `interval` milliseconds.
    QByteArrayList pieces = {};
    int interval = 0;
    /// When set, sent after that again and again, for as long as the client reads.
    QByteArray endless = {};
    /// After that, or instead of it when there is nothing to send.
    Ending ending = Ending::keepAlive;
    /// Kept back until ScriptedServer::release().
    bool isHeld = false;

    static ScriptedAnswer text(const QByteArray &body, int status = 200);
    /// The JSON-RPC answer whose "structuredContent" is `content`.
    static ScriptedAnswer content(const QJsonObject &content = {});
    /// The JSON-RPC answer that is an error with this message.
    static ScriptedAnswer failure(const QString &message);
    /// The answer to "initialize" that opens this session.
    static ScriptedAnswer session(const QByteArray &id, int status = 200);

    QByteArray bytes() const { return pieces.join(); }
    QByteArray body() const;
    ScriptedAnswer held() const;
    /// Only its first bytes, and then the end.
    ScriptedAnswer cut(qsizetype bytes, Ending ending = Ending::close) const;
    /// The body in chunks of this size, one each `interval` milliseconds.
    ScriptedAnswer inChunks(qsizetype size, int interval = 0) const;
    ScriptedAnswer withHeader(const QByteArray &name, const QByteArray &value) const;
};

/// A raw HTTP/1.1 server on the loopback interface that records what it receives and answers by
/// script. It knows nothing of the client's code and shares none with it.
class ScriptedServer : public QObject
{
    Q_OBJECT

public:
    /// Speaks TLS when it is given a certificate, by the name of its file in support/data.
    explicit ScriptedServer(const QString &certificate = {},
                            QSsl::SslProtocol protocol = QSsl::SecureProtocols);

    static QSslCertificate certificate(const QString &name);

    QUrl endpoint() const;

    /// Answers "initialize"; by default it opens "session-1", "session-2" and so on.
    std::function<ScriptedAnswer()> onInitialize;
    /// Answers every tool call; by default with an empty result.
    std::function<ScriptedAnswer(const ReceivedRequest &)> onToolCall;
    /// Answers the next tool calls in turn, before `onToolCall` is asked.
    void enqueue(const QList<ScriptedAnswer> &answers) { m_queue += answers; }

    const QList<ReceivedRequest> &requests() const { return m_requests; }
    QList<ReceivedRequest> initializations() const { return withMethod(u"initialize"); }
    /// Of one tool, or of all.
    QList<ReceivedRequest> toolCalls(const QString &tool = {}) const;
    int openConnections() const;
    int heldCount() const { return static_cast<int>(m_held.size()); }
    /// Sends the oldest of the answers that are held.
    void release();

    /// Stops listening and drops every connection.
    void close();

private:
    void accept(QTcpSocket *socket);
    bool takeRequest(QByteArray &received, int connection);
    void answerLastRequest(QTcpSocket *socket);
    QList<ReceivedRequest> withMethod(QStringView method) const;

    std::unique_ptr<QTcpServer> m_server;
    bool m_isSecure;
    int m_connections = 0;
    QList<ReceivedRequest> m_requests;
    QList<ScriptedAnswer> m_queue;
    QList<std::pair<QPointer<QTcpSocket>, ScriptedAnswer>> m_held;
};
