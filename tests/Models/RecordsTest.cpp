#include "Models/FlightStatusResult.h"
#include "Models/JsonReading.h"
#include "Models/PriceCalendar.h"
#include "Models/SearchOptions.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

QJsonObject parsed(const QByteArray &json) { return QJsonDocument::fromJson(json).object(); }

} // namespace

/// What the records make of their texts and JSON.
class RecordsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void statusStems_data()
    {
        QTest::addColumn<QString>("meaning"); // d: delayed, l: landed, a: in the air
        QTest::newRow("Zamanında (On Time)") << QString();
        QTest::newRow("") << QString();
        QTest::newRow("DELAYED") << u"d"_s;
        QTest::newRow("GECİKTİ") << u"d"_s;
        QTest::newRow("GECIKMELI") << u"d"_s;
        QTest::newRow("RÖTARLI") << QString();
        QTest::newRow("Landed") << u"l"_s;
        QTest::newRow("İNDİ") << u"l"_s;
        QTest::newRow("INDI") << u"l"_s;
        QTest::newRow("Indi\u0307") << u"l"_s;
        QTest::newRow("HAVADA") << u"a"_s;
        QTest::newRow("Flight delayed") << u"da"_s;
        QTest::newRow("Repaired") << u"a"_s;
        QTest::newRow("HAVALİMANINA İNDİ, GECİKMELİ") << u"dla"_s;
    }
    void statusStems()
    {
        QFETCH(QString, meaning);
        FlightStatusResult result;
        result.status = QString::fromUtf8(QTest::currentDataTag());
        QCOMPARE(result.isDelayed(), meaning.contains(u'd'));
        QCOMPARE(result.isLanded(), meaning.contains(u'l'));
        QCOMPARE(result.isInAir(), meaning.contains(u'a'));
    }

    void integers_data()
    {
        QTest::addColumn<std::optional<qint64>>("value");
        const auto row = [](const char *number, std::optional<qint64> value) {
            QTest::newRow(number) << value;
        };
        row("-0.0", 0);
        row("2.0", 2);
        row("54e5", 5'400'000);
        row("9007199254740993", 9'007'199'254'740'993);
        row("9223372036854775807", std::numeric_limits<qint64>::max());
        row("-9223372036854775808", std::numeric_limits<qint64>::min());
        for (const char *other : { "9223372036854775808", "1e300", "2.5", "true", "\"2\"", "null" })
            row(other, std::nullopt);
    }
    void integers()
    {
        QFETCH(std::optional<qint64>, value);
        const QJsonObject json = parsed("{\"n\": " + QByteArray(QTest::currentDataTag()) + "}");
        QVERIFY(!json.isEmpty());
        QCOMPARE(JsonReading::integer(json, u"n"), value);
    }

    void searchOptionsAcceptTheirRawValuesAlone()
    {
        QCOMPARE(SearchOptions::fromJson<CabinClass>(u"ECONOMY"_s), CabinClass::economy);
        QCOMPARE(SearchOptions::fromRawValue<TimeRange>(u"4_WEEKS"_s), TimeRange::fourWeeks);
        for (const QJsonValue &value : { QJsonValue(u"economy"_s), QJsonValue(u"ECONOMY "_s),
                                         QJsonValue(), QJsonValue(0), QJsonValue(u""_s) })
            QVERIFY_THROWS_EXCEPTION(DecodingError, SearchOptions::fromJson<CabinClass>(value));
    }

    void calendarDay_data()
    {
        QTest::addColumn<double>("amount");
        QTest::addColumn<QString>("currency");
        QTest::addColumn<bool>("isBest");

        // The row's name holds the members beside "date".
        const auto row = [](const char *members, double amount, const QString &currency = u"TRY"_s,
                            bool isBest = false) {
            QTest::newRow(members) << amount << currency << isBest;
        };
        row(R"("x": 0)", 0);
        row(R"("price": 1234.5)", 1234.5);
        row(R"("amount": 0, "price": 2)", 0);
        row(R"("amount": "5", "price": 2)", 2);
        row(R"("amount": "-1.5e3")", -1500);
        row(R"("amount": "+7")", 7);
        for (const char *text : { " 899", "899 ", "1,299", "1.299,00", "899 TRY", "0x10", "" })
            row(qPrintable(u"\"amount\": \"%1\""_s.arg(QString::fromLatin1(text))), 0);
        row(R"("price": "5")", 0);
        row(R"("amount": 1, "currency": 7)", 1);
        row(R"("amount": 1, "currency": "")", 1, QString());
        row(R"("amount": 1, "currency": "EUR", "isBestPrice": true)", 1, u"EUR"_s, true);
        row(R"("amount": 1, "is_best_price": false, "isBestPrice": true)", 1);
        row(R"("amount": 1, "is_best_price": 1, "isBestPrice": true)", 1, u"TRY"_s, true);
        row(R"("amount": 1, "is_best_price": "true")", 1);
    }
    void calendarDay()
    {
        QFETCH(double, amount);
        QFETCH(QString, currency);
        QFETCH(bool, isBest);
        const QByteArray members = QTest::currentDataTag();
        const DailyPrice day = DailyPrice::fromJson(parsed("{\"date\": \"d\", " + members + "}"));
        QCOMPARE(day, (DailyPrice { u"d"_s, amount, currency, isBest }));
        const QJsonObject written { { u"date"_s, u"d"_s },
                                    { u"amount"_s, amount },
                                    { u"currency"_s, currency },
                                    { u"is_best_price"_s, isBest } };
        QCOMPARE(day.toJson(), written);
    }

    void calendar_data()
    {
        QTest::addColumn<QByteArray>("written");
        const auto row = [](const char *json, const char *written = R"({"prices": []})") {
            QTest::newRow(json) << QByteArray(written);
        };
        row(R"({"prices": null, "currency": null, "best_price": null})");
        row(R"({"prices": {}, "bestPrice": {"date": "d", "amount": 1}})");
        row(R"({"prices": [{"date": "d"}, 1]})");
        row(R"({"prices": [{"date": "d"}, {"amount": 1}]})");
        row(R"({"origin": "IST", "destination": "", "currency": "EUR", "other": 1,
                "prices": [{"date": "b", "price": 5, "isBestPrice": true}, {"date": "a"}],
                "best_price": {"date": "b", "amount": 5.5, "currency": "EUR"}})",
            R"({"origin": "IST", "destination": "", "currency": "EUR",
                "prices": [{"date": "b", "amount": 5, "currency": "TRY", "is_best_price": true},
                           {"date": "a", "amount": 0, "currency": "TRY", "is_best_price": false}],
                "best_price": {"date": "b", "amount": 5.5, "currency": "EUR"}})");
    }
    void calendar()
    {
        QFETCH(QByteArray, written);
        const QJsonObject json = parsed(QTest::currentDataTag());
        QCOMPARE(PriceCalendarResult::fromJson(json).toJson(), parsed(written));
    }

    void unreadable()
    {
        for (const char *day : { R"({"amount": 1})", R"({"date": null})", R"({"date": 20250301})" })
            QVERIFY_THROWS_EXCEPTION(DecodingError, DailyPrice::fromJson(parsed(day)));
        for (const char *json :
             { R"({"origin": 1})", R"({"destination": {}})", R"({"currency": false})",
               R"({"best_price": []})", R"({"best_price": {"date": "d"}})",
               R"({"best_price": {"date": "d", "amount": "1"}})",
               R"({"best_price": {"date": "d", "amount": 1, "currency": 1}})" })
            QVERIFY_THROWS_EXCEPTION(DecodingError, PriceCalendarResult::fromJson(parsed(json)));
    }
};

QTEST_GUILESS_MAIN(RecordsTest)
#include "RecordsTest.moc"
