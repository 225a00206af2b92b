#include "ToolCalls.h"
#include "support/ParsedJson.h"

#include "sample_server/HttpServer.h"
#include "sample_server/SampleServer.h"
#include "sample_server/Tool.h"

#include <QHostAddress>
#include <QTcpSocket>
#include <QTest>

#include <memory>
#include <vector>

using namespace ToolCalls;
using namespace std::chrono_literals;

namespace {

/// A client that sends bytes as it is told and reads answers one by one. It shares the thread with
/// the server: whatever waits here lets the server work.
class RawClient
{
public:
    struct Answer
    {
        int status = 0; ///< 0 when none came before the server left
        QByteArray head; ///< in lower case
        QByteArray body;

        QJsonObject json() const { return parsed(body); }
        QByteArray header(const QByteArray &name) const
        {
            const QByteArray rest = head.mid(head.indexOf("\r\n" + name + ": "));
            return rest.mid(name.size() + 4).split('\r').first();
        }
    };

    explicit RawClient(quint16 port) { socket.connectToHost(QHostAddress::LocalHost, port); }

    void send(const QByteArray &bytes) { socket.write(bytes); }

    Answer read()
    {
        Answer answer;
        const auto isWhole = [this, &answer] {
            m_bytes += socket.readAll();
            const qsizetype end = m_bytes.indexOf("\r\n\r\n") + 4;
            answer.head = m_bytes.left(end).toLower();
            const qsizetype size = answer.header("content-length").toInt();
            if (end < 4 || m_bytes.size() < end + size)
                return false;
            answer.status = answer.head.mid(9, 3).toInt();
            answer.body = m_bytes.mid(end, size);
            m_bytes.remove(0, end + size);
            return true;
        };
        const auto hasEnded = [&] {
            return isWhole() || socket.state() == QAbstractSocket::UnconnectedState;
        };
        if (!QTest::qWaitFor(hasEnded, 20'000))
            qWarning("No answer came.");
        return answer;
    }

    QTcpSocket socket;

private:
    QByteArray m_bytes;
};

using Headers = QMap<QByteArray, QByteArray>;

/// A request as clients send it, but for the headers given; an empty one is left out.
QByteArray post(const QByteArray &body, const Headers &headers = {},
                const QByteArray &start = "POST /mcp HTTP/1.1")
{
    Headers all { { "Host", "127.0.0.1" },
                  { "Content-Type", "application/json" },
                  { "Accept", "application/json, text/event-stream" },
                  { "Content-Length", QByteArray::number(body.size()) } };
    all.insert(headers);
    QByteArray request = start + "\r\n";
    for (auto header = all.cbegin(); header != all.cend(); ++header) {
        if (!header.value().isEmpty())
            request += header.key() + ": " + header.value() + "\r\n";
    }
    return request + "\r\n" + body;
}

QByteArray rpc(const QJsonValue &id, const QString &method, const QJsonObject &params = {})
{
    const QJsonObject message { { u"jsonrpc"_s, u"2.0"_s },
                                { u"id"_s, id },
                                { u"method"_s, method },
                                { u"params"_s, params } };
    return QJsonDocument(message).toJson(QJsonDocument::Compact);
}

const QByteArray ping = rpc(5, u"ping"_s);

QByteArray toolCall(int id, const QString &tool, const QJsonObject &arguments)
{
    return rpc(id, u"tools/call"_s, { { u"name"_s, tool }, { u"arguments"_s, arguments } });
}

} // namespace

/// What the server makes of requests, good, bad and hostile, byte by byte.
class SampleServerTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_server = std::make_unique<SampleServer>();
        m_server->setClock([] { return fixedNow(); });
        m_port = m_server->listen().value_or(0);
        m_session = initialize(u"2024-11-05"_s).header("mcp-session-id");
        QCOMPARE(m_session.size(), 32);
    }
    void cleanup() { m_server.reset(); }

