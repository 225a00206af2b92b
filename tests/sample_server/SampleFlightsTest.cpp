#include "ToolCalls.h"

#include "sample_server/AirportGeography.h"
#include "sample_server/ItineraryPlanner.h"

#include "Models/AirportDatabase.h"

#include <QSet>
#include <QTest>

#include <algorithm>
#include <cmath>

using namespace Sample;
using namespace ToolCalls;

/// The timetable, the fares and the calendar fit together and fit the world.
class SampleFlightsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyAirportHasItsPlace();
    void itinerariesArePlausible_data();
    void itinerariesArePlausible();
    void everyAirportIsReachable();
    void everyAircraftOccurs();
    void flightNumbersAreStable();
    void variety();
    void calendarAgreesWithSearch_data();
    void calendarAgreesWithSearch();
    void calendarWindow_data();
    void calendarWindow();
    void farePatterns();
    void passengersAndReturn();
};

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

} // namespace

void SampleFlightsTest::everyAirportHasItsPlace()
{
    QCOMPARE(airportSites().size(), AirportDatabase::allAirports().size());
    for (const AirportSite &site : airportSites()) {
        QVERIFY2(site.timeZone.isValid(), qPrintable(site.code));
        QVERIFY(site.demand >= 1 && site.demand <= 5 && !site.turkishCity.isEmpty());
        // The sun's time is never far from the clock's. Western Europe and China keep time from
        // east of where they lie.
        const double clockHours = site.timeZone.standardTimeOffset(fixedNow()) / 3600.0;
        QVERIFY2(std::abs(clockHours - site.longitude / 15) < 2.0, qPrintable(site.code));
        QVERIFY2(std::abs(site.latitude) < 61, qPrintable(site.code));
    }
    const auto km = [](QStringView from, QStringView to) {
        return distanceKm(*airportSite(from), *airportSite(to));
    };
    QVERIFY(std::abs(km(u"IST", u"LHR") - 2490) < 30);
    QVERIFY(std::abs(km(u"IST", u"JFK") - 8000) < 60);
    QVERIFY(std::abs(km(u"SIN", u"SYD") - 6300) < 60);
}

