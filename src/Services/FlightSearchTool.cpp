#include "Services/FlightSearchTool.h"

#include "Models/JsonObject.h"
#include "Services/ServiceAddresses.h"
#include "Services/TimeText.h"
#include "Services/ToolCall.h"

#include <QJsonArray>
#include <QStringBuilder>

#include <algorithm>
#include <functional>
#include <optional>

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

template<typename T>
std::optional<T> either(std::optional<T> first, std::optional<T> second)
{
    return first ? std::move(first) : std::move(second);
}

QString flightNumber(const JsonObject &firstSegment, qsizetype index)
{
    const QString airline =
        either(firstSegment.text("airlineCode"), firstSegment.text("operatingAirlineCode"))
            .value_or(u"VQ"_s);
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
        either(option.objects("flightSegments"), option.objects("flightSegmentList"))
            .value_or(QList<JsonObject>());
    const JsonObject first = segments.isEmpty() ? JsonObject() : segments.first();
    const JsonObject last = segments.isEmpty() ? JsonObject() : segments.last();
    const qint64 journey =
        either(option.integer("journeyDuration"), option.integer("journeyDurationInMilis"))
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
    flight.aircraft = FlightSearchTool::aircraftName(
        either(first.text("equipment"), first.text("equipmentCode")).value_or(u"A321"_s));
    flight.seatAvailability = first.integer("availableSeatCount").value_or(defaultSeats);
    flight.price = priceOf(option);
    flight.currency = option.text("cheapestPriceCurrency").value_or(u"TRY"_s);
    flight.cabinClass = option.text("cheapestBookingPriceType").value_or(u"ECONOMY"_s);
    flight.bookingURL = bookingLink(option);
    return flight;
}

} // namespace

namespace FlightSearchTool {

QJsonObject arguments(const QString &from, const QString &to, const QString &departureDate,
                      const std::optional<QString> &returnDate, TripType tripType, int passengers)
{
    const bool isRoundTrip = tripType == TripType::roundTrip;
    const QJsonObject adults { { u"passengerType"_s, u"ADT"_s }, { u"quantity"_s, passengers } };
    QJsonArray passengerList;
    passengerList.append(adults);
    QJsonObject arguments { { u"from"_s, from.toUpper() },
                            { u"to"_s, to.toUpper() },
                            { u"departureDate"_s, departureDate },
                            { u"tripType"_s,
                              returnDate || isRoundTrip ? u"round"_s : u"one_way"_s },
                            { u"passengers"_s, passengerList } };
    if (returnDate && isRoundTrip)
        arguments.insert("returnDate"_L1, *returnDate);
    return arguments;
}

QList<FlightOption> parseFlightOptions(const JsonObject &result, const QString &origin,
                                       const QString &destination)
{
    const JsonObject availability = result.object("availabilityData").value_or(JsonObject());
    const auto informations =
        availability.objects("originDestinationInformations").value_or(QList<JsonObject>());
    if (informations.isEmpty())
        return {};
    const auto options =
        informations.first().objects("originDestinationOptions").value_or(QList<JsonObject>());
    const QString from = origin.toUpper();
    const QString to = destination.toUpper();
    QList<FlightOption> flights;
    flights.reserve(options.size());
    for (qsizetype index = 0; index < options.size(); ++index)
        flights.append(parseOption(options.at(index), index, from, to));
    return flights;
}

QString aircraftName(const QString &equipmentCode)
{
    const QString code = equipmentCode.toUpper();
    for (const AircraftRule &rule : aircraftRules) {
        if (code.contains(rule.code))
            return rule.name;
    }
    return u"Vantora (%1)"_s.arg(equipmentCode);
}

} // namespace FlightSearchTool

QCoro::Task<QList<FlightOption>> VTRMCPClient::searchFlights(QString from, QString to,
                                                             QString departureDate,
                                                             std::optional<QString> returnDate,
                                                             TripType tripType, int passengers)
{
    const QString tool = u"search_flights"_s;
    const QJsonObject arguments =
        FlightSearchTool::arguments(from, to, departureDate, returnDate, tripType, passengers);
    const std::function<QList<FlightOption>(const JsonObject &)> reader =
        [from, to](const JsonObject &result) {
            return FlightSearchTool::parseFlightOptions(result, from, to);
        };
    co_return co_await callTool<QList<FlightOption>>(tool, arguments, reader);
}
