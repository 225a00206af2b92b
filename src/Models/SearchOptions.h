#pragma once

#include "Models/FlightOption.h"
#include "Models/JsonReading.h"

#include <QJsonValue>
#include <QObject>
#include <QString>
#include <QStringView>

#include <algorithm>
#include <array>
#include <optional>

/// The choices a traveller makes when searching. Each case has a text raw value, which is its
/// identity and, for all but FlightSortOption, what is sent to the server.
namespace SearchOptions {
Q_NAMESPACE

enum class TripType { oneWay, roundTrip };
Q_ENUM_NS(TripType)

enum class CabinClass { economy, business };
Q_ENUM_NS(CabinClass)

/// Width of the fare calendar.
enum class TimeRange { oneWeek, twoWeeks, threeWeeks, fourWeeks };
Q_ENUM_NS(TimeRange)

/// How the flight list is ordered, or (`directOnly`) reduced.
enum class FlightSortOption { cheapest, earliest, fastest, directOnly };
Q_ENUM_NS(FlightSortOption)

/// A case, what is sent for it, and what it is called.
template<typename Option>
struct Row
{
    Option option;
    QStringView rawValue;
    QStringView title;
};

template<>
struct Row<FlightSortOption>
{
    FlightSortOption option;
    QStringView rawValue;
    QStringView title;
    /// The flights that the option leaves, in its order.
    QList<FlightOption> (*arranged)(QList<FlightOption> flights);
};

/// Equal ones stay in their order.
template<auto member>
QList<FlightOption> sortedBy(QList<FlightOption> flights)
{
    std::ranges::stable_sort(flights, {}, member);
    return flights;
}

template<auto member>
QList<FlightOption> onlyThose(QList<FlightOption> flights)
{
    flights.removeIf([](const FlightOption &flight) { return !(flight.*member); });
    return flights;
}

/// Every case, in the order of declaration, in which pickers show them.
template<typename Option>
inline constexpr auto cases = nullptr;

template<>
inline constexpr auto cases<TripType> = std::to_array<Row<TripType>>({
    { TripType::oneWay, u"ONE_WAY", u"Tek Yön" },
    { TripType::roundTrip, u"ROUND_TRIP", u"Gidiş - Dönüş" },
});

template<>
inline constexpr auto cases<CabinClass> = std::to_array<Row<CabinClass>>({
    { CabinClass::economy, u"ECONOMY", u"Economy Class" },
    { CabinClass::business, u"BUSINESS", u"Business Class" },
});

template<>
inline constexpr auto cases<TimeRange> = std::to_array<Row<TimeRange>>({
    { TimeRange::oneWeek, u"1_WEEK", u"1 Haftalık Fiyatlar" },
    { TimeRange::twoWeeks, u"2_WEEKS", u"2 Haftalık Fiyatlar" },
    { TimeRange::threeWeeks, u"3_WEEKS", u"3 Haftalık Fiyatlar" },
    { TimeRange::fourWeeks, u"4_WEEKS", u"1 Aylık (En Geniş)" },
});

template<>
inline constexpr auto cases<FlightSortOption> = std::to_array<Row<FlightSortOption>>({
    { FlightSortOption::cheapest, u"En Ucuz", u"En Ucuz", sortedBy<&FlightOption::price> },
    { FlightSortOption::earliest, u"En Erken", u"En Erken",
      sortedBy<&FlightOption::departureTime> },
    { FlightSortOption::fastest, u"En Hızlı", u"En Hızlı",
      sortedBy<&FlightOption::durationMinutes> },
    { FlightSortOption::directOnly, u"Direkt Uçuşlar", u"Direkt Uçuşlar",
      onlyThose<&FlightOption::isDirect> },
});

/// Whether a table has a row for every case up to `last`, in the order of the cases.
template<typename Option>
constexpr bool isWhole(Option last)
{
    size_t next = 0;
    for (const Row<Option> &row : cases<Option>) {
        if (static_cast<size_t>(row.option) != next++)
            return false;
    }
    return next == static_cast<size_t>(last) + 1;
}

static_assert(isWhole(TripType::roundTrip));
static_assert(isWhole(CabinClass::business));
static_assert(isWhole(TimeRange::fourWeeks));
static_assert(isWhole(FlightSortOption::directOnly));

template<typename Option>
constexpr Row<Option> row(Option option)
{
    return cases<Option>.at(static_cast<size_t>(option));
}

template<typename Option>
QString rawValue(Option option)
{
    return row(option).rawValue.toString();
}

/// The case with exactly this raw value, letter case and blanks included; absent for any other
/// text.
template<typename Option>
std::optional<Option> fromRawValue(QStringView rawValue)
{
    for (const Row<Option> &row : cases<Option>) {
        if (rawValue == row.rawValue)
            return row.option;
    }
    return std::nullopt;
}

/// The raw value as a JSON string.
template<typename Option>
QJsonValue toJson(Option option)
{
    return rawValue(option);
}

/// Throws DecodingError for anything but a JSON string that is one of the raw values.
template<typename Option>
Option fromJson(const QJsonValue &json)
{
    // What is no string has an empty text, which is no raw value.
    const std::optional<Option> option = fromRawValue<Option>(json.toString());
    if (!option)
        throw DecodingError("No such option");
    return *option;
}

} // namespace SearchOptions

using SearchOptions::CabinClass;
using SearchOptions::FlightSortOption;
using SearchOptions::TimeRange;
using SearchOptions::TripType;
