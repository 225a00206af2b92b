#include "support/WindowTesting.h"

#include <QDesktopServices>
#include <QSignalSpy>

using namespace Qt::StringLiterals;

/// The whole window on a scripted server: what a click does, what shows when.
class MainViewTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase() { QDesktopServices::unsetUrlHandler(u"https"_s); }
    void firstSearchFillsTheWindow();
    void clickOnADayLoadsItsFlights_data();
    void clickOnADayLoadsItsFlights();
    void sortingMovesTheCards();
    void directFilterWithoutDirectFlightsShowsTheEmptyState();
    void failureShowsTheBannerOverTheOldCards();
    void calendarLeavesWithItsDays();
    void onlyTheCardsInViewExist();
    void thePageStaysWhileADayLoads();
    void keyboardMovesThroughTheDaysAndTheCards();

public Q_SLOTS:
    void rememberUrl(const QUrl &url) { m_opened = url; }

private:
    QStringList shownFlights(const TestWindow &window) const;

    QUrl m_opened;
};

namespace {

/// Answers searches with a calendar of 14 days and this many flights.
void serve(ScriptedServer &server, int flights, int segments = 1)
{
    server.onToolCall = [flights, segments](const ReceivedRequest &request) {
        return ScriptedAnswer::content(request.tool() == u"search_flights"
                                           ? flightsContent(flights, segments)
                                           : calendarContent(14));
    };
}

} // namespace

void MainViewTest::initTestCase()
{
    prepareApplication();
    QDesktopServices::setUrlHandler(u"https"_s, this, "rememberUrl");
}

QStringList MainViewTest::shownFlights(const TestWindow &window) const
{
    QList<QQuickItem *> cards = window.itemsOfType("FlightCardView");
    std::sort(cards.begin(), cards.end(),
              [](QQuickItem *left, QQuickItem *right) { return left->y() < right->y(); });
    QStringList numbers;
    for (QQuickItem *card : std::as_const(cards))
        numbers.append(card->property("flight").value<FlightOption>().flightNumber);
    return numbers;
}

void MainViewTest::firstSearchFillsTheWindow()
{
    const WarningCatcher catcher;
    ScriptedServer server;
    serve(server, 3);
    const TestWindow window(server);
    QVERIFY(window.waitForSearch());
    QTRY_COMPARE(window.itemsOfType("CalendarBarColumn").size(), 14);
    QCOMPARE(shownFlights(window), QStringList({ u"VQ100"_s, u"VQ101"_s, u"VQ102"_s }));
    QCOMPARE(server.toolCalls().size(), 2);
    QCOMPARE(WarningCatcher::warnings(), QStringList());
}

void MainViewTest::clickOnADayLoadsItsFlights_data()
{
    QTest::addColumn<QByteArray>("type");
    QTest::newRow("bar") << QByteArray("CalendarBarColumn");
    QTest::newRow("tile") << QByteArray("CalendarTileView");
}

void MainViewTest::clickOnADayLoadsItsFlights()
{
    QFETCH(const QByteArray, type);
    ScriptedServer server;
    serve(server, 3);
    const TestWindow window(server);
    QVERIFY(window.waitForSearch());
    QTRY_VERIFY(window.itemsOfType(type).size() > 2);
    // The chart slides in; a click during that would miss.
    QTRY_COMPARE(window.itemsOfType("CalendarSlot").constFirst()->property("openness").toReal(),
                 1.0);

    QQuickItem *day = window.itemsOfType(type).at(2);
    window.click(day);
    QVERIFY(window.waitForSearch());
    QCOMPARE(server.toolCalls().size(), 3);
    QCOMPARE(server.toolCalls().constLast().tool(), u"search_flights"_s);
    QCOMPARE(server.toolCalls().constLast().arguments().value(u"departureDate").toString(),
             u"2026-12-03"_s);
    QVERIFY(day->property("isSelected").toBool());
}

void MainViewTest::sortingMovesTheCards()
{
    ScriptedServer server;
    serve(server, 3);
    const TestWindow window(server);
    QVERIFY(window.waitForSearch());
    QTRY_COMPARE(window.itemsOfType("FlightCardView").size(), 3);
    QSet<QQuickItem *> cards;
    for (QQuickItem *card : window.itemsOfType("FlightCardView"))
        cards.insert(card);

    window.viewModel()->applyFilter(FlightSortOption::fastest);
    QTRY_COMPARE(shownFlights(window), QStringList({ u"VQ102"_s, u"VQ101"_s, u"VQ100"_s }));
    // The same items in other places: nothing was built anew.
    for (QQuickItem *card : window.itemsOfType("FlightCardView"))
        QVERIFY(cards.contains(card));
}

void MainViewTest::directFilterWithoutDirectFlightsShowsTheEmptyState()
{
    ScriptedServer server;
    serve(server, 2, 3);
    const TestWindow window(server);
    QVERIFY(window.waitForSearch());
    QVERIFY(window.itemsOfType("NoFlightsPanel").isEmpty());
    window.viewModel()->applyFilter(FlightSortOption::directOnly);
    QTRY_COMPARE(window.itemsOfType("NoFlightsPanel").size(), 1);
    window.viewModel()->startSearchAll();
    QTRY_COMPARE(window.itemsOfType("LoadingPanel").size(), 1);
    QVERIFY(window.itemsOfType("NoFlightsPanel").isEmpty());
}

