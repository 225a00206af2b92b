#include "inspect/StateWriter.h"

#include <QJsonArray>

using namespace Qt::StringLiterals;

namespace {

template<typename Record>
QJsonArray toJsonArray(const QList<Record> &records)
{
    QJsonArray array;
    for (const Record &record : records)
        array.append(propertiesOf(record));
    return array;
}

} // namespace

QJsonObject stateOf(const FlightSearchViewModel &viewModel)
{
    using SearchOptions::rawValue;
    const auto best = viewModel.bestPrice();
    const auto error = viewModel.errorMessage();
    return { { u"originCode"_s, viewModel.originCode() },
             { u"destinationCode"_s, viewModel.destinationCode() },
             { u"tripType"_s, rawValue(viewModel.tripType()) },
             { u"departureDate"_s, viewModel.departureDate().toString(Qt::ISODate) },
             { u"returnDate"_s, viewModel.returnDate().toString(Qt::ISODate) },
             { u"cabinClass"_s, rawValue(viewModel.cabinClass()) },
             { u"timeRange"_s, rawValue(viewModel.timeRange()) },
             { u"passengers"_s, viewModel.passengers() },
             { u"calendarPrices"_s, toJsonArray(viewModel.calendarPrices()) },
             { u"bestPrice"_s, best ? propertiesOf(*best) : QJsonValue() },
             { u"selectedDate"_s, viewModel.selectedDate() },
             { u"currency"_s, viewModel.currency() },
             { u"flights"_s, toJsonArray(viewModel.flights()) },
             { u"filteredFlights"_s, toJsonArray(viewModel.filteredFlights()) },
             { u"activeFilter"_s, rawValue(viewModel.activeFilter()) },
             { u"isLoading"_s, viewModel.isLoading() },
             { u"isSearchingFlightsOnly"_s, viewModel.isSearchingFlightsOnly() },
             { u"errorMessage"_s, error ? *error : QJsonValue() },
             { u"hasSearched"_s, viewModel.hasSearched() },
             { u"originAirport"_s, propertiesOf(viewModel.originAirport()) },
             { u"destinationAirport"_s, propertiesOf(viewModel.destinationAirport()) } };
}
