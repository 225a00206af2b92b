#pragma once

#include "Models/FlightOption.h"
#include "Models/SearchOptions.h"
#include "Services/ToolCall.h"

/// The tool "search_flights".
namespace FlightSearchTool {

/// A call with a return date is a "round" trip whatever `tripType` says, but the date itself is
/// sent for a round trip alone; the server expects it so.
ToolCall<QList<FlightOption>> call(const QString &from, const QString &to,
                                   const QString &departureDate,
                                   const std::optional<QString> &returnDate, TripType tripType,
                                   int passengers);

/// One flight for each offered itinerary. Every member that is missing or mistyped gets a fixed
/// default, so that a reply of any shape yields displayable cards; a reply without itineraries
/// yields none. `origin` and `destination` are the codes that were searched for.
QList<FlightOption> parseFlightOptions(const JsonObject &result, const QString &origin,
                                       const QString &destination);

} // namespace FlightSearchTool
