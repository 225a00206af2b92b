#include "Models/SearchOptions.h"

#include "Models/JsonObject.h"

#include <type_traits>

namespace SearchOptions {

namespace {

template<typename Option>
constexpr const auto &table()
{
    if constexpr (std::is_same_v<Option, TripType>)
        return tripTypes;
    else if constexpr (std::is_same_v<Option, CabinClass>)
        return cabinClasses;
    else if constexpr (std::is_same_v<Option, TimeRange>)
        return timeRanges;
    else
        return sortOptions;
}

template<typename Option>
const Row<Option> &row(Option option)
{
    // The tables list the cases in declaration order.
    return table<Option>().at(static_cast<size_t>(option));
}

} // namespace

template<typename Option>
const QList<Option> &allCases()
{
    static const QList<Option> cases = [] {
        QList<Option> list;
        for (const auto &row : table<Option>())
            list.append(row.option);
        return list;
    }();
    return cases;
}

QString rawValue(TripType option) { return row(option).rawValue.toString(); }
QString rawValue(CabinClass option) { return row(option).rawValue.toString(); }
QString rawValue(TimeRange option) { return row(option).rawValue.toString(); }
QString rawValue(FlightSortOption option) { return row(option).rawValue.toString(); }

QString title(TripType option) { return row(option).title.toString(); }
QString title(CabinClass option) { return row(option).title.toString(); }
QString title(TimeRange option) { return row(option).title.toString(); }

template<typename Option>
std::optional<Option> fromRawValue(const QString &rawValue)
{
    for (const auto &row : table<Option>()) {
        if (rawValue == row.rawValue)
            return row.option;
    }
    return std::nullopt;
}

template<typename Option>
Option fromJson(const QJsonValue &json)
{
    const auto option = json.isString() ? fromRawValue<Option>(json.toString()) : std::nullopt;
    if (!option)
        throw DecodingError("Unknown option: " + json.toVariant().toString().toStdString());
    return *option;
}

template const QList<TripType> &allCases();
template const QList<CabinClass> &allCases();
template const QList<TimeRange> &allCases();
template const QList<FlightSortOption> &allCases();
template std::optional<TripType> fromRawValue(const QString &);
template std::optional<CabinClass> fromRawValue(const QString &);
template std::optional<TimeRange> fromRawValue(const QString &);
template std::optional<FlightSortOption> fromRawValue(const QString &);
template TripType fromJson(const QJsonValue &);
template CabinClass fromJson(const QJsonValue &);
template TimeRange fromJson(const QJsonValue &);

} // namespace SearchOptions
