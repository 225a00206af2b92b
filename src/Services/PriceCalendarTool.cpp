#include "Services/PriceCalendarTool.h"

using namespace Qt::StringLiterals;

namespace {

std::optional<BestPrice> parseBestPrice(const JsonObject &result, const QString &calendarCurrency)
{
    const auto best = result.object("bestPrice", "best_price");
    const auto date = best ? best->text("date") : std::nullopt;
    if (!date)
        return std::nullopt;
    return BestPrice { .date = *date,
                       .amount = best->number("amount").value_or(0),
                       .currency = best->text("currency").value_or(calendarCurrency) };
}

std::optional<DailyPrice> parseDay(const JsonObject &day, const QString &calendarCurrency)
{
    const auto date = day.text("date");
    if (!date)
        return std::nullopt;
    return DailyPrice { .date = *date,
                        .amount = day.number("amount", "price").value_or(0),
                        .currency = day.text("currency").value_or(calendarCurrency),
                        .isBestPrice =
                            day.boolean("isBestPrice", "is_best_price").value_or(false) };
}

} // namespace

namespace PriceCalendarTool {

ToolCall<PriceCalendar> call(const QString &origin, const QString &destination,
                             const QString &departureDate, TripType tripType, TimeRange timeRange,
                             CabinClass cabinClass)
{
    // The stay and the direction are the same for every trip: the calendar shows outbound fares.
    return { u"find_flight_price_calendar"_s,
             { { u"originAirportCode"_s, origin.toUpper() },
               { u"destinationAirportCode"_s, destination.toUpper() },
               { u"departureDate"_s, departureDate },
               { u"tripType"_s, rawValue(tripType) },
               { u"timeRange"_s, rawValue(timeRange) },
               { u"cabinClass"_s, rawValue(cabinClass) },
               { u"isReturnFlight"_s, false },
               { u"stayDuration"_s, 14 } },
             parsePriceCalendar };
}

PriceCalendar parsePriceCalendar(const JsonObject &result)
{
    PriceCalendar calendar;
    calendar.currency = result.text("currency").value_or(calendar.currency);
    calendar.bestPrice = parseBestPrice(result, calendar.currency);
    const auto days = result.objects("prices").value_or(QList<JsonObject>());
    for (const JsonObject &day : days) {
        if (const auto price = parseDay(day, calendar.currency))
            calendar.prices.append(*price);
    }
    return calendar;
}

} // namespace PriceCalendarTool
