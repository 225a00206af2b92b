#include "sample_server/FareModel.h"

#include "sample_server/StableRandom.h"

#include <algorithm>
#include <cmath>

namespace Sample {

namespace {

double distanceFare(const Itinerary &itinerary)
{
    double km = distanceKm(itinerary.origin(), itinerary.destination());
    if (itinerary.origin().isDomestic() && itinerary.destination().isDomestic())
        return 1400 + 0.6 * km;
    // Where every journey leads over a hub, part of the detour is paid for.
    if (!itinerary.origin().hub && !itinerary.destination().hub) {
        km *= 0.6;
        for (const ScheduledFlight &segment : itinerary.segments)
            km += 0.4 * distanceKm(*segment.origin, *segment.destination);
    }
    return 1600 + 1.65 * std::min(km, 3000.0) + 3.4 * std::clamp(km - 3000, 0.0, 6000.0)
        + 2.0 * std::max(0.0, km - 9000);
}

double dayFactor(QDate date, QDate today)
{
    constexpr double weekdays[] { 1.0, 0.94, 0.94, 0.98, 1.08, 1.02, 1.09 };
    constexpr double months[] {
        0.97, 0.95, 1.02, 1.04, 1.0, 1.08, 1.14, 1.14, 1.04, 1.0, 0.95, 1.06
    };
    const double lateness = std::exp(-double(today.daysTo(date)) / 12);
    return weekdays[date.dayOfWeek() - 1] * months[date.month() - 1] * (0.95 + 0.39 * lateness);
}

/// Changing aircraft costs time and saves money, unless there is no other way.
double stopFactor(const Itinerary &itinerary)
{
    constexpr double besideDirect[] { 1.0, 0.91, 0.86 };
    constexpr double withoutDirect[] { 1.0, 1.0, 0.95 };
    const bool hasDirect =
        FlightNetwork::shared().isServed(itinerary.origin(), itinerary.destination());
    return (hasDirect ? besideDirect : withoutDirect)[itinerary.stops()];
}

double variation(const Itinerary &itinerary)
{
    StableRandom ofDay(u"fare of day", itinerary.origin().code, itinerary.destination().code,
                       itinerary.date());
    StableRandom ofFlight(u"fare of flight", itinerary.date());
    for (const ScheduledFlight &segment : itinerary.segments)
        ofFlight.mix(segment.number);
    return ofDay.between(0.97, 1.03) * ofFlight.between(0.96, 1.16);
}

double cabinFactor(const Itinerary &itinerary, Cabin cabin)
{
    const double km = distanceKm(itinerary.origin(), itinerary.destination());
    return cabin == Cabin::Economy ? 1 : km < 1500 ? 2.1 : km < 5000 ? 2.5 : 3.2;
}

} // namespace

double fare(const Itinerary &itinerary, Cabin cabin, QDate today)
{
    const double amount = distanceFare(itinerary) * dayFactor(itinerary.date(), today)
        * stopFactor(itinerary) * variation(itinerary) * cabinFactor(itinerary, cabin);
    return std::round(amount * 2) / 2;
}

} // namespace Sample
