#pragma once

#include <QList>
#include <QString>
#include <QTimeZone>

/// Where the airports of the application's table lie, and how much they are asked for.
namespace Sample {

struct AirportSite
{
    QString code;
    QString city; ///< as in the airport table
    QString turkishCity; ///< as a Turkish text writes it
    QString country; ///< as in the airport table
    bool hub = false;
    bool domestic = false; ///< in Türkiye
    double latitude = 0; ///< degrees, north positive
    double longitude = 0; ///< degrees, east positive
    QTimeZone timeZone;
    QString region; ///< continent part of the time zone: "Europe", "Asia", …
    int demand = 1; ///< 1, a thin route, to 5, a trunk route
};

/// All airports in the order of the airport table; safe to read from any thread.
const QList<AirportSite> &airportSites();

/// Null for a code that is not in the table. Codes are upper case.
const AirportSite *airportSite(QStringView code);

/// Great-circle distance in kilometres.
double distanceKm(const AirportSite &from, const AirportSite &to);

} // namespace Sample
