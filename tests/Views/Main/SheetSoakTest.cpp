#include "ViewModels/CityGuideViewModel.h"
#include "ViewModels/FlightStatusViewModel.h"
#include "sample_server/SampleServer.h"
#include "support/WindowTesting.h"

#include <QRandomGenerator>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

/// The two sheets open, ask and close at random moments, while a slow server answers in an order of
/// its own; now and then the window closes too. The random numbers are the same in every run.
class SheetSoakTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void openingsQueriesAndClosings()
    {
        SampleServer server;
        const std::optional<quint16> port = server.listen();
        QVERIFY(port);
        VTRMCPClientTestAccess::replaceShared(QUrl(u"http://127.0.0.1:%1/mcp"_s.arg(*port)));
        server.setAnswerDelay(5ms, 15ms);

        for (int opening = 0; opening < 500; ++opening) {
            if (opening % 50 == 0)
                m_window = std::make_unique<TestWindow>();
            const bool isStatus = m_random.bounded(2) == 0;
            pressAccessibly(
                m_window->named(isStatus ? u"flightStatusButton"_s : u"cityGuideButton"_s));
            if (isStatus)
                askForStatus();
            else
                waitForTheGuide();
            close(m_window->sheet(isStatus ? u"flightStatusSheet"_s : u"cityGuideSheet"_s));
            if (QTest::currentTestFailed())
                return;
            m_window->viewModel()->setDestinationCode(
                one({ u"LHR"_s, u"IST"_s, u"CDG"_s, u"LUX"_s }));
        }
        QTRY_VERIFY(!m_window->window()->findChild<FlightStatusViewModel *>());
        QVERIFY(!m_window->window()->findChild<CityGuideViewModel *>());

        // The last window closes with a sheet open and all kinds of questions under way, then the
        // client.
        m_window->viewModel()->startSearchAll();
        m_window->viewModel()->startSelectCalendarDate(u"2031-01-01"_s);
        pressAccessibly(m_window->named(u"cityGuideButton"_s));
        m_window.reset();
        QTest::qWait(40);
        VTRMCPClientTestAccess::destroyShared();
        // How many depends on the machine; both kinds of closing must have happened.
        QVERIFY(m_answers > 0 && m_answers < m_questions);
    }

private:
    QString one(const QStringList &list) { return list.at(m_random.bounded(list.size())); }

    void askForStatus()
    {
        auto *state = m_window->stateOf<FlightStatusViewModel>(u"flightStatusSheet"_s);
        QVERIFY(!state->result() && !state->isLoading() && !state->errorMessage());
        for (int questions = m_random.bounded(3); questions > 0; --questions) {
            state->setFlightNumber(
                one({ u"VQ1983"_s, u"vq1907"_s, u"VQ1"_s, u"VQ404"_s, u" "_s, u"42"_s }));
            state->startSearchStatus();
            ++m_questions;
            QTest::qWait(m_random.bounded(80));
        }
        m_answers += state->result() || state->errorMessage();
    }
    void waitForTheGuide()
    {
        auto *state = m_window->stateOf<CityGuideViewModel>(u"cityGuideSheet"_s);
        QCOMPARE(state->destinationCode(), m_window->viewModel()->destinationCode());
        QVERIFY(state->isLoading() && !state->guideInfo() && state->promotions().isEmpty());
        ++m_questions;
        QTest::qWait(m_random.bounded(120));
        m_answers += !state->isLoading();
    }
    void close(QObject *sheet)
    {
        // Mostly without its motions, which would make up most of the time.
        if (m_random.bounded(10) > 0) {
            sheet->setProperty("enter", QVariant());
            sheet->setProperty("exit", QVariant());
        }
        QMetaObject::invokeMethod(sheet, "close");
        QTRY_VERIFY(!sheet->property("visible").toBool());
    }

    QRandomGenerator m_random { 20261121 };
    std::unique_ptr<TestWindow> m_window;
    int m_questions = 0;
    int m_answers = 0;
};

QTEST_MAIN(SheetSoakTest)
#include "SheetSoakTest.moc"
