#include "sample_server/FareModel.h"
#include "sample_server/StableRandom.h"
#include "sample_server/Tool.h"

namespace Sample {

using namespace Qt::StringLiterals;

namespace {

QString localTime(const QDateTime &moment) { return moment.toString(u"yyyy-MM-ddTHH:mm:ss"); }

int seatsLeft(const ScheduledFlight &flight)
{
    return StableRandom(u"seats", flight.number, flight.date()).below(10);
}

QJsonObject segmentObject(const ScheduledFlight &flight)
{
    return { { u"airlineCode"_s, u"VQ"_s },
             { u"flightNumber"_s, flight.flightNumber() },
             { u"departureDateTime"_s, localTime(flight.departure) },
             { u"arrivalDateTime"_s, localTime(flight.arrival) },
             { u"departureAirportCode"_s, flight.origin->code },
             { u"arrivalAirportCode"_s, flight.destination->code },
             { u"equipment"_s, QString(flight.aircraft->code) },
             { u"availableSeatCount"_s, seatsLeft(flight) } };
}

QString bookingLink(const Itinerary &itinerary, int passengers, const QString &webSite)
{
    QStringList numbers;
    for (const ScheduledFlight &segment : itinerary.segments)
        numbers.append(segment.flightNumber());
    return u"%1/booking?from=%2&to=%3&date=%4&flights=%5&adults=%6"_s
        .arg(webSite, itinerary.origin().code, itinerary.destination().code,
             itinerary.date().toString(Qt::ISODate), numbers.join(u'-'))
        .arg(passengers);
}

QJsonObject optionObject(const Itinerary &itinerary, int passengers, const ToolContext &context)
{
    QJsonArray segments;
    for (const ScheduledFlight &segment : itinerary.segments)
        segments.append(segmentObject(segment));
    return {
        { u"flightSegments"_s, segments },
        { u"journeyDuration"_s, itinerary.seconds() * 1000 },
        { u"cheapestPriceAmount"_s, fare(itinerary, Cabin::Economy, context.today()) * passengers },
        { u"cheapestPriceCurrency"_s, u"TRY"_s },
        { u"cheapestBookingPriceType"_s, u"ECONOMY"_s },
        { u"deeplinks"_s, QJsonArray { bookingLink(itinerary, passengers, context.webSite) } }
    };
}

QJsonObject informationObject(const AirportSite &origin, const AirportSite &destination, QDate date,
                              int passengers, const ToolContext &context)
{
    QJsonArray options;
    ItineraryPlanner planner(origin, destination, context.today());
    for (const Itinerary &itinerary : planner.itineraries(date))
        options.append(optionObject(itinerary, passengers, context));
    return { { u"originAirportCode"_s, origin.code },
             { u"destinationAirportCode"_s, destination.code },
             { u"departureDate"_s, date.toString(Qt::ISODate) },
             { u"originDestinationOptions"_s, options } };
}

} // namespace

QJsonObject searchFlights(const QJsonObject &arguments, const ToolContext &context)
{
    const AirportSite &origin = airportArgument(arguments, "from"_L1);
    const AirportSite &destination = airportArgument(arguments, "to"_L1);
    requireDifferent(origin, destination);
    const QDate departure = dateArgument(arguments, "departureDate"_L1);
    const QDate wayBack = dateArgument(arguments, "returnDate"_L1);
    if (wayBack.isValid() && wayBack < departure)
        throw RpcError { u"Dönüş günü (%1) gidiş gününden (%2) önce olamaz."_s.arg(
            turkishDate(wayBack), turkishDate(departure)) };
    const int passengers =
        arguments.value("passengers"_L1).toArray().first()["quantity"_L1].toInt();

    QJsonArray informations { informationObject(origin, destination, departure, passengers,
                                                context) };
    if (wayBack.isValid() && arguments.value("tripType"_L1).toString() == "round"_L1)
        informations.append(informationObject(destination, origin, wayBack, passengers, context));
    return { { u"availabilityData"_s,
               QJsonObject { { u"originDestinationInformations"_s, informations } } } };
}

} // namespace Sample
