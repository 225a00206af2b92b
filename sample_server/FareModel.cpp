#include "sample_server/FareModel.h"

#include "sample_server/StableRandom.h"

#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <utility>

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

/// The value of the last step that begins at or before `key`.
double step(int key, std::initializer_list<std::pair<int, double>> steps)
{
    double value = 1;
    for (const auto &[from, stepValue] : steps) {
        if (key >= from)
            value = stepValue;
    }
    return value;
}

double dayFactor(QDate date, QDate today)
{
    constexpr double weekdays[] { 1.0, 0.94, 0.94, 0.98, 1.08, 1.02, 1.09 };
    const double season = step(date.month() * 100 + date.day(),
                               { { 101, 1.16 },
                                 { 106, 0.95 },
                                 { 301, 1.0 },
                                 { 325, 1.08 },
                                 { 416, 1.0 },
                                 { 615, 1.14 },
                                 { 911, 1.0 },
                                 { 1101, 0.95 },
                                 { 1201, 1.0 },
                                 { 1220, 1.16 } });
    const double advance = step(int(today.daysTo(date)),
                                { { 0, 1.34 },
                                  { 3, 1.22 },
                                  { 7, 1.12 },
                                  { 14, 1.03 },
                                  { 30, 0.98 },
                                  { 60, 0.94 },
                                  { 120, 0.96 } });
    return weekdays[date.dayOfWeek() - 1] * season * advance;
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
