#include "Services/PriceCalendarTool.h"

#include "Models/JsonReading.h"
#include "Services/ToolCall.h"

#include <functional>
#include <optional>

using namespace Qt::StringLiterals;
using namespace JsonReading;

namespace {

std::optional<BestPrice> parseBestPrice(const QJsonObject &result, const QString &calendarCurrency)
{
    auto best = object(result, u"bestPrice");
    if (!best)
        best = object(result, u"best_price");
    const auto date = best ? text(*best, u"date") : std::nullopt;
    if (!date)
        return std::nullopt;
    return BestPrice { .date = *date,
                       .amount = number(*best, u"amount").value_or(0),
                       .currency = text(*best, u"currency").value_or(calendarCurrency) };
}

std::optional<DailyPrice> parseDay(const QJsonObject &day, const QString &calendarCurrency)
{
    const auto date = text(day, u"date");
    if (!date)
        return std::nullopt;
    const double price = number(day, u"price").value_or(0);
    const bool isBest = boolean(day, u"is_best_price").value_or(false);
    return DailyPrice { .date = *date,
                        .amount = number(day, u"amount").value_or(price),
                        .currency = text(day, u"currency").value_or(calendarCurrency),
                        .isBestPrice = boolean(day, u"isBestPrice").value_or(isBest) };
}

} // namespace

namespace PriceCalendarTool {

QJsonObject arguments(const QString &origin, const QString &destination,
                      const QString &departureDate, TripType tripType, TimeRange timeRange,
                      CabinClass cabinClass)
{
    // The stay and the direction are the same for every trip: the calendar shows outbound fares.
    return { { u"originAirportCode"_s, origin.toUpper() },
             { u"destinationAirportCode"_s, destination.toUpper() },
             { u"departureDate"_s, departureDate },
             { u"tripType"_s, rawValue(tripType) },
             { u"timeRange"_s, rawValue(timeRange) },
             { u"cabinClass"_s, rawValue(cabinClass) },
             { u"isReturnFlight"_s, false },
             { u"stayDuration"_s, 14 } };
}

PriceCalendar parsePriceCalendar(const QJsonObject &result)
{
    PriceCalendar calendar;
    calendar.currency = text(result, u"currency").value_or(calendar.currency);
    calendar.bestPrice = parseBestPrice(result, calendar.currency);
    const auto days = objects(result, u"prices").value_or(QList<QJsonObject>());
    for (const QJsonObject &day : days) {
        if (const auto price = parseDay(day, calendar.currency))
            calendar.prices.append(*price);
    }
    return calendar;
}

} // namespace PriceCalendarTool

QCoro::Task<PriceCalendar> VTRMCPClient::fetchPriceCalendar(QString origin, QString destination,
                                                            QString departureDate,
                                                            TripType tripType, TimeRange timeRange,
                                                            CabinClass cabinClass)
{
    const QString tool = u"find_flight_price_calendar"_s;
    const QJsonObject arguments = PriceCalendarTool::arguments(origin, destination, departureDate,
                                                               tripType, timeRange, cabinClass);
    const std::function<PriceCalendar(const QJsonObject &)> reader =
        &PriceCalendarTool::parsePriceCalendar;
    co_return co_await callTool<PriceCalendar>(tool, arguments, reader);
}
