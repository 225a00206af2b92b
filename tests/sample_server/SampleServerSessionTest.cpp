#include "TestClient.h"
#include "ToolCalls.h"

#include "sample_server/SessionStore.h"

#include <algorithm>

using namespace ToolCalls;
using namespace std::chrono_literals;

namespace {

constexpr auto ping = R"({"jsonrpc":"2.0","id":5,"method":"ping"})";

/// A tool and its arguments: a different question for each number.
std::pair<QString, QJsonObject> questionOf(int number)
{
    const QString code = QStringList { u"LHR"_s, u"JFK"_s, u"AYT"_s, u"SYD"_s }.at(number % 4);
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

/// How sessions begin and end, and many requests at once.
class SampleServerSessionTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void idleAndSurplusSessionsAreDropped()
    {
        Sample::SessionStore store;
        store.setIdleTimeout(10s);
        store.setMaximumCount(2);
        const Sample::SessionStore::Moment start {};
        const QByteArray first = store.open(u"v1"_s, start);
        const QByteArray second = store.open(u"v2"_s, start + 1s);
        QVERIFY(first != second);
        QCOMPARE(store.touch(first, start + 9s), u"v1"_s);
        QCOMPARE(store.touch(second, start + 11s), std::nullopt);

        const QByteArray third = store.open(u"v3"_s, start + 12s);
        QCOMPARE(store.touch(first, start + 13s), u"v1"_s);
        const QByteArray fourth = store.open(u"v4"_s, start + 14s);
        QCOMPARE(store.touch(third, start + 14s), std::nullopt);
        QVERIFY(store.touch(first, start + 14s) && store.touch(fourth, start + 14s));
        QVERIFY(!store.close(fourth, start + 24s));
        QCOMPARE(store.count(start + 24s), 0);
    }

    void deletedAndIdleSessionsAreUnknown()
    {
        TestClient client;
        const QByteArray ended = client.initialize().session;
        const QByteArray other = client.initialize().session;
        const auto remove = [&client](const QByteArray &session) {
            return client.exchange("DELETE", { { "mcp-session-id", session } }, {}).status;
        };
        QCOMPARE(remove(ended), 200);
        QCOMPARE(remove(ended), 404);
        QCOMPARE(client.exchange("DELETE", {}, {}).status, 400);
        QCOMPARE(client.post(ended, ping).status, 404);
        QCOMPARE(client.post(other, ping).status, 200);
        client.onServer([](SampleServer &server) { server.setSessionIdleTimeout(0ms); });
        QCOMPARE(client.post(other, ping).status, 404);
    }

    void manyParallelCallsOnTwoSessions()
    {
        TestClient client;
        client.onServer([](SampleServer &server) {
            server.setClock([] { return fixedNow(); });
            server.setWebSite(u"https://www.example.test/"_s);
            server.setAnswerDelay(0ms, 20ms);
        });
        const QByteArray sessions[] { client.initialize().session,
                                      client.initialize("2025-11-25").session };
        QList<QNetworkReply *> replies;
        for (int number = 0; number < 50; ++number) {
            const auto [tool, arguments] = questionOf(number);
            const QJsonObject body {
                { u"jsonrpc"_s, u"2.0"_s },
                { u"id"_s, number },
                { u"method"_s, u"tools/call"_s },
                { u"params"_s, QJsonObject { { u"name"_s, tool }, { u"arguments"_s, arguments } } },
            };
            for (const QByteArray &session : sessions)
                replies.append(client.send("POST", TestClient::sessionHeaders(session),
                                           QJsonDocument(body).toJson()));
        }
        QTRY_VERIFY_WITH_TIMEOUT(
            std::all_of(replies.cbegin(), replies.cend(),
                        [](const QNetworkReply *reply) { return reply->isFinished(); }),
            60'000);
        for (int i = 0; i < replies.size(); ++i) {
            const TestClient::Answer answer = TestClient::read(replies.at(i));
            QCOMPARE(answer.status, 200);
            QCOMPARE(answer.json()["id"_L1].toInt(), i / 2);
            const QJsonObject result = answer.json()["result"_L1].toObject();
            const QJsonObject content = result.value("structuredContent"_L1).toObject();
            const auto [tool, arguments] = questionOf(i / 2);
            QCOMPARE(content, call(tool, arguments));
            QCOMPARE(result.value("isError"_L1), QJsonValue(false));
            const QString text = result.value("content"_L1)[0]["text"_L1].toString();
            QCOMPARE(QJsonDocument::fromJson(text.toUtf8()).object(), content);
        }
    }
};

QTEST_GUILESS_MAIN(SampleServerSessionTest)
#include "SampleServerSessionTest.moc"
