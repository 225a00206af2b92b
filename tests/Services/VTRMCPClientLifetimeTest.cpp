#include "support/ClientTesting.h"
#include "support/ScriptedServer.h"

#include "Services/PlatformErrorText.h"

#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QSemaphore>
#include <QThread>

using namespace Qt::StringLiterals;

namespace {

const QString quitText = u"Uygulama kapanıyor, istek gönderilmedi."_s;

QCoro::Task<QJsonObject> call() { return VTRMCPClient::shared().callTool(u"any"_s, {}); }

ScriptedAnswer answerOfSize(qsizetype size)
{
    ScriptedAnswer answer = ScriptedAnswer::content({ { u"a"_s, QString() } });
    const qsizetype end = answer.body.lastIndexOf("\"\"") + 1;
    answer.body.insert(end, QByteArray(size - answer.body.size(), 'x'));
    return answer;
}

/// Where a reader was run.
struct Reading
{
    QThread *thread = nullptr;
    quintptr frame = 0; ///< address of its stack frame
};

QCoro::Task<Reading> callWithTrace()
{
    return VTRMCPClientTestAccess::callTool<Reading>([](const QJsonObject &) {
        return Reading { QThread::currentThread(),
                         reinterpret_cast<quintptr>(__builtin_frame_address(0)) };
    });
}

} // namespace

/// Long runs, large bodies, connections that drop and ends that come early.
class VTRMCPClientLifetimeTest : public QObject
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

    void aLongRunOfLostSessionsKeepsTheStackFlat();
    void theApplicationsEndEndsARunOfLostSessions();
    void aLargeBodyIsReadOffTheMainThread_data();
    void aLargeBodyIsReadOffTheMainThread();
    void aCallIsNeverSentTwice_data();
    void aCallIsNeverSentTwice();
    void aConnectionClosedWhileIdleIsReplaced();
    void theApplicationsEndEndsEveryCall();
    void theClientsEndEndsEveryCall();
    void theEndWhileALargeBodyIsRead();

private:
    std::unique_ptr<ScriptedServer> m_server;
};

void VTRMCPClientLifetimeTest::aLongRunOfLostSessionsKeepsTheStackFlat()
{
    const auto once = settle(callWithTrace());
    QVERIFY(once.value);

    constexpr int lostSessions = 2000;
    int calls = 0;
    m_server->onInitialize = [](const ReceivedRequest &) { return ScriptedAnswer::session("s"); };
    m_server->onToolCall = [&calls](const ReceivedRequest &) {
        return ++calls > lostSessions ? ScriptedAnswer::content()
                                      : ScriptedAnswer::text("{}", calls % 2 == 0 ? 400 : 404);
    };
    int turns = 0;
    QTimer clock;
    connect(&clock, &QTimer::timeout, &clock, [&turns] { ++turns; });
    clock.start(5);
    const auto after = settle(callWithTrace());

    QVERIFY2(after.value, qPrintable(after.errorText()));
    QCOMPARE(calls, lostSessions + 1);
    QVERIFY2(turns > 20, qPrintable(QString::number(turns)));
    const auto depth = qAbs(qint64(after.value->frame) - qint64(once.value->frame));
    QVERIFY2(depth < 8192, qPrintable(QString::number(depth)));
}

void VTRMCPClientLifetimeTest::theApplicationsEndEndsARunOfLostSessions()
{
    m_server->onToolCall = [](const ReceivedRequest &) { return ScriptedAnswer::text("{}", 404); };
    const auto endless = watch(call());
    QTRY_VERIFY(m_server->toolCalls().size() > 20);
    QVERIFY(!endless->hasEnded());
    VTRMCPClientTestAccess::shutDown();
    QCOMPARE(endless->errorText(), quitText);

    const qsizetype received = m_server->requests().size();
    QCOMPARE(settle(call()).errorText(), quitText);
    QTest::qWait(20);
    QVERIFY(m_server->requests().size() <= received + 1);
}

void VTRMCPClientLifetimeTest::aLargeBodyIsReadOffTheMainThread_data()
{
    QTest::addColumn<qsizetype>("size");
    QTest::addColumn<bool>("isOnMainThread");
    const qsizetype limit = 256 * 1024;
    QTest::newRow("small") << qsizetype(1000) << true;
    QTest::newRow("at the limit") << limit << true;
    QTest::newRow("above the limit") << limit + 1 << false;
}

