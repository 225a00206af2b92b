#pragma once

#include <QList>
#include <QString>

/// The aircraft that the airline flies.
namespace Sample {

struct AircraftType
{
    QString code; ///< as timetables write it; two codes may mean one type
    QString name; ///< as a traveller reads it
    double shortestKm = 0; ///< sectors below this are flown by smaller types
    double longestKm = 0;
};

const QList<AircraftType> &fleet();

/// The type for a sector. `choice` is a stable random number that spreads the possible types over
/// the network; thin short sectors get the smallest jets.
const AircraftType &aircraftFor(double sectorKm, int demand, quint64 choice);

/// The longest sector that can be flown non-stop.
constexpr double longestSectorKm = 12500;

} // namespace Sample
