#pragma once

#include "sample_server/FlightNetwork.h"

#include <map>
#include <tuple>

namespace Sample {

/// One way to travel on a day: one flight, or several with changes of aircraft.
struct Itinerary
{
    QList<ScheduledFlight> segments; ///< never empty, in order of travel

    const AirportSite &origin() const { return *segments.first().origin; }
    const AirportSite &destination() const { return *segments.last().destination; }
    QDate date() const { return segments.first().date(); }
    int stops() const { return int(segments.size()) - 1; }
    qint64 seconds() const { return segments.first().departure.secsTo(segments.last().arrival); }
};

/// Finds the itineraries between two airports. It remembers the flights of the days it has looked
/// at, so one planner serves all days of a calendar; it is used by one thread.
class ItineraryPlanner
{
public:
    /// Days further ahead than this are not on sale yet.
    static constexpr int daysOnSale = 355;

    ItineraryPlanner(const AirportSite &origin, const AirportSite &destination, QDate today);

    /// The itineraries that start on the local day `date`, in order of departure. None on past
    /// days, on days that are not on sale yet, and between airports that nothing sensible joins.
    QList<Itinerary> itineraries(QDate date);

private:
    using Path = QList<const AirportSite *>; ///< all airports, ends included

    void addPath(const Path &path);
    const QList<ScheduledFlight> &flights(const AirportSite &from, const AirportSite &to,
                                          QDate date);
    const ScheduledFlight *connectingFlight(const ScheduledFlight &arriving, const AirportSite &to);
    QList<Itinerary> itinerariesAlong(const Path &path, QDate date);

    const FlightNetwork &m_network = FlightNetwork::shared();
    const AirportSite &m_origin;
    const AirportSite &m_destination;
    QDate m_today;
    QList<Path> m_paths;
    std::map<std::tuple<QString, QString, QDate>, QList<ScheduledFlight>> m_flights;
};

} // namespace Sample
