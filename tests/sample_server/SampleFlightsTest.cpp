#include "ToolCalls.h"

#include "sample_server/AirportGeography.h"

#include <QSet>
#include <QTest>

#include <algorithm>
#include <cmath>
#include <tuple>

using namespace Sample;
using namespace ToolCalls;

namespace {

struct Segment
{
    const AirportSite *from;
    const AirportSite *to;
    QDateTime departure;
    QDateTime arrival;
};

Segment readSegment(const QJsonValue &json)
{
    const AirportSite *from = airportSite(json["departureAirportCode"_L1].toString());
    const AirportSite *to = airportSite(json["arrivalAirportCode"_L1].toString());
    const auto zoned = [](const QJsonValue &text, const AirportSite *site) {
        const QDateTime local = QDateTime::fromString(text.toString(), u"yyyy-MM-ddTHH:mm:ss"_s);
        return QDateTime(local.date(), local.time(), site->timeZone);
    };
    return { from, to, zoned(json["departureDateTime"_L1], from),
             zoned(json["arrivalDateTime"_L1], to) };
}

qint64 minutesBetween(const QDateTime &from, const QDateTime &to) { return from.secsTo(to) / 60; }

double lowestFare(const QJsonArray &options)
{
    double lowest = 0;
    for (const QJsonValue option : options) {
        const double amount = option["cheapestPriceAmount"_L1].toDouble();
        lowest = lowest == 0 ? amount : std::min(lowest, amount);
    }
    return lowest;
}

QJsonArray segmentsOf(const QJsonValue &option) { return option["flightSegments"_L1].toArray(); }

QJsonObject calendar(const QString &from, const QString &to, int day, const QString &range,
                     const QString &cabin = u"ECONOMY"_s)
{
    return call(u"find_flight_price_calendar"_s,
                calendarArguments(from, to, dayText(day), range, cabin));
}

} // namespace

