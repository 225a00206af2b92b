#include "support/ClientTesting.h"
#include "support/ScriptedServer.h"

#include <QJsonArray>
#include <QJsonDocument>

using namespace Qt::StringLiterals;

namespace {

QJsonObject parsed(const char *json) { return QJsonDocument::fromJson(json).object(); }

QCoro::Task<QJsonObject> call(const QString &tool = u"any"_s)
{
    return VTRMCPClient::shared().callTool(tool, QJsonObject());
}

} // namespace

/// The session and the calls as the server sees them, over real HTTP.
class VTRMCPClientTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_server = std::make_unique<ScriptedServer>();
        VTRMCPClientTestAccess::replaceShared(m_server->endpoint());
    }
    void cleanup()
    {
        VTRMCPClientTestAccess::destroyShared();
        m_server.reset();
    }

    void requestsAreWrittenExactly();
    void callsStartedTogetherShareOneInitialize();
    void sessionHeader_data();
    void sessionHeader();
    void missingSession_data();
    void missingSession();
    void aFailedInitializeIsFinal();
    void aLostSessionIsOpenedAnew_data();
    void aLostSessionIsOpenedAnew();
    void twoCallsLoseTheSessionTogether();
    void aFailedInitializeEndsTheRepeating();
    void resultShapes_data();
    void resultShapes();
    void errorShapes_data();
    void errorShapes();
    void answersMayOvertakeEachOther();
    void aCompressedBodyIsRead();

private:
    std::unique_ptr<ScriptedServer> m_server;
};

void VTRMCPClientTest::requestsAreWrittenExactly()
{
    const QJsonObject arguments { { u"şehir"_s, u"İzmir \"1\""_s }, { u"n"_s, 14 } };
    QVERIFY(settle(VTRMCPClient::shared().callTool(u"tool-name"_s, arguments)).value);

    QCOMPARE(m_server->requests().size(), 2);
    const ReceivedRequest initialize = m_server->requests().at(0);
    const ReceivedRequest call = m_server->requests().at(1);
    for (const ReceivedRequest &request : { initialize, call }) {
        QCOMPARE(request.method, "POST");
        QCOMPARE(request.path, "/mcp");
        QCOMPARE(request.header("Content-Type"), "application/json");
        QCOMPARE(request.header("Accept"), "application/json, text/event-stream");
        QVERIFY(!request.body.contains('\n'));
    }
    QCOMPARE(initialize.header("mcp-session-id"), "");
    QCOMPARE(call.header("mcp-session-id"), "session-1");
    QCOMPARE(initialize.json(), parsed(R"({
        "jsonrpc": "2.0", "id": 1, "method": "initialize",
        "params": {
            "protocolVersion": "2024-11-05",
            "capabilities": { "tools": { "listChanged": true } },
            "clientInfo": { "name": "vtr-flight-finder-macos-native", "version": "1.0.0" } } })"));
    QCOMPARE(call.json(), parsed(R"({
        "jsonrpc": "2.0", "id": 1, "method": "tools/call",
        "params": { "name": "tool-name", "arguments": { "şehir": "İzmir \"1\"", "n": 14 } } })"));
}

void VTRMCPClientTest::callsStartedTogetherShareOneInitialize()
{
    m_server->onInitialize = [](const ReceivedRequest &) {
        return ScriptedAnswer::session("shared").held();
    };
    const auto first = watch(call());
    const auto second = watch(call());
    const auto third = watch(VTRMCPClient::shared().getSessionId());
    QTRY_COMPARE(m_server->heldCount(), 1);
    m_server->release();

    QVERIFY(settle(first).value);
    QVERIFY(settle(second).value);
    QCOMPARE(settle(third).value.value_or(QString()), u"shared"_s);
    QCOMPARE(m_server->initializations().size(), 1);
    QCOMPARE(m_server->toolCalls().size(), 2);
    for (const ReceivedRequest &request : m_server->toolCalls())
        QCOMPARE(request.header("mcp-session-id"), "shared");
}

