#include "inspect/StateWriter.h"

#include <QJsonArray>

#include <optional>

using namespace Qt::StringLiterals;

namespace {

template<typename T>
QJsonValue orNull(const std::optional<T> &value)
{
    return value ? QJsonValue(*value) : QJsonValue(QJsonValue::Null);
}

QJsonObject toJson(const Airport &airport) { return airport.toJson(); }

QJsonObject toJson(const DailyPrice &price)
{
    return { { u"date"_s, price.date },
             { u"amount"_s, price.amount },
             { u"currency"_s, orNull(price.currency) },
             { u"isBestPrice"_s, price.isBestPrice } };
}

QJsonValue toJson(const std::optional<BestPrice> &best)
{
    if (!best)
        return QJsonValue::Null;
    return QJsonObject { { u"date"_s, best->date },
                         { u"amount"_s, best->amount },
                         { u"currency"_s, orNull(best->currency) } };
}

QJsonObject toJson(const FlightOption &flight)
{
    return { { u"id"_s, flight.id },
             { u"flightNumber"_s, flight.flightNumber },
             { u"origin"_s, flight.origin },
             { u"destination"_s, flight.destination },
             { u"departureTime"_s, flight.departureTime },
             { u"arrivalTime"_s, flight.arrivalTime },
             { u"duration"_s, flight.duration },
             { u"durationMinutes"_s, flight.durationMinutes },
             { u"isDirect"_s, flight.isDirect },
             { u"stopsCount"_s, flight.stopsCount },
             { u"aircraft"_s, flight.aircraft },
             { u"seatAvailability"_s, orNull(flight.seatAvailability) },
             { u"price"_s, flight.price },
             { u"currency"_s, flight.currency },
             { u"cabinClass"_s, flight.cabinClass },
             { u"bookingURL"_s, orNull(flight.bookingURL) },
             { u"formattedPrice"_s, flight.formattedPrice() } };
}

template<typename Record>
QJsonArray toJsonArray(const QList<Record> &records)
{
    QJsonArray array;
    for (const Record &record : records)
        array.append(toJson(record));
    return array;
}

} // namespace

QJsonObject stateOf(const FlightSearchViewModel &viewModel)
{
    using SearchOptions::rawValue;
    return { { u"originCode"_s, viewModel.originCode() },
             { u"destinationCode"_s, viewModel.destinationCode() },
             { u"tripType"_s, rawValue(viewModel.tripType()) },
             { u"departureDate"_s, viewModel.departureDate().toString(Qt::ISODate) },
             { u"returnDate"_s, viewModel.returnDate().toString(Qt::ISODate) },
             { u"cabinClass"_s, rawValue(viewModel.cabinClass()) },
             { u"timeRange"_s, rawValue(viewModel.timeRange()) },
             { u"passengers"_s, viewModel.passengers() },
             { u"calendarPrices"_s, toJsonArray(viewModel.calendarPrices()) },
             { u"bestPrice"_s, toJson(viewModel.bestPrice()) },
             { u"selectedDate"_s, viewModel.selectedDate() },
             { u"currency"_s, viewModel.currency() },
             { u"flights"_s, toJsonArray(viewModel.flights()) },
             { u"filteredFlights"_s, toJsonArray(viewModel.filteredFlights()) },
             { u"activeFilter"_s, rawValue(viewModel.activeFilter()) },
             { u"isLoading"_s, viewModel.isLoading() },
             { u"isSearchingFlightsOnly"_s, viewModel.isSearchingFlightsOnly() },
             { u"errorMessage"_s, orNull(viewModel.errorMessage()) },
             { u"hasSearched"_s, viewModel.hasSearched() },
             { u"originAirport"_s, toJson(viewModel.originAirport()) },
             { u"destinationAirport"_s, toJson(viewModel.destinationAirport()) } };
}
