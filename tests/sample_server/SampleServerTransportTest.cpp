#include "TestClient.h"

#include <QJsonArray>
#include <QTcpSocket>

using namespace Qt::StringLiterals;

/// What the server makes of requests, good and bad, over real HTTP.
class SampleServerTransportTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY(m_client.port() != 0);
        m_session = m_client.openSession();
        m_batchSession = m_client.openSession("2025-03-26");
        QVERIFY(!m_session.isEmpty() && !m_batchSession.isEmpty());
    }
    void httpConformity_data();
    void httpConformity();
    void messages_data();
    void messages();
    void versions_data();
    void versions();
    void resultsCarryTheirIds_data();
    void resultsCarryTheirIds();
    void batchIsAnsweredInOrder();
    void headerNamesIgnoreCaseAndBlanks();

private:
    TestClient m_client;
    QByteArray m_session;
    QByteArray m_batchSession;
};

Q_DECLARE_METATYPE(TestClient::Headers)

namespace {

constexpr auto ping = R"({"jsonrpc":"2.0","id":5,"method":"ping"})";
constexpr qsizetype largestBody = 1'048'576;

} // namespace

void SampleServerTransportTest::httpConformity_data()
{
    QTest::addColumn<QByteArray>("method");
    QTest::addColumn<TestClient::Headers>("headers");
    QTest::addColumn<QByteArray>("body");
    QTest::addColumn<int>("status");

    using Headers = TestClient::Headers;
    const auto row = [](const char *name, const char *method, const Headers &extra,
                        const QByteArray &body, int status) {
        Headers headers = extra;
        const auto has = [&headers](const char *key) {
            return std::any_of(headers.cbegin(), headers.cend(),
                               [key](const auto &header) { return header.first == key; });
        };
        if (!has("Content-Type"))
            headers.append({ QByteArray("Content-Type"), QByteArray("application/json") });
        if (!has("mcp-session-id"))
            headers.append({ QByteArray("mcp-session-id"), QByteArray("<session>") });
        QTest::newRow(name) << QByteArray(method) << headers << body << status;
    };
    row("plain", "POST", {}, ping, 200);
    for (const char *method : { "GET", "HEAD", "PUT", "PATCH", "OPTIONS" })
        row(method, method, {}, "", 405);
    row("origin: localhost", "POST", { { "Origin", "http://localhost:8080" } }, ping, 200);
    row("origin: loopback address", "POST", { { "Origin", "https://127.3.2.1" } }, ping, 200);
    row("origin: IPv6 loopback", "POST", { { "Origin", "http://[::1]:1" } }, ping, 200);
    row("origin: foreign", "POST", { { "Origin", "https://evil.example" } }, ping, 403);
    row("origin: foreign, disguised", "POST", { { "Origin", "http://localhost.evil.example" } },
        ping, 403);
    row("origin: foreign, user name", "POST", { { "Origin", "http://localhost@evil.example" } },
        ping, 403);
    row("origin: null", "POST", { { "Origin", "null" } }, ping, 403);
    row("origin: foreign, GET", "GET", { { "Origin", "https://evil.example" } }, "", 403);
    row("type with parameter", "POST", { { "Content-Type", "Application/JSON; charset=utf-8" } },
        ping, 200);
    row("type: text", "POST", { { "Content-Type", "text/plain" } }, ping, 415);
    row("type: form", "POST", { { "Content-Type", "application/x-www-form-urlencoded" } }, ping,
        415);
    row("type: json only in a parameter", "POST",
        { { "Content-Type", "text/plain; x=application/json" } }, ping, 415);
    row("accept: any", "POST", { { "Accept", "*/*" } }, ping, 200);
    row("accept: list", "POST", { { "Accept", "text/event-stream, application/json;q=0.5" } }, ping,
        200);
    row("accept: only a stream", "POST", { { "Accept", "text/event-stream" } }, ping, 406);
    row("accept: excluded", "POST", { { "Accept", "application/json; q=0, text/html" } }, ping,
        406);
    row("body at the limit", "POST", {},
        QByteArray(ping) + QByteArray(largestBody - qsizetype(qstrlen(ping)), ' '), 200);
    row("body over the limit", "POST", {},
        QByteArray(ping) + QByteArray(largestBody + 1 - qsizetype(qstrlen(ping)), ' '), 413);
    row("session missing", "POST", { { "mcp-session-id", "" } }, ping, 400);
    row("session unknown", "POST", { { "mcp-session-id", "feedbeef" } }, ping, 404);
    row("session unknown, notification", "POST", { { "mcp-session-id", "feedbeef" } },
        R"({"jsonrpc":"2.0","method":"notifications/initialized"})", 404);
    row("delete without session", "DELETE", { { "mcp-session-id", "" } }, "", 400);
    row("delete unknown session", "DELETE", { { "mcp-session-id", "feedbeef" } }, "", 404);
    row("version header, known", "POST", { { "MCP-Protocol-Version", "2025-06-18" } }, ping, 200);
    row("version header, unknown", "POST", { { "MCP-Protocol-Version", "1999-01-01" } }, ping, 400);
}

