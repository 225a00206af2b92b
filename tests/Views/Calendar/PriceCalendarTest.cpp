#include "support/WindowTesting.h"

#include <algorithm>

using namespace Qt::StringLiterals;

/// The fare chart in the window: bars, tiles and the badge.
class PriceCalendarTest : public WindowTest
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
        const qreal banner =
            m_window->item(u"ErrorBanner"_s)->mapToItem(m_window->named(u"page"_s), QPointF()).y();
        QVERIFY2(banner > 0 && banner < before.y(), qPrintable(QString::number(banner)));

        m_answers.insert(flightsTool, flightsAnswer(20));
        m_window->click(day("CalendarTileView", 1));
        QVERIFY(m_window->waitForSearch());
        QTRY_COMPARE(m_window->count("ErrorBanner"), 0);
        m_window->layOut();
        QCOMPARE(day("CalendarTileView", 1)->mapToScene({}), before);
    }

private:
    /// So many days, of which the one at `chosen` is that of departure.
    static ScriptedAnswer calendarAnswer(int days, int chosen)
    {
        return ::calendarAnswer(days, QDate::currentDate().addDays(14 - chosen));
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

QTEST_MAIN(PriceCalendarTest)
#include "PriceCalendarTest.moc"
