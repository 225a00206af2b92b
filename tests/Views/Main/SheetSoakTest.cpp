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

        std::unique_ptr<TestWindow> window;
        for (int opening = 0; opening < 500; ++opening) {
            if (opening % 50 == 0)
                window = std::make_unique<TestWindow>();
            const QString sheet = one({ u"flightStatus"_s, u"cityGuide"_s });
            pressAccessibly(window->named(sheet + u"Button"_s));
            if (auto *status = window->stateOf<FlightStatusViewModel>(sheet + u"Sheet"_s)) {
                QVERIFY(!status->result() && !status->isLoading() && !status->errorMessage());
                for (int questions = m_random.bounded(3); questions > 0; --questions) {
                    status->setFlightNumber(one({ u"vq1907"_s, u"VQ1"_s, u"VQ404"_s, u" "_s }));
                    status->startSearchStatus();
                    QTest::qWait(m_random.bounded(80));
                }
            } else {
                QTest::qWait(m_random.bounded(120));
            }
            close(window->sheet(sheet + u"Sheet"_s));
            if (QTest::currentTestFailed())
                return;
            window->viewModel()->setDestinationCode(one({ u"LHR"_s, u"IST"_s, u"LUX"_s }));
        }
        QTRY_VERIFY(!window->window()->findChild<FlightStatusViewModel *>());
        QVERIFY(!window->window()->findChild<CityGuideViewModel *>());

        // The last window closes with a sheet open and all kinds of questions under way, then the
        // client.
        window->viewModel()->startSearchAll();
        window->viewModel()->startSelectCalendarDate(u"2031-01-01"_s);
        pressAccessibly(window->named(u"cityGuideButton"_s));
        window.reset();
        QTest::qWait(40);
        VTRMCPClientTestAccess::destroyShared();
    }

private:
    QString one(const QStringList &list) { return list.at(m_random.bounded(list.size())); }

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
};

QTEST_MAIN(SheetSoakTest)
#include "SheetSoakTest.moc"
