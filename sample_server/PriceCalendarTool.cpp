#include "sample_server/FareModel.h"
#include "sample_server/Tool.h"

#include <algorithm>

namespace Sample {

using namespace Qt::StringLiterals;

namespace {

/// The window lies around the departure day, as far as all its days are on sale.
QDate firstDay(QDate departure, int days, QDate today)
{
    const QDate last = today.addDays(ItineraryPlanner::daysOnSale);
    return std::clamp(departure.addDays(-(days / 2)), today, last.addDays(1 - days));
}

/// A day and its lowest fare.
QJsonObject priceObject(QDate date, double amount)
{
    return { { u"date"_s, date.toString(Qt::ISODate) },
             { u"amount"_s, amount },
             { u"currency"_s, u"TRY"_s } };
}

} // namespace

QJsonObject findPriceCalendar(const QJsonObject &arguments, const ToolContext &context)
{
    const AirportSite &origin = airportArgument(arguments, "originAirportCode"_L1);
    const AirportSite &destination = airportArgument(arguments, "destinationAirportCode"_L1);
    requireDifferent(origin, destination);
    const QDate departure = dateArgument(arguments, "departureDate"_L1);
    const int days = 7 * arguments.value("timeRange"_L1).toString().left(1).toInt(); // "2_WEEKS"
    const Cabin cabin = arguments.value("cabinClass"_L1).toString() == "BUSINESS"_L1
        ? Cabin::Business
        : Cabin::Economy;
    // "isReturnFlight" asks for the way back, flown after the stay.
    const bool wayBack = arguments.value("isReturnFlight"_L1).toBool();
    const QDate centre =
        wayBack ? departure.addDays(arguments.value("stayDuration"_L1).toInt()) : departure;
    ItineraryPlanner planner(wayBack ? destination : origin, wayBack ? origin : destination,
                             context.today());

    QMap<QDate, double> lowest;
    const QDate first = firstDay(centre, days, context.today());
    for (QDate date = first; date < first.addDays(days); date = date.addDays(1)) {
        for (const Itinerary &itinerary : planner.itineraries(date)) {
            const double amount = fare(itinerary, cabin, context.today());
            lowest.insert(date, std::min(amount, lowest.value(date, amount)));
        }
    }
    const auto best = std::min_element(lowest.cbegin(), lowest.cend());
    QJsonArray prices;
    for (auto day = lowest.cbegin(); day != lowest.cend(); ++day) {
        QJsonObject price = priceObject(day.key(), *day);
        price.insert(u"isBestPrice"_s, day == best);
        prices.append(price);
    }
    QJsonObject calendar { { u"origin"_s, origin.code },
                           { u"destination"_s, destination.code },
                           { u"currency"_s, u"TRY"_s },
                           { u"prices"_s, prices } };
    if (best != lowest.cend())
        calendar.insert(u"bestPrice"_s, priceObject(best.key(), *best));
    return calendar;
}

} // namespace Sample
