#include "TestClient.h"

#include <QJsonArray>

using namespace Qt::StringLiterals;

namespace {

const QByteArray ping = R"({"jsonrpc":"2.0","id":5,"method":"ping"})";
constexpr qsizetype largestBody = 1'048'576;

} // namespace

/// What the server makes of requests, good and bad, over real HTTP.
class SampleServerTransportTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        m_session = m_client.initialize().session;
        QCOMPARE(m_session.size(), 32);
    }

    void httpConformity_data()
    {
        QTest::addColumn<QByteArray>("method");
        QTest::addColumn<QByteArray>("header");
        QTest::addColumn<QByteArray>("value");
        QTest::addColumn<QByteArray>("body");
        QTest::addColumn<int>("status");

        for (const char *method : { "GET", "HEAD", "PUT", "PATCH", "OPTIONS" })
            QTest::newRow(method) << QByteArray(method) << ""_ba
                                  << ""_ba
                                  << ""_ba << 405;
        const auto post = [](const char *name, const char *header, const char *value, int status,
                             const QByteArray &body = ping) {
            QTest::newRow(name) << "POST"_ba << QByteArray(header) << QByteArray(value) << body
                                << status;
        };
        post("origin: localhost", "Origin", "http://localhost:8080", 200);
        post("origin: loopback address", "Origin", "https://127.3.2.1", 200);
        post("origin: IPv6 loopback", "Origin", "http://[::1]:1", 200);
        post("origin: foreign", "Origin", "https://evil.example", 403);
        post("origin: disguised", "Origin", "http://localhost.evil.example", 403);
        post("origin: user name", "Origin", "http://localhost@evil.example", 403);
        post("origin: null", "Origin", "null", 403);
        post("type with parameter", "Content-Type", "Application/JSON; charset=utf-8", 200);
        post("type: text", "Content-Type", "text/plain; x=application/json", 415);
        post("accept: any", "Accept", "*/*", 200);
        post("accept: list", "Accept", "text/event-stream, application/json;q=0.5", 200);
        post("accept: only a stream", "Accept", "text/event-stream", 406);
        post("accept: excluded", "Accept", "application/json; q=0, text/html", 406);
        post("body at the limit", "", "", 200, ping + QByteArray(largestBody - ping.size(), ' '));
        post("body over it", "", "", 413, ping + QByteArray(largestBody + 1 - ping.size(), ' '));
        post("session missing", "mcp-session-id", "", 400);
        post("session unknown", "mcp-session-id", "feedbeef", 404);
        post("session unknown, notification", "mcp-session-id", "feedbeef", 404,
             R"({"jsonrpc":"2.0","method":"notifications/initialized"})");
        post("version header, known", "MCP-Protocol-Version", "2025-06-18", 200);
        post("version header, unknown", "MCP-Protocol-Version", "1999-01-01", 400);
    }
    void httpConformity()
    {
        QFETCH(QByteArray, method);
        QFETCH(QByteArray, header);
        QFETCH(QByteArray, value);
        QFETCH(QByteArray, body);
        QFETCH(int, status);
        TestClient::Headers headers = TestClient::sessionHeaders(m_session);
        headers.removeIf([&](const auto &known) { return known.first == header; });
        if (!value.isEmpty())
            headers.append({ header, value });
        const TestClient::Answer answer = m_client.exchange(method, headers, body);
        QCOMPARE(answer.status, status);
        QCOMPARE(answer.allow, status == 405 ? QByteArray("POST, DELETE") : QByteArray());
        if (status != 200 && method != "HEAD") {
            const QJsonValue message = answer.json()["error"_L1]["message"_L1];
            QVERIFY2(message.toString().endsWith(u'.'), answer.body.constData());
        }
        // No refusal costs the session.
        QCOMPARE(m_client.post(m_session, ping).status, 200);
    }

    void messages_data()
    {
        QTest::addColumn<QByteArray>("body");
        QTest::addColumn<int>("status");
        QTest::addColumn<int>("code");

        const auto row = [](const char *name, int status, int code, const QByteArray &body) {
            QTest::newRow(name) << body << status << code;
        };
        row("empty", 400, -32700, "");
        row("cut off", 400, -32700, R"({"jsonrpc":"2.0","id":1,)");
        row("not UTF-8", 400, -32700, "{\"jsonrpc\":\"2.0\",\"id\":\"\xff\",\"method\":\"ping\"}");
        row("very deep", 400, -32700, QByteArray(5000, '[') + QByteArray(5000, ']'));
        row("empty object", 400, -32600, "{}");
        row("empty batch", 400, -32600, "[]");
        row("batch in an old session", 400, -32600, '[' + ping + ']');
        row("version 1.0", 400, -32600, R"({"jsonrpc":"1.0","id":1,"method":"ping"})");
        row("id null", 400, -32600, R"({"jsonrpc":"2.0","id":null,"method":"ping"})");
        row("id fraction", 400, -32600, R"({"jsonrpc":"2.0","id":1.5,"method":"ping"})");
        row("method number", 400, -32600, R"({"jsonrpc":"2.0","id":1,"method":5})");
        row("two outcomes", 400, -32600, R"({"jsonrpc":"2.0","id":1,"result":{},"error":{}})");
        row("notification", 202, 0, R"({"jsonrpc":"2.0","method":"notifications/initialized"})");
        row("call without id", 202, 0,
            R"({"jsonrpc":"2.0","method":"tools/call","params":{"name":"x"}})");
        row("response", 202, 0, R"({"jsonrpc":"2.0","id":9,"result":{}})");

        const auto request = [&row](const char *name, int code, const QByteArray &method,
                                    const QByteArray &params) {
            row(name, 200, code,
                R"({"jsonrpc":"2.0","id":1,"method":")" + method + R"(","params":)" + params + '}');
        };
        request("unknown method", -32601, "resources/list", "{}");
        request("params array", -32602, "tools/list", "[]");
        request("cursor", -32602, "tools/list", R"({"cursor":"2"})");
        request("no tool name", -32602, "tools/call", "{}");
        request("unknown tool", -32602, "tools/call", R"({"name":"fly","arguments":{}})");
        request("arguments array", -32602, "tools/call",
                R"({"name":"get_city_guide","arguments":["IST"]})");
        request("no arguments", -32602, "tools/call", R"({"name":"get_city_guide"})");
        request("initialize without version", -32602, "initialize",
                R"({"capabilities":{},"clientInfo":{"name":"x","version":"1"}})");
    }
    void messages()
    {
        QFETCH(QByteArray, body);
        QFETCH(int, status);
        QFETCH(int, code);
        const TestClient::Answer answer = m_client.post(m_session, body);
        QCOMPARE(answer.status, status);
        QCOMPARE(answer.json()["error"_L1]["code"_L1].toInt(), code);
        QCOMPARE(answer.body.isEmpty(), status == 202);
        QVERIFY(answer.session.isEmpty());
    }

    void versions_data()
    {
        QTest::addColumn<QString>("offered");
        for (const char *known : { "2024-11-05", "2025-03-26", "2025-06-18", "2025-11-25" })
            QTest::newRow(known) << QString::fromLatin1(known);
        QTest::newRow("2031-01-01") << u"2025-11-25"_s;
        QTest::newRow("latest") << u"2025-11-25"_s;
    }
    void versions()
    {
        QFETCH(QString, offered);
        const TestClient::Answer answer = m_client.initialize(QTest::currentDataTag());
        QCOMPARE(answer.status, 200);
        const QJsonObject result = answer.json().value("result"_L1).toObject();
        QCOMPARE(result.value("protocolVersion"_L1).toString(), offered);
        QVERIFY(result.value("capabilities"_L1)["tools"_L1].isObject());
        QVERIFY(!result.value("serverInfo"_L1)["name"_L1].toString().isEmpty());
        // No initialized-notification has been sent, and the session is served all the same.
        const TestClient::Answer list =
            m_client.post(answer.session, R"({"jsonrpc":"2.0","id":2,"method":"tools/list"})");
        QCOMPARE(list.json()["result"_L1]["tools"_L1].toArray().size(), 5);
    }

    void batchIsAnsweredInOrder()
    {
        const QByteArray session = m_client.initialize("2025-03-26").session;
        const TestClient::Answer answer = m_client.post(session, R"([
            {"jsonrpc":"2.0","id":"a","method":"ping"},
            {"jsonrpc":"2.0","method":"notifications/progress"},
            {"jsonrpc":"2.0","id":3,"method":"initialize","params":{}},
            7])");
        QCOMPARE(answer.status, 200);
        const QJsonArray answers = QJsonDocument::fromJson(answer.body).array();
        QCOMPARE(answers.size(), 3);
        QCOMPARE(answers.at(0)["id"_L1].toString(), u"a"_s);
        QCOMPARE(answers.at(1)["error"_L1]["code"_L1].toInt(), -32600);
        QVERIFY(answers.at(2)["id"_L1].isNull());
        const QByteArray tooMany = '[' + QByteArrayList(51, ping).join(',') + ']';
        QCOMPARE(m_client.post(session, tooMany).status, 400);
    }

private:
    TestClient m_client;
    QByteArray m_session;
};

QTEST_GUILESS_MAIN(SampleServerTransportTest)
#include "SampleServerTransportTest.moc"
