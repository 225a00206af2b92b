#include "Views/SearchChoices.h"

#include "Models/SearchOptions.h"

namespace {

template<typename Option, typename Label>
QStringList labels(Label label)
{
    QStringList texts;
    for (const Option option : SearchOptions::allCases<Option>())
        texts.append(label(option));
    return texts;
}

constexpr auto titleOf = [](auto option) { return SearchOptions::title(option); };

} // namespace

QStringList SearchChoices::tripTypes() const { return labels<TripType>(titleOf); }
QStringList SearchChoices::cabinClasses() const { return labels<CabinClass>(titleOf); }
QStringList SearchChoices::timeRanges() const { return labels<TimeRange>(titleOf); }

QStringList SearchChoices::sortOptions() const
{
    return labels<FlightSortOption>(
        [](FlightSortOption option) { return SearchOptions::rawValue(option); });
}
