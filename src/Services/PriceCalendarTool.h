#pragma once

#include "Models/PriceCalendar.h"
#include "Models/SearchOptions.h"
#include "Services/ToolCall.h"

/// The tool "find_flight_price_calendar".
namespace PriceCalendarTool {

ToolCall<PriceCalendar> call(const QString &origin, const QString &destination,
                             const QString &departureDate, TripType tripType, TimeRange timeRange,
                             CabinClass cabinClass);

/// Reads what it can: a day without a text "date" is left out, a fare that is missing is 0.
PriceCalendar parsePriceCalendar(const JsonObject &result);

} // namespace PriceCalendarTool
