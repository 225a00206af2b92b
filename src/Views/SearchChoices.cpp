#include "Views/SearchChoices.h"

#include "Models/AirportDatabase.h"
#include "Models/SearchOptions.h"

namespace {

template<typename Option>
QStringList titles()
{
    QStringList titles;
    for (const SearchOptions::Row<Option> &row : SearchOptions::cases<Option>)
        titles.append(row.title.toString());
    return titles;
}

} // namespace

QStringList SearchChoices::tripTypes() const { return titles<TripType>(); }
QStringList SearchChoices::cabinClasses() const { return titles<CabinClass>(); }
QStringList SearchChoices::timeRanges() const { return titles<TimeRange>(); }
QStringList SearchChoices::sortOptions() const { return titles<FlightSortOption>(); }

QStringList SearchChoices::airports(const QString &query) const
{
    QStringList codes;
    for (const Airport &airport : AirportDatabase::search(query))
        codes.append(airport.code);
    return codes;
}

Airport SearchChoices::airport(const QString &code) const { return AirportDatabase::airport(code); }
