#include "Models/DateText.h"

#include <QLocale>
#include <QTest>
#include <QTimeZone>

#include <ctime>

using namespace Qt::StringLiterals;

namespace {

/// Another system time zone for as long as it lives.
class ZoneOverride
{
public:
    explicit ZoneOverride(const QByteArray &zone)
        : m_before(qgetenv("TZ"))
    {
        set(zone);
    }
    ~ZoneOverride() { set(m_before); }
    Q_DISABLE_COPY_MOVE(ZoneOverride)

private:
    static void set(const QByteArray &zone)
    {
        qputenv("TZ", zone);
        ::tzset();
    }
    QByteArray m_before;
};

} // namespace

class DateTextTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void turkishNames();
    void noDates();
    void dayIsThatOfTheUsersZone_data();
    void dayIsThatOfTheUsersZone();
    void theWindowsLocaleDoesNotMatter();
};

void DateTextTest::turkishNames()
{
    QCOMPARE(DateText::shortDate(u"2026-12-05"_s), u"5 Ara"_s);
    QCOMPARE(DateText::shortDate(u"2026-08-30"_s), u"30 Ağu"_s);
    QCOMPARE(DateText::shortWeekday(u"2026-12-05"_s), u"Cmt"_s);
    QCOMPARE(DateText::weekday(u"2026-12-02"_s), u"Çarşamba"_s);
    QCOMPARE(DateText::fullDate(QDate(2026, 12, 5)), u"5 Aralık 2026 Cumartesi"_s);
    QCOMPARE(DateText::mediumDate(QDate(2028, 2, 29)), u"29 Şub 2028 Sal"_s);
    QCOMPARE(DateText::monthAndYear(QDate(2026, 9, 1)), u"Eylül 2026"_s);
}

void DateTextTest::noDates()
{
    for (const QString &text :
         { QString(), u"2025-13-45"_s, u"2025-02-29"_s, u"2025-12-05T08:00"_s, u" 2025-12-05"_s,
           u"2025-12-05 "_s, u"2025/12/05"_s, u"20251205"_s, u"yarın"_s, u"2025-12"_s }) {
        QVERIFY2(!DateText::parseDay(text), qPrintable(text));
        QCOMPARE(DateText::shortDate(text), QString());
    }
}

void DateTextTest::dayIsThatOfTheUsersZone_data()
{
    QTest::addColumn<QByteArray>("zone");
    QTest::addColumn<QString>("day"); // of 2026-03-28 22:30 UTC
    QTest::newRow("Istanbul") << QByteArray("Europe/Istanbul") << u"2026-03-29"_s;
    QTest::newRow("Los Angeles") << QByteArray("America/Los_Angeles") << u"2026-03-28"_s;
    QTest::newRow("Kiritimati") << QByteArray("Pacific/Kiritimati") << u"2026-03-29"_s;
    // The clock goes forward at midnight: that day has no 0:00.
    QTest::newRow("Beirut") << QByteArray("Asia/Beirut") << u"2026-03-29"_s;
}

void DateTextTest::dayIsThatOfTheUsersZone()
{
    QFETCH(QByteArray, zone);
    QFETCH(QString, day);
    const ZoneOverride override(zone);
    const QDateTime moment(QDate(2026, 3, 28), QTime(22, 30), Qt::UTC);
    QCOMPARE(DateText::day(moment), day);
    QCOMPARE(DateText::day(moment.toLocalTime()), day);
    const auto parsed = DateText::parseDay(day);
    QVERIFY(parsed && parsed->isValid());
    QCOMPARE(DateText::day(*parsed), day);
    QCOMPARE(DateText::day(parsed->addSecs(-1)),
             QDate::fromString(day, Qt::ISODate).addDays(-1).toString(Qt::ISODate));
}

void DateTextTest::theWindowsLocaleDoesNotMatter()
{
    QLocale::setDefault(QLocale(QLocale::Arabic, QLocale::Egypt));
    QCOMPARE(DateText::day(QDateTime(QDate(2026, 12, 5), QTime(9, 0))), u"2026-12-05"_s);
    QVERIFY(DateText::parseDay(u"2026-12-05"_s));
    QCOMPARE(DateText::shortDate(u"2026-12-05"_s), u"5 Ara"_s);
    QLocale::setDefault(QLocale::c());
}

QTEST_GUILESS_MAIN(DateTextTest)
#include "DateTextTest.moc"
