#include "Models/MoneyText.h"
#include "Models/FlightOption.h"

#include <QLocale>
#include <QTest>

#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;

class MoneyTextTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QLocale::setDefault(QLocale::c()); }
    void currency_data();
    void currency();
    void whole_data();
    void whole();
};

void MoneyTextTest::currency_data()
{
    QTest::addColumn<QString>("locale");
    QTest::addColumn<double>("amount");
    QTest::addColumn<QString>("code");
    QTest::addColumn<QString>("text"); // with plain blanks

    const auto row = [](const char *name, const char *locale, double amount, const char *code,
                        const QString &text) {
        QTest::newRow(name) << QString::fromLatin1(locale) << amount << QString::fromUtf8(code)
                            << text;
    };
    row("Turkish", "tr_TR", 4850, "TRY", u"₺4.850"_s);
    row("no language means Turkish", "C", 4850, "TRY", u"₺4.850"_s);
    row("English", "en_US", 4850, "TRY", u"TRY 4,850"_s);
    row("German", "de_DE", 4850, "EUR", u"4.850 €"_s);
    row("six digits", "tr_TR", 248'750, "TRY", u"₺248.750"_s);
    row("half to even, down", "tr_TR", 2.5, "TRY", u"₺2"_s);
    row("half to even, up", "tr_TR", 3.5, "TRY", u"₺4"_s);
    row("half of thousands", "tr_TR", 1000.5, "TRY", u"₺1.000"_s);
    row("just above the half", "tr_TR", 2.5000001, "TRY", u"₺3"_s);
    row("carries", "tr_TR", 999.9, "USD", u"$1.000"_s);
    row("yen", "tr_TR", 12'345.6, "JPY", u"¥12.346"_s);
    row("three decimals", "tr_TR", 12.345, "KWD", u"KWD 12"_s);
    row("zero", "tr_TR", 0, "TRY", u"₺0"_s);
    row("negative", "tr_TR", -12.7, "TRY", u"-₺13"_s);
    row("rounded to zero", "en_US", 0.4, "USD", u"$0"_s);
    row("unknown currency", "tr_TR", 1999.9, "ZZZ", u"ZZZ 2.000"_s);
    row("no currency", "tr_TR", 1999.9, "", u"1999 "_s);
    row("currency is a word", "tr_TR", 1999.9, "Lira", u"1999 Lira"_s);
    row("currency is a sign", "tr_TR", -0.9, "₺", u"0 ₺"_s);
    row("currency of other letters", "tr_TR", 7.9, "ŞĞÜ", u"7 ŞĞÜ"_s);
}

void MoneyTextTest::currency()
{
    QFETCH(QString, locale);
    QFETCH(double, amount);
    QFETCH(QString, code);
    QFETCH(QString, text);
    QLocale::setDefault(QLocale(locale));
    FlightOption flight;
    flight.price = amount;
    flight.currency = code;
    QString shown = flight.formattedPrice();
    shown.replace(QChar::Nbsp, u' ');
    QCOMPARE(shown, text);
}

void MoneyTextTest::whole_data()
{
    QTest::addColumn<double>("amount");
    QTest::addColumn<QString>("text");
    QTest::newRow("truncated") << 1999.9 << u"1999"_s;
    QTest::newRow("truncated toward zero") << -1999.9 << u"-1999"_s;
    QTest::newRow("no negative zero") << -0.5 << u"0"_s;
    QTest::newRow("no grouping") << 1234567.0 << u"1234567"_s;
    QTest::newRow("beyond 64 bits") << 1e300 << u"9223372036854775807"_s;
    QTest::newRow("below 64 bits") << -1e300 << u"-9223372036854775808"_s;
    QTest::newRow("first beyond") << std::exp2(63) << u"9223372036854775807"_s;
    QTest::newRow("last within") << std::nextafter(std::exp2(63), 0) << u"9223372036854774784"_s;
    QTest::newRow("infinity") << std::numeric_limits<double>::infinity()
                              << u"9223372036854775807"_s;
    QTest::newRow("no number") << std::numeric_limits<double>::quiet_NaN() << u"0"_s;
}

void MoneyTextTest::whole()
{
    QFETCH(double, amount);
    QFETCH(QString, text);
    QCOMPARE(MoneyText::whole(amount), text);
}

QTEST_GUILESS_MAIN(MoneyTextTest)
#include "MoneyTextTest.moc"