void VTRMCPClientTest::sessionHeader_data()
{
    QTest::addColumn<ScriptedAnswer>("answer");
    QTest::addColumn<QByteArray>("session");

    const auto named = [](const QByteArray &name, int status = 200) {
        return ScriptedAnswer::text("{}", status).withHeader(name, "s1");
    };
    QTest::newRow("capitals") << named("MCP-SESSION-ID") << QByteArray("s1");
    QTest::newRow("mixed case") << named("Mcp-Session-Id") << QByteArray("s1");
    QTest::newRow("server error") << named("mcp-session-id", 500) << QByteArray("s1");
    QTest::newRow("not found") << named("mcp-session-id", 404) << QByteArray("s1");
    QTest::newRow("redirect") << named("mcp-session-id", 302).withHeader("Location", "/elsewhere")
                              << QByteArray("s1");
    QTest::newRow("body that is no JSON")
        << ScriptedAnswer::text("event: x").withHeader("mcp-session-id", "s1") << QByteArray("s1");
    QTest::newRow("long, with every kind of sign")
        << ScriptedAnswer::session("!~/+=\"" + QByteArray(4000, 'x'))
        << QByteArray("!~/+=\"" + QByteArray(4000, 'x'));
}

void VTRMCPClientTest::sessionHeader()
{
    QFETCH(ScriptedAnswer, answer);
    QFETCH(QByteArray, session);
    m_server->onInitialize = [answer](const ReceivedRequest &) { return answer; };

    QVERIFY(settle(call()).value);
    QCOMPARE(m_server->requests().size(), 2);
    QCOMPARE(m_server->requests().at(1).header("mcp-session-id"), session);
}

void VTRMCPClientTest::missingSession_data()
{
    QTest::addColumn<ScriptedAnswer>("answer");
    QTest::addColumn<QString>("text");

    QTest::newRow("ok without header") << ScriptedAnswer::text("bakımda") << u"bakımda"_s;
    QTest::newRow("empty header") << ScriptedAnswer::text("boş").withHeader("mcp-session-id", "")
                                  << u"boş"_s;
    QTest::newRow("unavailable") << ScriptedAnswer::text("{\"a\":1}", 503) << u"{\"a\":1}"_s;
    QTest::newRow("unauthorized, with a challenge")
        << ScriptedAnswer::text("kimsin", 401).withHeader("WWW-Authenticate", "Basic realm=\"x\"")
        << u"kimsin"_s;
    QTest::newRow("redirect") << ScriptedAnswer::text("", 307).withHeader("Location", "/elsewhere")
                              << QString();
    QTest::newRow("no UTF-8") << ScriptedAnswer::text("caf\xe9 x") << QString();
    QTest::newRow("cut UTF-8") << ScriptedAnswer::text("caf\xc3") << QString();
}

void VTRMCPClientTest::missingSession()
{
    QFETCH(ScriptedAnswer, answer);
    QFETCH(QString, text);
    m_server->onInitialize = [answer](const ReceivedRequest &) { return answer; };

    const auto outcome = settle(call());
    QVERIFY(outcome.error);
    QCOMPARE(outcome.error->domain(), McpError::Domain::Client);
    QCOMPARE(outcome.error->code(), answer.status);
    QCOMPARE(outcome.errorText(), u"No mcp-session-id header: "_s + text);
    QCOMPARE(m_server->requests().size(), 1);
}

void VTRMCPClientTest::aFailedInitializeIsFinal()
{
    m_server->onInitialize = [](const ReceivedRequest &) { return ScriptedAnswer::text("yok"); };
    const auto together = watch(call());
    const auto first = settle(call());
    const auto later = settle(call());
    QCOMPARE(first.errorText(), u"No mcp-session-id header: yok"_s);
    QCOMPARE(settle(together).errorText(), first.errorText());
    QCOMPARE(later.errorText(), first.errorText());
    QCOMPARE(later.error->code(), 200);
    QCOMPARE(m_server->requests().size(), 1);
}

void VTRMCPClientTest::aLostSessionIsOpenedAnew_data()
{
    QTest::addColumn<int>("status");
    QTest::newRow("400") << 400;
    QTest::newRow("404") << 404;
}

