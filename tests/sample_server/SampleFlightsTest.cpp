#include "ToolCalls.h"

#include "sample_server/AirportGeography.h"

#include <QTest>

#include <algorithm>
#include <limits>
#include <tuple>
#include <utility>

using namespace Sample;
using namespace ToolCalls;

namespace {

/// Minutes since 1970 of a local time at an airport.
qint64 minuteAt(const QString &time, const QString &airport)
{
    const QDateTime local = QDateTime::fromString(time, u"yyyy-MM-ddTHH:mm:ss"_s);
    const QTimeZone zone = airportSite(airport)->timeZone;
    return QDateTime(local.date(), local.time(), zone).toSecsSinceEpoch() / 60;
}

double lowestFare(const QJsonArray &options)
{
    double lowest = std::numeric_limits<double>::infinity();
    for (const QJsonValue option : options)
        lowest = std::min(lowest, option["cheapestPriceAmount"_L1].toDouble());
    return lowest;
}

QJsonObject calendar(const QString &to, int day, const QString &range,
                     const QString &cabin = u"ECONOMY"_s)
{
    return call(u"find_flight_price_calendar"_s,
                calendarArguments(u"IST"_s, to, dayText(day), range, cabin));
}

} // namespace

/// QVERIFY for a function that returns a text.
#define EXPECT(holds)                                                                              \
    if (!QTest::qVerify(holds, #holds, "", __FILE__, __LINE__))                                    \
    return QStringLiteral("failed")

/// The timetable, the fares and the calendar fit together.
class SampleFlightsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void itineraries()
    {
        for (const AirportSite &site : airportSites()) {
            if (site.hub)
                continue;
            for (const int day : { 0, 127, 128, 355 }) { // over a change of the clocks
                QVERIFY2(!segmentCounts(u"IST"_s, site.code, day).isEmpty(), qPrintable(site.code));
                QVERIFY2(!segmentCounts(site.code, u"IST"_s, day).isEmpty(), qPrintable(site.code));
            }
        }
        for (const auto &[route, counts] : { std::pair(u"IST-LHR"_s, u"12"_s),
                                             { u"IST-TGD"_s, u"1"_s },
                                             { u"IST-SYD"_s, u"23"_s },
                                             { u"ADB-VAN"_s, u"2"_s },
                                             { u"IST-SAW"_s, u""_s },
                                             { u"JFK-LAX"_s, u""_s } })
            QCOMPARE(segmentCounts(route.left(3), route.mid(4), 6), counts);
    }

    void calendarAgreesWithSearch()
    {
        for (const int day : { 0, 30, 340 }) {
            const QJsonObject reply = calendar(u"LHR"_s, day, u"4_WEEKS"_s);
            const QJsonArray prices = reply["prices"_L1].toArray();
            QString best;
            double lowest = std::numeric_limits<double>::infinity();
            for (const QJsonValue price : prices) {
                const QString date = price["date"_L1].toString();
                const double amount = price["amount"_L1].toDouble();
                QCOMPARE(amount, lowestFare(options(u"IST"_s, u"LHR"_s, date)));
                // The best day is the first of the cheapest ones.
                if (amount < std::exchange(lowest, std::min(lowest, amount)))
                    best = date;
            }
            for (const QJsonValue price : prices)
                QCOMPARE(price["isBestPrice"_L1].toBool(), price["date"_L1].toString() == best);
            QCOMPARE(reply["bestPrice"_L1]["date"_L1].toString(), best);
            const QJsonObject business = calendar(u"LHR"_s, day, u"4_WEEKS"_s, u"BUSINESS"_s);
            QVERIFY(business["bestPrice"_L1]["amount"_L1].toDouble() > lowest);
        }
        QVERIFY(calendar(u"SAW"_s, 30, u"4_WEEKS"_s)["prices"_L1].toArray().isEmpty());
    }

    void calendarWindow()
    {
        // Days to the departure, range, days to the calendar's first day, length.
        for (const auto &[departure, range, first, count] : { std::tuple(14, u"1_WEEK"_s, 11, 7),
                                                              { 14, u"2_WEEKS"_s, 7, 14 },
                                                              { 14, u"3_WEEKS"_s, 4, 21 },
                                                              { -30, u"2_WEEKS"_s, 0, 14 },
                                                              { 355, u"1_WEEK"_s, 349, 7 },
                                                              { 380, u"4_WEEKS"_s, 328, 28 } }) {
            const QJsonArray prices = calendar(u"LHR"_s, departure, range)["prices"_L1].toArray();
            QCOMPARE(prices.size(), count);
            for (int index = 0; index < count; ++index)
                QCOMPARE(prices[index]["date"_L1].toString(), dayText(first + index));
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
        QVERIFY(nine.at(0)["deeplinks"_L1][0].toString().startsWith(
            u"https://www.example.test/booking?from=IST&to=LHR&date="_s + dayText(60)));
        // The hour makes no difference.
        QCOMPARE(optionsOf(call(tool, arguments, fixedNow().addSecs(39'600))), one);

        arguments.insert(u"tripType"_s, u"round"_s);
        arguments.insert(u"returnDate"_s, dayText(60)); // on the same day
        const QJsonObject round = call(tool, arguments);
        QCOMPARE(optionsOf(round), one);
        QCOMPARE(optionsOf(round, 1), options(u"LHR"_s, u"IST"_s, dayText(60)));
    }

private:
    /// The numbers of segments that occur among a day's itineraries, each once. Each itinerary is
    /// looked at: its segments fit each other, the timetable, the status tool and the time zones.
    QString segmentCounts(const QString &from, const QString &to, int day)
    {
        QMap<QString, int> counts;
        qint64 previous = 0;
        for (const QJsonValue option : options(from, to, dayText(day))) {
            QString at = from;
            qint64 start = 0;
            qint64 free = 0;
            const QJsonArray segments = option["flightSegments"_L1].toArray();
            for (const QJsonValue segment : segments) {
                const QString departsAt = segment["departureDateTime"_L1].toString();
                const QString next = segment["arrivalAirportCode"_L1].toString();
                const qint64 departure = minuteAt(departsAt, at);
                EXPECT(segment["departureAirportCode"_L1].toString() == at);
                EXPECT(free == 0 || (departure >= free + 55 && departure <= free + 600));
                start = start == 0 ? departure : start;
                free = minuteAt(segment["arrivalDateTime"_L1].toString(), next);
                EXPECT(free > departure);

                const QString number = segment["flightNumber"_L1].toString();
                const QString meaning = at + next + departsAt.mid(10);
                EXPECT(m_meaningOfNumber.value(number, meaning) == meaning);
                m_meaningOfNumber.insert(number, meaning);
                const QJsonValue status = flightStatus(
                    { { u"flightNumber"_s, number }, { u"flightDate"_s, departsAt.left(10) } },
                    { fixedNow(), {} })["flightData"_L1];
                EXPECT(status["origin"_L1].toString() + status["destination"_L1].toString()
                       == at + next);
                EXPECT(status["scheduledDeparture"_L1].toString() == departsAt.mid(11, 5));
                at = next;
            }
            EXPECT(at == to && start >= std::exchange(previous, start));
            EXPECT(segments[0]["departureDateTime"_L1].toString().startsWith(dayText(day)));
            EXPECT(option["journeyDuration"_L1].toInteger() == (free - start) * 60'000);
            ++counts[QString::number(segments.size())];
        }
        return counts.keys().join(QString());
    }

    QHash<QString, QString> m_meaningOfNumber;
};

QTEST_APPLESS_MAIN(SampleFlightsTest)
#include "SampleFlightsTest.moc"
