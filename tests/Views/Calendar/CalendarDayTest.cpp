#include "support/WindowTesting.h"

#include <QJSValue>
#include <QQmlListReference>

using namespace Qt::StringLiterals;

namespace {

/// "green 15" for the theme's green at 15 %.
QString colourOf(const QObject *object, const char *property = "color")
{
    const auto colour = object->property(property).value<QColor>();
    const QHash<QRgb, QString> names {
        { QColor::fromRgbF(0.06F, 0.72F, 0.51F).rgb(), u"green"_s },
        { QColor::fromRgbF(0.91F, 0.1F, 0.2F).rgb(), u"red"_s },
        { QColor::fromRgbF(0.098F, 0.133F, 0.22F).rgb(), u"panel"_s },
        { QColor::fromRgbF(0.22F, 0.3F, 0.46F).rgb(), u"slate"_s },
        { QColor(Qt::white).rgb(), u"white"_s },
    };
    const QString name = names.value(QColor(colour.rgb()).rgb(), colour.name());
    const int opacity = qRound(100 * colour.alphaF());
    return opacity == 100 ? name : u"%1 %2"_s.arg(name).arg(opacity);
}

} // namespace

/// How a day of the fare chart is chosen, and its colours.
class CalendarDayTest : public WindowTest
{
    Q_OBJECT

private Q_SLOTS:
    void coloursOfTheBestAndTheChosenDay()
    {
        waitForTheCalendar();
        choose("CalendarBarColumn", 0); // which is the best
        QCOMPARE(bar(0), u"green, green, red"_s);
        QCOMPARE(tile(0), u"red, white 30, green"_s);
        choose("CalendarTileView", 2);
        QCOMPARE(bar(0), u"green, green, none"_s);
        QCOMPARE(tile(0), u"green 15, green 40, green"_s);
        QCOMPARE(bar(1), u"white 70, slate, none"_s);
        QCOMPARE(tile(1), u"panel, white 8, white 70"_s);
        QCOMPARE(bar(2), u"red, red, red"_s);
        QCOMPARE(tile(2), u"red, white 30, white 70"_s);
        QCOMPARE(questions().size(), 2);

        m_window->focus(u"SpokenList"_s);
        m_window->press("Home Right Return");
        QCOMPARE(m_window->viewModel()->selectedDate(), u"2026-12-02"_s);
        QCOMPARE(m_window->itemsOfType("DayStrip").constLast()->property("currentIndex"), 1);
        QVERIFY(m_window->waitForSearch());
    }

private:
    void choose(const char *type, int index) const
    {
        m_window->click(m_window->itemsOfType(type).at(index));
        QCOMPARE(m_window->viewModel()->selectedDate(), u"2026-12-0%1"_s.arg(index + 1));
        QVERIFY(m_window->waitForSearch());
    }
    static QQuickItem *part(QQuickItem *day, const QString &name)
    {
        return day->findChild<QQuickItem *>(name);
    }
    /// The colours of price, fill and outline.
    QString bar(int index) const
    {
        QQuickItem *day = m_window->itemsOfType("CalendarBarColumn").at(index);
        QObject *gradient = part(day, u"bar"_s)->property("gradient").value<QJSValue>().toQObject();
        const QObject *top = QQmlListReference(gradient, "stops").at(0);
        const QQuickItem *outline = part(day, u"outline"_s);
        const auto *pen = outline->property("border").value<QObject *>();
        return colourOf(part(day, u"price"_s)) + u", "_s + colourOf(top) + u", "_s
            + (outline->isVisible() ? colourOf(pen) : u"none"_s);
    }
    /// The colours of ground, outline and price.
    QString tile(int index) const
    {
        QQuickItem *day = m_window->itemsOfType("CalendarTileView").at(index);
        const auto *ground = day->property("background").value<QQuickItem *>();
        return colourOf(ground) + u", "_s + colourOf(ground, "borderColor") + u", "_s
            + colourOf(part(day, u"price"_s));
    }
};

QTEST_MAIN(CalendarDayTest)
#include "CalendarDayTest.moc"
