#include "sample_server/FareModel.h"

#include "sample_server/StableRandom.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace Sample {

namespace {

double distanceFare(const Itinerary &itinerary)
{
    const double directKm = distanceKm(itinerary.origin(), itinerary.destination());
    if (itinerary.origin().domestic && itinerary.destination().domestic)
        return 1400 + 0.6 * directKm;
    // Where every journey leads over a hub, part of the detour is paid for.
    double km = directKm;
    if (!itinerary.origin().hub && !itinerary.destination().hub) {
        double flownKm = 0;
        for (const ScheduledFlight &segment : itinerary.segments)
            flownKm += distanceKm(*segment.origin, *segment.destination);
        km = 0.6 * directKm + 0.4 * flownKm;
    }
    const double shortKm = std::min(km, 3000.0);
    const double mediumKm = std::clamp(km - 3000, 0.0, 6000.0);
    const double longKm = std::max(0.0, km - 9000);
    return 1600 + 1.65 * shortKm + 3.4 * mediumKm + 2.0 * longKm;
}

double weekdayFactor(QDate date)
{
    constexpr std::array factors { 1.0, 0.94, 0.94, 0.98, 1.08, 1.02, 1.09 };
    return factors.at(size_t(date.dayOfWeek() - 1));
}

double seasonFactor(QDate date)
{
    const int day = date.month() * 100 + date.day();
    if (day >= 1220 || day <= 105)
        return 1.16;
    if (day >= 615 && day <= 910)
        return 1.14;
    if (day >= 325 && day <= 415)
        return 1.08;
    if (day <= 228 || (day >= 1101 && day <= 1130))
        return 0.95;
    return 1.0;
}

double advanceFactor(qint64 daysAhead)
{
    struct Step
    {
        qint64 daysAhead;
        double factor;
    };
    constexpr std::array steps { Step { 3, 1.34 },  Step { 7, 1.22 },  Step { 14, 1.12 },
                                 Step { 30, 1.03 }, Step { 60, 0.98 }, Step { 120, 0.94 } };
    for (const Step &step : steps) {
        if (daysAhead < step.daysAhead)
            return step.factor;
    }
    return 0.96;
}

/// Changing aircraft costs time and saves money, unless there is no other way.
double stopFactor(const Itinerary &itinerary)
{
    constexpr std::array besideDirect { 1.0, 0.91, 0.86 };
    constexpr std::array withoutDirect { 1.0, 1.0, 0.95 };
    const bool hasDirect =
        FlightNetwork::shared().isServed(itinerary.origin(), itinerary.destination());
    return (hasDirect ? besideDirect : withoutDirect).at(size_t(itinerary.stops()));
}

double variation(const Itinerary &itinerary)
{
    StableRandom ofDay = stableRandom(u"fare of day", itinerary.origin().code,
                                      itinerary.destination().code, itinerary.date());
    StableRandom ofFlight = stableRandom(u"fare of flight", itinerary.date());
    for (const ScheduledFlight &segment : itinerary.segments)
        ofFlight.mix(quint64(segment.number));
    return ofDay.between(0.97, 1.03) * ofFlight.between(0.96, 1.16);
}

double businessFactor(const Itinerary &itinerary)
{
    const double km = distanceKm(itinerary.origin(), itinerary.destination());
    return km < 1500 ? 2.1 : km < 5000 ? 2.5 : 3.2;
}

} // namespace

double fare(const Itinerary &itinerary, Cabin cabin, QDate today)
{
    const QDate date = itinerary.date();
    double amount = distanceFare(itinerary) * weekdayFactor(date) * seasonFactor(date)
        * advanceFactor(today.daysTo(date)) * stopFactor(itinerary) * variation(itinerary);
    if (cabin == Cabin::Business)
        amount *= businessFactor(itinerary);
    return std::round(amount * 2) / 2;
}

const Itinerary *cheapest(const QList<Itinerary> &itineraries, QDate today)
{
    const Itinerary *best = nullptr;
    double lowest = 0;
    for (const Itinerary &itinerary : itineraries) {
        const double amount = fare(itinerary, Cabin::Economy, today);
        if (!best || amount < lowest) {
            best = &itinerary;
            lowest = amount;
        }
    }
    return best;
}

} // namespace Sample
