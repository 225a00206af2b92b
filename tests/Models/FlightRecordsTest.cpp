#include "Models/FlightOption.h"
#include "Models/FlightStatusResult.h"
#include "Models/JsonReading.h"
#include "Models/PromotionItem.h"

#include <QJsonDocument>
#include <QTest>

using namespace Qt::StringLiterals;

class FlightRecordsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void statusStems_data();
    void statusStems();
    void equalityCoversEveryField();
    void integers_data();
    void integers();
};

void FlightRecordsTest::statusStems_data()
{
    QTest::addColumn<QString>("status");
    QTest::addColumn<QString>("meaning"); // d: delayed, l: landed, a: in the air

    const auto row = [](const QString &status, const QString &meaning) {
        QTest::newRow(qPrintable(status)) << status << meaning;
    };
    row(u"Zamanında (On Time)"_s, QString());
    row(QString(), QString());
    row(u"DELAYED"_s, u"d"_s);
    row(u"Gecikmeli"_s, u"d"_s);
    row(u"GECİKTİ"_s, u"d"_s);
    row(u"GECIKMELI"_s, u"d"_s);
    row(u"RÖTARLI"_s, QString());
    row(u"Landed"_s, u"l"_s);
    row(u"İndi"_s, u"l"_s);
    row(u"İNDİ"_s, u"l"_s);
    row(u"INDI"_s, u"l"_s);
    row(u"Indi\u0307"_s, u"l"_s);
    row(u"In Air"_s, u"a"_s);
    row(u"HAVADA"_s, u"a"_s);
    row(u"Flight delayed"_s, u"da"_s);
    row(u"Repaired"_s, u"a"_s);
    row(u"HAVALİMANINA İNDİ, GECİKMELİ"_s, u"dla"_s);
    row(u"İptal"_s, QString());
}

void FlightRecordsTest::statusStems()
{
    QFETCH(QString, status);
    QFETCH(QString, meaning);
    FlightStatusResult result;
    result.status = status;
    QCOMPARE(result.isDelayed(), meaning.contains(u'd'));
    QCOMPARE(result.isLanded(), meaning.contains(u'l'));
    QCOMPARE(result.isInAir(), meaning.contains(u'a'));
}

void FlightRecordsTest::equalityCoversEveryField()
{
    FlightOption flight;
    flight.bookingURL = u"a"_s;
    FlightOption other = flight;
    QCOMPARE(qHash(other), qHash(flight));
    other.bookingURL = u"b"_s;
    QVERIFY(other != flight);
    QVERIFY(qHash(other) != qHash(flight));
    other = flight;
    other.seatAvailability = 0;
    QVERIFY(other != flight);
    QVERIFY(qHash(other) != qHash(flight));
    QVERIFY(flight.seatAvailabilityValue().isNull());
    QCOMPARE(other.seatAvailabilityValue(), QVariant(0));

    PromotionItem promotion;
    promotion.discount = QString();
    PromotionItem without = promotion;
    without.discount = std::nullopt;
    QVERIFY(without != promotion);
    QVERIFY(qHash(without) != qHash(promotion));
}

void FlightRecordsTest::integers_data()
{
    QTest::addColumn<QByteArray>("number");
    QTest::addColumn<bool>("isInteger");
    QTest::addColumn<qint64>("value");

    const auto row = [](const char *number, bool isInteger, qint64 value = 0) {
        QTest::newRow(number) << QByteArray(number) << isInteger << value;
    };
    row("0", true, 0);
    row("-0.0", true, 0);
    row("1", true, 1);
    row("2.0", true, 2);
    row("54e5", true, 5'400'000);
    row("-7", true, -7);
    row("9007199254740993", true, 9'007'199'254'740'993);
    row("9223372036854775807", true, std::numeric_limits<qint64>::max());
    row("-9223372036854775808", true, std::numeric_limits<qint64>::min());
    row("9223372036854775808", false);
    row("1e300", false);
    row("2.5", false);
    row("true", false);
    row("\"2\"", false);
    row("null", false);
}

void FlightRecordsTest::integers()
{
    QFETCH(QByteArray, number);
    QFETCH(bool, isInteger);
    QFETCH(qint64, value);
    const QJsonObject json = QJsonDocument::fromJson("{\"n\": " + number + "}").object();
    QVERIFY(!json.isEmpty());
    const auto read = JsonReading::integer(json, u"n");
    QCOMPARE(read.has_value(), isInteger);
    QCOMPARE(read.value_or(0), value);
}

QTEST_GUILESS_MAIN(FlightRecordsTest)
#include "FlightRecordsTest.moc"