/// The timetable, the fares and the calendar fit together and fit the world.
class SampleFlightsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void itinerariesArePlausible_data()
    {
        QTest::addColumn<int>("fewestDirect");
        QTest::addColumn<double>("lowest");
        QTest::addColumn<double>("highest");

        const auto row = [](const char *route, int direct, double low, double high) {
            QTest::newRow(route) << direct << low << high;
        };
        row("IST-LHR", 7, 3900, 12'100);
        row("LHR-IST", 7, 3900, 12'100);
        row("IST-AYT", 8, 1100, 4000);
        row("LAX-IST", 1, 20'000, 58'000);
        row("IST-SYD", 0, 25'000, 80'000);
        row("ADB-VAN", 0, 1100, 5000);
        row("BER-DXB", 0, 6000, 25'000);
        row("SAW-JFK", 0, 16'000, 48'000);
        row("LHR-MAN", 0, 0, 0); // nobody changes aircraft in another corner of the continent
        row("IST-SAW", 0, 0, 0);
    }
    void itinerariesArePlausible()
    {
        QFETCH(int, fewestDirect);
        QFETCH(double, lowest);
        QFETCH(double, highest);
        const QString from = QString::fromLatin1(QTest::currentDataTag()).left(3);
        const QString to = QString::fromLatin1(QTest::currentDataTag()).mid(4);
        bool isServed = false;
        for (const int day : { 0, 1, 36, 127, 128, 250, 355 }) { // over changes of the clocks
            QDateTime previous;
            int direct = 0;
            for (const QJsonValue option : options(from, to, dayText(day))) {
                isServed = true;
                const QJsonArray segments = segmentsOf(option);
                const Segment first = readSegment(segments.first());
                const Segment last = readSegment(segments.last());
                QCOMPARE(first.from->code + u'-' + last.to->code, from + u'-' + to);
                QCOMPARE(first.departure.date(), fixedNow().date().addDays(day));
                QVERIFY(!previous.isValid() || previous <= first.departure);
                previous = first.departure;
                direct += segments.size() == 1;

                for (qsizetype i = 0; i < segments.size(); ++i) {
                    const Segment segment = readSegment(segments.at(i));
                    const QTime clock = segment.departure.time();
                    QVERIFY(clock >= QTime(5, 30) && clock <= QTime(23, 55));
                    const qint64 minutes = minutesBetween(segment.departure, segment.arrival);
                    const double expected = 30 + distanceKm(*segment.from, *segment.to) / 14;
                    QVERIFY2(std::abs(minutes - expected) <= 3, qPrintable(segment.from->code));
                    if (i == 0)
                        continue;
                    const Segment before = readSegment(segments.at(i - 1));
                    QCOMPARE(segment.from->code, before.to->code);
                    const qint64 wait = minutesBetween(before.arrival, segment.departure);
                    QVERIFY(wait >= 55 && wait <= 600);
                }
                QCOMPARE(option["journeyDuration"_L1].toInteger(),
                         minutesBetween(first.departure, last.arrival) * 60'000);
                const double amount = option["cheapestPriceAmount"_L1].toDouble();
                QVERIFY2(amount >= lowest && amount <= highest,
                         qPrintable(QString::number(amount)));
            }
            QVERIFY2(direct >= fewestDirect, qPrintable(dayText(day)));
        }
        QCOMPARE(isServed, highest > 0);
    }

    void theWholeNetwork()
    {
        QHash<QString, QString> meaningOfNumber;
        QSet<QString> aircraft;
        QSet<qsizetype> segmentCounts;
        const auto look = [&](const QString &from, const QString &to) {
            int found = 0;
            for (int day = 10; day < 17; ++day) {
                for (const QJsonValue option : options(from, to, dayText(day))) {
                    ++found;
                    segmentCounts.insert(segmentsOf(option).size());
                    for (const QJsonValue segment : segmentsOf(option)) {
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
            QVERIFY2(found > 0, qPrintable(from + to));
        };
        for (const AirportSite &site : airportSites()) {
            if (site.hub)
                continue;
            look(u"IST"_s, site.code);
            look(site.code, u"IST"_s);
        }
        QCOMPARE(segmentCounts, (QSet<qsizetype> { 1, 2, 3 }));
        QVERIFY(!meaningOfNumber.contains(u"VQ404"_s));
        QVERIFY(meaningOfNumber.value(u"VQ1983"_s).startsWith("ISTLHR"_L1));
        const QString known =
            u"789 787 359 350 773 777 321 32Q 320 738 73H 739 73J 333 332 MAX 7M8 "
            "77W E95"_s;
        for (const QString &code : known.split(u' '))
            QVERIFY2(aircraft.contains(code), qPrintable(code));
    }

    void calendarAgreesWithSearch_data()
    {
        QTest::addColumn<int>("day");
        for (const char *route :
             { "IST-LHR", "SAW-ESB", "IST-TGD", "ZNZ-IST", "BER-BKK", "SYD-LHR", "IST-SAW" }) {
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
        QString best;
        for (const QJsonValue price : economy["prices"_L1].toArray()) {
            const QString date = price["date"_L1].toString();
            fares.insert(date, price["amount"_L1].toDouble());
            if (price["isBestPrice"_L1].toBool()) {
                QVERIFY(best.isEmpty());
                best = date;
            }
        }
        QCOMPARE(fares.size(), from + to == u"ISTSAW" ? 0 : 28);
        const int first = std::clamp(day - 14, 0, 355 - 27);
        for (int ahead = first; ahead < first + 28; ++ahead)
            QCOMPARE(fares.value(dayText(ahead)), lowestFare(options(from, to, dayText(ahead))));
        // The best day is the first of the cheapest ones.
        const auto cheapest = std::min_element(fares.cbegin(), fares.cend());
        QCOMPARE(best, cheapest == fares.cend() ? QString() : cheapest.key());
        QCOMPARE(economy["bestPrice"_L1]["date"_L1].toString(), best);
        QCOMPARE(economy.contains("bestPrice"_L1), !fares.isEmpty());

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
        const QJsonObject arguments = searchArguments(u"IST"_s, u"LHR"_s, dayText(60));
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

        QJsonObject round = arguments;
        round.insert(u"tripType"_s, u"round"_s);
        round.insert(u"returnDate"_s, dayText(67));
        const QJsonValue informations =
            call(tool, round)["availabilityData"_L1]["originDestinationInformations"_L1];
        QCOMPARE(informations[0]["originDestinationOptions"_L1].toArray(), one);
        QCOMPARE(informations[1]["originDestinationOptions"_L1].toArray(),
                 options(u"LHR"_s, u"IST"_s, dayText(67)));
    }
};

QTEST_APPLESS_MAIN(SampleFlightsTest)
#include "SampleFlightsTest.moc"
