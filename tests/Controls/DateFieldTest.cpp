#include "Controls/Fields/DateEditing.h"
#include "support/WindowTesting.h"

#include <QRegularExpression>

#include <ctime>
#include <tuple>

using namespace Qt::StringLiterals;

namespace {

const QByteArray field = R"(
    property date day: new Date(2026, 11, 30, 14, 35)
    property int edits: 0
    DateField {
        objectName: "field"; label: "Gidiş Tarihi"; value: page.day
        onEdited: value => { page.day = value; ++page.edits }
    })";

QDateTime at(int year, int month, int day) { return { QDate(year, month, day), QTime(14, 35) }; }

} // namespace

/// The date field, its month panel and the arithmetic of both.
class DateFieldTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { prepareWindows(); }
    void init() { QTest::failOnWarning(QRegularExpression(u"."_s)); }
    void cleanup() { setZone("Europe/Istanbul"); }

    void movedDays()
    {
        const auto move = [](const QDateTime &from, Qt::Key key) {
            return DateEditing().moved(from, key);
        };
        QCOMPARE(move(at(2028, 3, 1), Qt::Key_Left), at(2028, 2, 29));
        QCOMPARE(move(at(2026, 12, 31), Qt::Key_Right), at(2027, 1, 1));
        QCOMPARE(move(at(2026, 1, 28), Qt::Key_Down), at(2026, 2, 4));
        QCOMPARE(move(at(2026, 1, 3), Qt::Key_Up), at(2025, 12, 27));
        QCOMPARE(move(at(2026, 1, 31), Qt::Key_PageDown), at(2026, 2, 28));
        QCOMPARE(move(at(2026, 1, 31), Qt::Key_PageUp), at(2025, 12, 31));
        QCOMPARE(move(at(2028, 2, 10), Qt::Key_End), at(2028, 2, 29));
        QCOMPARE(move(at(2028, 2, 10), Qt::Key_Home), at(2028, 2, 1));
        QCOMPARE(move(at(2028, 2, 1), Qt::Key_Tab), at(2028, 2, 1));
    }

    void clocksPutForward()
    {
        // A time that is skipped on that day, or there twice.
        for (const auto &[zone, day, time] :
             { std::tuple("America/New_York", QDate(2026, 3, 8), QTime(2, 30)),
               { "Asia/Beirut", QDate(2022, 3, 27), QTime(0, 0) },
               { "Europe/London", QDate(2026, 10, 25), QTime(1, 30) } }) {
            setZone(zone);
            // The day counts, forwards, backwards and past it.
            const DateEditing editing;
            const QDateTime eve(day.addDays(-1), time);
            const QDateTime morrow(day.addDays(1), time);
            QVERIFY(editing.addDays(eve, 1).isValid());
            QCOMPARE(editing.addDays(eve, 1).date(), day);
            QCOMPARE(editing.addDays(morrow, -1).date(), day);
            QCOMPARE(editing.addDays(eve, 2), morrow);
            QCOMPARE(editing.onDay(eve, day.year(), day.month() - 1, day.day()).date(), day);
        }
    }

    void textThatFits()
    {
        const DateEditing editing;
        const QFont font = QGuiApplication::font();
        const QDateTime moment = at(2026, 12, 5);
        // The full text of every day fits the room for the widest.
        const qreal widest = editing.widestFullText(font);
        for (QDateTime day = at(2026, 1, 1); day.date().year() == 2026; day = day.addDays(1))
            QCOMPARE(editing.fittingText(day, font, widest), editing.fullText(day));
        QCOMPARE(editing.fittingText(moment, font, 500), u"5 Aralık 2026 Cumartesi"_s);
        QCOMPARE(editing.fittingText(moment, font, 110), u"5 Ara 2026 Cmt"_s);
        QCOMPARE(editing.fittingText(moment, font, 0), u"5 Ara"_s);
    }

    void daysAreChosenByKeyboard()
    {
        const TestWindow page(field);
        page.focus(u"field"_s);
        for (const Qt::Key key : { Qt::Key_Right, Qt::Key_Right, Qt::Key_Right, Qt::Key_Left,
                                   Qt::Key_Up, Qt::Key_Down, Qt::Key_Down })
            page.key(key);
        QCOMPARE(page.focusedName(), u"Gidiş Tarihi"_s);
        QVERIFY(accessible(page.focused())
                    ->text(QAccessible::Description)
                    .startsWith(u"31 Aralık 2026 Perşembe"_s));
        QCOMPARE(page.state("day").toDateTime(), at(2026, 12, 31));
        for (const Qt::Key opener : { Qt::Key_Return, Qt::Key_Space }) {
            const QDateTime before = page.state("day").toDateTime();
            page.key(opener);
            QTRY_VERIFY(page.called(u"Takvim"_s));
            QTRY_COMPARE(accessible(page.focused())->role(), QAccessible::List);
            page.key(Qt::Key_PageDown);
            page.key(Qt::Key_Down);
            page.key(opener);
            QTRY_VERIFY(!page.called(u"Takvim"_s));
            QCOMPARE(page.state("day").toDateTime(), before.addMonths(1).addDays(7));
            // The ring that the field had comes back with the keyboard.
            QTRY_COMPARE(page.focused(), page.named(u"field"_s));
            QTRY_VERIFY(page.focused()->property("visualFocus").toBool());
        }
        QCOMPARE(page.state("edits").toInt(), 7 + 2);
    }

    void panelLeavesWithoutChange()
    {
        const TestWindow page(field);
        for (const bool isEscaped : { true, false }) {
            page.focus(u"field"_s);
            page.key(Qt::Key_Space);
            QTRY_VERIFY(page.called(u"Takvim"_s));
            // Every opening starts from the field's day.
            QTRY_VERIFY(page.told(u"30 Aralık 2026 Çarşamba"_s)->state().focused);
            page.key(Qt::Key_Right);
            // Tab goes round within the panel: two buttons and the days.
            for (int i = 0; i < 3; ++i)
                page.key(Qt::Key_Tab);
            QVERIFY(page.told(u"31 Aralık 2026 Perşembe"_s)->state().focused);
            if (isEscaped)
                page.key(Qt::Key_Escape);
            else
                QTest::mouseClick(page.window(), Qt::LeftButton, {}, QPoint(700, 600));
            QTRY_COMPARE(page.focused(), page.named(u"field"_s));
            QTRY_VERIFY(!page.called(u"Takvim"_s));
        }
        QCOMPARE(page.state("edits").toInt(), 0);
    }

    void panelByPointerAndAssistiveTechnology()
    {
        const TestWindow page(field);
        page.click(page.named(u"field"_s));
        QTRY_VERIFY(page.called(u"Sonraki ay"_s));
        // The first day shown is the Monday before the month's first.
        QAccessibleInterface *days = accessible(page.focused());
        QCOMPARE(days->child(0)->text(QAccessible::Name), u"30 Kasım 2026 Pazartesi"_s);
        QCOMPARE(days->childCount(), 42);
        page.click(page.called(u"Sonraki ay"_s));
        // The days keep the keyboard.
        page.key(Qt::Key_PageDown);
        QVERIFY(page.told(u"28 Şubat 2027 Pazar"_s)->state().focused);
        page.click(page.called(u"Önceki ay"_s));
        page.click(page.called(u"1 Ocak 2027 Cuma"_s));
        QTRY_COMPARE(page.state("day").toDateTime(), at(2027, 1, 1));
        QTRY_VERIFY(!page.called(u"Takvim"_s));

        pressAccessibly(page.named(u"field"_s));
        QTRY_VERIFY(page.called(u"Takvim"_s));
        // The arrows go on from where assistive technology went.
        page.told(u"12 Ocak 2027 Salı"_s)
            ->actionInterface()
            ->doAction(QAccessibleActionInterface::setFocusAction());
        page.key(Qt::Key_Right);
        QVERIFY(page.told(u"13 Ocak 2027 Çarşamba"_s)->state().focused);
        // A day of the month before, shown in the same grid.
        pressAccessibly(page.told(u"31 Aralık 2026 Perşembe"_s));
        QCOMPARE(page.state("day").toDateTime(), at(2026, 12, 31));
    }

private:
    static void setZone(const QByteArray &zone)
    {
        qputenv("TZ", zone);
        ::tzset();
    }
};

QTEST_MAIN(DateFieldTest)
#include "DateFieldTest.moc"
