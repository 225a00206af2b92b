#include "ToolCalls.h"

#include "sample_server/AirportGeography.h"

#include <QSet>
#include <QTest>

#include <algorithm>
#include <tuple>

using namespace Sample;
using namespace ToolCalls;

namespace {

/// Minutes since 1970 of a local time at an airport.
qint64 minuteAt(const QJsonValue &time, const QJsonValue &airport)
{
    const QDateTime local = QDateTime::fromString(time.toString(), u"yyyy-MM-ddTHH:mm:ss"_s);
    return QDateTime(local.date(), local.time(), airportSite(airport.toString())->timeZone)
               .toSecsSinceEpoch()
        / 60;
}

double lowestFare(const QJsonArray &options)
{
    double lowest = 0;
    for (const QJsonValue option : options) {
        const double amount = option["cheapestPriceAmount"_L1].toDouble();
        lowest = lowest == 0 ? amount : std::min(lowest, amount);
    }
    return lowest;
}

QJsonObject calendar(const QString &from, const QString &to, int day, const QString &range,
                     const QString &cabin = u"ECONOMY"_s)
{
    return call(u"find_flight_price_calendar"_s,
                calendarArguments(from, to, dayText(day), range, cabin));
}

} // namespace

/// The timetable, the fares and the calendar fit together.
class SampleFlightsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void itineraries_data()
    {
        QTest::addColumn<QString>("segmentCounts"); // over a few days

        QTest::newRow("IST-LHR") << u"1 2 3"_s;
        QTest::newRow("LAX-IST") << u"1"_s;
        QTest::newRow("IST-SYD") << u"2 3"_s;
        QTest::newRow("ADB-VAN") << u"2"_s;
        QTest::newRow("BER-BKK") << u"2 3"_s;
        QTest::newRow("IST-SAW") << QString();
        QTest::newRow("JFK-LAX") << QString();
    }
    void itineraries()
    {
        QFETCH(QString, segmentCounts);
        const QString from = QString::fromLatin1(QTest::currentDataTag()).left(3);
        const QString to = QString::fromLatin1(QTest::currentDataTag()).mid(4);
        QMap<QString, int> counts;
        for (const int day : { 0, 1, 36, 127, 128, 250, 355 }) { // over changes of the clocks
            qint64 previous = 0;
            for (const QJsonValue option : options(from, to, dayText(day))) {
                const QJsonArray segments = option["flightSegments"_L1].toArray();
                ++counts[QString::number(segments.size())];
                QString at = from;
                qint64 free = 0;
                qint64 start = 0;
                for (const QJsonValue segment : segments) {
                    QCOMPARE(segment["departureAirportCode"_L1].toString(), at);
                    at = segment["arrivalAirportCode"_L1].toString();
                    const qint64 departure = minuteAt(segment["departureDateTime"_L1],
                                                      segment["departureAirportCode"_L1]);
                    QVERIFY(free == 0 || (departure >= free + 55 && departure <= free + 600));
                    free = minuteAt(segment["arrivalDateTime"_L1], at);
                    QVERIFY(free > departure);
                    start = start == 0 ? departure : start;
                }
                QCOMPARE(at, to);
                QVERIFY(segments[0]["departureDateTime"_L1].toString().startsWith(dayText(day)));
                QCOMPARE(option["journeyDuration"_L1].toInteger(), (free - start) * 60'000);
                QVERIFY(start >= std::exchange(previous, start));
            }
        }
        QCOMPARE(counts.keys().join(u' '), segmentCounts);
    }

    void theWholeNetwork()
    {
        QHash<QString, QString> meaningOfNumber;
        QSet<QString> aircraft;
        for (const AirportSite &site : airportSites()) {
            for (int day = 10; day < 14 && !site.hub; ++day) {
                const QJsonArray there = options(u"IST"_s, site.code, dayText(day));
                const QJsonArray back = options(site.code, u"IST"_s, dayText(day));
                QVERIFY2(!there.isEmpty() && !back.isEmpty(), qPrintable(site.code));
                for (const QJsonArray &direction : { there, back }) {
                    for (const QJsonValue option : direction) {
                        for (const QJsonValue segment : option["flightSegments"_L1].toArray()) {
                            const QString number = segment["flightNumber"_L1].toString();
                            const QString what = segment["departureAirportCode"_L1].toString()
                                + segment["arrivalAirportCode"_L1].toString()
                                + segment["departureDateTime"_L1].toString().mid(10);
                            QCOMPARE(meaningOfNumber.value(number, what), what);
                            meaningOfNumber.insert(number, what);
                            aircraft.insert(segment["equipment"_L1].toString());
                        }
                    }
                }
            }
        }
        QVERIFY(!meaningOfNumber.contains(u"VQ404"_s));
        for (const auto &[number, route] :
             { std::pair(u"VQ1983"_s, "ISTLHR"_L1), std::pair(u"VQ1907"_s, "ISTCDG"_L1),
               std::pair(u"VQ1"_s, "ISTJFK"_L1), std::pair(u"VQ2"_s, "JFKIST"_L1) })
            QVERIFY2(meaningOfNumber.value(number).startsWith(route), qPrintable(number));
        for (const QString &unknown : { u"77W"_s, u"7M8"_s, u"7M9"_s, u"E95"_s })
            QVERIFY2(aircraft.contains(unknown), qPrintable(unknown));
    }

    void calendarAgreesWithSearch_data()
    {
        QTest::addColumn<int>("day");
        for (const char *route : { "IST-LHR", "IST-TGD", "BER-BKK", "IST-SAW" }) {
            for (const int day : { 0, 30, 340 })
                QTest::addRow("%s, day %d", route, day) << day;
        }
    }
    void calendarAgreesWithSearch()
    {
        QFETCH(int, day);
        const QString from = QString::fromLatin1(QTest::currentDataTag()).left(3);
        const QString to = QString::fromLatin1(QTest::currentDataTag()).mid(4, 3);
        const QJsonObject economy = calendar(from, to, day, u"4_WEEKS"_s);
        QMap<QString, double> fares;
        QStringList best;
        for (const QJsonValue price : economy["prices"_L1].toArray()) {
            const QString date = price["date"_L1].toString();
            fares.insert(date, price["amount"_L1].toDouble());
            if (price["isBestPrice"_L1].toBool())
                best.append(date);
        }
        QCOMPARE(fares.size(), from + to == u"ISTSAW" ? 0 : 28);
        const int first = std::clamp(day - 14, 0, 355 - 27);
        for (int ahead = first; ahead < first + 28; ++ahead)
            QCOMPARE(fares.value(dayText(ahead)), lowestFare(options(from, to, dayText(ahead))));
        // The best day is the first of the cheapest ones.
        const auto cheapest = std::min_element(fares.cbegin(), fares.cend());
        QCOMPARE(best, fares.isEmpty() ? QStringList() : QStringList(cheapest.key()));
        QCOMPARE(economy["bestPrice"_L1]["date"_L1].toString(), best.join(QString()));

        const QJsonObject business = calendar(from, to, day, u"4_WEEKS"_s, u"BUSINESS"_s);
        QCOMPARE(business["prices"_L1].toArray().size(), fares.size());
        for (const QJsonValue price : business["prices"_L1].toArray())
            QVERIFY(price["amount"_L1].toDouble() > 2 * fares.value(price["date"_L1].toString()));
    }

    void calendarWindow()
    {
        // Days to the departure, range, days to the calendar's first day, length.
        using Row = std::tuple<int, QString, int, int>;
        for (const auto &[departure, range, first, count] :
             { Row(14, u"1_WEEK"_s, 11, 7), Row(14, u"2_WEEKS"_s, 7, 14),
               Row(14, u"3_WEEKS"_s, 4, 21), Row(2, u"4_WEEKS"_s, 0, 28),
               Row(-30, u"2_WEEKS"_s, 0, 14), Row(355, u"1_WEEK"_s, 349, 7),
               Row(380, u"4_WEEKS"_s, 328, 28) }) {
            const QJsonArray prices =
                calendar(u"IST"_s, u"LHR"_s, departure, range)["prices"_L1].toArray();
            QCOMPARE(prices.size(), count);
            QCOMPARE(prices[0]["date"_L1].toString(), dayText(first));
        }
        QVERIFY(options(u"IST"_s, u"LHR"_s, dayText(-1)).isEmpty());
        QVERIFY(options(u"IST"_s, u"LHR"_s, dayText(356)).isEmpty());
    }

    void faresOfPartiesAndReturns()
    {
        const QString tool = u"search_flights"_s;
        QJsonObject arguments = searchArguments(u"IST"_s, u"LHR"_s, dayText(60));
        const QJsonArray one = optionsOf(call(tool, arguments));
        const QJsonArray nine =
            optionsOf(call(tool, searchArguments(u"IST"_s, u"LHR"_s, dayText(60), 9)));
        QCOMPARE(lowestFare(nine), 9 * lowestFare(one));
        const QString link = nine.at(0)["deeplinks"_L1][0].toString();
        const QString base = u"https://www.example.test/booking?from=IST&to=LHR&date="_s;
        QVERIFY2(link.startsWith(base + dayText(60)), qPrintable(link));
        // The same flight is dearer for those who book late; the hour makes no difference.
        QVERIFY(lowestFare(optionsOf(call(tool, arguments, fixedNow().addDays(59))))
                > 1.2 * lowestFare(one));
        QCOMPARE(optionsOf(call(tool, arguments, fixedNow().addSecs(39'600))), one);

        arguments.insert(u"tripType"_s, u"round"_s);
        arguments.insert(u"returnDate"_s, dayText(67));
        const QJsonObject round = call(tool, arguments);
        QCOMPARE(optionsOf(round), one);
        QCOMPARE(optionsOf(round, 1), options(u"LHR"_s, u"IST"_s, dayText(67)));
    }
};

QTEST_APPLESS_MAIN(SampleFlightsTest)
#include "SampleFlightsTest.moc"
