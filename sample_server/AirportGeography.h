#pragma once

#include "Models/Airport.h"

#include <QList>
#include <QTimeZone>

/// Where the airports lie, and how much they are asked for: data/airports.csv, with a row for each
/// of the application's table.
namespace Sample {

struct AirportSite : Airport
{
    double latitude = 0; ///< degrees, north positive
    double longitude = 0; ///< degrees, east positive
    QTimeZone timeZone;
    int demand = 1; ///< 1, a thin route, to 5, a trunk route
    QString turkishCity; ///< as a Turkish text writes it

    bool isDomestic() const; ///< in Türkiye
};

/// In the order of the file; safe to read from any thread.
const QList<AirportSite> &airportSites();

/// Null for an unknown code. Codes are upper case.
const AirportSite *airportSite(const QString &code);

/// Great-circle distance in kilometres.
double distanceKm(const AirportSite &from, const AirportSite &to);

} // namespace Sample