    void requests()
    {
        // The code is that of the JSON-RPC error, 0 without one.
        const auto row = [this](const char *name, int status, int code, const Headers &headers,
                                const QByteArray &body = ping,
                                const QByteArray &start = "POST /mcp HTTP/1.1") {
            const RawClient::Answer answer = ask(body, headers, start);
            QVERIFY2(answer.status == status, name);
            QVERIFY2(answer.json()["error"_L1]["code"_L1].toInt() == code, name);
            QVERIFY2(answer.json().contains("result"_L1) == (status == 200 && code == 0), name);
            QVERIFY2(answer.head.contains("\r\nallow: post, delete\r\n") == (status == 405), name);
            // No refusal costs the session or the server.
            QVERIFY2(ask(ping).status == 200, name);
        };
        row("host: name and port", 200, 0, { { "Host", "localhost:80" } });
        row("host: foreign", 403, -32600, { { "Host", "127.0.0.1.evil.example" } });
        // HTTP/1.1 has to name one, and some versions of the library see to that themselves.
        row("host: missing", 403, -32600, { { "Host", "" } }, ping, "POST /mcp HTTP/1.0");
        row("origin: IPv6", 200, 0, { { "Origin", "https://[::1]:1" } });
        row("origin: foreign", 403, -32600, { { "Origin", "http://localhost.evil.example" } });
        row("origin: null", 403, -32600, { { "Origin", "null" } });
        row("type: text", 415, -32600, { { "Content-Type", "text/plain" } });
        row("type: parameter", 200, 0, { { "Content-Type", "Application/JSON; charset=utf-8" } });
        row("session: missing", 400, -32001, { { "mcp-session-id", "" } });
        row("session: unknown", 404, -32001, { { "mcp-session-id", "feedbeef" } });
        constexpr qsizetype largest = Sample::HttpServer::largestBody;
        row("length: largest", 200, 0, {}, ping.leftJustified(largest));
        row("length: too large", 413, 0, {}, ping.leftJustified(largest + 1));
        row("endless line", 431, 0, { { "X", QByteArray(100'000, 'x') } });
        row("method", 405, 0, {}, {}, "GET /mcp HTTP/1.1");

        row("no body", 400, -32700, {}, {});
        row("cut off", 400, -32700, {}, R"({"jsonrpc":"2.0","id":1,)");
        row("very deep", 400, -32700, {}, QByteArray(5000, '[') + QByteArray(5000, ']'));
        row("list", 400, -32600, {}, '[' + ping + ']');
        row("id null", 400, -32600, {}, R"({"jsonrpc":"2.0","id":null,"method":"ping"})");
        row("notification", 202, 0, {},
            R"({"jsonrpc":"2.0","method":"notifications/initialized"})");
        row("unknown method", 200, -32601, {}, rpc(1, u"resources/list"_s));
        row("unknown tool", 200, -32602, {}, toolCall(1, u"fly"_s, {}));
        row("no arguments", 200, -32602, {}, toolCall(1, u"get_city_guide"_s, {}));
    }

    void sessions()
    {
        const QByteArray other = initialize(u"2025-06-18"_s).header("mcp-session-id");
        for (const int status : { 200, 404 })
            QCOMPARE(ask({}, { { "mcp-session-id", other } }, "DELETE /mcp HTTP/1.1").status,
                     status);
        // A version that is not known yet is answered with the newest one.
        for (const QString &version : { u"2024-11-05"_s, u"2025-11-25"_s, u"2031-01-01"_s }) {
            QCOMPARE(initialize(version).json()["result"_L1]["protocolVersion"_L1],
                     std::min(version, u"2025-11-25"_s));
        }
        QCOMPARE(ask(rpc(1, u"tools/list"_s)).json()["result"_L1]["tools"_L1].toArray(),
                 Sample::toolDescriptions());
    }

    void sessionsInUseOutliveTheOthers()
    {
        const QByteArray idle = initialize(u"2024-11-05"_s).header("mcp-session-id");
        RawClient client(m_port);
        client.send((own(ping) + post(rpc(1, u"initialize"_s))).repeated(1100));
        for (int i = 0; i < 2200; ++i)
            QCOMPARE(client.read().status, 200);
        QCOMPARE(ask(ping, { { "mcp-session-id", idle } }).status, 404);
    }

    void answersKeepTheOrderOfTheRequests()
    {
        m_server->setAnswerDelay(0ms, 5ms);
        const QString tool = u"get_city_guide"_s;
        const QJsonObject question { { u"cityCode"_s, u"LHR"_s } };
        QByteArray requests;
        for (int i = 0; i < 20; ++i)
            requests += own(i % 2 ? rpc(i, u"ping"_s) : toolCall(i, tool, question));
        RawClient atOnce(m_port);
        atOnce.send(requests);
        RawClient inPieces(m_port);
        for (qsizetype at = 0; at < requests.size(); at += 97) {
            inPieces.send(requests.mid(at, 97));
            QCoreApplication::processEvents();
        }
        for (RawClient *client : { &atOnce, &inPieces }) {
            for (int i = 0; i < 20; ++i) {
                const QJsonObject answer = client->read().json();
                const QJsonValue result = answer["result"_L1];
                const QJsonObject content = i % 2 ? QJsonObject() : call(tool, question);
                QCOMPARE(answer["id"_L1], i);
                QCOMPARE(result["structuredContent"_L1].toObject(), content);
                QCOMPARE(parsed(result["content"_L1][0]["text"_L1].toString().toUtf8()), content);
            }
        }
    }

private:
    /// A request of the session, but for these headers.
    QByteArray own(const QByteArray &body, const Headers &headers = {},
                   const QByteArray &start = "POST /mcp HTTP/1.1") const
    {
        Headers all { { "mcp-session-id", m_session } };
        all.insert(headers);
        return post(body, all, start);
    }
    RawClient::Answer ask(const QByteArray &body, const Headers &headers = {},
                          const QByteArray &start = "POST /mcp HTTP/1.1") const
    {
        RawClient client(m_port);
        client.send(own(body, headers, start));
        return client.read();
    }
    RawClient::Answer initialize(const QString &version) const
    {
        const QByteArray body = rpc(1, u"initialize"_s, { { u"protocolVersion"_s, version } });
        return ask(body, { { "mcp-session-id", "" } });
    }

    std::unique_ptr<SampleServer> m_server;
    quint16 m_port = 0;
    QByteArray m_session;
};

QTEST_GUILESS_MAIN(SampleServerTest)
#include "SampleServerTest.moc"
