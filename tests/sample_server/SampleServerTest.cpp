#include "support/ParsedJson.h"

#include "sample_server/HttpServer.h"
#include "sample_server/SampleServer.h"
#include "sample_server/Tool.h"

#include <QHostAddress>
#include <QTcpSocket>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

struct Answer
{
    int status = 0; ///< 0 when none came before the server left
    QByteArray head; ///< in lower case
    QJsonObject json;

    QByteArray header(const QByteArray &name) const
    {
        const QByteArray rest = head.mid(head.indexOf("\r\n" + name + ": "));
        return rest.mid(name.size() + 4).split('\r').first();
    }
};

/// Takes the first answer out of what was received.
Answer takeAnswer(QByteArray &received)
{
    Answer answer;
    const qsizetype end = received.indexOf("\r\n\r\n") + 4;
    answer.head = received.left(end).toLower();
    answer.status = answer.head.mid(9, 3).toInt();
    const qsizetype size = answer.header("content-length").toInt();
    answer.json = parsed(received.mid(end, size));
    received.remove(0, end + size);
    return answer;
}

using Headers = QMap<QByteArray, QByteArray>;

QByteArray rpc(const QJsonValue &id, const QString &method, const QJsonObject &params = {})
{
    const QJsonObject message { { u"jsonrpc"_s, u"2.0"_s },
                                { u"id"_s, id },
                                { u"method"_s, method },
                                { u"params"_s, params } };
    return QJsonDocument(message).toJson(QJsonDocument::Compact);
}

const QByteArray ping = rpc(5, u"ping"_s);
const Headers last { { "Connection", "close" } };

} // namespace

