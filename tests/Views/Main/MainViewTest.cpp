#include "support/WindowTesting.h"

#include <QClipboard>
#include <QSignalSpy>

#include <algorithm>

using namespace Qt::StringLiterals;

/// The whole window: what a click does, what shows when.
class MainViewTest : public WindowTest
{
    Q_OBJECT

private Q_SLOTS:
    void theBestDayAndTheChosenDay()
    {
        waitForTheCalendar();
        choose("CalendarBarColumn", 0); // which is the best
        const QColor bestChosenBar = barColour(0);
        const QColor chosenTile = tileColour(0);
        choose("CalendarTileView", 2);
        // A bar stays that of the best day when it is chosen; a tile does not.
        QCOMPARE(barColour(0), bestChosenBar);
        QCOMPARE(tileColour(2), chosenTile);
        const QSet<QRgb> bars { barColour(0).rgb(), barColour(1).rgb(), barColour(2).rgb() };
        const QSet<QRgb> tiles { tileColour(0).rgba(), tileColour(1).rgba(), tileColour(2).rgba() };
        QCOMPARE(bars.size(), 3);
        QCOMPARE(tiles.size(), 3);
        QTRY_COMPARE(barHeight(0) / barHeight(8), 4000.0 / 4800.0);
        QCOMPARE(questions().size(), 2);

        m_window->press("Home Right Return", u"AccessibleList"_s);
        QCOMPARE(m_window->viewModel()->selectedDate(), u"2026-12-02"_s);
        QCOMPARE(m_window->item(u"DayStrip"_s)->property("currentIndex"), 1);
        QVERIFY(m_window->waitForSearch());
    }

    void theChartOpensAsNearToItsBeginningAsTheChosenDayAllows()
    {
        // The width of the window, the days, the chosen one; those that are seen whole, the chosen
        // one clear of the edges.
        const auto openings = {
            std::tuple(1080, 14, 5, u"0 to 9"_s), { 1080, 14, 9, u"1 to 10"_s },
            { 1080, 14, 13, u"4 to 13"_s },       { 1280, 14, 7, u"0 to 11"_s },
            { 1280, 14, 13, u"2 to 13"_s },       { 1280, 28, 14, u"4 to 15"_s },
            { 1280, 7, 3, u"0 to 6"_s },          { 1280, 21, 0, u"0 to 11"_s },
            { 1920, 14, 13, u"0 to 13"_s },       { 1920, 28, 27, u"9 to 27"_s }
        };
        for (const bool isLateMade : { true, false }) {
            for (const auto &[width, days, chosen, seen] : openings) {
                m_answers.insert(calendarTool, calendarAnswer(days, chosen));
                if (isLateMade)
                    m_window = std::make_unique<TestWindow>();
                m_window->window()->resize(width, 860);
                if (!isLateMade)
                    m_window->viewModel()->startSearchAll();
                QVERIFY(m_window->waitForSearch());
                waitForTheCalendar();
                const QString opening =
                    u"%1 wide, day %2 of %3 chosen: "_s.arg(width).arg(chosen).arg(days);
                QTRY_COMPARE(strip()->property("count"), days);
                QCOMPARE(chosenDay(), chosen);
                QTRY_COMPARE(opening + seenDays(), opening + seen);
            }
        }
    }

    void theBadgeShowsTheBestDay()
    {
        m_answers.insert(calendarTool, calendarAnswer(28, 27)); // the first is the best
        m_window = std::make_unique<TestWindow>();
        QVERIFY(m_window->waitForSearch());
        waitForTheCalendar();
        QTRY_COMPARE(seenDays(), u"16 to 27"_s);
        m_window->click(m_window->item(u"BestPriceBadge"_s));
        QTRY_COMPARE(seenDays(), u"0 to 11 without the chosen one"_s);
        QCOMPARE(chosenDay(), 27);
        // The keyboard is there, too.
        m_window->press("Return");
        QCOMPARE(chosenDay(), 0);
        QVERIFY(m_window->waitForSearch());
    }

    void aNewOrderMovesCards()
    {
        // All three are in view.
        m_window->window()->resize(1280, 1500);
        QTRY_COMPARE(shownFlights(), u"VQ100 VQ101 VQ102"_s);
        const QList<QQuickItem *> cards = m_window->itemsOfType("FlightCardView");
        m_window->viewModel()->applyFilter(FlightSortOption::fastest);
        QTRY_COMPARE(shownFlights(), u"VQ102 VQ101 VQ100"_s);
        // The same items in other places: nothing was built anew.
        for (QQuickItem *card : m_window->itemsOfType("FlightCardView"))
            QVERIFY(cards.contains(card));
    }

