#include "support/ClientTesting.h"

#include <QElapsedTimer>
#include <QSemaphore>
#include <QThread>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

const QString quitText = u"Uygulama kapanıyor, istek tamamlanmadı."_s;

ScriptedAnswer answerOfSize(qsizetype size)
{
    const qsizetype others = ScriptedAnswer::content({ { u"a"_s, QString() } }).body().size();
    return ScriptedAnswer::content({ { u"a"_s, QString(size - others, u'x') } });
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
class VTRMCPClientLifetimeTest : public ClientTest
{
    Q_OBJECT

private Q_SLOTS:
    void aLongRunOfLostSessionsKeepsTheStackFlat()
    {
        const auto once = settle(callWithTrace());
        QVERIFY(once.value);

        constexpr int lostSessions = 1000;
        VTRMCPClientTestAccess::setLongestPause(0ms);
        int calls = 0;
        m_server->onInitialize = [] { return ScriptedAnswer::session("s"); };
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

    void aLostSessionIsNotRepeatedWildly()
    {
        VTRMCPClientTestAccess::setLongestPause(150ms);
        const ScriptedAnswer lost = ScriptedAnswer::text("{}", 404);
        m_server->enqueue({ lost, lost, lost, lost });
        QElapsedTimer timer;
        timer.start();
        QVERIFY(settle(call()).value);
        // The first repetition comes at once, the other three after 150 ms each.
        QVERIFY2(timer.elapsed() >= 400, qPrintable(QString::number(timer.elapsed())));
    }

    void anyExceptionEndsACall()
    {
        for (const qsizetype size : { 1000, 300'000 }) {
            m_server->enqueue({ answerOfSize(size) });
            const auto outcome = settle(VTRMCPClientTestAccess::callTool<int>(
                [](const QJsonObject &) -> int { throw std::bad_alloc(); }));
            QVERIFY(outcome.error);
            QCOMPARE(outcome.error->domain(), McpError::Domain::Internal);
        }
    }

    void aLargeBodyIsReadOffTheMainThread()
    {
        for (const qsizetype size : { 256 * 1024, 256 * 1024 + 1 }) {
            m_server->enqueue({ answerOfSize(size) });
            const auto outcome = settle(callWithTrace());
            QVERIFY2(outcome.value, qPrintable(outcome.errorText()));
            const bool isOnMainThread = outcome.value->thread == QThread::currentThread();
            QCOMPARE(isOnMainThread, size == 256 * 1024);
        }
        // A large body that reports an error ends the call as a small one does.
        const QByteArray error =
            "{\"error\":{\"message\":\"dolu\"},\"x\":\"" + QByteArray(300'000, 'x');
        m_server->enqueue({ ScriptedAnswer::text(error + "\"}"), ScriptedAnswer::text(error) });
        QCOMPARE(settle(call()).errorText(), u"dolu"_s);
        QCOMPARE(settle(call()).error->domain(), McpError::Domain::Json);
    }

    void theEndEndsEveryCall_data()
    {
        QTest::addColumn<bool>("isApplicationsEnd"); // or else the client's
        QTest::addColumn<ScriptedAnswer>("initialize");
        QTest::addColumn<ScriptedAnswer>("answer");
        QTest::addColumn<int>("requests"); // of the 20 calls, when the end comes
        const ScriptedAnswer silence;
        const ScriptedAnswer session = ScriptedAnswer::session("s");
        const ScriptedAnswer lost = ScriptedAnswer::text("{}", 404);
        for (const bool isQuit : { true, false }) {
            const char *name = isQuit ? "quit" : "destruction";
            QTest::addRow("%s while the session is opened", name)
                << isQuit << silence << silence << 0;
            QTest::addRow("%s during calls", name) << isQuit << session << silence << 20;
            // From the second repetition on there are pauses.
            QTest::addRow("%s while sessions are lost", name) << isQuit << session << lost << 40;
        }
    }
    void theEndEndsEveryCall()
    {
        QFETCH(bool, isApplicationsEnd);
        QFETCH(ScriptedAnswer, initialize);
        QFETCH(ScriptedAnswer, answer);
        QFETCH(int, requests);
        m_server->onInitialize = [initialize] { return initialize; };
        m_server->onToolCall = [answer](const ReceivedRequest &) { return answer; };
        QList<PendingOutcome<QJsonObject>> calls;
        for (int index = 0; index < 20; ++index)
            calls.append(watch(call()));
        QTRY_VERIFY(!m_server->initializations().isEmpty());
        QTRY_VERIFY(m_server->toolCalls().size() >= requests);
        if (isApplicationsEnd) {
            QVERIFY(QMetaObject::invokeMethod(qApp, "aboutToQuit"));
            QCOMPARE(watch(call())->errorText(), quitText);
        } else {
            VTRMCPClientTestAccess::destroyShared();
        }
        for (const auto &outcome : std::as_const(calls))
            QCOMPARE(outcome->errorText(), quitText);
    }

    void theEndWhileALargeBodyIsRead()
    {
        m_server->enqueue({ answerOfSize(300'000) });
        QSemaphore started;
        const auto outcome = watch(VTRMCPClientTestAccess::callTool<int>([&](const QJsonObject &) {
            started.release();
            QThread::msleep(50);
            return 1;
        }));
        QTRY_VERIFY(started.available() > 0);
        VTRMCPClientTestAccess::destroyShared();
        QCOMPARE(outcome->value.value_or(0), 1);
    }
};

QTEST_GUILESS_MAIN(VTRMCPClientLifetimeTest)
#include "VTRMCPClientLifetimeTest.moc"
