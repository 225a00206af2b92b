#include "ViewModels/CityGuideViewModel.h"
#include "ViewModels/FlightStatusViewModel.h"
#include "sample_server/SampleServer.h"
#include "support/WindowTesting.h"

#include <QRandomGenerator>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace {

constexpr int openings = 500;
constexpr int openingsForEachWindow = 50;
constexpr quint32 seed = 20261121;
constexpr std::chrono::milliseconds delay(5);
constexpr std::chrono::milliseconds jitter(15);

const QString statusSheet = u"flightStatusSheet"_s;
const QString guideSheet = u"cityGuideSheet"_s;
const QStringList destinations { u"LHR"_s, u"IST"_s, u"CDG"_s, u"LUX"_s };
const QStringList numbers { u"VQ1983"_s, u"vq1907"_s, u"VQ1"_s, u"VQ404"_s, u" "_s, u"42"_s };

} // namespace

/// The two sheets open, ask and close at random moments, while a slow server answers in an order of
/// its own; now and then the window closes too. The random numbers are the same in every run.
class SheetSoakTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void openingsQueriesAndClosings()
    {
        prepareWindows();
        QTest::failOnWarning(QRegularExpression(u"."_s));
        SampleServer server;
        const std::optional<quint16> port = server.listen();
        QVERIFY(port);
        VTRMCPClientTestAccess::replaceShared(QUrl(u"http://127.0.0.1:%1/mcp"_s.arg(*port)));
        for (const QString &code : destinations) {
            if (const auto guide = settle(VTRMCPClient::shared().fetchCityGuide(code)).value)
                m_cities.insert(code, guide->city);
        }
        QVERIFY(m_cities.size() >= 3);
        server.setAnswerDelay(delay, jitter);

        for (int opening = 0; opening < openings; ++opening) {
            if (opening % openingsForEachWindow == 0) {
                m_window = std::make_unique<TestWindow>();
                QVERIFY(m_window->isReady());
            }
            if (m_random.bounded(2) == 0)
                useStatusSheet();
            else
                useGuideSheet();
            if (QTest::currentTestFailed())
                return;
        }
        QTRY_VERIFY(!m_window->window()->findChild<FlightStatusViewModel *>());
        QVERIFY(!m_window->window()->findChild<CityGuideViewModel *>());

        // The last window closes with a sheet open and its questions under way, then the client.
        pressAccessibly(m_window->named(u"cityGuideButton"_s));
        pause(5);
        m_window.reset();
        QTest::qWait(2 * int((delay + jitter).count()));
        VTRMCPClientTestAccess::destroyShared();
        QCOMPARE(server.sessionCount(), 1);
        qInfo("%d openings, %d questions, %d answered while the sheet was open", openings,
              m_queries, m_answers);
        // How many depends on the machine; both kinds of closing must have happened.
        QVERIFY(m_answers > 0 && m_answers < m_queries);
    }

private:
    void pause(int most) { QTest::qWait(m_random.bounded(most)); }
    QString one(const QStringList &list) { return list.at(m_random.bounded(list.size())); }
    void useStatusSheet()
    {
        pressAccessibly(m_window->named(u"flightStatusButton"_s));
        auto *state = m_window->stateOf<FlightStatusViewModel>(statusSheet);
        QVERIFY(state);
        QCOMPARE(state->flightNumber(), u"VQ1983"_s);
        QVERIFY(!state->result() && !state->isLoading() && !state->errorMessage());
        for (int queries = m_random.bounded(3); queries > 0; --queries) {
            state->setFlightNumber(one(numbers));
            state->startSearchStatus();
            ++m_queries;
            pause(80);
        }
        if (state->result() || state->errorMessage())
            ++m_answers;
        close(statusSheet);
    }

    void useGuideSheet()
    {
        const QString destination = one(destinations);
        m_window->viewModel()->setDestinationCode(destination);
        pressAccessibly(m_window->named(u"cityGuideButton"_s));
        auto *state = m_window->stateOf<CityGuideViewModel>(guideSheet);
        QVERIFY(state);
        QCOMPARE(state->destinationCode(), destination);
        QVERIFY(state->isLoading() && !state->guideInfo() && state->promotions().isEmpty());
        ++m_queries;
        pause(120);
        if (!state->isLoading()) {
            ++m_answers;
            QCOMPARE(state->guideInfo()->city, m_cities.value(destination));
            QVERIFY(!state->promotions().isEmpty());
        }
        if (m_random.bounded(2) == 0)
            m_window->key(Qt::Key_Right);
        close(guideSheet);
    }

    void close(const QString &name)
    {
        QObject *sheet = m_window->sheet(name);
        // Mostly without its motions, which would make up most of the time.
        if (m_random.bounded(10) > 0) {
            sheet->setProperty("enter", QVariant());
            sheet->setProperty("exit", QVariant());
        }
        if (m_random.bounded(2) == 0)
            m_window->key(Qt::Key_Escape);
        else
            QMetaObject::invokeMethod(sheet, "close");
        QTRY_VERIFY(m_window->isGone(name));
    }

    QRandomGenerator m_random { seed };
    std::unique_ptr<TestWindow> m_window;
    QHash<QString, QString> m_cities; ///< by airport code, as the server names them
    int m_queries = 0;
    int m_answers = 0;
};

QTEST_MAIN(SheetSoakTest)
#include "SheetSoakTest.moc"
