#include "Models/AirportDatabase.h"
#include "Models/FlightStatusResult.h"
#include "ToolCalls.h"

#include "sample_server/AirportGeography.h"
#include "sample_server/JsonSchema.h"

#include <QLocale>
#include <QTest>

#include <algorithm>
#include <limits>
#include <tuple>
#include <utility>

using namespace Sample;
using namespace ToolCalls;

namespace {

/// What clients read from the status.
QString meaningOf(const QJsonObject &data)
{
    FlightStatusResult result;
    result.status = data["status"_L1].toString();
    return (result.isDelayed() ? u"delayed "_s : QString())
        + (result.isLanded() ? u"landed "_s : QString())
        + (result.isInAir() ? u"in air "_s : QString());
}

QJsonObject statusOf(const QString &number, const QString &date, const QDateTime &now = fixedNow())
{
    const QJsonObject arguments { { u"flightNumber"_s, number }, { u"flightDate"_s, date } };
    return flightStatus(arguments, { now, {} })["flightData"_L1].toObject();
}

/// Minutes since 1970 of a local time at an airport.
qint64 minuteAt(const QJsonValue &time, const QString &airport)
{
    const QDateTime local = QDateTime::fromString(time.toString(), u"yyyy-MM-ddTHH:mm:ss"_s);
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

/// The segments of an itinerary fit each other, the status tool and the time zones.
void checkItinerary(const QJsonValue &option, const QString &from, const QString &to)
{
    QString at = from;
    qint64 start = 0;
    qint64 free = 0;
    for (const QJsonValue segment : option["flightSegments"_L1].toArray()) {
        const QString departsAt = segment["departureDateTime"_L1].toString();
        const QString next = segment["arrivalAirportCode"_L1].toString();
        const qint64 departure = minuteAt(departsAt, at);
        QVERIFY2(free == 0 || (departure >= free + 55 && departure <= free + 600),
                 qPrintable(u"%1 minutes between flights"_s.arg(departure - free)));
        start = start == 0 ? departure : start;
        free = minuteAt(segment["arrivalDateTime"_L1], next);
        QVERIFY(free > departure);

        const QJsonObject status =
            statusOf(segment["flightNumber"_L1].toString(), departsAt.left(10));
        QCOMPARE(QJsonArray({ status["origin"_L1], status["destination"_L1],
                              status["scheduledDeparture"_L1] }),
                 QJsonArray({ at, next, departsAt.mid(11, 5) }));
        QCOMPARE(segment["departureAirportCode"_L1], at);
        at = next;
    }
    QCOMPARE(at, to);
    QCOMPARE(option["journeyDuration"_L1].toInteger(), (free - start) * 60'000);
}

/// The numbers of segments that occur among the itineraries of some days, each once.
QString segmentCounts(const QString &from, const QString &to, int day, int days = 1)
{
    QMap<QString, int> counts;
    for (int last = day + days; day < last; ++day) {
        for (const QJsonValue option : options(from, to, dayText(day))) {
            checkItinerary(option, from, to);
            if (QTest::currentTestFailed())
                return {};
            ++counts[QString::number(option["flightSegments"_L1].toArray().size())];
        }
    }
    return counts.keys().join(QString());
}

} // namespace

/// All tools against their own descriptions, what they refuse, the status of flights; the
/// timetable, the fares and the calendar fit together.
class SampleToolsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    /// An airport of the application's table has a row in data/airports.csv.
    void airports()
    {
        QStringList missing;
        for (const Airport &airport : AirportDatabase::allAirports()) {
            const AirportSite *site = airportSite(airport.code);
            if (!site || !site->timeZone.isValid() || site->demand < 1 || site->demand > 5)
                missing.append(airport.code);
        }
        QCOMPARE(missing.join(u' '), QString());
        QCOMPARE(airportSites().size(), AirportDatabase::allAirports().size());
    }

    void repliesSatisfyTheirSchemas()
    {
        int day = 0;
        int guides = 0;
        for (const AirportSite &site : airportSites()) {
            day = (day + 11) % 365;
            const QString other = site.code == "IST"_L1 ? u"SIN"_s : u"IST"_s;
            const QHash<QString, QJsonObject> questions {
                { u"find_flight_price_calendar"_s,
                  calendarArguments(other, site.code, dayText(day), u"1_WEEK"_s) },
                { u"search_flights"_s,
                  searchArguments(site.code, other, dayText(day), 1 + day % 9) },
                { u"flight-status"_s,
                  { { u"flightNumber"_s, u" vq %1\n"_s.arg(1971 + day % 10) },
                    { u"flightDate"_s, dayText(day % 11 - 5) } } },
                { u"get_airline_promotions"_s,
                  { { u"departureAirportCode"_s, site.code },
                    { u"countryCode"_s, day % 2 ? u"TR"_s : u"DE"_s } } },
                { u"get_city_guide"_s, { { u"cityCode"_s, site.code } } },
            };
            QCOMPARE(questions.size(), toolDescriptions().size());
            for (const QJsonValue tool : toolDescriptions()) {
                const QString name = tool["name"_L1].toString();
                QVERIFY2(questions.contains(name), qPrintable(u"No question for "_s + name));
                QJsonObject reply;
                try {
                    reply = call(name, questions.value(name));
                } catch (const RpcError &error) {
                    QFAIL(qPrintable(name + u": "_s + error.message));
                }
                const auto fault = JsonSchema::violation(tool["outputSchema"_L1].toObject(), reply);
                QCOMPARE(fault.value_or(QString()), QString());
                guides += reply.contains("guide"_L1);
                for (const QJsonValue promotion : reply["promotions"_L1].toArray()) {
                    const QString until = promotion["validUntil"_L1].toString();
                    const QLocale turkish(QLocale::Turkish);
                    QVERIFY(until.isEmpty()
                            || turkish.toDate(until, u"d MMMM yyyy"_s) > fixedNow().date());
                }
            }
        }
        QVERIFY2(guides > 20 && guides < airportSites().size(),
                 qPrintable(QString::number(guides)));
    }

    void refusals()
    {
        QString tool = u"search_flights"_s;
        QJsonObject good = searchArguments(u"IST"_s, u"LHR"_s, dayText(5));
        // What the message names, so that one knows what to change.
        const auto row = [&](const QString &key, const QJsonValue &value, const QString &named) {
            QJsonObject arguments = good;
            arguments.insert(key, value); // an undefined value removes
            try {
                call(tool, arguments);
                QFAIL(qPrintable(key + u" was taken, and should name "_s + named));
            } catch (const RpcError &error) {
                QVERIFY2(error.message.contains(named) && error.message.size() < 200,
                         qPrintable(error.message + u" does not name "_s + named));
            }
        };
        // What a traveller can bring about names no argument.
        row(u"from"_s, u"ZZZ"_s, u"\"ZZZ\""_s);
        row(u"from"_s, u"LHR"_s, u"(LHR)"_s);
        row(u"departureDate"_s, u"2026-11-31"_s, u"2026-11-31"_s);
        row(u"returnDate"_s, dayText(4), u"(25 Kasım 2026) gidiş gününden (26 Kasım 2026)"_s);
        // What only a client can is told by the description of the tool.
        row(u"tripType"_s, 5, u"[tripType]"_s);

        tool = u"flight-status"_s;
        good = {};
        row(u"flightNumber"_s, u"VQ404"_s, u"VQ404"_s);
        row(u"flightNumber"_s, u"VQ١٢"_s, u"\"VQ١٢\""_s);
        good = { { u"flightNumber"_s, u"VQ1"_s } };
        row(u"flightDate"_s, u"2031-01-05"_s, u"5 Ocak 2031"_s);
    }

    void promotionsSuitTheDeparture()
    {
        QMap<QString, QMap<QString, int>> departures; // by title: where from, and how many
        for (const AirportSite &site : airportSites()) {
            const bool isAbroad = AirportDatabase::airport(site.code).country != u"Türkiye";
            for (const QString &country : { u"TR"_s, u"DE"_s }) {
                const QJsonObject reply = call(
                    u"get_airline_promotions"_s,
                    { { u"departureAirportCode"_s, site.code }, { u"countryCode"_s, country } });
                for (const QJsonValue promotion : reply["promotions"_L1].toArray()) {
                    const QString route = promotion["route"_L1].toString();
                    QVERIFY2(route.isEmpty()
                                 || route.section(u" ⇄ "_s, 0, 0) != route.section(u" ⇄ "_s, 1),
                             qPrintable(route));
                    ++departures[promotion["title"_L1].toString()]
                                [(isAbroad ? u"abroad "_s : u"Türkiye "_s) + country];
                }
            }
        }
        QCOMPARE(departures[u"Yurt İçinde Hafta Sonu"_s].keys().join(u", "_s), u"Türkiye TR"_s);
        QCOMPARE(departures[u"Türkiye'ye Dönüş Bileti"_s].keys().join(u", "_s),
                 u"abroad DE, abroad TR"_s);
    }

    void demonstrationNumbers()
    {
        for (const auto &[number, day, meaning] : { std::tuple(u"VQ1983"_s, 0, QString()),
                                                    { u"VQ1983"_s, -2, u"landed "_s },
                                                    { u"VQ1907"_s, 0, u"delayed "_s },
                                                    { u"VQ1907"_s, 300, u"delayed "_s },
                                                    { u"VQ1907"_s, -2, u"delayed landed "_s },
                                                    { u"VQ1"_s, 0, u"in air "_s },
                                                    { u"VQ1"_s, 5, QString() },
                                                    { u"VQ2"_s, 0, u"delayed in air "_s },
                                                    { u"VQ2"_s, 5, QString() } }) {
            for (const int hour : { 0, 12, 23 }) {
                const QDateTime now(fixedNow().date(), QTime(hour, 30), fixedNow().timeZone());
                const QJsonObject data = statusOf(number, dayText(day), now);
                QCOMPARE(number + u' ' + meaningOf(data), number + u' ' + meaning);
                const QJsonValue arrival =
                    data[data.contains("actualArrival"_L1) ? "actualArrival"_L1
                                                           : "estimatedArrival"_L1];
                QCOMPARE(!arrival.isUndefined() && arrival != data["scheduledArrival"_L1],
                         meaning.contains(u"delayed"));
                QVERIFY(number != u"VQ1983" || data.contains("baggage"_L1));
            }
        }
    }

    void itineraries()
    {
        for (const AirportSite &site : airportSites()) {
            for (const int day : { 0, 127, 128, 355 }) // over a change of the clocks
                QVERIFY2(site.hub
                             || (!segmentCounts(u"IST"_s, site.code, day).isEmpty()
                                 && !segmentCounts(site.code, u"IST"_s, day).isEmpty()),
                         qPrintable(site.code));
        }
        for (const auto &[route, counts] : { std::pair(u"IST-LHR"_s, u"123"_s),
                                             { u"IST-TGD"_s, u"1"_s },
                                             { u"IST-SYD"_s, u"23"_s },
                                             { u"ADB-VAN"_s, u"2"_s },
                                             { u"IST-SAW"_s, u""_s },
                                             { u"JFK-LAX"_s, u""_s } })
            QCOMPARE(segmentCounts(route.left(3), route.mid(4), 1, 10), counts);
    }

    void calendarAgreesWithSearch()
    {
        for (const int day : { 0, 30, 340 }) {
            const QJsonObject reply = calendar(u"LHR"_s, day, u"4_WEEKS"_s);
            QMap<double, QString> firstDays; // by their amounts
            for (const QJsonValue price : reply["prices"_L1].toArray()) {
                const QString date = price["date"_L1].toString();
                const double amount = price["amount"_L1].toDouble();
                QCOMPARE(amount, lowestFare(options(u"IST"_s, u"LHR"_s, date)));
                if (!firstDays.contains(amount))
                    firstDays.insert(amount, date);
            }
            for (const QJsonValue price : reply["prices"_L1].toArray())
                QCOMPARE(price["isBestPrice"_L1], price["date"_L1] == firstDays.first());
            QCOMPARE(reply["bestPrice"_L1]["date"_L1], firstDays.first());
            const QJsonObject business = calendar(u"LHR"_s, day, u"4_WEEKS"_s, u"BUSINESS"_s);
            QVERIFY(business["bestPrice"_L1]["amount"_L1].toDouble() > firstDays.firstKey());
        }
        const QJsonObject none = calendar(u"SAW"_s, 30, u"4_WEEKS"_s);
        QCOMPARE(none["prices"_L1], QJsonValue(QJsonArray()));
    }

    void faresOfPartiesAndReturns()
    {
        const QString tool = u"search_flights"_s;
        QJsonObject arguments = searchArguments(u"IST"_s, u"LHR"_s, dayText(60));
        const QJsonArray one = optionsOf(call(tool, arguments));
        const QJsonArray nine =
            optionsOf(call(tool, searchArguments(u"IST"_s, u"LHR"_s, dayText(60), 9)));
        QCOMPARE(lowestFare(nine), 9 * lowestFare(one));
        const auto departure = [](const QJsonValue &option) {
            return option["flightSegments"_L1][0]["departureDateTime"_L1].toString();
        };
        QVERIFY(std::is_sorted(one.begin(), one.end(), [&](const auto &left, const auto &right) {
            return departure(left) < departure(right);
        }));
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
};

QTEST_APPLESS_MAIN(SampleToolsTest)
#include "SampleToolsTest.moc"