void VTRMCPClientLifetimeTest::aLargeBodyIsReadOffTheMainThread()
{
    QFETCH(qsizetype, size);
    QFETCH(bool, isOnMainThread);
    const ScriptedAnswer answer = answerOfSize(size);
    QCOMPARE(answer.body.size(), size);
    m_server->enqueue({ answer });
    const auto outcome = settle(callWithTrace());
    QVERIFY2(outcome.value, qPrintable(outcome.errorText()));
    QCOMPARE(outcome.value->thread == QThread::currentThread(), isOnMainThread);

    // A large body that reports an error ends the call as a small one does.
    const QByteArray error = "{\"error\":{\"message\":\"dolu\"},\"x\":\"" + QByteArray(size, 'x');
    m_server->enqueue({ ScriptedAnswer::text(error + "\"}"), ScriptedAnswer::text(error) });
    QCOMPARE(settle(call()).errorText(), u"dolu"_s);
    QCOMPARE(settle(call()).error->domain(), McpError::Domain::Json);
}

void VTRMCPClientLifetimeTest::aCallIsNeverSentTwice_data()
{
    QTest::addColumn<ScriptedAnswer::Ending>("ending");
    QTest::newRow("closed") << ScriptedAnswer::Ending::close;
    QTest::newRow("reset") << ScriptedAnswer::Ending::reset;
}

void VTRMCPClientLifetimeTest::aCallIsNeverSentTwice()
{
    QFETCH(ScriptedAnswer::Ending, ending);
    ScriptedAnswer drop = ScriptedAnswer::silence();
    drop.ending = ending;

    QVERIFY(settle(call()).value);
    m_server->enqueue({ drop });
    QVERIFY(settle(call()).error);
    QCOMPARE(m_server->toolCalls().size(), 2);
    QCOMPARE(m_server->requests().at(2).connection, m_server->requests().at(1).connection);

    // What the client is guarded against: Qt itself sends such a request again.
    QNetworkAccessManager manager;
    m_server->enqueue({ ScriptedAnswer::content(), drop });
    const QByteArray body = R"({"id":"plain","method":"tools/call"})";
    for (int round = 0; round < 2; ++round) {
        QNetworkRequest request(m_server->endpoint());
        request.setHeader(QNetworkRequest::ContentTypeHeader, u"application/json"_s);
        const std::unique_ptr<QNetworkReply> reply(manager.post(request, body));
        QTRY_VERIFY(reply->isFinished());
    }
    QCOMPARE(m_server->toolCalls().size(), 2 + 3);
}

void VTRMCPClientLifetimeTest::aConnectionClosedWhileIdleIsReplaced()
{
    ScriptedAnswer last = ScriptedAnswer::content();
    last.ending = ScriptedAnswer::Ending::close;
    m_server->onToolCall = [last](const ReceivedRequest &) { return last; };
    for (int number = 1; number <= 3; ++number) {
        const auto outcome = settle(call());
        QVERIFY2(outcome.value, qPrintable(outcome.errorText()));
        QCOMPARE(m_server->toolCalls().size(), number);
        QTRY_COMPARE(m_server->openConnections(), 0);
    }
}

void VTRMCPClientLifetimeTest::theApplicationsEndEndsEveryCall()
{
    m_server->onInitialize = [](const ReceivedRequest &) { return ScriptedAnswer::silence(); };
    QList<PendingOutcome<QJsonObject>> calls;
    for (int index = 0; index < 20; ++index)
        calls.append(watch(call()));
    QTRY_COMPARE(m_server->requests().size(), 1);
    QVERIFY(QMetaObject::invokeMethod(qApp, "aboutToQuit"));
    for (const auto &outcome : std::as_const(calls))
        QCOMPARE(outcome->errorText(), quitText);
    QCOMPARE(watch(call())->errorText(), quitText);
}

void VTRMCPClientLifetimeTest::theClientsEndEndsEveryCall()
{
    QVERIFY(settle(call()).value);
    m_server->onToolCall = [](const ReceivedRequest &) { return ScriptedAnswer::silence(); };
    QList<PendingOutcome<QJsonObject>> calls;
    // More than Qt sends at once.
    for (int index = 0; index < 10; ++index)
        calls.append(watch(call()));
    QTRY_COMPARE(m_server->toolCalls().size(), 1 + 6);
    VTRMCPClientTestAccess::destroyShared();
    for (const auto &outcome : std::as_const(calls))
        QCOMPARE(outcome->errorText(), quitText);
}

void VTRMCPClientLifetimeTest::theEndWhileALargeBodyIsRead()
{
    QVERIFY(settle(call()).value);
    m_server->onToolCall = [](const ReceivedRequest &) { return answerOfSize(300'000); };
    QSemaphore started;
    const auto outcome =
        watch(VTRMCPClientTestAccess::callTool<int>([&started](const QJsonObject &) {
            started.release();
            QThread::msleep(50);
            return 1;
        }));
    QTRY_VERIFY(started.available() > 0);
    VTRMCPClientTestAccess::destroyShared();
    QCOMPARE(outcome->value.value_or(0), 1);
}

QTEST_GUILESS_MAIN(VTRMCPClientLifetimeTest)
#include "VTRMCPClientLifetimeTest.moc"
