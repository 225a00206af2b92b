#pragma once

#include "Models/Airport.h"

#include <QList>

/// The fixed table of the airports that the application offers. Nothing is loaded: the table is
/// built once, on first use, and is safe to read from any thread.
namespace AirportDatabase {

/// The airports in their fixed order, which is the order of every list made from them.
const QList<Airport> &allAirports();

/// The airports whose code, city, country or name contains `query`, in table order, without regard
/// to letter case or to blanks around the query. A blank query returns the whole table. Diacritics
/// are not folded: "türk" finds the Turkish airports, "turk" does not.
QList<Airport> search(const QString &query);

/// The airport with this code, in any letter case. An unknown code gives a placeholder named after
/// itself, with an empty country; it is not added to the table.
Airport airport(const QString &code);

} // namespace AirportDatabase
