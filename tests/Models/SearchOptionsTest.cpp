#include "Models/SearchOptions.h"
#include "Models/JsonReading.h"

#include <QTest>

using namespace Qt::StringLiterals;
using namespace SearchOptions;

class SearchOptionsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyCaseIsFoundByItsRawValue();
    void otherTextsAreNoCase();
    void jsonAcceptsRawValuesAlone();
};

template<typename Option>
static void checkCases(const QStringList &rawValues)
{
    QStringList found;
    for (const Option option : allCases<Option>()) {
        found.append(rawValue(option));
        QCOMPARE(fromRawValue<Option>(rawValue(option)), std::optional(option));
    }
    QCOMPARE(found, rawValues);
}

void SearchOptionsTest::everyCaseIsFoundByItsRawValue()
{
    checkCases<TripType>({ u"ONE_WAY"_s, u"ROUND_TRIP"_s });
    checkCases<CabinClass>({ u"ECONOMY"_s, u"BUSINESS"_s });
    checkCases<TimeRange>({ u"1_WEEK"_s, u"2_WEEKS"_s, u"3_WEEKS"_s, u"4_WEEKS"_s });
    checkCases<FlightSortOption>(
        { u"En Ucuz"_s, u"En Erken"_s, u"En Hızlı"_s, u"Direkt Uçuşlar"_s });
}

void SearchOptionsTest::otherTextsAreNoCase()
{
    for (const QString &text : { u"one_way"_s, u"One_Way"_s, u"ONE_WAY "_s, u" ECONOMY"_s,
                                 u"1_WEEKS"_s, u"4_WEEK"_s, u"En Hizli"_s, QString() }) {
        QVERIFY(!fromRawValue<TripType>(text));
        QVERIFY(!fromRawValue<CabinClass>(text));
        QVERIFY(!fromRawValue<TimeRange>(text));
        QVERIFY(!fromRawValue<FlightSortOption>(text));
    }
}

void SearchOptionsTest::jsonAcceptsRawValuesAlone()
{
    QCOMPARE(toJson(TimeRange::fourWeeks), QJsonValue(u"4_WEEKS"_s));
    QCOMPARE(fromJson<CabinClass>(u"ECONOMY"_s), CabinClass::economy);
    for (const QJsonValue &value : { QJsonValue(u"economy"_s), QJsonValue(), QJsonValue(0),
                                     QJsonValue(QJsonValue::Undefined) })
        QVERIFY_THROWS_EXCEPTION(DecodingError, fromJson<CabinClass>(value));
}

QTEST_GUILESS_MAIN(SearchOptionsTest)
#include "SearchOptionsTest.moc"
