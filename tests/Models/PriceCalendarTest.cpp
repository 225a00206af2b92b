#include "Models/PriceCalendar.h"
#include "Models/JsonReading.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

QJsonObject parsed(const QByteArray &json) { return QJsonDocument::fromJson(json).object(); }

} // namespace

/// The calendar records as JSON documents of their own.
class PriceCalendarTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void day_data();
    void day();
    void dayWithoutDate();
    void envelope_data();
    void envelope();
    void unreadableEnvelope();
    void equality();
};

void PriceCalendarTest::day_data()
{
    QTest::addColumn<QByteArray>("members"); // beside "date"
    QTest::addColumn<double>("amount");
    QTest::addColumn<QString>("currency");
    QTest::addColumn<bool>("isBest");

    const auto row = [](const char *members, double amount, const QString &currency = u"TRY"_s,
                        bool isBest = false) {
        QTest::newRow(members) << QByteArray(members) << amount << currency << isBest;
    };
    row(R"("x": 0)", 0);
    row(R"("price": 1234.5)", 1234.5);
    row(R"("amount": 1, "price": 2)", 1);
    row(R"("amount": 0, "price": 2)", 0);
    row(R"("amount": "5", "price": 2)", 2);
    row(R"("amount": null, "price": 2)", 2);
    row(R"("amount": true, "price": 2)", 2);
    row(R"("amount": "899.90")", 899.9);
    row(R"("amount": "-1.5e3")", -1500);
    row(R"("amount": "+7")", 7);
    row(R"("amount": " 899")", 0);
    row(R"("amount": "899 ")", 0);
    row(R"("amount": "899\u00a0")", 0);
    row(R"("amount": "1,299")", 0);
    row(R"("amount": "1.299,00")", 0);
    row(R"("amount": "899 TRY")", 0);
    row(R"("amount": "0x10")", 0);
    row(R"("amount": "")", 0);
    row(R"("price": "5")", 0);
    row(R"("amount": 1, "currency": null)", 1);
    row(R"("amount": 1, "currency": 7)", 1);
    row(R"("amount": 1, "currency": "EUR")", 1, u"EUR"_s);
    row(R"("amount": 1, "currency": "")", 1, QString());
    row(R"("amount": 1, "isBestPrice": true)", 1, u"TRY"_s, true);
    row(R"("amount": 1, "is_best_price": false, "isBestPrice": true)", 1);
    row(R"("amount": 1, "is_best_price": 1, "isBestPrice": true)", 1, u"TRY"_s, true);
    row(R"("amount": 1, "is_best_price": "true")", 1);
}

void PriceCalendarTest::day()
{
    QFETCH(QByteArray, members);
    QFETCH(double, amount);
    QFETCH(QString, currency);
    QFETCH(bool, isBest);
    const DailyPrice day = DailyPrice::fromJson(parsed("{\"date\": \"d\", " + members + "}"));
    const DailyPrice expected { u"d"_s, amount, currency, isBest };
    QCOMPARE(day, expected);
    const QJsonObject written { { u"date"_s, u"d"_s },
                                { u"amount"_s, amount },
                                { u"currency"_s, currency },
                                { u"is_best_price"_s, isBest } };
    QCOMPARE(day.toJson(), written);
}

void PriceCalendarTest::dayWithoutDate()
{
    for (const char *json : { R"({"amount": 1})", R"({"date": null})", R"({"date": 20250301})" }) {
        QVERIFY_THROWS_EXCEPTION(DecodingError, DailyPrice::fromJson(parsed(json)));
        const QJsonArray days { parsed(R"({"date": "d", "amount": 1})"), parsed(json) };
        const auto calendar = PriceCalendarResult::fromJson({ { u"prices"_s, days } });
        QVERIFY(calendar.prices && calendar.prices->isEmpty());
    }
}

void PriceCalendarTest::envelope_data()
{
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<QByteArray>("written");

    const auto row = [](const char *json, const char *written) {
        QTest::newRow(json) << QByteArray(json) << QByteArray(written);
    };
    row("{}", R"({"prices": []})");
    row(R"({"prices": null, "currency": null, "best_price": null})", R"({"prices": []})");
    row(R"({"prices": {}})", R"({"prices": []})");
    row(R"({"prices": [{"date": "d"}, 1]})", R"({"prices": []})");
    row(R"({"bestPrice": {"date": "d", "amount": 1}})", R"({"prices": []})");
    row(R"({"best_price": {"date": "d", "amount": 1}})",
        R"({"prices": [], "best_price": {"date": "d", "amount": 1}})");
    row(R"({"origin": "IST", "destination": "", "currency": "EUR", "other": 1,
            "prices": [{"date": "b", "price": 5, "isBestPrice": true}, {"date": "a"}],
            "best_price": {"date": "b", "amount": 5.5, "currency": "EUR"}})",
        R"({"origin": "IST", "destination": "", "currency": "EUR",
            "prices": [{"date": "b", "amount": 5, "currency": "TRY", "is_best_price": true},
                       {"date": "a", "amount": 0, "currency": "TRY", "is_best_price": false}],
            "best_price": {"date": "b", "amount": 5.5, "currency": "EUR"}})");
}

void PriceCalendarTest::envelope()
{
    QFETCH(QByteArray, json);
    QFETCH(QByteArray, written);
    QCOMPARE(PriceCalendarResult::fromJson(parsed(json)).toJson(), parsed(written));
}

void PriceCalendarTest::unreadableEnvelope()
{
    for (const char *json :
         { R"({"origin": 1})", R"({"destination": {}})", R"({"currency": false})",
           R"({"best_price": []})", R"({"best_price": {}})", R"({"best_price": {"date": "d"}})",
           R"({"best_price": {"date": "d", "amount": "1"}})",
           R"({"best_price": {"date": "d", "amount": 1, "currency": 1}})" })
        QVERIFY_THROWS_EXCEPTION(DecodingError, PriceCalendarResult::fromJson(parsed(json)));
}

void PriceCalendarTest::equality()
{
    DailyPrice zero;
    DailyPrice other;
    other.amount = -0.0;
    QCOMPARE(other, zero);
    QCOMPARE(qHash(other), qHash(zero));
    other.currency = std::nullopt;
    QVERIFY(other != zero);
    QVERIFY(qHash(other) != qHash(zero));
    QVERIFY(!other.toJson().contains("currency"_L1));
    zero.currency = QString();
    QVERIFY(other != zero);
}

QTEST_GUILESS_MAIN(PriceCalendarTest)
#include "PriceCalendarTest.moc"
