#include "Services/FlightSearchTool.h"

#include "Services/ServiceAddresses.h"

#include <QJsonArray>
#include <QStringBuilder>

#include <algorithm>

using namespace Qt::StringLiterals;

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
std::optional<QString> formatTimeString(const std::optional<QString> &value)
{
    const QString text = value.value_or(QString());
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

QString flightNumber(const JsonObject &firstSegment, qsizetype index)
{
    const QString airline =
        firstSegment.text("airlineCode", "operatingAirlineCode").value_or(u"VQ"_s);
    const QString number =
        firstSegment.text("flightNumber").value_or(QString::number(1800 + 5 * index));
    return number.startsWith("VQ"_L1) ? number : airline + number;
}

QString durationText(qint64 milliseconds)
{
    const qint64 minutes = milliseconds / millisecondsPerMinute;
    return QString::number(minutes / 60) % u"h " % QString::number(minutes % 60) % u'm';
}

double priceOf(const JsonObject &option)
{
    const double price = option.number("cheapestPriceAmount").value_or(0);
    return price > 0 ? price : defaultPrice;
}

QString bookingLink(const JsonObject &option)
{
    const QStringList links = option.texts("deeplinks").value_or(QStringList());
    return links.isEmpty() ? ServiceAddresses::webSite() : links.first();
}

FlightOption parseOption(const JsonObject &option, qsizetype index, const QString &origin,
                         const QString &destination)
{
    const auto segments =
        option.objects("flightSegments", "flightSegmentList").value_or(QList<JsonObject>());
    const JsonObject first = segments.value(0);
    const JsonObject last = segments.value(segments.size() - 1);
    const qint64 journey = option.integer("journeyDuration", "journeyDurationInMilis")
                               .value_or(defaultJourneyMilliseconds);

    FlightOption flight;
    flight.flightNumber = flightNumber(first, index);
    flight.departureTime = formatTimeString(first.text("departureDateTime")).value_or(u"08:30"_s);
    flight.arrivalTime = formatTimeString(last.text("arrivalDateTime")).value_or(u"12:15"_s);
    flight.id = flight.flightNumber % u'-' % flight.departureTime % u'-' % QString::number(index);
    flight.origin = first.text("departureAirportCode").value_or(origin);
    flight.destination = last.text("arrivalAirportCode").value_or(destination);
    flight.duration = durationText(journey);
    flight.durationMinutes = journey / millisecondsPerMinute;
    flight.isDirect = segments.size() < 2;
    flight.stopsCount = std::max<qint64>(segments.size() - 1, 0);
    flight.aircraft = aircraftName(first.text("equipment", "equipmentCode").value_or(u"A321"_s));
    flight.seatAvailability = first.integer("availableSeatCount").value_or(defaultSeats);
    flight.price = priceOf(option);
    flight.currency = option.text("cheapestPriceCurrency").value_or(u"TRY"_s);
    flight.cabinClass = option.text("cheapestBookingPriceType").value_or(u"ECONOMY"_s);
    flight.bookingURL = bookingLink(option);
    return flight;
}

} // namespace

namespace FlightSearchTool {

ToolCall<QList<FlightOption>> call(const QString &from, const QString &to,
                                   const QString &departureDate,
                                   const std::optional<QString> &returnDate, TripType tripType,
                                   int passengers)
{
    const bool isRoundTrip = tripType == TripType::roundTrip;
    const QJsonObject adults { { u"passengerType"_s, u"ADT"_s }, { u"quantity"_s, passengers } };
    QJsonObject arguments { { u"from"_s, from.toUpper() },
                            { u"to"_s, to.toUpper() },
                            { u"departureDate"_s, departureDate },
                            { u"tripType"_s,
                              returnDate || isRoundTrip ? u"round"_s : u"one_way"_s },
                            { u"passengers"_s, QJsonArray { adults } } };
    if (returnDate && isRoundTrip)
        arguments.insert("returnDate"_L1, *returnDate);
    return { u"search_flights"_s, arguments, [from, to](const JsonObject &result) {
                return parseFlightOptions(result, from, to);
            } };
}

QList<FlightOption> parseFlightOptions(const JsonObject &result, const QString &origin,
                                       const QString &destination)
{
    const JsonObject availability = result.object("availabilityData").value_or(JsonObject());
    const auto informations =
        availability.objects("originDestinationInformations").value_or(QList<JsonObject>());
    const auto options =
        informations.value(0).objects("originDestinationOptions").value_or(QList<JsonObject>());
    const QString from = origin.toUpper();
    const QString to = destination.toUpper();
    QList<FlightOption> flights;
    flights.reserve(options.size());
    for (qsizetype index = 0; index < options.size(); ++index)
        flights.append(parseOption(options.at(index), index, from, to));
    return flights;
}

} // namespace FlightSearchTool
