#pragma once

#include "sample_server/FlightNetwork.h"

/// One way to travel on a day: one flight, or several with changes of aircraft.
namespace Sample {

struct Itinerary
{
    QList<ScheduledFlight> segments; ///< never empty, in order of travel

    const AirportSite &origin() const { return *segments.first().origin; }
    const AirportSite &destination() const { return *segments.last().destination; }
    QDate date() const { return segments.first().date(); }
    int stops() const { return int(segments.size()) - 1; }
    int durationMinutes() const
    {
        return int(segments.last().arrivalMinute - segments.first().departureMinute);
    }
};

} // namespace Sample