void MainViewTest::failureShowsTheBannerOverTheOldCards()
{
    ScriptedServer server;
    serve(server, 2);
    const TestWindow window(server);
    QVERIFY(window.waitForSearch());
    QVERIFY(window.itemsOfType("ErrorBanner").isEmpty());

    server.onToolCall = [](const ReceivedRequest &) {
        return ScriptedAnswer::closedWithoutAnswer();
    };
    window.viewModel()->startSelectCalendarDate(u"2026-12-02"_s);
    QVERIFY(window.waitForSearch());
    QTRY_COMPARE(window.itemsOfType("ErrorBanner").size(), 1);
    QVERIFY(window.itemsOfType("ErrorBanner")
                .constFirst()
                ->property("text")
                .toString()
                .startsWith(u"Seçilen tarih (2026-12-02) için uçuşlar yüklenemedi: "));
    QCOMPARE(shownFlights(window).size(), 2);
}

void MainViewTest::calendarLeavesWithItsDays()
{
    ScriptedServer server;
    serve(server, 1);
    const TestWindow window(server);
    QVERIFY(window.waitForSearch());
    QTRY_COMPARE(window.itemsOfType("PriceCalendarView").size(), 1);
    server.onToolCall = [](const ReceivedRequest &) { return ScriptedAnswer::content(); };
    window.viewModel()->startSearchAll();
    QTRY_VERIFY(window.itemsOfType("PriceCalendarView").isEmpty());
}

void MainViewTest::onlyTheCardsInViewExist()
{
    ScriptedServer server;
    serve(server, 10'000);
    const TestWindow window(server);
    QVERIFY(window.waitForSearch());
    QCOMPARE(window.viewModel()->flights().size(), 10'000);
    QTRY_VERIFY(!shownFlights(window).isEmpty());
    QVERIFY2(shownFlights(window).size() < 40,
             qPrintable(QString::number(shownFlights(window).size())));

    auto *page = window.window()->findChild<QQuickItem *>(u"page"_s);
    QMetaObject::invokeMethod(page, "scrollTo", Q_ARG(double, 1e9));
    QTRY_COMPARE(shownFlights(window).constLast(), u"VQ10099"_s);
    QVERIFY(shownFlights(window).size() < 40);
    window.viewModel()->applyFilter(FlightSortOption::fastest);
    // A long list in a new order is shown from its top.
    QTRY_COMPARE(shownFlights(window).constFirst(), u"VQ10099"_s);
    QVERIFY(shownFlights(window).size() < 40);
}

void MainViewTest::thePageStaysWhileADayLoads()
{
    ScriptedServer server;
    serve(server, 20);
    const TestWindow window(server);
    QVERIFY(window.waitForSearch());
    QTRY_VERIFY(!window.itemsOfType("CalendarSlot").isEmpty());
    QTRY_COMPARE(window.itemsOfType("CalendarSlot").constFirst()->property("openness").toReal(),
                 1.0);
    auto *page = window.window()->findChild<QQuickItem *>(u"page"_s);
    window.window()->grabWindow();
    QMetaObject::invokeMethod(page, "scrollTo", Q_ARG(double, 1e9));
    const qreal place = page->property("contentY").toReal();
    QVERIFY(place > 1000);

    server.onToolCall = [](const ReceivedRequest &) {
        return ScriptedAnswer::content(flightsContent(20)).held();
    };
    window.viewModel()->startSelectCalendarDate(u"2026-12-03"_s);
    QTRY_COMPARE(server.heldCount(), 1);
    QTRY_COMPARE(window.itemsOfType("LoadingPanel").size(), 1);
    window.window()->grabWindow();
    QCOMPARE(page->property("contentY").toReal(), place);
    server.release();
    QTRY_VERIFY(!shownFlights(window).isEmpty());
    window.window()->grabWindow();
    QCOMPARE(page->property("contentY").toReal(), place);
}

void MainViewTest::keyboardMovesThroughTheDaysAndTheCards()
{
    ScriptedServer server;
    serve(server, 3);
    const TestWindow window(server);
    QVERIFY(window.waitForSearch());
    QTRY_COMPARE(window.itemsOfType("FlightCardView").size(), 3);

    QTRY_COMPARE(window.itemsOfType("CalendarBarColumn").size(), 14);
    QQuickItem *days = window.itemsOfType("DayStrip").constFirst();
    days->forceActiveFocus(Qt::TabFocusReason);
    QTest::keyClick(window.window(), Qt::Key_Home);
    QTest::keyClick(window.window(), Qt::Key_Right);
    QTest::keyClick(window.window(), Qt::Key_Return);
    QVERIFY(window.waitForSearch());
    QCOMPARE(window.viewModel()->selectedDate(), u"2026-12-02"_s);
    QCOMPARE(window.itemsOfType("DayStrip").constLast()->property("currentIndex").toInt(), 1);

    QQuickItem *card = window.itemsOfType("FlightCardView").constFirst();
    card->parentItem()->parentItem()->forceActiveFocus(Qt::TabFocusReason);
    QTest::keyClick(window.window(), Qt::Key_Down);
    m_opened.clear();
    QTest::keyClick(window.window(), Qt::Key_Return);
    // These flights have no link of their own.
    QCOMPARE(m_opened, QUrl(u"https://www.vantora-air.example"_s));
}

QTEST_MAIN(MainViewTest)
#include "MainViewTest.moc"
