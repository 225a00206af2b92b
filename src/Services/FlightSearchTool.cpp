#include "Models/JsonReading.h"
#include "Services/ServiceAddresses.h"
#include "Services/VTRMCPClient.h"

#include <QJsonArray>
#include <QStringBuilder>

#include <algorithm>

using namespace Qt::StringLiterals;
using JsonReading::objects, JsonReading::text;

namespace {

constexpr qint64 millisecondsPerMinute = 60'000;
constexpr qint64 defaultJourneyMilliseconds = 13'500'000; // 3 h 45 min
constexpr double defaultPrice = 4850;
constexpr qint64 defaultSeats = 7;

struct AircraftRule
{
    QStringView code;
    QString name;
};

// Tried in this order on the upper-cased code; the first one that occurs in it names the aircraft.
const AircraftRule aircraftRules[] = {
    { u"789", u"Boeing 787-9 Dreamliner"_s },
    { u"787", u"Boeing 787-9 Dreamliner"_s },
    { u"359", u"Airbus A350-900"_s },
    { u"350", u"Airbus A350-900"_s },
    { u"773", u"Boeing 777-300ER"_s },
    { u"777", u"Boeing 777-300ER"_s },
    { u"321", u"Airbus A321neo"_s },
    { u"32Q", u"Airbus A321neo"_s },
    { u"320", u"Airbus A320neo"_s },
    { u"738", u"Boeing 737-800"_s },
    { u"73H", u"Boeing 737-800"_s },
    { u"739", u"Boeing 737-900ER"_s },
    { u"73J", u"Boeing 737-900ER"_s },
    { u"333", u"Airbus A330"_s },
    { u"332", u"Airbus A330"_s },
    { u"MAX", u"Boeing 737 MAX"_s },
};

/// The hours and minutes of a date-time text, as written there: "2025-03-01T08:30:00" gives
/// "08:30". Absent for a text without a "T", or without hours and minutes behind it.
std::optional<QString> formatTimeString(const QString &text)
{
    const auto parts = QStringView(text).split(u'T', Qt::SkipEmptyParts);
    const auto time = parts.value(1).split(u':', Qt::SkipEmptyParts);
    return time.size() < 2 ? std::nullopt : std::optional<QString>(time[0] % u':' % time[1]);
}

/// The aircraft's name for an equipment code; an unknown code is shown as it came.
QString aircraftName(const QString &equipmentCode)
{
    const QString code = equipmentCode.toUpper();
    for (const AircraftRule &rule : aircraftRules) {
        if (code.contains(rule.code))
            return rule.name;
    }
    return u"Vantora (%1)"_s.arg(equipmentCode);
}

QString flightNumber(const QJsonObject &firstSegment, qsizetype index)
{
    const QString airline =
        text(firstSegment, { "airlineCode"_L1, "operatingAirlineCode"_L1 }).value_or(u"VQ"_s);
    const QString number =
        firstSegment["flightNumber"_L1].toString(QString::number(1800 + 5 * index));
    return number.startsWith("VQ"_L1) ? number : airline + number;
}

QString durationText(qint64 milliseconds)
{
    const qint64 minutes = milliseconds / millisecondsPerMinute;
    return QString::number(minutes / 60) % u"h " % QString::number(minutes % 60) % u'm';
}

double priceOf(const QJsonObject &option)
{
    const double price = option["cheapestPriceAmount"_L1].toDouble();
    return price > 0 ? price : defaultPrice;
}

QString bookingLink(const QJsonObject &option)
{
    const QStringList links =
        JsonReading::texts(option, { "deeplinks"_L1 }).value_or(QStringList());
    return links.isEmpty() ? ServiceAddresses::webSite() : links.first();
}

FlightOption parseOption(const QJsonObject &option, qsizetype index, const QString &origin,
                         const QString &destination)
{
    const QJsonArray segments =
        objects(option, { "flightSegments"_L1, "flightSegmentList"_L1 }).value_or(QJsonArray());
    const QJsonObject first = segments.first().toObject();
    const QJsonObject last = segments.last().toObject();
    const qint64 journey = option["journeyDuration"_L1].toInteger(
        option["journeyDurationInMilis"_L1].toInteger(defaultJourneyMilliseconds));

    FlightOption flight;
    flight.flightNumber = flightNumber(first, index);
    flight.departureTime =
        formatTimeString(first["departureDateTime"_L1].toString()).value_or(u"08:30"_s);
    flight.arrivalTime =
        formatTimeString(last["arrivalDateTime"_L1].toString()).value_or(u"12:15"_s);
    flight.id = flight.flightNumber % u'-' % flight.departureTime % u'-' % QString::number(index);
    flight.origin = first["departureAirportCode"_L1].toString(origin);
    flight.destination = last["arrivalAirportCode"_L1].toString(destination);
    flight.duration = durationText(journey);
    flight.durationMinutes = journey / millisecondsPerMinute;
    flight.isDirect = segments.size() < 2;
    flight.stopsCount = std::max<qint64>(segments.size() - 1, 0);
    flight.aircraft =
        aircraftName(text(first, { "equipment"_L1, "equipmentCode"_L1 }).value_or(u"A321"_s));
    flight.seatAvailability = first["availableSeatCount"_L1].toInteger(defaultSeats);
    flight.price = priceOf(option);
    flight.currency = option["cheapestPriceCurrency"_L1].toString(u"TRY"_s);
    flight.cabinClass = option["cheapestBookingPriceType"_L1].toString(u"ECONOMY"_s);
    flight.bookingURL = bookingLink(option);
    return flight;
}

} // namespace

QCoro::Task<QList<FlightOption>> VTRMCPClient::searchFlights(QString from, QString to,
                                                             QString departureDate,
                                                             std::optional<QString> returnDate,
                                                             TripType tripType, int passengers)
{
    const bool isRoundTrip = tripType == TripType::roundTrip;
    const QJsonObject adults { { u"passengerType"_s, u"ADT"_s }, { u"quantity"_s, passengers } };
    // The server expects a "round" trip wherever there is a day of return, but the day itself for
    // a round trip alone.
    QJsonObject arguments { { u"from"_s, from.toUpper() },
                            { u"to"_s, to.toUpper() },
                            { u"departureDate"_s, departureDate },
                            { u"tripType"_s,
                              returnDate || isRoundTrip ? u"round"_s : u"one_way"_s },
                            { u"passengers"_s, QJsonArray { adults } } };
    if (returnDate && isRoundTrip)
        arguments.insert("returnDate"_L1, *returnDate);
    return ask<QList<FlightOption>>(u"search_flights"_s, arguments,
                                    [from, to](const QJsonObject &result) {
                                        return ToolResults::parseFlightOptions(result, from, to);
                                    });
}

QList<FlightOption> ToolResults::parseFlightOptions(const QJsonObject &result,
                                                    const QString &origin,
                                                    const QString &destination)
{
    const QJsonObject availability = result["availabilityData"_L1].toObject();
    const QJsonArray informations =
        objects(availability, { "originDestinationInformations"_L1 }).value_or(QJsonArray());
    const QJsonArray options =
        objects(informations.first().toObject(), { "originDestinationOptions"_L1 })
            .value_or(QJsonArray());
    const QString from = origin.toUpper();
    const QString to = destination.toUpper();
    QList<FlightOption> flights;
    flights.reserve(options.size());
    for (const QJsonValue option : options)
        flights.append(parseOption(option.toObject(), flights.size(), from, to));
    return flights;
}