/// What the server makes of requests, good, bad and hostile, byte by byte.
class SampleServerTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_server = std::make_unique<SampleServer>();
        m_port = m_server->listen().value_or(0);
        m_session = openedSession();
        QCOMPARE(m_session.size(), 32);
    }
    void cleanup() { m_server.reset(); }

    void requests()
    {
        // The code is that of the JSON-RPC error, 0 without one.
        const auto row = [this](const QString &what, int status, int code, const Headers &headers,
                                const QByteArray &body = ping,
                                const QByteArray &start = "POST /mcp HTTP/1.1") {
            const auto text = [&what](int status, int code, bool hasResult, bool hasAllow) {
                return u"%1: status %2, code %3, %4 result, %5 Allow"_s.arg(what)
                    .arg(status)
                    .arg(code)
                    .arg(hasResult ? u"a" : u"no", hasAllow ? u"an" : u"no");
            };
            const Answer answer = ask(body, headers, start);
            QCOMPARE(text(answer.status, answer.json["error"_L1]["code"_L1].toInt(),
                          answer.json.contains("result"_L1),
                          answer.header("allow") == "post, delete"),
                     text(status, code, status == 200 && code == 0, status == 405));
            // No refusal costs the session or the server.
            QCOMPARE(ask(ping).status, 200);
        };
        row(u"host: name and port"_s, 200, 0, { { "Host", "localhost:80" } });
        row(u"host: foreign"_s, 403, -32600, { { "Host", "127.0.0.1.evil.example" } });
        row(u"origin: IPv6"_s, 200, 0, { { "Origin", "https://[::1]:1" } });
        row(u"origin: foreign"_s, 403, -32600, { { "Origin", "http://localhost.evil.example" } });
        row(u"path"_s, 404, -32600, {}, ping, "POST / HTTP/1.1");
        row(u"method"_s, 405, 0, {}, {}, "GET /mcp HTTP/1.1");
        row(u"type: text"_s, 415, -32600, { { "Content-Type", "text/plain" } });
        row(u"type: parameter"_s, 200, 0,
            { { "Content-Type", "Application/JSON; charset=utf-8" } });
        row(u"session: missing"_s, 400, -32001, { { "mcp-session-id", "" } });
        row(u"session: unknown"_s, 404, -32001, { { "mcp-session-id", "feedbeef" } });
        constexpr qsizetype largest = Sample::HttpServer::largestBody;
        row(u"length: largest"_s, 200, 0, {}, ping.leftJustified(largest));
        row(u"length: too large"_s, 413, 0, {}, ping.leftJustified(largest + 1));
        row(u"endless line"_s, 431, 0, { { "X", QByteArray(100'000, 'x') } });

        row(u"cut off"_s, 400, -32700, {}, R"({"jsonrpc":"2.0","id":1,)");
        row(u"list"_s, 400, -32600, {}, '[' + ping + ']');
        row(u"id null"_s, 400, -32600, {}, R"({"jsonrpc":"2.0","id":null,"method":"ping"})");
        row(u"notification"_s, 202, 0, {},
            R"({"jsonrpc":"2.0","method":"notifications/initialized"})");
        row(u"unknown method"_s, 200, -32601, {}, rpc(1, u"resources/list"_s));
        row(u"unknown tool"_s, 200, -32602, {},
            rpc(1, u"tools/call"_s, { { u"name"_s, u"fly"_s } }));
    }

    void sessions()
    {
        const QByteArray other = openedSession();
        for (const int status : { 200, 404 })
            QCOMPARE(ask({}, { { "mcp-session-id", other } }, "DELETE /mcp HTTP/1.1").status,
                     status);
        // A version that is not known yet is answered with the newest one.
        for (const QString &version : { u"2024-11-05"_s, u"2025-11-25"_s, u"2031-01-01"_s }) {
            const Answer answer =
                ask(rpc(1, u"initialize"_s, { { u"protocolVersion"_s, version } }));
            QCOMPARE(answer.json["result"_L1]["protocolVersion"_L1],
                     std::min(version, u"2025-11-25"_s));
        }
        QCOMPARE(ask(rpc(1, u"tools/list"_s)).json["result"_L1]["tools"_L1].toArray(),
                 Sample::toolDescriptions());

        // Those in use outlive the others.
        const QByteArray idle = openedSession();
        const QByteArray half = request(rpc(1, u"initialize"_s)).repeated(500) + request(ping);
        for (const Answer &answer : askAll(half.repeated(2) + request(ping, last), 1003))
            QCOMPARE(answer.status, 200);
        QCOMPARE(ask(ping, { { "mcp-session-id", idle } }).status, 404);
    }

    void toolCalls()
    {
        m_server->setAnswerDelay(10ms, 5ms);
        const QJsonObject question { { u"cityCode"_s, u"LHR"_s } };
        const QJsonObject guide = Sample::cityGuide(question, {});
        const QJsonObject params { { u"name"_s, u"get_city_guide"_s },
                                   { u"arguments"_s, question } };
        const QJsonObject answer = ask(rpc(u"seven"_s, u"tools/call"_s, params)).json;
        const QJsonValue result = answer["result"_L1];
        QCOMPARE(answer["id"_L1], u"seven"_s);
        QCOMPARE(result["structuredContent"_L1].toObject(), guide);
        QCOMPARE(parsed(result["content"_L1][0]["text"_L1].toString().toUtf8()), guide);
    }

    void idleClientsAreGivenUp()
    {
        QTcpSocket idle;
        idle.connectToHost(QHostAddress::LocalHost, m_port);
        QTRY_COMPARE(idle.state(), QAbstractSocket::ConnectedState);
        QTRY_COMPARE_WITH_TIMEOUT(idle.state(), QAbstractSocket::UnconnectedState, 40'000);
    }

private:
    /// A request of the session as clients send it, but for the headers given; an empty one is left
    /// out.
    QByteArray request(const QByteArray &body, const Headers &headers = {},
                       const QByteArray &start = "POST /mcp HTTP/1.1") const
    {
        Headers all { { "Host", "127.0.0.1" },
                      { "Content-Type", "application/json" },
                      { "Content-Length", QByteArray::number(body.size()) },
                      { "mcp-session-id", m_session } };
        all.insert(headers);
        QByteArray bytes = start + "\r\n";
        for (auto header = all.cbegin(); header != all.cend(); ++header) {
            if (!header.value().isEmpty())
                bytes += header.key() + ": " + header.value() + "\r\n";
        }
        return bytes + "\r\n" + body;
    }
    /// The answers to these requests, after the last of which the server closes the connection. It
    /// works while this waits.
    QList<Answer> askAll(const QByteArray &requests, qsizetype count) const
    {
        QTcpSocket socket;
        socket.connectToHost(QHostAddress::LocalHost, m_port);
        socket.write(requests);
        const auto isClosed = [&] { return socket.state() == QAbstractSocket::UnconnectedState; };
        if (!QTest::qWaitFor(isClosed, 120'000))
            qWarning("The server has not closed the connection.");
        QByteArray received = socket.readAll();
        QList<Answer> answers;
        for (qsizetype i = 0; i < count; ++i)
            answers.append(takeAnswer(received));
        return answers;
    }
    Answer ask(const QByteArray &body, Headers headers = {},
               const QByteArray &start = "POST /mcp HTTP/1.1") const
    {
        headers.insert(last);
        return askAll(request(body, headers, start), 1).constFirst();
    }
    QByteArray openedSession() const
    {
        return ask(rpc(1, u"initialize"_s), { { "mcp-session-id", "" } }).header("mcp-session-id");
    }

    std::unique_ptr<SampleServer> m_server;
    quint16 m_port = 0;
    QByteArray m_session;
};

QTEST_GUILESS_MAIN(SampleServerTest)
#include "SampleServerTest.moc"
