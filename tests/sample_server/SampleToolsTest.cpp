#include "Models/AirportDatabase.h"
#include "Models/FlightStatusResult.h"
#include "support/ParsedJson.h"

#include "sample_server/JsonSchema.h"
#include "sample_server/Tool.h"

#include <QLocale>
#include <QTest>

#include <algorithm>
#include <tuple>
#include <utility>

using namespace Qt::StringLiterals;
using namespace Sample;

namespace {

/// A Saturday at noon.
QDateTime noon() { return { QDate(2026, 11, 21), QTime(12, 0), QTimeZone("Europe/Istanbul") }; }

QString dayText(int daysAhead) { return noon().date().addDays(daysAhead).toString(Qt::ISODate); }

/// The reply, or the message of the refusal as "refused".
QJsonObject call(const QString &tool, const QJsonObject &arguments)
{
    try {
        return callTool(tool, arguments, { noon(), u"https://www.example.test"_s });
    } catch (const RpcError &error) {
        return { { u"refused"_s, error.message } };
    }
}

QJsonObject calendarArguments(const QString &to, int day, const QString &cabin = u"ECONOMY"_s)
{
    return { { u"originAirportCode"_s, u"IST"_s }, { u"destinationAirportCode"_s, to },
             { u"departureDate"_s, dayText(day) }, { u"tripType"_s, u"ONE_WAY"_s },
             { u"timeRange"_s, u"4_WEEKS"_s },     { u"cabinClass"_s, cabin } };
}

QJsonObject searchArguments(const QString &from, const QString &to, const QString &date,
                            int passengers = 1)
{
    const QJsonObject adults { { u"passengerType"_s, u"ADT"_s }, { u"quantity"_s, passengers } };
    return { { u"from"_s, from },
             { u"to"_s, to },
             { u"departureDate"_s, date },
             { u"tripType"_s, u"one_way"_s },
             { u"passengers"_s, QJsonArray { adults } } };
}

/// Straight from the tool: checking arguments takes longer than answering.
QJsonArray options(const QJsonObject &arguments, int direction = 0, const QDateTime &now = noon())
{
    const QJsonObject reply = searchFlights(arguments, { now, u"https://www.example.test"_s });
    return reply["availabilityData"_L1]["originDestinationInformations"_L1][direction]
                ["originDestinationOptions"_L1]
                    .toArray();
}

double lowestFare(const QJsonArray &options)
{
    QList<double> fares;
    for (const QJsonValue option : options)
        fares.append(option["cheapestPriceAmount"_L1].toDouble());
    return fares.isEmpty() ? 0 : *std::ranges::min_element(fares);
}

QJsonObject statusOf(const QString &number, const QString &date, const QDateTime &now = noon())
{
    const QJsonObject arguments { { u"flightNumber"_s, number }, { u"flightDate"_s, date } };
    return flightStatus(arguments, { now, {} })["flightData"_L1].toObject();
}

/// A local time at an airport.
QDateTime momentAt(const QJsonValue &time, const QString &airport)
{
    const QDateTime local = QDateTime::fromString(time.toString(), Qt::ISODate);
    return { local.date(), local.time(), airportSite(airport)->timeZone };
}

/// The segments of an itinerary fit each other, the status tool and the time zones.
void checkItinerary(const QJsonValue &option, QString at, const QString &to)
{
    QDateTime start;
    QDateTime free;
    for (const QJsonValue segment : option["flightSegments"_L1].toArray()) {
        const QString departsAt = segment["departureDateTime"_L1].toString();
        const QString next = segment["arrivalAirportCode"_L1].toString();
        QCOMPARE(segment["departureAirportCode"_L1], at);
        const QDateTime departure = momentAt(departsAt, at);
        const qint64 wait = free.isValid() ? free.secsTo(departure) / 60 : 60;
        QVERIFY2(wait >= 55 && wait <= 600, qPrintable(u"%1 minutes between flights"_s.arg(wait)));
        start = start.isValid() ? start : departure;
        free = momentAt(segment["arrivalDateTime"_L1], next);
        QCOMPARE_GT(free, departure);

        const QJsonObject status =
            statusOf(segment["flightNumber"_L1].toString(), departsAt.left(10));
        QCOMPARE(QJsonArray({ status["origin"_L1], status["destination"_L1],
                              status["scheduledDeparture"_L1] }),
                 QJsonArray({ at, next, departsAt.mid(11, 5) }));
        at = next;
    }
    QCOMPARE(at, to);
    QCOMPARE(option["journeyDuration"_L1].toInteger(), start.msecsTo(free));
}

/// The numbers of segments that occur among the itineraries of some days, each once.
QString segmentCounts(const QString &route, std::initializer_list<int> days)
{
    const QString from = route.left(3);
    const QString to = route.mid(4);
    QMap<QString, int> counts;
    for (const int day : days) {
        for (const QJsonValue option : options(searchArguments(from, to, dayText(day)))) {
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
            const QString code = site.code == "IST"_L1 ? u"SIN"_s : site.code;
            const QHash<QString, QJsonObject> questions {
                { u"find_flight_price_calendar"_s, calendarArguments(code, day) },
                { u"search_flights"_s, searchArguments(code, u"IST"_s, dayText(day), 1 + day % 9) },
                { u"flight-status"_s,
                  { { u"flightNumber"_s, u" vq %1\n"_s.arg(1971 + day % 10) },
                    { u"flightDate"_s, dayText(day % 11 - 5) } } },
                { u"get_airline_promotions"_s,
                  { { u"departureAirportCode"_s, code }, { u"countryCode"_s, u"TR"_s } } },
                { u"get_city_guide"_s, { { u"cityCode"_s, code } } },
            };
            for (const QJsonValue tool : toolDescriptions()) {
                const QString name = tool["name"_L1].toString();
                QVERIFY2(questions.contains(name), qPrintable(u"No question for "_s + name));
                const QJsonObject reply = call(name, questions.value(name));
                QCOMPARE(name + reply["refused"_L1].toString(), name);
                const auto fault = JsonSchema::violation(tool["outputSchema"_L1].toObject(), reply);
                QCOMPARE(fault.value_or(QString()), QString());
                guides += reply.contains("guide"_L1);
            }
        }
        QCOMPARE_GT(guides, 20);
        QCOMPARE_LT(guides, airportSites().size());
    }

    void refusals()
    {
        QString tool = u"search_flights"_s;
        QJsonObject good = searchArguments(u"IST"_s, u"LHR"_s, dayText(5));
        // What the message names, so that one knows what to change.
        const auto row = [&](const QString &key, const QJsonValue &value, const QString &named) {
            QJsonObject arguments = good;
            arguments.insert(key, value);
            const QString message = call(tool, arguments)["refused"_L1].toString();
            QVERIFY2(message.contains(named),
                     qPrintable(key + u": \"%1\" does not name "_s.arg(message) + named));
        };
        // What a traveller can bring about names no argument.
        row(u"from"_s, u"ZZZ"_s, u"\"ZZZ\""_s);
        row(u"from"_s, u"LHR"_s, u"(LHR)"_s);
        row(u"departureDate"_s, u"2026-11-31"_s, u"2026-11-31"_s);
        row(u"returnDate"_s, dayText(4), u"(25 Kasım 2026) gidiş gününden (26 Kasım 2026)"_s);
        // What only a client can is told by the description of the tool.
        row(u"tripType"_s, 5, u"[tripType]"_s);

        tool = u"flight-status"_s;
        good = { { u"flightNumber"_s, u"VQ1"_s } };
        row(u"flightNumber"_s, u"VQ404"_s, u"VQ404"_s);
        row(u"flightNumber"_s, u"VQ١٢"_s, u"\"VQ١٢\""_s);
        row(u"flightDate"_s, u"2031-01-05"_s, u"5 Ocak 2031"_s);
    }

    void promotionsSuitTheDeparture()
    {
        QMap<QString, QMap<QString, int>> places; // by title: where it is offered, and how often
        for (const AirportSite &site : airportSites()) {
            for (const QString &country : { u"TR"_s, u"DE"_s }) {
                const QJsonObject reply = airlinePromotions(
                    { { u"departureAirportCode"_s, site.code }, { u"countryCode"_s, country } },
                    { noon(), {} });
                for (const QJsonValue promotion : reply["promotions"_L1].toArray()) {
                    const QString title = promotion["title"_L1].toString();
                    const QString route = promotion["route"_L1].toString();
                    QVERIFY2(!route.endsWith(u"⇄ "_s + site.turkishCity), qPrintable(route));
                    const QString until = promotion["validUntil"_L1].toString();
                    const QDate last = QLocale(QLocale::Turkish).toDate(until, u"d MMMM yyyy"_s);
                    QVERIFY2(until.isEmpty() || last > noon().date(), qPrintable(until));
                    ++places[title][(site.isDomestic() ? u"Türkiye "_s : u"abroad "_s) + country];
                }
            }
        }
        QCOMPARE(places[u"Yurt İçinde Hafta Sonu"_s].keys().join(u", "_s), u"Türkiye TR"_s);
        QCOMPARE(places[u"Türkiye'ye Dönüş Bileti"_s].keys().join(u", "_s),
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
                                                    { u"VQ2"_s, 0, u"delayed in air "_s },
                                                    { u"VQ2"_s, 5, QString() } }) {
            for (const int hour : { 0, 12, 23 }) {
                const QDate today = noon().date().addDays(hour); // another one for each hour
                const QDateTime now(today, QTime(hour, 30), noon().timeZone());
                const QJsonObject data =
                    statusOf(number, today.addDays(day).toString(Qt::ISODate), now);
                FlightStatusResult read;
                read.status = data["status"_L1].toString();
                QCOMPARE(number + u' ' + (read.isDelayed() ? u"delayed "_s : QString())
                             + (read.isLanded() ? u"landed "_s : QString())
                             + (read.isInAir() ? u"in air "_s : QString()),
                         number + u' ' + meaning);
                const QJsonValue actual = data["actualArrival"_L1];
                const QJsonValue arrival = actual.isString() ? actual : data["estimatedArrival"_L1];
                QCOMPARE(arrival.isString() && arrival != data["scheduledArrival"_L1],
                         meaning.contains(u"delayed"));
                QVERIFY(number != u"VQ1983" || data.contains("baggage"_L1));
            }
        }
    }

