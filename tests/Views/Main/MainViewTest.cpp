#include "Models/AirportDatabase.h"
#include "support/WindowTesting.h"

#include <QClipboard>
#include <QDesktopServices>

#include <algorithm>

using namespace Qt::StringLiterals;

/// The whole window: what a click does, what shows when.
class MainViewTest : public WindowTest
{
    Q_OBJECT

private Q_SLOTS:
    void clickOnADayLoadsItsFlights()
    {
        waitForTheCalendar();
        int index = 2;
        for (const char *type : { "CalendarBarColumn", "CalendarTileView" }) {
            QQuickItem *day = m_window->itemsOfType(type).at(index);
            m_window->click(day);
            QVERIFY(m_window->waitForSearch());
            QCOMPARE(questions().size(), index - 1);
            QCOMPARE(m_window->viewModel()->selectedDate(), u"2026-12-0%1"_s.arg(index + 1));
            QVERIFY(day->property("isSelected").toBool());
            ++index;
        }
    }

    void keyboardMovesThroughTheDaysAndTheCards()
    {
        waitForTheCalendar();
        m_window->itemsOfType("SpokenList").constFirst()->forceActiveFocus(Qt::TabFocusReason);
        m_window->key(Qt::Key_Home);
        m_window->key(Qt::Key_Right);
        m_window->key(Qt::Key_Return);
        QVERIFY(m_window->waitForSearch());
        QCOMPARE(m_window->viewModel()->selectedDate(), u"2026-12-02"_s);
        QCOMPARE(m_window->itemsOfType("DayStrip").constLast()->property("currentIndex"), 1);

        QDesktopServices::setUrlHandler(u"https"_s, this, "rememberUrl");
        flightList()->forceActiveFocus(Qt::TabFocusReason);
        m_window->key(Qt::Key_Down);
        m_window->key(Qt::Key_Return);
        QDesktopServices::unsetUrlHandler(u"https"_s);
        // These flights have no link of their own.
        QCOMPARE(m_opened, QUrl(u"https://www.vantora-air.example"_s));
    }

    void aNewOrderMovesCardsAndFadesThemInAndOut()
    {
        QTRY_COMPARE(shownFlights(), u"VQ100 VQ101 VQ102"_s);
        const QList<QQuickItem *> cards = m_window->itemsOfType("FlightCardView");
        m_window->viewModel()->applyFilter(FlightSortOption::fastest);
        QTRY_COMPARE(shownFlights(), u"VQ102 VQ101 VQ100"_s);
        // The same items in other places: nothing was built anew.
        for (QQuickItem *card : m_window->itemsOfType("FlightCardView"))
            QVERIFY(cards.contains(card));

        find(40);
        waitForTheCalendar();
        QTRY_VERIFY(hasAllCardsInView());
        flightList()->forceActiveFocus(Qt::TabFocusReason);
        m_window->key(Qt::Key_Down);
        QPointer<QQuickItem> leaving = m_window->itemsOfType("FlightCardView").constFirst();
        m_window->viewModel()->applyFilter(FlightSortOption::cheapest);
        QVERIFY(leaving && !leaving->isEnabled());
        int appearing = 0;
        for (QQuickItem *card : m_window->itemsOfType("FlightCardView"))
            appearing += card->isEnabled() && card->opacity() < 1 ? 1 : 0;
        QVERIFY(appearing > 3);
        QTRY_VERIFY(!leaving);
        QTRY_VERIFY(hasAllCardsInView());
    }

    void panelsTakeThePlaceOfWhatIsNotThere()
    {
        m_answers.insert(flightsTool, flightsAnswer(2, 3));
        QVERIFY(m_window->search());
        QTRY_COMPARE(shownFlights(), u"VQ100 VQ101"_s);
        QVERIFY(!m_window->named(u"noFlights"_s));
        m_window->viewModel()->applyFilter(FlightSortOption::directOnly);
        QTRY_VERIFY(m_window->named(u"noFlights"_s));
        QCOMPARE(m_window->itemsOfType("PriceCalendarView").size(), 1);

        m_answers.insert(calendarTool, ScriptedAnswer::content());
        int fadingDays = 0;
        connect(m_window->viewModel(), &FlightSearchViewModel::calendarPricesChanged, this,
                [&] { fadingDays = int(m_window->itemsOfType("CalendarBarColumn").size()); });
        m_window->viewModel()->startSearchAll();
        QTRY_VERIFY(m_window->called(u"Uçuşlar yükleniyor..."_s));
        QVERIFY(!m_window->named(u"noFlights"_s));
        QVERIFY(m_window->waitForSearch());
        QTRY_VERIFY(m_window->itemsOfType("PriceCalendarView").isEmpty());
        QCOMPARE(fadingDays, 14);
    }

