#include "sample_server/FareModel.h"
#include "sample_server/ItineraryPlanner.h"
#include "sample_server/Tool.h"
#include "sample_server/ToolArguments.h"

#include <QJsonArray>

#include <algorithm>

namespace Sample {

using namespace Qt::StringLiterals;

namespace {

struct DayFare
{
    QDate date;
    double amount = 0;
};

int windowDays(const QString &timeRange)
{
    return timeRange.left(1).toInt() * 7; // "1_WEEK", "2_WEEKS", …
}

/// The window lies around the departure day, as far as all its days are on sale.
QDate firstDay(QDate departure, int days, QDate today)
{
    const QDate last = today.addDays(ItineraryPlanner::daysOnSale);
    return std::clamp(departure.addDays(-(days / 2)), today, last.addDays(1 - days));
}

QList<DayFare> dayFares(ItineraryPlanner &planner, QDate first, int days, Cabin cabin, QDate today)
{
    QList<DayFare> fares;
    for (QDate date = first; date < first.addDays(days); date = date.addDays(1)) {
        const QList<Itinerary> itineraries = planner.itineraries(date);
        if (const Itinerary *best = cheapest(itineraries, today))
            fares.append({ date, fare(*best, cabin, today) });
    }
    return fares;
}

} // namespace

QJsonObject findPriceCalendar(const QJsonObject &arguments, const ToolContext &context)
{
    const AirportSite &origin = airportArgument(arguments, "originAirportCode"_L1);
    const AirportSite &destination = airportArgument(arguments, "destinationAirportCode"_L1);
    requireDifferent(origin, destination);
    const QDate departure = dateArgument(arguments, "departureDate"_L1);
    const int days = windowDays(arguments.value("timeRange"_L1).toString());
    const bool business = arguments.value("cabinClass"_L1).toString() == "BUSINESS"_L1;

    // "isReturnFlight" asks for the way back, flown after the stay.
    const bool wayBack = arguments.value("isReturnFlight"_L1).toBool();
    const QDate centre =
        wayBack ? departure.addDays(arguments.value("stayDuration"_L1).toInt()) : departure;
    ItineraryPlanner planner(wayBack ? destination : origin, wayBack ? origin : destination,
                             context.today());
    const QList<DayFare> fares =
        dayFares(planner, firstDay(centre, days, context.today()), days,
                 business ? Cabin::Business : Cabin::Economy, context.today());
    const auto best = std::min_element(
        fares.cbegin(), fares.cend(),
        [](const DayFare &left, const DayFare &right) { return left.amount < right.amount; });

    QJsonArray prices;
    for (auto day = fares.cbegin(); day != fares.cend(); ++day) {
        prices.append(QJsonObject { { u"date"_s, day->date.toString(Qt::ISODate) },
                                    { u"amount"_s, day->amount },
                                    { u"currency"_s, u"TRY"_s },
                                    { u"isBestPrice"_s, day == best } });
    }
    QJsonObject calendar { { u"origin"_s, origin.code },
                           { u"destination"_s, destination.code },
                           { u"currency"_s, u"TRY"_s },
                           { u"prices"_s, prices } };
    if (best != fares.cend()) {
        calendar.insert(u"bestPrice"_s,
                        QJsonObject { { u"date"_s, best->date.toString(Qt::ISODate) },
                                      { u"amount"_s, best->amount },
                                      { u"currency"_s, u"TRY"_s } });
    }
    return calendar;
}

} // namespace Sample