    void itineraries()
    {
        for (const AirportSite &site : airportSites()) {
            for (const QString &route : { u"IST-"_s + site.code, site.code + u"-IST"_s }) {
                // Over a change of the clocks, too.
                if (!site.hub)
                    QVERIFY2(!segmentCounts(route, { 0, 127, 128, 355 }).isEmpty(),
                             qPrintable(route));
            }
        }
        for (const auto &[route, counts] : { std::pair(u"IST-LHR"_s, u"123"_s),
                                             { u"IST-TGD"_s, u"1"_s },
                                             { u"IST-SYD"_s, u"23"_s },
                                             { u"ADB-VAN"_s, u"2"_s },
                                             { u"IST-SAW"_s, u""_s },
                                             { u"JFK-LAX"_s, u""_s } })
            QCOMPARE(segmentCounts(route, { 1, 2, 3, 4, 5, 6 }), counts);
    }

    void calendarAgreesWithSearch()
    {
        const auto calendar = [](const QString &to, int day, const QString &cabin) {
            return findPriceCalendar(calendarArguments(to, day, cabin), { noon(), {} });
        };
        for (const int day : { 0, 30, 340 }) {
            const QJsonObject reply = calendar(u"LHR"_s, day, u"ECONOMY"_s);
            const QJsonValue best = reply["bestPrice"_L1];
            for (const QJsonValue price : reply["prices"_L1].toArray()) {
                const QString date = price["date"_L1].toString();
                const double amount = price["amount"_L1].toDouble();
                QCOMPARE(amount, lowestFare(options(searchArguments(u"IST"_s, u"LHR"_s, date))));
                QCOMPARE(price["isBestPrice"_L1], price["date"_L1] == best["date"_L1]);
                QCOMPARE_GE(amount, best["amount"_L1].toDouble());
            }
            const QJsonObject business = calendar(u"LHR"_s, day, u"BUSINESS"_s);
            QCOMPARE_GT(business["bestPrice"_L1]["amount"_L1].toDouble(),
                        best["amount"_L1].toDouble());
        }
        QCOMPARE(calendar(u"SAW"_s, 30, u"ECONOMY"_s)["prices"_L1], QJsonValue(QJsonArray()));
    }