    void longTextsFitTheSmallestWindow()
    {
        const QString text = u"Afyonkarahisar-Kütahya, Zafer Havalimanı "_s.repeated(8);
        // One of the longest names.
        m_window->viewModel()->setOriginCode(u"CPT"_s);
        m_window->viewModel()->setDestinationCode(u"CPT"_s);
        m_window->viewModel()->setTripType(TripType::roundTrip);
        find(flightsAnswer({ { text, 987'654'321.0, u"2026-12-05T23:55"_s, 99'999 } }));
        failToFind(text);
        m_window->window()->resize(m_window->window()->minimumSize());
        waitForTheCalendar();
        expectTextsInPlace({ "HeaderBar", "IntroView", "FlightSearchCardView", "ErrorBanner",
                             "CalendarBarColumn", "CalendarTileView", "FlightCardView" });

        QJsonObject status;
        for (const char *key : { "flightNumber", "status", "origin", "destination",
                                 "scheduledDeparture", "actualDeparture", "scheduledArrival",
                                 "estimatedArrival", "terminal", "gate", "baggage" })
            status.insert(QString::fromLatin1(key), text);
        m_answers.insert(statusTool, ScriptedAnswer::content({ { u"flightData"_s, status } }));
        pressAccessibly(m_window->named(u"flightStatusButton"_s));
        QTRY_VERIFY(m_window->isOpen(u"flightStatusSheet"_s));
        m_window->press("Return");
        QTRY_VERIFY(m_window->named(u"statusResultCard"_s));
        expectTextsInPlace({ "StatusResultCard" });
    }

    void anErrorIsSeenFromTheFlightsAndMovesNothing()
    {
        findAndScroll();
        QQuickItem *card = m_window->itemsOfType("FlightCardView").constLast();
        const qreal before = card->mapToScene({}).y();
        QVERIFY(!m_window->named(u"errorStrip"_s));
        QCOMPARE(m_window->count("ErrorBanner"), 0);

        const QString reason = u"Bakımdayız. "_s.repeated(80).trimmed();
        failToFind(reason);
        QTRY_COMPARE(m_window->item(u"errorSlot"_s)->property("openness"), 1.0);
        m_window->layOut();
        QCOMPARE(card->mapToScene({}).y(), before);
        QVERIFY(resultsText().contains(u"önceki aramaya ait: IST–LHR"));

        QQuickItem *strip = m_window->named(u"errorStrip"_s);
        QCOMPARE(m_window->textIn(strip).right(reason.size()), reason);
        QTRY_VERIFY(strip->y() > 0);
        pressAccessibly(strip);
        QTRY_VERIFY(!m_window->named(u"errorStrip"_s));
        const QString message = u"Seçilen tarih (2026-12-02) için uçuşlar yüklenemedi: "_s + reason;
        QQuickItem *banner = m_window->called(message);
        QVERIFY(banner);
        const qreal top = banner->mapToItem(page(), QPointF()).y();
        QVERIFY2(top >= 0 && top < page()->height() - 40, qPrintable(QString::number(top)));
        QCOMPARE(accessible(banner)->role(), QAccessible::AlertMessage);
        QCOMPARE(m_window->textIn(banner), message);

        const qreal fourLines = banner->height();
        pressAccessibly(m_window->called(u"İletinin tümünü göster"_s));
        QTRY_VERIFY(banner->height() > fourLines + 30);
        pressAccessibly(m_window->called(u"İletiyi kopyala"_s));
        QCOMPARE(QGuiApplication::clipboard()->text(), message);
    }

    /// The pointer is still on the day that it clicked.
    void anErrorLeavesTheClickedDayUnderThePointer()
    {
        find(flightsAnswer(20));
        waitForTheCalendar();
        m_answers.insert(flightsTool, ScriptedAnswer::failure(u"olmadı"_s));
        m_window->layOut();
        const QPointF before = day("CalendarTileView", 1)->mapToScene({});
        m_window->click(day("CalendarTileView", 1));
        QVERIFY(m_window->waitForSearch());
        QTRY_COMPARE(m_window->item(u"errorSlot"_s)->property("openness"), 1.0);
        m_window->layOut();
        QCOMPARE(day("CalendarTileView", 1)->mapToScene({}), before);
        const qreal banner = m_window->item(u"ErrorBanner"_s)->mapToItem(page(), QPointF()).y();
        QVERIFY2(banner > 0 && banner < before.y(), qPrintable(QString::number(banner)));

        m_answers.insert(flightsTool, flightsAnswer(20));
        m_window->click(day("CalendarTileView", 1));
        QVERIFY(m_window->waitForSearch());
        QTRY_COMPARE(m_window->count("ErrorBanner"), 0);
        m_window->layOut();
        QCOMPARE(day("CalendarTileView", 1)->mapToScene({}), before);
    }

    void everyCardEndsInItsPlace()
    {
        // The order changes in mid-motion; the list, too, becomes shorter or longer.
        for (const int countAfterwards : { 40, 9, 80 }) {
            find(flightsAnswer(40));
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

    void thePageAndTheListStayWhileDaysLoad()
    {
        const qreal before = findAndScroll();
        QVERIFY(before > 1000);
        m_answers.insert(flightsTool, flightsAnswer(20).held());
        for (const QString &day : { u"2026-12-02"_s, u"2026-12-03"_s })
            m_window->viewModel()->startSelectCalendarDate(day);
        QTRY_COMPARE(m_server->heldCount(), 2);
        QCOMPARE(m_window->count("LoadingPanel"), 1);
        m_window->layOut();
        QCOMPARE(place(), before);
        // The first end shows the flights, with a note while they are not those of the chosen day.
        m_server->release();
        QTRY_COMPARE(m_window->count("LoadingPanel"), 0);
        QVERIFY(!m_window->viewModel()->isSearchingFlightsOnly());
        QTRY_VERIFY(!shownFlights().isEmpty());
        const QString note = u"önceki aramaya ait: IST–LHR, 2026-12-02"_s;
        QVERIFY2(resultsText().contains(note), qPrintable(resultsText()));
        m_server->release();
        QTRY_VERIFY2(!resultsText().contains(note), qPrintable(resultsText()));
        m_window->layOut();
        QCOMPARE(place(), before);
    }

    void thePageStaysWhenTheKeyboardComesBack()
    {
        m_window->focus(u"searchButton"_s);
        const qreal before = findAndScroll();
        QWindow other;
        other.show();
        other.requestActivate();
        QVERIFY(QTest::qWaitForWindowActive(&other));
        m_window->window()->requestActivate();
        QVERIFY(QTest::qWaitForWindowActive(m_window->window()));
        QCOMPARE(m_window->focused(), m_window->named(u"searchButton"_s));
        QCOMPARE(place(), before);
        // The user's own move is followed.
        m_window->press("Tab");
        QVERIFY(place() < 500);
    }

    /// The software renderer draws only what changed since the frame before.
    void aScrollLeavesNoOldPixels()
    {
        find(ScriptedAnswer::failure(u"Deneme hatası."_s));
        waitForTheCalendar();
        for (int height = 720; height <= 900; height += 20) {
            m_window->window()->resize(1280, height);
            m_window->itemsOfType("QuickRouteButton")
                .constLast()
                ->forceActiveFocus(Qt::TabFocusReason);
            m_window->press("Home"); // from there it scrolls to the top
            QCOMPARE(place(), 0.0);
            waitUntilStill();
            for (const char *key : { "Tab", "PgDown" }) {
                m_window->press(key);
                waitUntilStill();
                const QImage shown = picture();
                QVERIFY2(shown == drawnAfresh(),
                         qPrintable(u"There are old pixels after %1, height %2."_s
                                        .arg(QLatin1StringView(key))
                                        .arg(height)));
            }
        }
    }

private:
    /// So many days, of which the one at `chosen` is that of departure.
    static ScriptedAnswer calendarAnswer(int days, int chosen)
    {
        QStringList dates;
        for (int day = 0; day < days; ++day)
            dates.append(QDate::currentDate().addDays(14 + day - chosen).toString(Qt::ISODate));
        return ::calendarAnswer(dates);
    }
    QQuickItem *strip() const { return m_window->item(u"DayStrip"_s); }
    int chosenDay() const { return strip()->property("selectedIndex").toInt(); }
    /// "0 to 9"; says so when the chosen day is not among them or is covered by a faded edge.
    QString seenDays() const
    {
        m_window->layOut();
        const qreal fade = strip()->property("edgeWidth").toReal();
        const qreal width = strip()->width();
        QList<int> seen;
        bool isChosenClear = false;
        for (QQuickItem *tile : m_window->itemsOfType("CalendarTileView")) {
            const QRectF place = tile->mapRectToItem(strip(), tile->boundingRect());
            if (place.left() < 0 || place.right() > width)
                continue;
            const int index = tile->parentItem()->property("index").toInt();
            seen.append(index);
            const bool isFree = (place.left() >= fade || strip()->property("atXBeginning").toBool())
                && (place.right() <= width - fade || strip()->property("atXEnd").toBool());
            isChosenClear = isChosenClear || (index == chosenDay() && isFree);
        }
        std::ranges::sort(seen);
        return u"%1 to %2%3"_s.arg(seen.value(0, -1))
            .arg(seen.isEmpty() ? -1 : seen.constLast())
            .arg(isChosenClear ? QString() : u" without the chosen one"_s);
    }
    /// Waits until nothing has been drawn for a while.
    void waitUntilStill() const
    {
        QSignalSpy frames(m_window->window(), &QQuickWindow::frameSwapped);
        do {
            frames.clear();
            QTest::qWait(40);
        } while (!frames.isEmpty());
    }
    QImage picture() const { return m_window->window()->grabWindow(); }
    /// Another background has the whole window drawn.
    QImage drawnAfresh() const
    {
        QQuickWindow *window = m_window->window();
        const QColor background = window->color();
        window->setColor(Qt::white);
        picture();
        window->setColor(background);
        return picture();
    }
    void failToFind(const QString &reason)
    {
        m_answers.insert(flightsTool, ScriptedAnswer::failure(reason));
        m_window->viewModel()->startSelectCalendarDate(u"2026-12-02"_s);
        QVERIFY(m_window->waitForSearch());
    }
    /// No text leaves its view or covers another.
    void expectTextsInPlace(std::initializer_list<const char *> types) const
    {
        const auto isText = [](QQuickItem *item) { return item->inherits("QQuickText"); };
        m_window->layOut();
        for (const char *type : types) {
            QVERIFY2(m_window->count(type) > 0, type);
            for (QQuickItem *view : m_window->itemsOfType(type)) {
                QList<QRectF> places;
                for (QQuickItem *text : TestWindow::itemsIn(view, isText)) {
                    const QRectF place = text->mapRectToItem(view, text->boundingRect());
                    bool isClear = view->boundingRect().contains(place);
                    for (const QRectF &other : std::as_const(places)) {
                        const QRectF common = place.intersected(other);
                        isClear = isClear && (common.width() < 1 || common.height() < 1);
                    }
                    QVERIFY2(isClear, qPrintable(text->property("text").toString()));
                    places.append(place);
                }
            }
        }
    }
    /// To the end of a long page, the place of which it returns.
    qreal findAndScroll()
    {
        find(flightsAnswer(20));
        waitForTheCalendar();
        scrollToTheEnd();
        return place();
    }
    void scrollToTheEnd() const
    {
        m_window->layOut();
        QMetaObject::invokeMethod(page(), "scrollTo", Q_ARG(double, 1e9));
    }
    QQuickItem *page() const { return m_window->named(u"page"_s); }
    static FlightOption flightOf(QQuickItem *card)
    {
        return card->property("flight").value<FlightOption>();
    }
    QString resultsText() const { return m_window->textOf(u"flightResults"_s); }
    QString shownFlights() const
    {
        QMultiMap<qreal, QString> numbers;
        for (QQuickItem *card : m_window->itemsOfType("FlightCardView"))
            numbers.insert(card->y(), flightOf(card).flightNumber);
        return numbers.values().join(u' ');
    }
    /// Whether every part of the list in view has its card, fully opaque.
    bool hasAllCardsInView() const
    {
        const double pitch = m_window->item(u"FlightList"_s)->property("cardPitch").toDouble();
        const QList<FlightOption> &flights = m_window->viewModel()->filteredFlights();
        QSet<qsizetype> shown;
        for (QQuickItem *card : m_window->itemsOfType("FlightCardView")) {
            const qsizetype row = flights.indexOf(flightOf(card));
            if (row >= 0 && card->y() == double(row) * pitch && card->opacity() == 1)
                shown.insert(row);
        }
        const double top = m_window->item(u"FlightList"_s)->mapToItem(page(), QPointF()).y();
        for (qsizetype row = 0; row < flights.size(); ++row) {
            const double y = top + double(row) * pitch;
            if (y > -pitch && y < page()->height() && !shown.contains(row))
                return false;
        }
        return !shown.isEmpty();
    }
    void choose(const char *type, int index) const
    {
        m_window->click(day(type, index));
        QCOMPARE(m_window->viewModel()->selectedDate(), u"2026-12-0%1"_s.arg(index + 1));
        QVERIFY(m_window->waitForSearch());
    }
    QQuickItem *day(const char *type, int index) const
    {
        QList<QQuickItem *> days = m_window->itemsOfType(type);
        std::ranges::sort(days, {}, [](QQuickItem *item) { return item->mapToScene({}).x(); });
        return days.at(index);
    }
    QQuickItem *bar(int index) const
    {
        return day("CalendarBarColumn", index)->findChild<QQuickItem *>(u"bar"_s);
    }
    QColor barColour(int index) const { return bar(index)->property("color").value<QColor>(); }
    qreal barHeight(int index) const { return bar(index)->height(); }
    QColor tileColour(int index) const
    {
        const QVariant background = day("CalendarTileView", index)->property("background");
        return background.value<QQuickItem *>()->property("color").value<QColor>();
    }
};

QTEST_MAIN(MainViewTest)
#include "MainViewTest.moc"
