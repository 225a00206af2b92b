#include "ControlPage.h"
#include "Views/Controls/DateEditing.h"

#include <QScopeGuard>

#include <ctime>

using namespace Qt::StringLiterals;

namespace {

const QByteArray field = R"(
    property date day: new Date(2026, 11, 30, 14, 35)
    property int edits: 0
    DateField {
        objectName: "field"; label: "Gidiş Tarihi"; value: page.day
        onEdited: value => { page.day = value; ++page.edits }
    })";

QDateTime at(int year, int month, int day, const QTime &time = { 14, 35 })
{
    return { QDate(year, month, day), time };
}

} // namespace

/// The date field, its month panel and the arithmetic of both.
class DateFieldTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        QAccessible::setActive(true);
        prepareApplication();
    }

    void movedDays_data();
    void movedDays();
    void clocksPutForward_data();
    void clocksPutForward();
    void textThatFits();
    void arrowsStepTheClosedField();
    void panelTakesWhatTheKeyboardChose();
    void panelLeavesWithoutChange();
    void panelByPointerAndAssistiveTechnology();
    void panelIsTurkish();
};

void DateFieldTest::movedDays_data()
{
    QTest::addColumn<QDateTime>("from");
    QTest::addColumn<Qt::Key>("key");
    QTest::addColumn<QDateTime>("to");
    QTest::newRow("end of the year") << at(2026, 12, 31) << Qt::Key_Right << at(2027, 1, 1);
    QTest::newRow("back into a leap day") << at(2028, 3, 1) << Qt::Key_Left << at(2028, 2, 29);
    QTest::newRow("back where there is none") << at(2027, 3, 1) << Qt::Key_Left << at(2027, 2, 28);
    QTest::newRow("week over the month's end") << at(2026, 1, 28) << Qt::Key_Down << at(2026, 2, 4);
    QTest::newRow("shorter month") << at(2026, 1, 31) << Qt::Key_PageDown << at(2026, 2, 28);
    QTest::newRow("month before January") << at(2026, 1, 31) << Qt::Key_PageUp << at(2025, 12, 31);
    QTest::newRow("leap day's end") << at(2028, 2, 10) << Qt::Key_End << at(2028, 2, 29);
    QTest::newRow("first day") << at(2028, 2, 1) << Qt::Key_Home << at(2028, 2, 1);
    QTest::newRow("no moving key") << at(2028, 2, 1) << Qt::Key_Tab << at(2028, 2, 1);
}

void DateFieldTest::movedDays()
{
    QFETCH(const QDateTime, from);
    QFETCH(const Qt::Key, key);
    QTEST(DateEditing().moved(from, key), "to");
}

void DateFieldTest::clocksPutForward_data()
{
    QTest::addColumn<QByteArray>("zone");
    QTest::addColumn<QDate>("day");
    QTest::addColumn<QTime>("time");
    QTest::newRow("02:30 is skipped")
        << QByteArray("America/New_York") << QDate(2026, 3, 8) << QTime(2, 30);
    QTest::newRow("midnight is skipped")
        << QByteArray("Asia/Beirut") << QDate(2022, 3, 27) << QTime(0, 0);
    QTest::newRow("01:30 comes twice")
        << QByteArray("Europe/London") << QDate(2026, 10, 25) << QTime(1, 30);
    QTest::newRow("23:30 before a day of 23 hours")
        << QByteArray("Asia/Beirut") << QDate(2022, 3, 27) << QTime(23, 30);
}

void DateFieldTest::clocksPutForward()
{
    QFETCH(const QByteArray, zone);
    QFETCH(const QDate, day);
    QFETCH(const QTime, time);
    const QByteArray before = qgetenv("TZ");
    const auto restore = qScopeGuard([&before] {
        qputenv("TZ", before);
        tzset();
    });
    qputenv("TZ", zone);
    tzset();

    // The day counts, forwards, backwards and past it.
    const DateEditing editing;
    const QDateTime eve(day.addDays(-1), time);
    const QDateTime morrow(day.addDays(1), time);
    const QDateTime moved = editing.addDays(eve, 1);
    QVERIFY(moved.isValid());
    QCOMPARE(moved.date(), day);
    QCOMPARE(editing.addDays(morrow, -1).date(), day);
    QCOMPARE(editing.addDays(eve, 2), morrow);
    QCOMPARE(editing.addDays(moved, 1).date(), morrow.date());
    QCOMPARE(editing.onDay(eve, day.year(), day.month() - 1, day.day()).date(), day);
}

void DateFieldTest::textThatFits()
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

