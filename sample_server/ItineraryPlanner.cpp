#include "sample_server/ItineraryPlanner.h"

#include "sample_server/StableRandom.h"

#include <algorithm>
#include <memory>
#include <tuple>

namespace Sample {

namespace {

constexpr int mostOneStopsBesideDirect = 4;
constexpr int mostOneStopsWithoutDirect = 9;
constexpr int mostTwoStops = 2;
constexpr double shortestOneStopJourneyKm = 700; ///< where there is a hub at either end
constexpr double shortestTwoStopJourneyKm = 2000;

bool departsEarlier(const Itinerary &left, const Itinerary &right)
{
    const auto key = [](const Itinerary &itinerary) {
        return std::tuple(itinerary.segments.first().departureMinute, itinerary.durationMinutes(),
                          itinerary.segments.first().number, itinerary.segments.last().number);
    };
    return key(left) < key(right);
}

/// Keeps the shortest journeys. Of those that end with the same flight the shortest is enough.
void keepShortest(QList<Itinerary> &itineraries, int count)
{
    std::sort(itineraries.begin(), itineraries.end(),
              [](const Itinerary &left, const Itinerary &right) {
                  return left.durationMinutes() != right.durationMinutes()
                      ? left.durationMinutes() < right.durationMinutes()
                      : departsEarlier(left, right);
              });
    QList<Itinerary> kept;
    for (const Itinerary &itinerary : std::as_const(itineraries)) {
        const ScheduledFlight &last = itinerary.segments.last();
        const bool known = std::any_of(kept.cbegin(), kept.cend(), [&last](const Itinerary &other) {
            return other.segments.last().number == last.number
                && other.segments.last().departureMinute == last.departureMinute;
        });
        if (!known && kept.size() < count)
            kept.append(itinerary);
    }
    itineraries = kept;
}

double lengthKm(const QList<const AirportSite *> &path)
{
    double km = 0;
    for (int i = 1; i < path.size(); ++i)
        km += distanceKm(*path.at(i - 1), *path.at(i));
    return km;
}

} // namespace

ItineraryPlanner::ItineraryPlanner(const AirportSite &origin, const AirportSite &destination,
                                   QDate today)
    : m_origin(origin)
    , m_destination(destination)
    , m_today(today)
{
    findPaths();
}

void ItineraryPlanner::findPaths()
{
    if (m_network.isServed(m_origin, m_destination))
        m_paths.append(Path { &m_origin, &m_destination });
    for (const AirportSite *via : m_network.transferAirports()) {
        if (!m_network.isConnected(m_origin, *via))
            continue;
        const Path oneStop { &m_origin, via, &m_destination };
        if (m_network.isConnected(*via, m_destination) && isSensible(oneStop))
            m_paths.append(oneStop);
        for (const AirportSite *second : m_network.transferAirports()) {
            const Path twoStops { &m_origin, via, second, &m_destination };
            if (m_network.isConnected(*via, *second)
                && m_network.isConnected(*second, m_destination) && isSensible(twoStops))
                m_paths.append(twoStops);
        }
    }
}

/// A journey touches a hub, sees no city twice and makes no absurd detour. The other transfer
/// airports only complete journeys from, to or over a hub.
bool ItineraryPlanner::isSensible(const Path &path) const
{
    for (int i = 0; i < path.size(); ++i) {
        for (int j = i + 1; j < path.size(); ++j) {
            if (path.at(i)->city == path.at(j)->city)
                return false;
        }
    }
    if (std::none_of(path.cbegin(), path.cend(), [](const AirportSite *site) { return site->hub; }))
        return false;

    const double directKm = distanceKm(m_origin, m_destination);
    const bool endsAtHub = m_origin.hub || m_destination.hub;
    const bool oneStop = path.size() == 3;
    if (oneStop && endsAtHub && directKm < shortestOneStopJourneyKm)
        return false;
    if (!oneStop && directKm < shortestTwoStopJourneyKm)
        return false;
    if (endsAtHub)
        return lengthKm(path) <= (oneStop ? 1.4 : 1.25) * directKm + 350;
    return lengthKm(path) <= (oneStop ? 3 * directKm + 3000 : 1.8 * directKm + 500);
}

const QList<ScheduledFlight> &ItineraryPlanner::flights(const AirportSite &from,
                                                        const AirportSite &to, QDate date)
{
    auto &known = m_flights[{ { &from, &to }, date }];
    if (!known)
        known = std::make_shared<const QList<ScheduledFlight>>(m_network.flights(from, to, date));
    return *known;
}

const ScheduledFlight *ItineraryPlanner::connectingFlight(const ScheduledFlight &arriving,
                                                          const AirportSite &to)
{
    const QDate arrivalDate = arriving.arrival.date();
    for (const QDate &date : { arrivalDate, arrivalDate.addDays(1) }) {
        for (const ScheduledFlight &next : flights(*arriving.destination, to, date)) {
            const qint64 wait = next.departureMinute - arriving.arrivalMinute;
            if (wait >= shortestConnectionMinutes && wait <= longestConnectionMinutes)
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
        for (int i = 2; i < path.size(); ++i) {
            const ScheduledFlight *next = connectingFlight(itinerary.segments.last(), *path.at(i));
            if (!next)
                break;
            itinerary.segments.append(*next);
        }
        if (itinerary.segments.size() == path.size() - 1)
            found.append(itinerary);
    }
    return found;
}

QList<Itinerary> ItineraryPlanner::itineraries(QDate date)
{
    if (date < m_today || date > m_today.addDays(daysOnSale))
        return {};

    QList<Itinerary> direct;
    QList<Itinerary> oneStop;
    QList<Itinerary> twoStops;
    for (const Path &path : std::as_const(m_paths)) {
        if (path.size() == 2)
            direct += itinerariesAlong(path, date);
        else if (path.size() == 3)
            oneStop += itinerariesAlong(path, date);
        else
            twoStops += itinerariesAlong(path, date);
    }
    const bool sellsTwoStops = (direct.isEmpty() && oneStop.isEmpty())
        || stableRandom(u"two stops", m_origin.code, m_destination.code, date).oneIn(2);
    keepShortest(oneStop, direct.isEmpty() ? mostOneStopsWithoutDirect : mostOneStopsBesideDirect);
    keepShortest(twoStops, sellsTwoStops ? mostTwoStops : 0);

    QList<Itinerary> all = direct + oneStop + twoStops;
    std::sort(all.begin(), all.end(), departsEarlier);
    return all;
}

} // namespace Sample