void SampleServerTransportTest::httpConformity()
{
    QFETCH(QByteArray, method);
    QFETCH(TestClient::Headers, headers);
    QFETCH(QByteArray, body);
    QFETCH(int, status);
    for (auto &header : headers) {
        if (header.second == "<session>")
            header.second = m_session;
    }
    headers.removeIf([](const auto &header) { return header.second.isEmpty(); });
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

void SampleServerTransportTest::messages_data()
{
    QTest::addColumn<QByteArray>("body");
    QTest::addColumn<int>("status");
    QTest::addColumn<int>("code");

    const auto row = [](const char *name, const QByteArray &body, int status, int code) {
        QTest::newRow(name) << body << status << code;
    };
    row("empty", "", 400, -32700);
    row("cut off", R"({"jsonrpc":"2.0","id":1,)", 400, -32700);
    row("not UTF-8", "{\"jsonrpc\":\"2.0\",\"id\":\"\xff\",\"method\":\"ping\"}", 400, -32700);
    row("very deep", QByteArray(5000, '[') + QByteArray(5000, ']'), 400, -32700);
    row("text", R"("ping")", 400, -32700);
    row("empty object", "{}", 400, -32600);
    row("empty batch", "[]", 400, -32600);
    row("batch in an old session", '[' + QByteArray(ping) + ']', 400, -32600);
    row("version 1.0", R"({"jsonrpc":"1.0","id":1,"method":"ping"})", 400, -32600);
    row("id null", R"({"jsonrpc":"2.0","id":null,"method":"ping"})", 400, -32600);
    row("id fraction", R"({"jsonrpc":"2.0","id":1.5,"method":"ping"})", 400, -32600);
    row("id object", R"({"jsonrpc":"2.0","id":{},"method":"ping"})", 400, -32600);
    row("method number", R"({"jsonrpc":"2.0","id":1,"method":5})", 400, -32600);
    row("result and error", R"({"jsonrpc":"2.0","id":1,"result":{},"error":{}})", 400, -32600);
    row("notification", R"({"jsonrpc":"2.0","method":"notifications/initialized"})", 202, 0);
    row("unknown notification", R"({"jsonrpc":"2.0","method":"notifications/x"})", 202, 0);
    row("call without id", R"({"jsonrpc":"2.0","method":"tools/call","params":{"name":"x"}})", 202,
        0);
    row("response", R"({"jsonrpc":"2.0","id":9,"result":{}})", 202, 0);
    row("error response", R"({"jsonrpc":"2.0","id":9,"error":{"code":1,"message":"x"}})", 202, 0);
    row("unknown method", R"({"jsonrpc":"2.0","id":1,"method":"resources/list"})", 200, -32601);
    row("params array", R"({"jsonrpc":"2.0","id":1,"method":"tools/list","params":[]})", 200,
        -32602);
    row("cursor", R"({"jsonrpc":"2.0","id":1,"method":"tools/list","params":{"cursor":"2"}})", 200,
        -32602);
    row("no tool name", R"({"jsonrpc":"2.0","id":1,"method":"tools/call","params":{}})", 200,
        -32602);
    row("unknown tool",
        R"({"jsonrpc":"2.0","id":1,"method":"tools/call","params":{"name":"fly","arguments":{}}})",
        200, -32602);
    row("arguments array",
        R"({"jsonrpc":"2.0","id":1,"method":"tools/call",
            "params":{"name":"get_city_guide","arguments":["IST"]}})",
        200, -32602);
    row("no arguments",
        R"({"jsonrpc":"2.0","id":1,"method":"tools/call","params":{"name":"get_city_guide"}})", 200,
        -32602);
    row("initialize without version",
        R"({"jsonrpc":"2.0","id":1,"method":"initialize",
            "params":{"capabilities":{},"clientInfo":{"name":"x","version":"1"}}})",
        200, -32602);
    row("initialize without params", R"({"jsonrpc":"2.0","id":1,"method":"initialize"})", 200,
        -32602);
}

void SampleServerTransportTest::messages()
{
    QFETCH(QByteArray, body);
    QFETCH(int, status);
    QFETCH(int, code);
    const TestClient::Answer answer = m_client.post(m_session, body);
    QCOMPARE(answer.status, status);
    QCOMPARE(answer.errorCode(), code);
    if (status == 202)
        QCOMPARE(answer.body, QByteArray());
    QVERIFY(answer.session.isEmpty());
}

