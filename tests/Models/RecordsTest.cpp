#include "Models/FlightStatusResult.h"
#include "Models/JsonReading.h"
#include "Models/PriceCalendar.h"
#include "Models/SearchOptions.h"

#include <QJsonDocument>
#include <QTest>

#include <limits>

using namespace Qt::StringLiterals;

namespace {

QJsonObject parsed(const QByteArray &json) { return QJsonDocument::fromJson(json).object(); }

} // namespace

/// What the records make of their texts and JSON.
class RecordsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void statusStems()
    {
        const QList<std::pair<QString, QString>> meanings {
            // d: delayed, l: landed, a: in the air
            { u"Zamanında (On Time)"_s, QString() },
            { QString(), QString() },
            { u"GECİKTİ"_s, u"d"_s },
            { u"GECIKMELI"_s, u"d"_s },
            { u"RÖTARLI"_s, QString() },
            { u"İNDİ"_s, u"l"_s },
            { u"INDI"_s, u"l"_s },
            { u"Indi\u0307"_s, u"l"_s },
            { u"Flight delayed"_s, u"da"_s },
            { u"Repaired"_s, u"a"_s },
            { u"HAVALİMANINA İNDİ, GECİKMELİ"_s, u"dla"_s },
        };
        for (const auto &[status, meaning] : meanings) {
            FlightStatusResult result;
            result.status = status;
            const QString found = (result.isDelayed() ? u"d"_s : QString())
                + (result.isLanded() ? u"l"_s : QString())
                + (result.isInAir() ? u"a"_s : QString());
            QCOMPARE(status + found, status + meaning);
        }
    }

    void integers()
    {
        const auto read = [](const QByteArray &number) {
            return JsonReading::integer(parsed("{\"n\": " + number + "}"), u"n");
        };
        QCOMPARE(read("-0.0").value_or(-1), qint64(0));
        QCOMPARE(read("54e5").value_or(-1), qint64(5'400'000));
        QCOMPARE(read("9007199254740993").value_or(-1), qint64(9'007'199'254'740'993));
        QCOMPARE(read("9223372036854775807").value_or(-1),
                 qint64(std::numeric_limits<qint64>::max()));
        QCOMPARE(read("-9223372036854775808").value_or(-1),
                 qint64(std::numeric_limits<qint64>::min()));
        for (const char *other : { "9223372036854775808", "1e300", "2.5", "true", "\"2\"", "null" })
            QVERIFY2(!read(other), other);
    }

    void searchOptionsAcceptTheirRawValuesAlone()
    {
        QCOMPARE(SearchOptions::fromJson<CabinClass>(u"ECONOMY"_s), CabinClass::economy);
        QCOMPARE(SearchOptions::fromRawValue<TimeRange>(u"4_WEEKS"_s), TimeRange::fourWeeks);
        for (const QJsonValue &value : { QJsonValue(u"economy"_s), QJsonValue(u"ECONOMY "_s),
                                         QJsonValue(), QJsonValue(0), QJsonValue(u""_s) })
            QVERIFY_THROWS_EXCEPTION(DecodingError, SearchOptions::fromJson<CabinClass>(value));
    }

    void calendar_data()
    {
        QTest::addColumn<QByteArray>("written");
        const auto row = [](const QByteArray &json,
                            const QByteArray &written = R"({"prices": []})") {
            QTest::newRow(json.constData()) << written;
        };
        row(R"({"prices": null, "currency": null, "best_price": null})");
        row(R"({"prices": {}, "bestPrice": {"date": "d", "amount": 1}})");
        row(R"({"prices": [{"date": "d"}, {"amount": 1}]})");
        row(R"({"origin": "IST", "destination": "", "currency": "EUR", "other": 1,
                "prices": [{"date": "b", "price": 5, "isBestPrice": true}, {"date": "a"}],
                "best_price": {"date": "b", "amount": 5.5, "currency": "EUR"}})",
            R"({"origin": "IST", "destination": "", "currency": "EUR",
                "prices": [{"date": "b", "amount": 5, "currency": "TRY", "is_best_price": true},
                           {"date": "a", "amount": 0, "currency": "TRY", "is_best_price": false}],
                "best_price": {"date": "b", "amount": 5.5, "currency": "EUR"}})");
        // How a day is read beside its "date"; what is written of it.
        const auto day = [&row](const QByteArray &members, const QByteArray &written) {
            const QByteArray head = R"({"prices": [{"date": "d", )";
            row(head + members + "}]}", head + written + "}]}");
        };
        const QByteArray plain = R"(, "currency": "TRY", "is_best_price": false)";
        day(R"("amount": 0, "price": 2)", R"("amount": 0)" + plain);
        day(R"("amount": "5", "price": 2)", R"("amount": 2)" + plain);
        day(R"("amount": "-1.5e3")", R"("amount": -1500)" + plain);
        for (const char *text : { " 899", "1,299", "0x10", "" })
            day("\"amount\": \""_ba + text + "\"", R"("amount": 0)" + plain);
        day(R"("price": "5", "currency": 7)", R"("amount": 0)" + plain);
        day(R"("price": 1, "is_best_price": false, "isBestPrice": true)", R"("amount": 1)" + plain);
        day(R"("price": 1, "is_best_price": 1, "isBestPrice": true, "currency": "")",
            R"("amount": 1, "currency": "", "is_best_price": true)");
    }
    void calendar()
    {
        QFETCH(QByteArray, written);
        const QJsonObject json = parsed(QTest::currentDataTag());
        QVERIFY(!json.isEmpty());
        QCOMPARE(PriceCalendarResult::fromJson(json).toJson(), parsed(written));
    }

    void unreadable()
    {
        QVERIFY_THROWS_EXCEPTION(DecodingError, DailyPrice::fromJson(parsed(R"({"date": null})")));
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
