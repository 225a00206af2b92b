#pragma once

#include "sample_server/AirportGeography.h"

#include <QDateTime>
#include <QJsonArray>
#include <QJsonObject>

/// The tools, and what they share.
namespace Sample {

/// A failure that becomes the "error" member of an answer.
struct RpcError
{
    enum Code {
        ParseError = -32700,
        InvalidRequest = -32600,
        MethodNotFound = -32601,
        InvalidParams = -32602,
        SessionUnknown = -32001, ///< this server's own: no such session, or none named
    };

    QString message; ///< Turkish, a whole sentence
    Code code = InvalidParams;
};

/// What a call may know besides its arguments.
struct ToolContext
{
    QDateTime now;
    QString webSite; ///< base of booking links, without a trailing slash

    QDate today() const { return now.date(); }
};

/// What "tools/list" shows: name, description and schemas of each tool, out of data/tools.json.
const QJsonArray &toolDescriptions();

/// The tool's structured result. Throws RpcError for an unknown tool, for arguments that do not
/// satisfy its input schema, and for those that the tool itself refuses.
QJsonObject callTool(const QString &name, const QJsonObject &arguments, const ToolContext &context);

/// The tools. Each gets arguments that satisfy its input schema, returns what its output schema
/// describes, and throws RpcError when it refuses them all the same.
///@{

/// The lowest fare of each day around a departure day, with one best day.
QJsonObject findPriceCalendar(const QJsonObject &arguments, const ToolContext &context);
/// The itineraries of a day between two airports; for a round trip with a return day also those
/// back.
QJsonObject searchFlights(const QJsonObject &arguments, const ToolContext &context);
/// The state of one flight of a day by the clock. README.md lists the numbers with a fixed state.
QJsonObject flightStatus(const QJsonObject &arguments, const ToolContext &context);
/// What the airline currently advertises at an airport.
QJsonObject airlinePromotions(const QJsonObject &arguments, const ToolContext &context);
/// A short guide to the city of an airport; only its code for a city without one.
QJsonObject cityGuide(const QJsonObject &arguments, const ToolContext &context);

///@}

/// Arguments whose form the schema has checked; those whose meaning is wrong are refused with what
/// a traveller may read.
///@{

const AirportSite &airportArgument(const QJsonObject &arguments, QLatin1StringView key);
/// Refuses a journey that ends where it starts.
void requireDifferent(const AirportSite &origin, const AirportSite &destination);
/// Invalid when the argument is absent.
QDate dateArgument(const QJsonObject &arguments, QLatin1StringView key);

///@}

/// "15 Mart 2027"
QString turkishDate(QDate date);

/// The array under this key in a JSON file of the folder data.
QJsonArray readResource(const QString &fileName, QLatin1StringView key);

} // namespace Sample