void SampleFlightsTest::itinerariesArePlausible_data()
{
    QTest::addColumn<QString>("from");
    QTest::addColumn<QString>("to");
    QTest::addColumn<int>("fewestDirect");
    QTest::addColumn<double>("lowest");
    QTest::addColumn<double>("highest");

    const auto row = [](const char *from, const char *to, int direct, double low, double high) {
        QTest::addRow("%s-%s", from, to)
            << QString::fromLatin1(from) << QString::fromLatin1(to) << direct << low << high;
    };
    row("IST", "LHR", 7, 3900, 12'100);
    row("LHR", "IST", 7, 3900, 12'100);
    row("SAW", "ESB", 3, 1100, 4000);
    row("IST", "AYT", 8, 1100, 4000);
    row("IST", "JFK", 5, 16'000, 48'000);
    row("LAX", "IST", 1, 20'000, 58'000);
    row("IST", "BKK", 2, 14'000, 45'000);
    row("IST", "SYD", 0, 25'000, 80'000);
    row("SYD", "IST", 0, 25'000, 80'000);
    row("ADB", "VAN", 0, 1100, 5000);
    row("BER", "DXB", 0, 6000, 25'000);
    row("JFK", "BEY", 0, 16'000, 55'000);
    row("SAW", "JFK", 0, 16'000, 48'000);
    row("LHR", "MAN", 0, 0, 0); // nobody changes aircraft in another corner of the continent
    row("IST", "SAW", 0, 0, 0);
    row("NRT", "HND", 0, 0, 0);
}

void SampleFlightsTest::itinerariesArePlausible()
{
    QFETCH(QString, from);
    QFETCH(QString, to);
    QFETCH(int, fewestDirect);
    QFETCH(double, lowest);
    QFETCH(double, highest);
    int found = 0;
    for (int day : { 0, 1, 14, 36, 127, 128, 200, 250, 355 }) { // over both changes of the clocks
        QDateTime previous;
        int direct = 0;
        for (const QJsonValue option : options(from, to, dayText(day))) {
            ++found;
            const QJsonArray segments = segmentsOf(option);
            const Segment first = readSegment(segments.first());
            const Segment last = readSegment(segments.last());
            QCOMPARE(first.from->code, from);
            QCOMPARE(last.to->code, to);
            QCOMPARE(first.departure.date(), fixedToday().addDays(day));
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
                QVERIFY(wait >= 55 && wait <= 300);
            }
            QCOMPARE(option["journeyDuration"_L1].toInteger(),
                     minutesBetween(first.departure, last.arrival) * 60'000);
            const double amount = option["cheapestPriceAmount"_L1].toDouble();
            QVERIFY2(amount >= lowest && amount <= highest, qPrintable(QString::number(amount)));
            QCOMPARE(amount * 2, std::floor(amount * 2));
        }
        QVERIFY2(direct >= fewestDirect, qPrintable(dayText(day)));
    }
    QCOMPARE(found > 0, highest > 0);
}

void SampleFlightsTest::everyAirportIsReachable()
{
    for (const AirportSite &site : airportSites()) {
        if (site.city == "Istanbul"_L1)
            continue;
        int there = 0;
        int back = 0;
        for (int day = 10; day < 17; ++day) {
            there += int(options(u"IST"_s, site.code, dayText(day)).size());
            back += int(options(site.code, u"IST"_s, dayText(day)).size());
        }
        QVERIFY2(there > 0 && back > 0, qPrintable(site.code));
    }
}

void SampleFlightsTest::everyAircraftOccurs()
{
    QSet<QString> codes;
    for (const AirportSite &site : airportSites()) {
        if (site.city == "Istanbul"_L1)
            continue;
        for (const QJsonValue option : options(u"IST"_s, site.code, dayText(10))) {
            for (const QJsonValue segment : segmentsOf(option))
                codes.insert(segment["equipment"_L1].toString());
        }
    }
    for (const auto &code : { u"789"_s, u"787"_s, u"359"_s, u"350"_s, u"773"_s, u"777"_s, u"321"_s,
                              u"32Q"_s, u"320"_s, u"738"_s, u"73H"_s, u"739"_s, u"73J"_s, u"333"_s,
                              u"332"_s, u"MAX"_s, u"7M8"_s, u"77W"_s, u"E95"_s })
        QVERIFY2(codes.contains(code), qPrintable(code));
}

void SampleFlightsTest::flightNumbersAreStable()
{
    QHash<QString, QString> meaning;
    int segmentsSeen = 0;
    for (const AirportSite &site : airportSites()) {
        for (int day : { 20, 23, 60 }) { // one season of the clocks
            for (const auto &pair :
                 { std::pair(u"IST"_s, site.code), std::pair(site.code, u"SAW"_s) }) {
                if (pair.first == pair.second)
                    continue;
                for (const QJsonValue option : options(pair.first, pair.second, dayText(day))) {
                    for (const QJsonValue segment : segmentsOf(option)) {
                        const QString number = segment["flightNumber"_L1].toString();
                        const QString what = segment["departureAirportCode"_L1].toString()
                            + segment["arrivalAirportCode"_L1].toString()
                            + segment["departureDateTime"_L1].toString().mid(10);
                        QCOMPARE(meaning.value(number, what), what);
                        meaning.insert(number, what);
                        ++segmentsSeen;
                    }
                }
            }
        }
    }
    QVERIFY(segmentsSeen > 1000);
    QVERIFY(!meaning.contains(u"VQ404"_s));
    QVERIFY(meaning.value(u"VQ1983"_s).startsWith("ISTLHR"_L1));
    QVERIFY(meaning.value(u"VQ1"_s).startsWith("ISTJFK"_L1));
}

void SampleFlightsTest::variety()
{
    QSet<qsizetype> segmentCounts;
    QSet<int> seats;
    for (int day = 0; day < 28; ++day) {
        for (const QJsonValue option : options(u"IST"_s, u"LHR"_s, dayText(day))) {
            segmentCounts.insert(segmentsOf(option).size());
            seats.insert(segmentsOf(option).first()["availableSeatCount"_L1].toInt());
        }
    }
    QCOMPARE(segmentCounts, (QSet<qsizetype> { 1, 2, 3 }));
    QCOMPARE(seats.size(), 10);
    QVERIFY(options(u"IST"_s, u"TGD"_s, dayText(10)).isEmpty()
            || options(u"IST"_s, u"TGD"_s, dayText(11)).isEmpty());
}

void SampleFlightsTest::calendarAgreesWithSearch_data()
{
    QTest::addColumn<QString>("from");
    QTest::addColumn<QString>("to");
    for (const char *route : { "IST-LHR", "LHR-IST", "SAW-ESB", "IST-TGD", "ZNZ-IST", "ADB-VAN",
                               "BER-BKK", "SYD-LHR", "IST-SAW", "JFK-LAX" }) {
        const QString text = QString::fromLatin1(route);
        QTest::newRow(route) << text.left(3) << text.mid(4);
    }
}

void SampleFlightsTest::calendarAgreesWithSearch()
{
    QFETCH(QString, from);
    QFETCH(QString, to);
    for (int departure : { 0, 30, 340 }) {
        const QString centre = dayText(departure);
        const QJsonObject economy = call(u"find_flight_price_calendar"_s,
                                         calendarArguments(from, to, centre, u"4_WEEKS"_s));
        const QJsonObject business =
            call(u"find_flight_price_calendar"_s,
                 calendarArguments(from, to, centre, u"4_WEEKS"_s, u"BUSINESS"_s));
        QHash<QString, double> fares;
        QString best;
        for (const QJsonValue day : economy["prices"_L1].toArray()) {
            const QString date = day["date"_L1].toString();
            fares.insert(date, day["amount"_L1].toDouble());
            if (day["isBestPrice"_L1].toBool()) {
                QVERIFY(best.isEmpty());
                best = date;
            }
        }
        const int first = std::max(departure - 14, 0);
        for (int day = first; day < first + 28; ++day)
            QCOMPARE(fares.value(dayText(day)), lowestFare(options(from, to, dayText(day))));

        QCOMPARE(economy["bestPrice"_L1]["date"_L1].toString(), best);
        QCOMPARE(economy.contains("bestPrice"_L1), !fares.isEmpty());
        for (auto fare = fares.cbegin(); fare != fares.cend(); ++fare) {
            QVERIFY(fare.value() > fares.value(best)
                    || (fare.value() == fares.value(best) && fare.key() >= best));
        }
        const QJsonArray businessPrices = business["prices"_L1].toArray();
        QCOMPARE(businessPrices.size(), fares.size());
        for (const QJsonValue day : businessPrices)
            QVERIFY(day["amount"_L1].toDouble() > 2 * fares.value(day["date"_L1].toString()));
    }
}

void SampleFlightsTest::calendarWindow_data()
{
    QTest::addColumn<int>("departure");
    QTest::addColumn<QString>("range");
    QTest::addColumn<int>("first");
    QTest::addColumn<int>("count");

    QTest::newRow("one week") << 14 << u"1_WEEK"_s << 11 << 7;
    QTest::newRow("two weeks") << 14 << u"2_WEEKS"_s << 7 << 14;
    QTest::newRow("three weeks") << 14 << u"3_WEEKS"_s << 4 << 21;
    QTest::newRow("four weeks") << 14 << u"4_WEEKS"_s << 0 << 28;
    QTest::newRow("today") << 0 << u"1_WEEK"_s << 0 << 7;
    QTest::newRow("soon") << 2 << u"4_WEEKS"_s << 0 << 28;
    QTest::newRow("past") << -30 << u"2_WEEKS"_s << 0 << 14;
    QTest::newRow("edge of what is sold") << 355 << u"1_WEEK"_s << 352 << 4;
    QTest::newRow("not sold yet") << 380 << u"4_WEEKS"_s << 0 << 0;
}

void SampleFlightsTest::calendarWindow()
{
    QFETCH(int, departure);
    QFETCH(QString, range);
    QFETCH(int, first);
    QFETCH(int, count);
    const QJsonObject calendar =
        call(u"find_flight_price_calendar"_s,
             calendarArguments(u"IST"_s, u"LHR"_s, dayText(departure), range));
    const QJsonArray prices = calendar["prices"_L1].toArray();
    QCOMPARE(prices.size(), count);
    for (int i = 0; i < count; ++i)
        QCOMPARE(prices.at(i)["date"_L1].toString(), dayText(first + i));
    QCOMPARE(options(u"IST"_s, u"LHR"_s, dayText(departure)).isEmpty(),
             departure < 0 || departure > 355);
}

void SampleFlightsTest::farePatterns()
{
    // Averages over a year in which every weekday and season is seen from far ahead.
    const auto average = [](auto matches) {
        double sum = 0;
        int count = 0;
        for (int day = 120; day <= 350; ++day) {
            const QDate date = fixedToday().addDays(day);
            if (matches(date)) {
                sum += lowestFare(options(u"IST"_s, u"LHR"_s, dayText(day)));
                ++count;
            }
        }
        return sum / count;
    };
    QVERIFY(average([](QDate date) { return date.dayOfWeek() == 5; })
            > 1.05 * average([](QDate date) { return date.dayOfWeek() == 2; }));
    QVERIFY(average([](QDate date) { return date.month() == 7; })
            > 1.05 * average([](QDate date) { return date.month() == 10; }));

    // The same flight is dearer for those who book late.
    const QJsonObject arguments = searchArguments(u"IST"_s, u"LHR"_s, dayText(60));
    const QDateTime later = fixedNow().addDays(59);
    QVERIFY(lowestFare(optionsOf(call(u"search_flights"_s, arguments, later)))
            > 1.2 * lowestFare(optionsOf(call(u"search_flights"_s, arguments))));
    // The hour of the question makes no difference.
    QCOMPARE(call(u"search_flights"_s, arguments, fixedNow().addSecs(39'600)),
             call(u"search_flights"_s, arguments));
}

void SampleFlightsTest::passengersAndReturn()
{
    const QJsonArray one = options(u"IST"_s, u"LHR"_s, dayText(20));
    const QJsonArray nine =
        optionsOf(call(u"search_flights"_s, searchArguments(u"IST"_s, u"LHR"_s, dayText(20), 9)));
    QCOMPARE(nine.size(), one.size());
    QCOMPARE(nine.at(0)["cheapestPriceAmount"_L1].toDouble(),
             9 * one.at(0)["cheapestPriceAmount"_L1].toDouble());
    const QString link = nine.at(0)["deeplinks"_L1][0].toString();
    QVERIFY2(
        link.startsWith("https://www.example.test/booking?from=IST&to=LHR&date="_L1 + dayText(20)),
        qPrintable(link));

    QJsonObject round = searchArguments(u"IST"_s, u"LHR"_s, dayText(20));
    round.insert(u"tripType"_s, u"round"_s);
    QCOMPARE(optionsOf(call(u"search_flights"_s, round)), one);
    round.insert(u"returnDate"_s, dayText(27));
    const QJsonValue informations =
        call(u"search_flights"_s, round)["availabilityData"_L1]["originDestinationInformations"_L1];
    QCOMPARE(informations[0]["originDestinationOptions"_L1].toArray(), one);
    QCOMPARE(informations[1]["originDestinationOptions"_L1].toArray(),
             options(u"LHR"_s, u"IST"_s, dayText(27)));
}

QTEST_APPLESS_MAIN(SampleFlightsTest)
#include "SampleFlightsTest.moc"
