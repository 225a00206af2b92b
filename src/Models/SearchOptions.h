#pragma once

#include <QJsonValue>
#include <QList>
#include <QObject>
#include <QString>
#include <QStringView>

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

// In the order of the cases, in which pickers show them.
inline constexpr std::array tripTypes {
    Row<TripType> { TripType::oneWay, u"ONE_WAY", u"Tek Yön" },
    Row<TripType> { TripType::roundTrip, u"ROUND_TRIP", u"Gidiş - Dönüş" },
};

inline constexpr std::array cabinClasses {
    Row<CabinClass> { CabinClass::economy, u"ECONOMY", u"Economy Class" },
    Row<CabinClass> { CabinClass::business, u"BUSINESS", u"Business Class" },
};

inline constexpr std::array timeRanges {
    Row<TimeRange> { TimeRange::oneWeek, u"1_WEEK", u"1 Haftalık Fiyatlar" },
    Row<TimeRange> { TimeRange::twoWeeks, u"2_WEEKS", u"2 Haftalık Fiyatlar" },
    Row<TimeRange> { TimeRange::threeWeeks, u"3_WEEKS", u"3 Haftalık Fiyatlar" },
    Row<TimeRange> { TimeRange::fourWeeks, u"4_WEEKS", u"1 Aylık (En Geniş)" },
};

inline constexpr std::array sortOptions {
    Row<FlightSortOption> { FlightSortOption::cheapest, u"En Ucuz", u"En Ucuz" },
    Row<FlightSortOption> { FlightSortOption::earliest, u"En Erken", u"En Erken" },
    Row<FlightSortOption> { FlightSortOption::fastest, u"En Hızlı", u"En Hızlı" },
    Row<FlightSortOption> { FlightSortOption::directOnly, u"Direkt Uçuşlar", u"Direkt Uçuşlar" },
};

/// Whether a table has a row for every case up to `last`, in the order of the cases.
template<typename Table, typename Option>
constexpr bool isWhole(const Table &table, Option last)
{
    size_t next = 0;
    for (const auto &row : table) {
        if (static_cast<size_t>(row.option) != next++)
            return false;
    }
    return next == static_cast<size_t>(last) + 1;
}

static_assert(isWhole(tripTypes, TripType::roundTrip));
static_assert(isWhole(cabinClasses, CabinClass::business));
static_assert(isWhole(timeRanges, TimeRange::fourWeeks));
static_assert(isWhole(sortOptions, FlightSortOption::directOnly));

/// All cases, in the order in which pickers show them.
template<typename Option>
const QList<Option> &allCases();

QString rawValue(TripType option);
QString rawValue(CabinClass option);
QString rawValue(TimeRange option);
/// Also the label of the option's chip.
QString rawValue(FlightSortOption option);

QString title(TripType option);
QString title(CabinClass option);
QString title(TimeRange option);

/// The case with exactly this raw value, letter case and blanks included; absent for any other
/// text.
template<typename Option>
std::optional<Option> fromRawValue(const QString &rawValue);

/// The raw value as a JSON string.
template<typename Option>
QJsonValue toJson(Option option)
{
    return rawValue(option);
}

/// Throws DecodingError for anything but a JSON string that is one of the raw values.
template<typename Option>
Option fromJson(const QJsonValue &json);

} // namespace SearchOptions

using SearchOptions::CabinClass;
using SearchOptions::FlightSortOption;
using SearchOptions::TimeRange;
using SearchOptions::TripType;
