#include "SheetTesting.h"
#include "ViewModels/FlightStatusViewModel.h"
#include "Views/CityGuide/CityGuideState.h"
#include "sample_server/SampleServer.h"

#include <QRandomGenerator>

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
    void openingsQueriesAndClosings();

private:
    struct Window
    {
        QQmlApplicationEngine engine;
        QQuickWindow *window = nullptr;
        QObject *view = nullptr;
    };

    std::unique_ptr<Window> makeWindow() const;
    void pause(int most) { QTest::qWait(m_random.bounded(most)); }
    QString one(const QStringList &list) { return list.at(m_random.bounded(list.size())); }
    void useStatusSheet(const Window &window);
    void useGuideSheet(const Window &window);
    void close(const Window &window, const char *flag, const QString &name);
    /// Sheets without their motions, which would make up most of the time.
    static void stopMotions(const Window &window, const QString &name);

    QRandomGenerator m_random { seed };
    QHash<QString, QString> m_cities; ///< by airport code, as the server names them
    int m_queries = 0;
    int m_answers = 0;
};

std::unique_ptr<SheetSoakTest::Window> SheetSoakTest::makeWindow() const
{
    auto made = std::make_unique<Window>();
    if (!loadMainWindow(made->engine, u"Test"_s))
        qFatal("There is no window.");
    made->window = qobject_cast<QQuickWindow *>(made->engine.rootObjects().constFirst());
    made->window->requestActivate();
    if (!QTest::qWaitForWindowActive(made->window))
        qFatal("The window does not take the keyboard.");
    made->view = mainView(made->window);
    return made;
}

void SheetSoakTest::stopMotions(const Window &window, const QString &name)
{
    QObject *sheet = window.window->findChild<QObject *>(name);
    sheet->setProperty("enter", QVariant());
    sheet->setProperty("exit", QVariant());
}

void SheetSoakTest::close(const Window &window, const char *flag, const QString &name)
{
    if (m_random.bounded(10) > 0)
        stopMotions(window, name);
    QObject *sheet = window.window->findChild<QObject *>(name);
    switch (m_random.bounded(3)) {
    case 0:
        QTest::keyClick(window.window, Qt::Key_Escape);
        break;
    case 1:
        QMetaObject::invokeMethod(sheet, "close");
        break;
    default:
        window.view->setProperty(flag, false);
    }
    QTRY_VERIFY(!sheet->property("visible").toBool());
    QVERIFY(!window.view->property(flag).toBool());
}

void SheetSoakTest::useStatusSheet(const Window &window)
{
    QVERIFY(window.view->setProperty("showFlightStatusSheet", true));
    auto *state = stateOf<FlightStatusViewModel>(window.window, statusSheet, "viewModel");
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
    close(window, "showFlightStatusSheet", statusSheet);
}

void SheetSoakTest::useGuideSheet(const Window &window)
{
    auto *search = window.window->property("viewModel").value<FlightSearchViewModel *>();
    const QString destination = one(destinations);
    search->setDestinationCode(destination);
    QVERIFY(window.view->setProperty("showCityGuideSheet", true));
    auto *state = stateOf<CityGuideState>(window.window, guideSheet, "guide");
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
        QTest::keyClick(window.window, Qt::Key_Right);
    close(window, "showCityGuideSheet", guideSheet);
}

void SheetSoakTest::openingsQueriesAndClosings()
{
    prepareApplication();
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

    auto catcher = std::make_unique<WarningCatcher>();
    std::unique_ptr<Window> window;
    for (int opening = 0; opening < openings; ++opening) {
        if (opening % openingsForEachWindow == 0)
            window = makeWindow();
        if (m_random.bounded(2) == 0)
            useStatusSheet(*window);
        else
            useGuideSheet(*window);
        if (QTest::currentTestFailed())
            return;
    }
    QTRY_VERIFY(!window->window->findChild<FlightStatusViewModel *>());
    QVERIFY(!window->window->findChild<CityGuideState *>());

    // The last window closes with a sheet open and its questions under way, and then the client.
    window->view->setProperty("showCityGuideSheet", true);
    pause(5);
    window.reset();
    QTest::qWait(2 * int((delay + jitter).count()));
    VTRMCPClientTestAccess::destroyShared();
    catcher.reset();
    QCOMPARE(WarningCatcher::warnings().join(u"; "_s), QString());
    QCOMPARE(server.sessionCount(), 1);
    qInfo("%d openings, %d questions, %d answered while the sheet was open", openings, m_queries,
          m_answers);
    // How many depends on the machine; both kinds of closing must have happened.
    QVERIFY(m_answers > 0 && m_answers < m_queries);
}

QTEST_MAIN(SheetSoakTest)
#include "SheetSoakTest.moc"