void SampleServerTransportTest::versions_data()
{
    QTest::addColumn<QByteArray>("asked");
    QTest::addColumn<QString>("offered");
    for (const char *known : { "2024-11-05", "2025-03-26", "2025-06-18", "2025-11-25" })
        QTest::newRow(known) << QByteArray(known) << QString::fromLatin1(known);
    QTest::newRow("future") << QByteArray("2031-01-01") << u"2025-11-25"_s;
    QTest::newRow("nonsense") << QByteArray("latest") << u"2025-11-25"_s;
}

void SampleServerTransportTest::versions()
{
    QFETCH(QByteArray, asked);
    QFETCH(QString, offered);
    const TestClient::Answer answer = m_client.exchange(
        "POST", { { "Content-Type", "application/json" } }, TestClient::initializeBody(asked));
    QCOMPARE(answer.status, 200);
    const QJsonObject result = answer.json().value("result"_L1).toObject();
    QCOMPARE(result.value("protocolVersion"_L1).toString(), offered);
    QVERIFY(result.value("capabilities"_L1)["tools"_L1].isObject());
    QVERIFY(!result.value("serverInfo"_L1)["name"_L1].toString().isEmpty());
    QCOMPARE(answer.session.size(), 32);

    // No initialized-notification has been sent, and the session is served all the same.
    const TestClient::Answer list =
        m_client.post(answer.session, R"({"jsonrpc":"2.0","id":2,"method":"tools/list"})");
    QCOMPARE(list.json()["result"_L1]["tools"_L1].toArray().size(), 5);
}

void SampleServerTransportTest::resultsCarryTheirIds_data()
{
    QTest::addColumn<QByteArray>("id");
    for (const char *id : { "1", "0", "-3", "9007199254740993", "\"\"", "\"çağrı \\u0001\"" })
        QTest::newRow(id) << QByteArray(id);
}

void SampleServerTransportTest::resultsCarryTheirIds()
{
    QFETCH(QByteArray, id);
    const QByteArray body = R"({"jsonrpc":"2.0","id":)" + id + R"(,"method":"ping"})";
    const QJsonObject answer = m_client.post(m_session, body).json();
    QCOMPARE(answer.value("id"_L1), QJsonDocument::fromJson(body)["id"_L1]);
    QCOMPARE(answer.value("result"_L1), QJsonValue(QJsonObject()));
    QCOMPARE(answer.value("jsonrpc"_L1).toString(), u"2.0"_s);
}

void SampleServerTransportTest::batchIsAnsweredInOrder()
{
    const TestClient::Answer answer = m_client.post(m_batchSession, R"([
        {"jsonrpc":"2.0","id":"a","method":"ping"},
        {"jsonrpc":"2.0","method":"notifications/progress"},
        {"jsonrpc":"2.0","id":3,"method":"initialize","params":{}},
        7,
        {"jsonrpc":"2.0","id":4,"method":"tools/call","params":{"name":"get_city_guide",
         "arguments":{"cityCode":"ESB"}}}])");
    QCOMPARE(answer.status, 200);
    const QJsonArray answers = QJsonDocument::fromJson(answer.body).array();
    QCOMPARE(answers.size(), 4);
    QCOMPARE(answers.at(0)["id"_L1].toString(), u"a"_s);
    QCOMPARE(answers.at(1)["error"_L1]["code"_L1].toInt(), -32600);
    QVERIFY(answers.at(2)["id"_L1].isNull());
    QCOMPARE(answers.at(3)["result"_L1]["structuredContent"_L1]["cityCode"_L1].toString(),
             u"ESB"_s);

    QCOMPARE(m_client.post(m_batchSession, R"([{"jsonrpc":"2.0","method":"x"}])").status, 202);
    QByteArray tooMany = "[";
    for (int i = 0; i < 51; ++i)
        tooMany += QByteArray(i == 0 ? "" : ",") + ping;
    QCOMPARE(m_client.post(m_batchSession, tooMany + ']').status, 400);
}

void SampleServerTransportTest::headerNamesIgnoreCaseAndBlanks()
{
    QTcpSocket socket;
    socket.connectToHost(u"127.0.0.1"_s, m_client.port());
    QVERIFY(socket.waitForConnected(5000));
    const QByteArray body = ping;
    // The body arrives in two pieces.
    socket.write("POST /mcp HTTP/1.1\r\nHost: x\r\nCONTENT-TYPE:application/json\r\n"
                 "MCP-SESSION-ID:   "
                 + m_session + "  \r\ncontent-length: " + QByteArray::number(body.size())
                 + "\r\n\r\n" + body.left(10));
    QVERIFY(socket.waitForBytesWritten(5000));
    QVERIFY(!socket.waitForReadyRead(50));
    socket.write(body.mid(10));
    QVERIFY(socket.waitForReadyRead(5000));
    QVERIFY(socket.readAll().startsWith("HTTP/1.1 200 "));
}

QTEST_GUILESS_MAIN(SampleServerTransportTest)
#include "SampleServerTransportTest.moc"