void VTRMCPClientTest::aLostSessionIsOpenedAnew()
{
    QFETCH(int, status);
    const ScriptedAnswer lost =
        ScriptedAnswer::json({ { u"error"_s, QJsonObject { { u"message"_s, u"x"_s } } } }, status);
    m_server->enqueue(
        { ScriptedAnswer::content(), lost, lost, ScriptedAnswer::content({ { u"a"_s, 1 } }) });
    QVERIFY(settle(call()).value);
    const QJsonObject arguments { { u"k"_s, u"v"_s } };
    const auto outcome = settle(VTRMCPClient::shared().callTool(u"repeated"_s, arguments));

    QVERIFY2(outcome.value, qPrintable(outcome.errorText()));
    QCOMPARE(*outcome.value, QJsonObject({ { u"a"_s, 1 } }));
    QCOMPARE(m_server->initializations().size(), 3);
    for (const ReceivedRequest &request : m_server->initializations())
        QCOMPARE(request.json().value("id"_L1), 1);
    const QList<ReceivedRequest> calls = m_server->toolCalls();
    QCOMPARE(calls.size(), 4);
    for (int index = 1; index < 4; ++index) {
        QCOMPARE(calls.at(index).tool(), u"repeated"_s);
        QCOMPARE(calls.at(index).arguments(), arguments);
        QCOMPARE(calls.at(index).json().value("id"_L1), index + 1);
        QCOMPARE(calls.at(index).header("mcp-session-id"),
                 "session-" + QByteArray::number(std::max(index, 1)));
    }
}

void VTRMCPClientTest::twoCallsLoseTheSessionTogether()
{
    const ScriptedAnswer lost = ScriptedAnswer::text("{}", 404);
    m_server->enqueue({ lost.held(), lost.held() });
    const auto first = watch(call(u"first"_s));
    const auto second = watch(call(u"second"_s));
    QTRY_COMPARE(m_server->heldCount(), 2);
    m_server->release();
    m_server->release();

    QVERIFY(settle(first).value);
    QVERIFY(settle(second).value);
    QVERIFY(m_server->initializations().size() <= 3);
    const QList<ReceivedRequest> calls = m_server->toolCalls();
    QCOMPARE(calls.size(), 4);
    QSet<qint64> ids;
    for (const ReceivedRequest &request : calls)
        ids.insert(request.json().value("id"_L1).toInteger());
    QCOMPARE(ids, QSet<qint64>({ 1, 2, 3, 4 }));
    for (const ReceivedRequest &request : calls.sliced(2))
        QVERIFY(request.header("mcp-session-id") != "session-1");
}

void VTRMCPClientTest::aFailedInitializeEndsTheRepeating()
{
    m_server->onInitialize = [this](const ReceivedRequest &) {
        return m_server->initializations().size() == 1 ? ScriptedAnswer::session("only")
                                                       : ScriptedAnswer::text("dolu", 503);
    };
    m_server->onToolCall = [](const ReceivedRequest &) { return ScriptedAnswer::text("{}", 404); };

    QCOMPARE(settle(call()).errorText(), u"No mcp-session-id header: dolu"_s);
    QCOMPARE(m_server->requests().size(), 3);
    QVERIFY(settle(call()).error);
    QCOMPARE(m_server->requests().size(), 3);
}

void VTRMCPClientTest::resultShapes_data()
{
    QTest::addColumn<QByteArray>("body");
    QTest::addColumn<QJsonObject>("result");

    const auto row = [](const char *name, const char *body, const char *result) {
        QTest::newRow(name) << QByteArray(body) << parsed(result);
    };
    row("structured", R"({"id":2,"result":{"structuredContent":{"a":1},"content":[]}})",
        R"({"a":1})");
    row("structured and empty", R"({"result":{"structuredContent":{},"content":[]}})", "{}");
    row("whole result", R"({"id":2,"result":{"content":[]}})", R"({"content":[]})");
    row("structured is an array", R"({"result":{"structuredContent":[1]}})",
        R"({"structuredContent":[1]})");
    row("structured is null", R"({"result":{"structuredContent":null,"b":2}})",
        R"({"structuredContent":null,"b":2})");
    row("tool error flag", R"({"result":{"isError":true}})", R"({"isError":true})");
    row("result is a text", R"({"jsonrpc":"2.0","id":2,"result":"x"})", "{}");
    row("no result", R"({"jsonrpc":"2.0","id":3})", "{}");
    row("empty object", "{}", "{}");
    row("error is a text", R"({"error":"kapalı"})", "{}");
    row("error is null", R"({"error":null,"result":{"a":1}})", R"({"a":1})");
    row("other id", R"({"id":"x","result":{"a":1}})", R"({"a":1})");
    row("blanks around", " \r\n\t{\"result\":{\"a\":1}}\n\n", R"({"a":1})");
}

