#include "Models/DateText.h"
#include "Models/FlightOption.h"
#include "Models/MoneyText.h"

#include <QLocale>
#include <QTest>
#include <QTimeZone>

#include <cmath>
#include <ctime>
#include <limits>
#include <utility>

using namespace Qt::StringLiterals;

/// Dates and prices as people read them, whatever the system's time zone and locale.
class DateAndMoneyTextTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup()
    {
        QLocale::setDefault(QLocale::c());
        setZone("Europe/Istanbul");
    }

    void turkishNames()
    {
        QLocale::setDefault(QLocale(QLocale::Arabic, QLocale::Egypt));
        QCOMPARE(DateText::shortDate(u"2026-08-30"_s), u"30 Ağu"_s);
        QCOMPARE(DateText::shortWeekday(u"2026-12-05"_s), u"Cmt"_s);
        QCOMPARE(DateText::weekday(u"2026-12-02"_s), u"Çarşamba"_s);
        QCOMPARE(DateText::day(QDateTime(QDate(2026, 12, 5), QTime(9, 0))), u"2026-12-05"_s);
    }

    void noDates()
    {
        for (const QString &text :
             { QString(), u"2025-13-45"_s, u"2025-02-29"_s, u"2025-12-05T08:00"_s, u" 2025-12-05"_s,
               u"2025/12/05"_s, u"20251205"_s, u"2025-12"_s }) {
            QVERIFY2(!DateText::parseDay(text), qPrintable(text));
            QCOMPARE(DateText::shortDate(text), QString());
        }
    }

    void dayIsThatOfTheUsersZone()
    {
        const QDateTime moment(QDate(2026, 3, 28), QTime(22, 30), QTimeZone::utc());
        for (const auto &[zone, day] : { std::pair("Europe/Istanbul", u"2026-03-29"_s),
                                         { "America/Los_Angeles", u"2026-03-28"_s },
                                         // The clock goes forward at midnight: there is no 0:00.
                                         { "Asia/Beirut", u"2026-03-29"_s } }) {
            setZone(zone);
            QCOMPARE(DateText::day(moment), day);
            const auto parsed = DateText::parseDay(day);
            QVERIFY(parsed && parsed->isValid());
            QCOMPARE(DateText::day(*parsed), day);
            QVERIFY(DateText::day(parsed->addSecs(-1)) < day);
        }
    }

    void currency()
    {
        const auto text = [](double amount, const QString &code,
                             const QString &locale = u"tr_TR"_s) {
            QLocale::setDefault(QLocale(locale));
            FlightOption flight;
            flight.price = amount;
            flight.currency = code;
            return flight.formattedPrice().replace(QChar::Nbsp, u' ');
        };
        QCOMPARE(text(4850, u"TRY"_s, u"C"_s), u"₺4.850"_s); // no language means Turkish
        QCOMPARE(text(4850, u"EUR"_s, u"de_DE"_s), u"4.850 €"_s);
        QCOMPARE(text(2.5, u"TRY"_s), u"₺2"_s); // half to even
        QCOMPARE(text(2.5000001, u"TRY"_s), u"₺3"_s);
        QCOMPARE(text(12.345, u"KWD"_s), u"KWD 12"_s);
        QCOMPARE(text(-12.7, u"TRY"_s), u"-₺13"_s);
        for (const QString &code : { QString(), u"Lira"_s, u"₺"_s, u"ŞĞÜ"_s })
            QCOMPARE(text(1999.9, code), u"1999 "_s + code);
        QCOMPARE(text(1e300, u"-"_s), u"9223372036854775807 -"_s);
        QCOMPARE(text(-1e300, u"-"_s), u"-9223372036854775808 -"_s);
        QCOMPARE(text(std::nextafter(std::exp2(63), 0), u"-"_s), u"9223372036854774784 -"_s);
        QCOMPARE(text(std::numeric_limits<double>::quiet_NaN(), u"-"_s), u"0 -"_s);
    }

private:
    static void setZone(const QByteArray &zone)
    {
        qputenv("TZ", zone);
        ::tzset();
    }
};

QTEST_GUILESS_MAIN(DateAndMoneyTextTest)
#include "DateAndMoneyTextTest.moc"
