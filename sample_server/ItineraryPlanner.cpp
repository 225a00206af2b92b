#include "sample_server/ItineraryPlanner.h"

#include "sample_server/StableRandom.h"

#include <QSet>

#include <algorithm>
#include <array>
#include <tuple>

namespace Sample {

namespace {

constexpr int mostOneStopsBesideDirect = 4;
constexpr int mostOneStopsWithoutDirect = 9;
constexpr int mostTwoStops = 2;
constexpr int shortestConnectionSeconds = 55 * 60;
constexpr int longestConnectionSeconds = 10 * 60 * 60;

auto byDeparture(const Itinerary &itinerary)
{
    return std::tuple(itinerary.segments.first().departure, itinerary.seconds(),
                      itinerary.segments.first().number, itinerary.segments.last().number);
}

auto byDuration(const Itinerary &itinerary)
{
    return std::tuple(itinerary.seconds(), byDeparture(itinerary));
}

/// Keeps the shortest journeys. Of those that end with the same flight the shortest is enough.
void keepShortest(QList<Itinerary> &itineraries, int count)
{
    std::ranges::sort(itineraries, {}, &byDuration);
    QList<Itinerary> kept;
    for (const Itinerary &itinerary : std::as_const(itineraries)) {
        const ScheduledFlight &last = itinerary.segments.last();
        const bool known = std::ranges::any_of(kept, [&last](const Itinerary &other) {
            return other.segments.last().number == last.number
                && other.segments.last().departure == last.departure;
        });
        if (!known && kept.size() < count)
            kept.append(itinerary);
    }
    itineraries = kept;
}

} // namespace

ItineraryPlanner::ItineraryPlanner(const AirportSite &origin, const AirportSite &destination,
                                   QDate today)
    : m_origin(origin)
    , m_destination(destination)
    , m_today(today)
{
    if (m_network.isServed(origin, destination))
        m_paths.append(Path { &origin, &destination });
    for (const AirportSite *via : m_network.transferAirports()) {
        if (!m_network.isConnected(origin, *via))
            continue;
        addPath({ &origin, via, &destination });
        for (const AirportSite *second : m_network.transferAirports()) {
            if (m_network.isConnected(*via, *second))
                addPath({ &origin, via, second, &destination });
        }
    }
}

/// A journey touches a hub, sees no city twice and makes no absurd detour: a short one only where
/// the airline flies no other way. The other transfer airports only complete journeys from, to or
/// over a hub.
void ItineraryPlanner::addPath(const Path &path)
{
    QSet<QString> cities;
    bool seesHub = false;
    double lengthKm = 0;
    for (int i = 0; i < path.size(); ++i) {
        cities.insert(path.at(i)->city);
        seesHub = seesHub || path.at(i)->hub;
        lengthKm += i > 0 ? distanceKm(*path.at(i - 1), *path.at(i)) : 0;
    }
    const bool endsAtHub = m_origin.hub || m_destination.hub;
    const bool oneStop = path.size() == 3;
    const double directKm = distanceKm(m_origin, m_destination);
    const double shortestKm = !oneStop ? 2000 : endsAtHub ? 700 : 0;
    const double detourKm = endsAtHub || !oneStop ? 0.4 * directKm + 350 : 2 * directKm + 3000;
    if (seesHub && cities.size() == path.size() && directKm >= shortestKm
        && lengthKm <= directKm + detourKm
        && m_network.isConnected(*path.at(path.size() - 2), m_destination))
        m_paths.append(path);
}

const QList<ScheduledFlight> &ItineraryPlanner::flights(const AirportSite &from,
                                                        const AirportSite &to, QDate date)
{
    const auto [known, isNew] = m_flights.try_emplace({ from.code, to.code, date });
    if (isNew)
        known->second = m_network.flights(from, to, date);
    return known->second;
}

const ScheduledFlight *ItineraryPlanner::connectingFlight(const ScheduledFlight &arriving,
                                                          const AirportSite &to)
{
    const QDate arrivalDate = arriving.arrival.date();
    for (const QDate &date : { arrivalDate, arrivalDate.addDays(1) }) {
        for (const ScheduledFlight &next : flights(*arriving.destination, to, date)) {
            const qint64 wait = arriving.arrival.secsTo(next.departure);
            if (wait >= shortestConnectionSeconds && wait <= longestConnectionSeconds)
                return &next;
        }
    }
    return nullptr;
}

QList<Itinerary> ItineraryPlanner::itinerariesAlong(const Path &path, QDate date)
{
    QList<Itinerary> found;
    for (const ScheduledFlight &first : flights(*path.at(0), *path.at(1), date)) {
        Itinerary itinerary { { first } };
        const ScheduledFlight *next = &first;
        for (int i = 2; next && i < path.size(); ++i) {
            next = connectingFlight(*next, *path.at(i));
            if (next)
                itinerary.segments.append(*next);
        }
        if (next)
            found.append(itinerary);
    }
    return found;
}

QList<Itinerary> ItineraryPlanner::itineraries(QDate date)
{
    if (date < m_today || date > m_today.addDays(daysOnSale))
        return {};

    std::array<QList<Itinerary>, 3> byStops;
    for (const Path &path : std::as_const(m_paths))
        byStops.at(size_t(path.size() - 2)) += itinerariesAlong(path, date);
    auto &[direct, oneStop, twoStops] = byStops;
    const bool sellsTwoStops = (direct.isEmpty() && oneStop.isEmpty())
        || StableRandom(u"two stops", m_origin.code, m_destination.code, date).oneIn(2);
    keepShortest(oneStop, direct.isEmpty() ? mostOneStopsWithoutDirect : mostOneStopsBesideDirect);
    keepShortest(twoStops, sellsTwoStops ? mostTwoStops : 0);

    QList<Itinerary> all = direct + oneStop + twoStops;
    std::ranges::sort(all, {}, &byDeparture);
    return all;
}

} // namespace Sample
