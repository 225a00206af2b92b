#include "Models/JsonReading.h"
#include "Services/VTRMCPClient.h"

using namespace Qt::StringLiterals;

namespace {

std::optional<BestPrice> parseBestPrice(const QJsonObject &result, const QString &calendarCurrency)
{
    const QJsonObject best = result["bestPrice"_L1].toObject(result["best_price"_L1].toObject());
    const auto date = JsonReading::text(best, { "date"_L1 });
    if (!date)
        return std::nullopt;
    return BestPrice { .date = *date,
                       .amount = best["amount"_L1].toDouble(),
                       .currency = best["currency"_L1].toString(calendarCurrency) };
}

std::optional<DailyPrice> parseDay(const QJsonObject &day, const QString &calendarCurrency)
{
    const auto date = JsonReading::text(day, { "date"_L1 });
    if (!date)
        return std::nullopt;
    return DailyPrice { .date = *date,
                        .amount = day["amount"_L1].toDouble(day["price"_L1].toDouble()),
                        .currency = day["currency"_L1].toString(calendarCurrency),
                        .isBestPrice =
                            day["isBestPrice"_L1].toBool(day["is_best_price"_L1].toBool()) };
}

} // namespace

QCoro::Task<PriceCalendar> VTRMCPClient::fetchPriceCalendar(QString origin, QString destination,
                                                            QString departureDate,
                                                            TripType tripType, TimeRange timeRange,
                                                            CabinClass cabinClass)
{
    // The stay and the direction are the same for every trip: the calendar shows outbound fares.
    return ask<PriceCalendar>(u"find_flight_price_calendar"_s,
                              { { u"originAirportCode"_s, origin.toUpper() },
                                { u"destinationAirportCode"_s, destination.toUpper() },
                                { u"departureDate"_s, departureDate },
                                { u"tripType"_s, rawValue(tripType) },
                                { u"timeRange"_s, rawValue(timeRange) },
                                { u"cabinClass"_s, rawValue(cabinClass) },
                                { u"isReturnFlight"_s, false },
                                { u"stayDuration"_s, 14 } },
                              &ToolResults::parsePriceCalendar);
}

PriceCalendar ToolResults::parsePriceCalendar(const QJsonObject &result)
{
    PriceCalendar calendar;
    calendar.currency = result["currency"_L1].toString(calendar.currency);
    calendar.bestPrice = parseBestPrice(result, calendar.currency);
    for (const QJsonValue day :
         JsonReading::objects(result, { "prices"_L1 }).value_or(QJsonArray())) {
        if (const auto price = parseDay(day.toObject(), calendar.currency))
            calendar.prices.append(*price);
    }
    return calendar;
}
