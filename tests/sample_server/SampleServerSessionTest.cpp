#include "TestClient.h"
#include "ToolCalls.h"

#include "sample_server/SessionStore.h"

#include <QSet>
#include <QSignalSpy>
#include <QTcpServer>

#include <algorithm>

using namespace ToolCalls;
using namespace std::chrono_literals;

/// How sessions begin and end, and many requests at once.
class SampleServerSessionTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void idleAndSurplusSessionsAreDropped();
    void deletedSessionIsGone();
    void idleSessionIsUnknownToItsClient();
    void manyParallelCallsOnTwoSessions();
    void answersOvertakeOneAnother();
    void impatientClientsDoNoHarm();
    void pendingAnswersDoNotOutliveTheServer();
    void portInUseIsReported();
    void callsAreAnnounced();
};

namespace {

constexpr auto ping = R"({"jsonrpc":"2.0","id":5,"method":"ping"})";

QByteArray callBody(int id, const QString &tool, const QJsonObject &arguments)
{
    const QJsonObject params { { u"name"_s, tool }, { u"arguments"_s, arguments } };
    return QJsonDocument(QJsonObject { { u"jsonrpc"_s, u"2.0"_s },
                                       { u"id"_s, id },
                                       { u"method"_s, u"tools/call"_s },
                                       { u"params"_s, params } })
        .toJson(QJsonDocument::Compact);
}

struct ExpectedCall
{
    QString tool;
    QJsonObject arguments;
};

/// A different question for each number.
ExpectedCall callOf(int number)
{
    static const QStringList codes { u"LHR"_s, u"JFK"_s, u"AYT"_s, u"SYD"_s, u"VAN"_s };
    const QString &code = codes.at(number % codes.size());
    switch (number % 3) {
    case 0:
        return { u"find_flight_price_calendar"_s,
                 calendarArguments(u"IST"_s, code, dayText(number), u"4_WEEKS"_s) };
    case 1:
        return { u"search_flights"_s, searchArguments(u"ESB"_s, code, dayText(number), 2) };
    default:
        return { u"get_city_guide"_s, { { u"cityCode"_s, code } } };
    }
}

} // namespace

void SampleServerSessionTest::idleAndSurplusSessionsAreDropped()
{
    Sample::SessionStore store;
    store.setIdleTimeout(10s);
    store.setMaximumCount(3);
    const Sample::SessionStore::Moment start {};
    const QByteArray first = store.open(u"v1"_s, start);
    const QByteArray second = store.open(u"v2"_s, start + 1s);
    QVERIFY(first != second);
    QCOMPARE(store.touch(first, start + 9s), u"v1"_s);
    QCOMPARE(store.touch(second, start + 11s), std::nullopt);
    QCOMPARE(store.touch(first, start + 18s), u"v1"_s);

    const QByteArray third = store.open(u"v3"_s, start + 19s);
    const QByteArray fourth = store.open(u"v4"_s, start + 20s);
    QCOMPARE(store.touch(first, start + 21s), u"v1"_s);
    const QByteArray fifth = store.open(u"v5"_s, start + 22s);
    QCOMPARE(store.touch(third, start + 22s), std::nullopt);
    QVERIFY(store.touch(first, start + 22s) && store.touch(fourth, start + 22s));
    QVERIFY(!store.close(fifth, start + 32s));
    QCOMPARE(store.count(start + 32s), 0);
}

void SampleServerSessionTest::deletedSessionIsGone()
{
    TestClient client;
    const QByteArray ended = client.openSession();
    const QByteArray other = client.openSession();
    const auto remove = [&] {
        return client.exchange("DELETE", { { "mcp-session-id", ended } }, {}).status;
    };
    QCOMPARE(remove(), 200);
    QCOMPARE(remove(), 404);
    QCOMPARE(client.post(ended, ping).status, 404);
    QCOMPARE(client.post(other, ping).status, 200);
}

void SampleServerSessionTest::idleSessionIsUnknownToItsClient()
{
    TestClient client;
    const QByteArray session = client.openSession();
    client.onServer([](SampleServer &server) { server.setSessionIdleTimeout(0ms); });
    QCOMPARE(client.post(session, ping).status, 404);
    client.onServer([](SampleServer &server) { QCOMPARE(server.sessionCount(), 0); });
}