void VTRMCPClientTest::resultShapes()
{
    QFETCH(QByteArray, body);
    QFETCH(QJsonObject, result);
    m_server->enqueue({ ScriptedAnswer::text(body) });
    const auto outcome = settle(call());
    QVERIFY2(outcome.value, qPrintable(outcome.errorText()));
    QCOMPARE(*outcome.value, result);
}

void VTRMCPClientTest::errorShapes_data()
{
    QTest::addColumn<int>("status");
    QTest::addColumn<QByteArray>("body");
    QTest::addColumn<QString>("text");

    const auto row = [](const char *name, int status, const char *body, const QString &text) {
        QTest::newRow(name) << status << QByteArray(body) << text;
    };
    const QString withoutMessage = u"Tool execution failed"_s;
    row("message", 200, R"({"error":{"code":-32602,"message":"Geçersiz tarih"}})",
        u"Geçersiz tarih"_s);
    row("empty message", 200, R"({"error":{"message":""}})", QString());
    row("message is a number", 200, R"({"error":{"message":7}})", withoutMessage);
    row("no message", 200, R"({"error":{}})", withoutMessage);
    row("error beside a result", 200, R"({"error":{},"result":{"a":1}})", withoutMessage);
    row("array", 200, "[{}]", u"Invalid JSON response"_s);
    row("empty array", 200, "[]", u"Invalid JSON response"_s);
    for (const int status : { 302, 307, 401, 403, 405, 407, 418, 429, 500, 503 }) {
        row(qPrintable(u"status %1"_s.arg(status)), status, R"({"error":{"message":"olmadı"}})",
            u"olmadı"_s);
    }
}

void VTRMCPClientTest::errorShapes()
{
    QFETCH(int, status);
    QFETCH(QByteArray, body);
    QFETCH(QString, text);
    m_server->enqueue({ ScriptedAnswer::text(body, status)
                            .withHeader("Location", "/elsewhere")
                            .withHeader("WWW-Authenticate", "Basic realm=\"x\"")
                            .withHeader("Proxy-Authenticate", "Basic realm=\"x\"") });
    const auto outcome = settle(call());
    QVERIFY(outcome.error);
    QCOMPARE(outcome.errorText(), text);
    QCOMPARE(outcome.error->domain(), McpError::Domain::Client);
    QCOMPARE(outcome.error->code(), -1);
    QCOMPARE(m_server->requests().size(), 2);
}

void VTRMCPClientTest::answersMayOvertakeEachOther()
{
    QVERIFY(settle(call()).value);
    m_server->onToolCall = [](const ReceivedRequest &request) {
        return ScriptedAnswer::content({ { u"tool"_s, request.tool() } }).held();
    };
    QList<PendingOutcome<QJsonObject>> calls;
    for (const QString &tool : { u"a"_s, u"b"_s, u"c"_s })
        calls.append(watch(call(tool)));
    QTRY_COMPARE(m_server->heldCount(), 3);
    const QList<ReceivedRequest> received = m_server->toolCalls().sliced(1);
    for (int index = 2; index >= 0; --index) {
        const QString tool = received.at(index).tool();
        m_server->release(index);
        const auto outcome = settle(calls.at(tool.at(0).unicode() - u'a'));
        QCOMPARE(outcome.value.value_or(QJsonObject()).value("tool"_L1).toString(), tool);
    }
}

void VTRMCPClientTest::aCompressedBodyIsRead()
{
    // Compresses better than a thousandfold, as a long list of like flights nearly does.
    const QByteArray text = "{\"result\":{\"a\":\"" + QByteArray(12'000'000, 'x') + "\"}}";
    // Behind its own length Qt's format is that of the encoding "deflate".
    m_server->enqueue({ ScriptedAnswer::text(qCompress(text).sliced(4))
                            .withHeader("Content-Encoding", "deflate") });
    const auto outcome = settle(call());
    QVERIFY2(outcome.value, qPrintable(outcome.errorText()));
    QCOMPARE(outcome.value->value("a"_L1).toString().size(), 12'000'000);
}

QTEST_GUILESS_MAIN(VTRMCPClientTest)
#include "VTRMCPClientTest.moc"
