#include "support/ClientTesting.h"
#include "support/ParsedJson.h"

using namespace Qt::StringLiterals;

/// The session and the calls as the server sees them, over real HTTP.
class VTRMCPClientTest : public ClientTest
{
    Q_OBJECT

private Q_SLOTS:
    void callsStartedTogetherShareOneInitialize()
    {
        m_server->onInitialize = [] { return ScriptedAnswer::session("shared").held(); };
        const auto first = watch(call(u"tool-name"_s, { { u"şehir"_s, u"İzmir"_s } }));
        const auto second = watch(call(u"tool-name"_s, { { u"şehir"_s, u"İzmir"_s } }));
        const auto third = watch(VTRMCPClient::shared().getSessionId());
        QTRY_COMPARE(m_server->heldCount(), 1);
        m_server->release();
        QCOMPARE(settle(first).errorText(), QString());
        QCOMPARE(settle(second).errorText(), QString());
        QCOMPARE(settle(third).value.value_or(QString()), u"shared"_s);

        QCOMPARE(m_server->requests().size(), 3);
        for (const ReceivedRequest &request : m_server->requests()) {
            QCOMPARE(request.method, "POST");
            QCOMPARE(request.path, "/mcp");
            QCOMPARE(request.header("Content-Type"), "application/json");
            QCOMPARE(request.header("Accept"), "application/json, text/event-stream");
            QVERIFY(!request.body.contains('\n'));
        }
        QCOMPARE(m_server->requests().at(0).header("mcp-session-id"), "");
        QCOMPARE(m_server->requests().at(0).json(), parsed(R"({
            "jsonrpc": "2.0", "id": 1, "method": "initialize",
            "params": {
                "protocolVersion": "2024-11-05",
                "capabilities": { "tools": { "listChanged": true } },
                "clientInfo": { "name": "vtr-flight-finder-macos-native", "version": "1.0.0" } }
            })"));
        QSet<int> ids;
        QSet<int> connections { m_server->requests().at(0).connection };
        for (const ReceivedRequest &request : m_server->toolCalls()) {
            QVERIFY(!connections.contains(request.connection));
            connections.insert(request.connection);
            QCOMPARE(request.header("mcp-session-id"), "shared");
            QJsonObject json = request.json();
            ids.insert(json.take("id"_L1).toInt());
            QCOMPARE(json, parsed(R"({
                "jsonrpc": "2.0", "method": "tools/call",
                "params": { "name": "tool-name", "arguments": { "şehir": "İzmir" } } })"));
        }
        QCOMPARE(ids, QSet<int>({ 1, 2 }));
    }

    void cookiesGoWithEveryLaterRequest()
    {
        m_server->onInitialize = [] {
            return ScriptedAnswer::session("s").withHeader("Set-Cookie", "machine=7; Path=/");
        };
        QVERIFY(settle(call()).value);
        QCOMPARE(m_server->requests().at(0).header("Cookie"), "");
        QCOMPARE(m_server->requests().at(1).header("Cookie"), "machine=7");
    }

    void initializeAnswers_data()
    {
        QTest::addColumn<ScriptedAnswer>("answer");
        QTest::addColumn<QString>("outcome"); // the session that the call names, or its error
        const auto text = &ScriptedAnswer::text;
        const auto session = &ScriptedAnswer::session;
        const QString none = u"No mcp-session-id header: "_s;
        const QByteArray anyCharacter = "!~/+=\"" + QByteArray(4000, 'x');
        QTest::newRow("mixed case")
            << text("{}", 200).withHeader("Mcp-Session-Id", "s1") << u"s1"_s;
        QTest::newRow("server error") << session("s1", 500) << u"s1"_s;
        QTest::newRow("no JSON") << text("event: x", 200).withHeader("mcp-session-id", "s1")
                                 << u"s1"_s;
        QTest::newRow("every kind of character")
            << session(anyCharacter, 200) << QString::fromLatin1(anyCharacter);
        QTest::newRow("no header") << text("bakımda", 200) << none + u"bakımda"_s;
        QTest::newRow("empty header")
            << text("boş", 200).withHeader("mcp-session-id", "") << none + u"boş"_s;
        QTest::newRow("unavailable") << text("{\"a\":1}", 503) << none + u"{\"a\":1}"_s;
        QTest::newRow("challenge")
            << text("kimsin", 401).withHeader("WWW-Authenticate", "Basic realm=\"x\"")
            << none + u"kimsin"_s;
        QTest::newRow("cut UTF-8") << text("caf\xc3", 200) << none;
    }
    void initializeAnswers()
    {
        QFETCH(ScriptedAnswer, answer);
        m_server->onInitialize = [answer] { return answer; };
        const auto ended = settle(call());
        const QList<ReceivedRequest> calls = m_server->toolCalls();
        QCOMPARE(calls.size(), ended.value ? 1 : 0);
        QTEST(ended.value ? QString::fromLatin1(calls.first().header("mcp-session-id"))
                          : ended.errorText(),
              "outcome");
        if (ended.error) {
            QCOMPARE(ended.error->domain(), McpError::Domain::Client);
            QCOMPARE(ended.error->code(), answer.bytes().mid(9, 3).toInt());
        }
    }

