#pragma once

#include "sample_server/Itinerary.h"

#include <memory>

namespace Sample {

/// Finds the itineraries between two airports. It remembers the flights of the days it has looked
/// at, so one planner serves all days of a calendar; it is used by one thread.
class ItineraryPlanner
{
public:
    /// Days further ahead than this are not on sale yet.
    static constexpr int daysOnSale = 355;
    static constexpr int shortestConnectionMinutes = 55;
    static constexpr int longestConnectionMinutes = 10 * 60;

    ItineraryPlanner(const AirportSite &origin, const AirportSite &destination, QDate today);

    /// The itineraries that start on the local day `date`, in order of departure. None on past
    /// days, on days that are not on sale yet, and between airports that nothing sensible joins.
    QList<Itinerary> itineraries(QDate date);

private:
    using Path = QList<const AirportSite *>; ///< all airports, ends included

    void findPaths();
    bool isSensible(const Path &path) const;
    const QList<ScheduledFlight> &flights(const AirportSite &from, const AirportSite &to,
                                          QDate date);
    const ScheduledFlight *connectingFlight(const ScheduledFlight &arriving, const AirportSite &to);
    QList<Itinerary> itinerariesAlong(const Path &path, QDate date);

    const FlightNetwork &m_network = FlightNetwork::shared();
    const AirportSite &m_origin;
    const AirportSite &m_destination;
    QDate m_today;
    QList<Path> m_paths;
    QHash<QPair<QPair<const AirportSite *, const AirportSite *>, QDate>,
          std::shared_ptr<const QList<ScheduledFlight>>>
        m_flights;
};

} // namespace Sample