void SampleServerSessionTest::manyParallelCallsOnTwoSessions()
{
    TestClient client;
    client.onServer([](SampleServer &server) {
        server.setClock([] { return fixedNow(); });
        server.setWebSite(u"https://www.example.test/"_s);
        server.setAnswerDelay(0ms, 20ms);
    });
    constexpr int callsOfSession = 50;
    const QByteArray sessions[] { client.openSession(), client.openSession("2025-11-25") };
    QList<QNetworkReply *> replies;
    for (int number = 0; number < callsOfSession; ++number) {
        for (const QByteArray &session : sessions) {
            const ExpectedCall call = callOf(number);
            replies.append(client.send("POST", TestClient::sessionHeaders(session),
                                       callBody(number, call.tool, call.arguments)));
        }
    }
    QTRY_VERIFY_WITH_TIMEOUT(
        std::all_of(replies.cbegin(), replies.cend(),
                    [](const QNetworkReply *reply) { return reply->isFinished(); }),
        60'000);
    for (int i = 0; i < replies.size(); ++i) {
        const TestClient::Answer answer = TestClient::read(replies.at(i));
        QCOMPARE(answer.status, 200);
        QCOMPARE(answer.json()["id"_L1].toInt(), i / 2);
        const ExpectedCall expected = callOf(i / 2);
        const QJsonObject result = answer.json()["result"_L1].toObject();
        QCOMPARE(result.value("structuredContent"_L1).toObject(),
                 call(expected.tool, expected.arguments));
        QCOMPARE(result.value("isError"_L1), QJsonValue(false));
        const QString text = result.value("content"_L1)[0]["text"_L1].toString();
        QCOMPARE(parsed(text.toUtf8()), result.value("structuredContent"_L1).toObject());
    }
}

void SampleServerSessionTest::answersOvertakeOneAnother()
{
    TestClient client;
    const QByteArray session = client.openSession();
    client.onServer([](SampleServer &server) { server.setAnswerDelay(50ms, 400ms); });
    QList<int> finished;
    for (int id = 0; id < 6; ++id) {
        QNetworkReply *reply =
            client.send("POST", TestClient::sessionHeaders(session),
                        R"({"jsonrpc":"2.0","method":"ping","id":)" + QByteArray::number(id) + '}');
        connect(reply, &QNetworkReply::finished, reply, [&finished, reply] {
            finished.append(TestClient::read(reply).json()["id"_L1].toInt());
        });
    }
    QTRY_COMPARE_WITH_TIMEOUT(finished.size(), 6, 10'000);
    QVERIFY(!std::is_sorted(finished.cbegin(), finished.cend()));
    QCOMPARE(QSet<int>(finished.cbegin(), finished.cend()).size(), 6);
}

void SampleServerSessionTest::impatientClientsDoNoHarm()
{
    TestClient client;
    const QByteArray session = client.openSession();
    client.onServer([](SampleServer &server) { server.setAnswerDelay(60ms); });
    const QByteArray body =
        callBody(1, u"search_flights"_s, searchArguments(u"IST"_s, u"LHR"_s, dayText(1)));
    for (int i = 0; i < 20; ++i) {
        QNetworkReply *reply = client.send("POST", TestClient::sessionHeaders(session), body);
        QTest::qWait(i * 5); // some give up before their answer is due, some after
        reply->abort();
        reply->deleteLater();
    }
    QCOMPARE(client.post(session, ping).status, 200);
}

void SampleServerSessionTest::pendingAnswersDoNotOutliveTheServer()
{
    QNetworkAccessManager network;
    QList<QNetworkReply *> replies;
    {
        SampleServer server;
        server.setAnswerDelay(30s);
        const auto port = server.listen();
        QVERIFY(port);
        QSignalSpy received(&server, &SampleServer::toolCalled);
        server.setSessionIdleTimeout(1h);
        QNetworkRequest request(QUrl(u"http://127.0.0.1:%1/mcp"_s.arg(*port)));
        request.setRawHeader("Content-Type", "application/json");
        for (int i = 0; i < 3; ++i)
            replies.append(network.post(request, TestClient::initializeBody("2024-11-05")));
        QTRY_COMPARE_WITH_TIMEOUT(server.sessionCount(), 3, 10'000);
    }
    for (QNetworkReply *reply : std::as_const(replies)) {
        QTRY_VERIFY_WITH_TIMEOUT(reply->isFinished(), 10'000);
        QVERIFY(reply->error() != QNetworkReply::NoError);
        delete reply;
    }
}

void SampleServerSessionTest::portInUseIsReported()
{
    QTcpServer occupant;
    QVERIFY(occupant.listen(QHostAddress::LocalHost));
    SampleServer server;
    QCOMPARE(server.listen(occupant.serverPort()), std::nullopt);
    QVERIFY(!server.errorString().isEmpty());
    QVERIFY(server.listen());
}

void SampleServerSessionTest::callsAreAnnounced()
{
    TestClient client;
    QList<QPair<QString, QJsonObject>> calls;
    connect(&client.server(), &SampleServer::toolCalled, this,
            [&calls](const QString &name, const QJsonObject &arguments) {
                calls.append({ name, arguments });
            });
    const QJsonObject refused { { u"cityCode"_s, u"istanbul"_s } };
    client.post(client.openSession(), callBody(1, u"get_city_guide"_s, refused));
    QTRY_COMPARE_WITH_TIMEOUT(calls.size(), 1, 5000);
    QCOMPARE(calls.first().first, u"get_city_guide"_s);
    QCOMPARE(calls.first().second, refused);
}

QTEST_GUILESS_MAIN(SampleServerSessionTest)
#include "SampleServerSessionTest.moc"