    void aLostSessionIsOpenedAnew()
    {
        const QByteArray error = R"({"error":{"message":"x"}})";
        m_server->enqueue({ ScriptedAnswer::content(), ScriptedAnswer::text(error, 400),
                            ScriptedAnswer::text(error, 404),
                            ScriptedAnswer::content({ { u"a"_s, 1 } }) });
        QVERIFY(settle(call()).value);
        const QJsonObject arguments { { u"k"_s, u"v"_s } };
        const auto outcome = settle(call(u"repeated"_s, arguments));

        QVERIFY2(outcome.value, qPrintable(outcome.errorText()));
        QCOMPARE(*outcome.value, parsed(R"({"a":1})"));
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
                     "session-" + QByteArray::number(index));
        }
    }

    void twoCallsLoseTheSessionTogether()
    {
        const ScriptedAnswer lost = ScriptedAnswer::text("{}", 404).held();
        m_server->enqueue({ lost, lost });
        const auto first = watch(call());
        const auto second = watch(call());
        QTRY_COMPARE(m_server->heldCount(), 2);
        m_server->release();
        m_server->release();

        QVERIFY(settle(first).value);
        QVERIFY(settle(second).value);
        QVERIFY(m_server->initializations().size() <= 3);
        QSet<qint64> ids;
        for (const ReceivedRequest &request : m_server->toolCalls())
            ids.insert(request.json().value("id"_L1).toInteger());
        QCOMPARE(m_server->toolCalls().size(), 4);
        QCOMPARE(ids, QSet<qint64>({ 1, 2, 3, 4 }));
        for (const ReceivedRequest &request : m_server->toolCalls().sliced(2))
            QVERIFY(request.header("mcp-session-id") != "session-1");
    }

    void answers()
    {
        const auto answer = [this](int status, const QByteArray &body) {
            const qsizetype before = m_server->toolCalls().size();
            m_server->enqueue({ ScriptedAnswer::text(body, status)
                                    .withHeader("WWW-Authenticate", "NTLM")
                                    .withHeader("Proxy-Authenticate", "Basic realm=\"x\"") });
            const auto outcome = settle(call());
            [&] { QCOMPARE(m_server->toolCalls().size(), before + 1); }();
            return outcome;
        };
        const auto result = [&answer](const char *body, const char *json) {
            const auto outcome = answer(200, body);
            QVERIFY2(outcome.value, body);
            QCOMPARE(*outcome.value, parsed(json));
        };
        result(R"({"id":2,"result":{"structuredContent":{"a":1},"content":[]}})", R"({"a":1})");
        result(R"({"result":{"structuredContent":{},"content":[]}})", "{}");
        result(R"({"id":2,"result":{"content":[]}})", R"({"content":[]})");
        result(R"({"result":{"structuredContent":[1]}})", R"({"structuredContent":[1]})");
        result(R"({"result":{"structuredContent":null}})", R"({"structuredContent":null})");
        result(R"({"result":{"isError":true}})", R"({"isError":true})");
        result(R"({"jsonrpc":"2.0","id":2,"result":"x"})", "{}");
        result(R"({"jsonrpc":"2.0","id":3})", "{}");
        result(R"({"error":"kapalı"})", "{}");
        result(R"({"error":null,"result":{"a":1}})", R"({"a":1})");
        result(" \r\n\t{\"id\":\"x\",\"result\":{\"a\":1}}\n\n", R"({"a":1})");

        const auto error = [&answer](int status, const char *body, const QString &text) {
            const auto outcome = answer(status, body);
            QVERIFY2(outcome.error, body);
            QCOMPARE(outcome.errorText(), text);
            QCOMPARE(outcome.error->domain(), McpError::Domain::Client);
            QCOMPARE(outcome.error->code(), -1);
        };
        const QString withoutMessage = u"Tool execution failed"_s;
        error(200, R"({"error":{"message":""}})", u""_s);
        error(200, R"({"error":{"message":7}})", withoutMessage);
        error(200, R"({"error":{},"result":{"a":1}})", withoutMessage);
        error(200, "[{}]", u"Invalid JSON response"_s);
        for (const int status : { 200, 302, 307, 401, 403, 405, 407, 418, 429, 500, 503 })
            error(status, R"({"error":{"code":-1,"message":"olmadı"}})", u"olmadı"_s);
    }
};

QTEST_GUILESS_MAIN(VTRMCPClientTest)
#include "VTRMCPClientTest.moc"