    void faresOfPartiesAndReturns()
    {
        QJsonObject arguments = searchArguments(u"IST"_s, u"LHR"_s, dayText(60));
        const QJsonArray one = options(arguments);
        const QJsonArray nine = options(searchArguments(u"IST"_s, u"LHR"_s, dayText(60), 9));
        QCOMPARE(lowestFare(nine), 9 * lowestFare(one));
        QCOMPARE(nine[0]["deeplinks"_L1][0].toString().section(u"&flights"_s, 0, 0),
                 u"https://www.example.test/booking?from=IST&to=LHR&date="_s + dayText(60));
        QVERIFY(std::ranges::is_sorted(one, {}, [](const QJsonValue &option) {
            return option["flightSegments"_L1][0]["departureDateTime"_L1].toString();
        }));
        // The hour makes no difference.
        QCOMPARE(options(arguments, 0, noon().addSecs(39'600)), one);

        arguments.insert(u"tripType"_s, u"round"_s);
        arguments.insert(u"returnDate"_s, dayText(60)); // on the same day
        QCOMPARE(options(arguments), one);
        QCOMPARE(options(arguments, 1), options(searchArguments(u"LHR"_s, u"IST"_s, dayText(60))));
    }
};

QTEST_APPLESS_MAIN(SampleToolsTest)
#include "SampleToolsTest.moc"