    void helpOpensTheAirlinesAddresses()
    {
        QDesktopServices::setUrlHandler(u"https"_s, this, "rememberUrl");
        const QStringList addresses { u"https://www.vantora-air.example"_s,
                                      u"https://mcp.vantora-air.example/"_s };
        for (int entry = 0; entry < 2; ++entry) {
            m_window->key(Qt::Key_Y, Qt::AltModifier);
            QTRY_VERIFY(m_window->called(u"Vantora MCP Sunucusu"_s));
            for (int step = 0; step < entry; ++step)
                m_window->key(Qt::Key_Down);
            m_window->key(Qt::Key_Return);
            QTRY_COMPARE(m_opened, QUrl(addresses.at(entry)));
            QTRY_VERIFY(!m_window->called(u"Vantora MCP Sunucusu"_s));
        }
        QDesktopServices::unsetUrlHandler(u"https"_s);
    }

    void longTextsFitTheSmallestWindow()
    {
        const QList<Airport> &airports = AirportDatabase::allAirports();
        const auto longest = std::max_element(airports.begin(), airports.end(),
                                              [](const Airport &left, const Airport &right) {
                                                  return left.name.size() < right.name.size();
                                              });
        const QString text = u"Afyonkarahisar-Kütahya, Zafer Havalimanı "_s.repeated(8);
        m_answers.insert(flightsTool,
                         flightsAnswer({ { text, 987'654'321.0, u"2026-12-05T23:55"_s, 99'999 } }));
        m_window->viewModel()->setOriginCode(longest->code);
        m_window->viewModel()->setDestinationCode(longest->code);
        m_window->viewModel()->setTripType(TripType::roundTrip);
        QVERIFY(m_window->search());
        failToFind(text);
        m_window->window()->resize(m_window->window()->minimumSize());
        waitForTheCalendar();
        m_window->layOut();
        for (const char *type : { "HeaderBar", "IntroView", "FlightSearchCardView", "ErrorBanner",
                                  "CalendarBarColumn", "CalendarTileView", "FlightCardView" }) {
            QVERIFY2(!m_window->itemsOfType(type).isEmpty(), type);
            for (QQuickItem *item : m_window->itemsOfType(type))
                QCOMPARE(TestWindow::misplacedTexts(item), QStringList());
        }
    }

    void failureShowsTheBannerOverTheOldCards()
    {
        QVERIFY(m_window->itemsOfType("ErrorBanner").isEmpty());
        const QString reason = u"Bakımdayız. "_s.repeated(80).trimmed();
        failToFind(reason);
        const QString message = u"Seçilen tarih (2026-12-02) için uçuşlar yüklenemedi: "_s + reason;
        QQuickItem *banner = m_window->called(message);
        QVERIFY(banner);
        QCOMPARE(accessible(banner)->role(), QAccessible::AlertMessage);
        QCOMPARE(m_window->textIn(banner), message);
        QCOMPARE(shownFlights(), u"VQ100 VQ101 VQ102"_s);

        QTRY_VERIFY(m_window->called(u"İletinin tümünü göster"_s));
        const qreal fourLines = banner->height();
        pressAccessibly(m_window->called(u"İletinin tümünü göster"_s));
        QTRY_VERIFY(banner->height() > fourLines + 30);
        pressAccessibly(m_window->called(u"İletiyi kopyala"_s));
        QCOMPARE(QGuiApplication::clipboard()->text(), message);
    }

    void anErrorIsSeenFromTheFlightsAndMovesNothing()
    {
        findAndScroll();
        QQuickItem *card = m_window->itemsOfType("FlightCardView").constLast();
        const qreal place = card->mapToScene({}).y();
        QVERIFY(!m_window->named(u"errorStrip"_s));

        failToFind(u"olmadı"_s);
        QTRY_COMPARE(slotOf("ErrorSlot")->property("openness"), 1.0);
        m_window->layOut();
        QCOMPARE(card->mapToScene({}).y(), place);
        QVERIFY(m_window->textIn(flightResults()).contains(u"önceki aramaya ait: IST–LHR"));

        QQuickItem *strip = m_window->named(u"errorStrip"_s);
        QVERIFY(strip && m_window->textIn(strip).endsWith(u"olmadı"));
        QTRY_VERIFY(strip->y() > 0);
        pressAccessibly(strip);
        QTRY_VERIFY(!m_window->named(u"errorStrip"_s));
        const qreal banner =
            m_window->itemsOfType("ErrorBanner").constFirst()->mapToItem(page(), QPointF()).y();
        QVERIFY(banner >= 0 && banner < page()->height() - 40);
    }

    void onlyTheCardsInViewExist()
    {
        find(10'000);
        QTRY_VERIFY(!shownFlights().isEmpty());
        QVERIFY(m_window->itemsOfType("FlightCardView").size() < 40);
        scrollToTheEnd();
        QTRY_VERIFY(shownFlights().endsWith(u"VQ10099"_s));
        QVERIFY(m_window->itemsOfType("FlightCardView").size() < 40);
        m_window->viewModel()->applyFilter(FlightSortOption::fastest);
        QTRY_VERIFY(shownFlights().endsWith(u"VQ100"_s));
        QVERIFY(m_window->itemsOfType("FlightCardView").size() < 40);
    }

    void everyCardEndsInItsPlace()
    {
        // The order changes in mid-motion; the list, too, becomes shorter or longer.
        for (const int countAfterwards : { 40, 9, 80 }) {
            find(40);
            m_window->layOut();
            scrollToTheEnd();
            m_answers.insert(flightsTool, flightsAnswer(countAfterwards));
            m_window->viewModel()->startSelectCalendarDate(u"2026-12-03"_s);
            QVERIFY(m_window->waitForSearch());
            for (const auto order : { FlightSortOption::fastest, FlightSortOption::cheapest,
                                      FlightSortOption::fastest }) {
                m_window->viewModel()->applyFilter(order);
                QTest::qWait(60);
            }
            QTRY_VERIFY(hasAllCardsInView());
        }
    }

    void thePageStaysWhileADayLoads()
    {
        const qreal place = findAndScroll();
        QVERIFY(place > 1000);
        m_answers.insert(flightsTool, flightsAnswer(20).held());
        m_window->viewModel()->startSelectCalendarDate(u"2026-12-03"_s);
        QTRY_COMPARE(m_server->heldCount(), 1);
        QTRY_COMPARE(m_window->itemsOfType("LoadingPanel").size(), 1);
        m_window->layOut();
        QCOMPARE(page()->property("contentY").toReal(), place);
        m_server->release();
        QTRY_VERIFY(!shownFlights().isEmpty());
        m_window->layOut();
        QCOMPARE(page()->property("contentY").toReal(), place);
    }

    void thePageStaysWhenTheKeyboardComesBack()
    {
        m_window->focus(u"searchButton"_s);
        const qreal place = findAndScroll();
        QWindow other;
        other.show();
        other.requestActivate();
        QVERIFY(QTest::qWaitForWindowActive(&other));
        m_window->window()->requestActivate();
        QVERIFY(QTest::qWaitForWindowActive(m_window->window()));
        QCOMPARE(m_window->focused(), m_window->named(u"searchButton"_s));
        QCOMPARE(page()->property("contentY").toReal(), place);
        // The user's own move is followed.
        m_window->key(Qt::Key_Tab);
        QVERIFY(page()->property("contentY").toReal() < 500);
    }

public Q_SLOTS:
    void rememberUrl(const QUrl &url) { m_opened = url; }

private:
    void find(int flights)
    {
        m_answers.insert(flightsTool, flightsAnswer(flights));
        QVERIFY(m_window->search());
    }
    void failToFind(const QString &reason)
    {
        m_answers.insert(flightsTool, ScriptedAnswer::failure(reason));
        m_window->viewModel()->startSelectCalendarDate(u"2026-12-02"_s);
        QVERIFY(m_window->waitForSearch());
    }
    /// To the end of a long page, the place of which it returns.
    qreal findAndScroll()
    {
        find(20);
        waitForTheCalendar();
        m_window->layOut();
        return scrollToTheEnd();
    }
    /// The calendar slides in; a click during that would miss.
    void waitForTheCalendar() const
    {
        QTRY_VERIFY(slotOf("CalendarSlot"));
        QTRY_COMPARE(slotOf("CalendarSlot")->property("openness"), 1.0);
    }
    QQuickItem *slotOf(const char *type) const { return m_window->itemsOfType(type).value(0); }
    QQuickItem *flightResults() const { return m_window->named(u"flightResults"_s); }
    QString shownFlights() const
    {
        QList<QQuickItem *> cards = m_window->itemsOfType("FlightCardView");
        std::sort(cards.begin(), cards.end(),
                  [](QQuickItem *left, QQuickItem *right) { return left->y() < right->y(); });
        QStringList numbers;
        for (QQuickItem *card : std::as_const(cards))
            numbers.append(card->property("flight").value<FlightOption>().flightNumber);
        return numbers.join(u' ');
    }
    QQuickItem *flightList() const { return m_window->itemsOfType("FlightList").constFirst(); }
    /// Whether every part of the list in view has its card, fully opaque.
    bool hasAllCardsInView() const
    {
        constexpr double pitch = 116;
        const QList<FlightOption> &flights = m_window->viewModel()->filteredFlights();
        QSet<qsizetype> shown;
        for (QQuickItem *card : m_window->itemsOfType("FlightCardView")) {
            const qsizetype row = flights.indexOf(card->property("flight").value<FlightOption>());
            if (row >= 0 && card->y() == double(row) * pitch && card->opacity() == 1)
                shown.insert(row);
        }
        const double top = flightList()->mapToItem(page(), QPointF()).y();
        for (qsizetype row = 0; row < flights.size(); ++row) {
            const double y = top + double(row) * pitch;
            if (y > -pitch && y < page()->height() && !shown.contains(row))
                return false;
        }
        return !shown.isEmpty();
    }
    QQuickItem *page() const { return m_window->named(u"page"_s); }
    qreal scrollToTheEnd() const
    {
        QMetaObject::invokeMethod(page(), "scrollTo", Q_ARG(double, 1e9));
        return page()->property("contentY").toReal();
    }

    QUrl m_opened;
};

QTEST_MAIN(MainViewTest)
#include "MainViewTest.moc"