void DateFieldTest::arrowsStepTheClosedField()
{
    const ControlPage page(field);
    QVERIFY(page.isReady());
    page.focus(u"field"_s);
    page.key(Qt::Key_Right);
    page.key(Qt::Key_Up);
    QCOMPARE(page.state("day").toDateTime(), at(2027, 1, 1));
    page.key(Qt::Key_Left);
    page.key(Qt::Key_Down);
    page.key(Qt::Key_Down);
    QCOMPARE(page.state("day").toDateTime(), at(2026, 12, 29));
    QCOMPARE(page.state("edits").toInt(), 5);
    QCOMPARE(page.focusedName(), u"Gidiş Tarihi: 29 Aralık 2026 Salı"_s);
}

void DateFieldTest::panelTakesWhatTheKeyboardChose()
{
    const WarningCatcher catcher;
    const ControlPage page(field);
    QVERIFY(page.isReady());
    for (const Qt::Key opener : { Qt::Key_Return, Qt::Key_Space }) {
        const QDateTime before = page.state("day").toDateTime();
        page.focus(u"field"_s);
        page.key(opener);
        QTRY_VERIFY(page.called(u"Takvim"_s));
        QTRY_COMPARE(accessible(page.focused())->role(), QAccessible::Table);
        page.key(Qt::Key_PageDown);
        page.key(Qt::Key_Down);
        page.key(opener);
        QTRY_VERIFY(!page.called(u"Takvim"_s));
        QCOMPARE(page.state("day").toDateTime(), before.addMonths(1).addDays(7));
        // The ring that the field had comes back with the keyboard.
        QTRY_COMPARE(page.focused(), page.named(u"field"_s));
        QTRY_VERIFY(page.focused()->property("visualFocus").toBool());
    }
    QCOMPARE(page.state("edits").toInt(), 2);
    QCOMPARE(WarningCatcher::warnings(), QStringList());
}

void DateFieldTest::panelLeavesWithoutChange()
{
    const ControlPage page(field);
    QVERIFY(page.isReady());
    page.focus(u"field"_s);
    page.key(Qt::Key_Space);
    QTRY_VERIFY(page.called(u"Takvim"_s));
    page.key(Qt::Key_Right);
    // Tab goes round within the panel: two buttons and the days.
    for (int i = 0; i < 3; ++i)
        page.key(Qt::Key_Tab);
    QCOMPARE(page.focusedName(), u"31 Aralık 2026 Perşembe"_s);
    page.key(Qt::Key_Escape);
    QTRY_COMPARE(page.focused(), page.named(u"field"_s));

    page.key(Qt::Key_Space);
    QTRY_VERIFY(page.called(u"Takvim"_s));
    // Every opening starts from the field's day.
    QTRY_COMPARE(page.focusedName(), u"30 Aralık 2026 Çarşamba"_s);
    QTest::mouseClick(page.window(), Qt::LeftButton, {}, QPoint(700, 600));
    QTRY_COMPARE(page.focused(), page.named(u"field"_s));
    QCOMPARE(page.state("edits").toInt(), 0);
}

void DateFieldTest::panelByPointerAndAssistiveTechnology()
{
    const ControlPage page(field);
    QVERIFY(page.isReady());
    page.click(page.named(u"field"_s));
    QTRY_VERIFY(page.called(u"Sonraki ay"_s));
    page.click(page.called(u"Sonraki ay"_s));
    // The days keep the keyboard.
    page.key(Qt::Key_PageDown);
    QVERIFY(page.called(u"28 Şubat 2027 Pazar"_s));
    page.click(page.called(u"Önceki ay"_s));
    page.click(page.called(u"1 Ocak 2027 Cuma"_s));
    QTRY_COMPARE(page.state("day").toDateTime(), at(2027, 1, 1));
    QTRY_VERIFY(!page.called(u"Takvim"_s));

    pressAccessibly(page.named(u"field"_s));
    QTRY_VERIFY(page.called(u"Takvim"_s));
    // A day of the month before, shown in the same grid.
    pressAccessibly(page.called(u"31 Aralık 2026 Perşembe"_s));
    QCOMPARE(page.state("day").toDateTime(), at(2026, 12, 31));
}

void DateFieldTest::panelIsTurkish()
{
    const ControlPage page(field);
    QVERIFY(page.isReady());
    page.click(page.named(u"field"_s));
    QTRY_VERIFY(page.called(u"Takvim"_s));
    // The first day shown is the Monday before the month's first.
    QQuickItem *days = page.focused();
    QVERIFY(days);
    QCOMPARE(accessible(days)->child(0)->text(QAccessible::Name), u"30 Kasım 2026 Pazartesi"_s);
    QCOMPARE(accessible(days)->childCount(), 42);
}

QTEST_MAIN(DateFieldTest)
#include "DateFieldTest.moc"
