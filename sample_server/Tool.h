#pragma once

#include <QDateTime>
#include <QJsonObject>
#include <QString>

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

struct ToolEntry
{
    QStringView name; ///< as in data/tools.json
    decltype(&searchFlights) call;
};

inline constexpr ToolEntry tools[] {
    { u"find_flight_price_calendar", &findPriceCalendar },
    { u"search_flights", &searchFlights },
    { u"flight-status", &flightStatus },
    { u"get_airline_promotions", &airlinePromotions },
    { u"get_city_guide", &cityGuide },
};

} // namespace Sample
