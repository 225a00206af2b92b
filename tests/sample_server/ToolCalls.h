#pragma once

#include "sample_server/Tool.h"

#include <QTimeZone>

/// Calls tools without a network, at a fixed time.
namespace ToolCalls {

using namespace Qt::StringLiterals;

/// A Saturday at noon.
inline QDateTime fixedNow()
{
    return QDateTime(QDate(2026, 11, 21), QTime(12, 0), QTimeZone("Europe/Istanbul"));
}

inline QString dayText(int daysAhead)
{
    return fixedNow().date().addDays(daysAhead).toString(Qt::ISODate);
}

inline QJsonObject call(const QString &tool, const QJsonObject &arguments,
                        const QDateTime &now = fixedNow())
{
    return Sample::callTool(tool, arguments, { now, u"https://www.example.test"_s });
}

inline QJsonObject calendarArguments(const QString &from, const QString &to, const QString &date,
                                     const QString &range = u"4_WEEKS"_s,
                                     const QString &cabin = u"ECONOMY"_s)
{
    return { { u"originAirportCode"_s, from }, { u"destinationAirportCode"_s, to },
             { u"departureDate"_s, date },     { u"tripType"_s, u"ONE_WAY"_s },
             { u"timeRange"_s, range },        { u"cabinClass"_s, cabin },
             { u"isReturnFlight"_s, false },   { u"stayDuration"_s, 14 } };
}

inline QJsonObject searchArguments(const QString &from, const QString &to, const QString &date,
                                   int passengers = 1)
{
    const QJsonObject adults { { u"passengerType"_s, u"ADT"_s }, { u"quantity"_s, passengers } };
    return { { u"from"_s, from },
             { u"to"_s, to },
             { u"departureDate"_s, date },
             { u"tripType"_s, u"one_way"_s },
             { u"passengers"_s, QJsonArray { adults } } };
}

inline QJsonArray optionsOf(const QJsonObject &reply, int direction = 0)
{
    return reply["availabilityData"_L1]["originDestinationInformations"_L1][direction]
                ["originDestinationOptions"_L1]
                    .toArray();
}

inline QJsonArray options(const QString &from, const QString &to, const QString &date)
{
    // Straight from the tool: checking arguments takes longer than answering.
    return optionsOf(Sample::searchFlights(searchArguments(from, to, date),
                                           { fixedNow(), u"https://www.example.test"_s }));
}

} // namespace ToolCalls
