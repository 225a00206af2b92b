#pragma once

#include "Models/CityGuideInfo.h"
#include "Models/FlightOption.h"
#include "Models/FlightStatusResult.h"
#include "Models/PriceCalendar.h"
#include "Models/PromotionItem.h"

#include <QByteArray>
#include <QJsonObject>

/// How the answers of the server's tools are read. All are pure functions, which any thread may
/// call.
namespace ToolResults {

/// What a tool call's JSON-RPC answer carries: the result's "structuredContent", else the whole
/// "result", else an empty object. Throws McpError when the body is no JSON object, reports an
/// error or holds more than any list of flights.
QJsonObject parseAnswer(const QByteArray &body);

/// Reads what it can: a day without a text "date" is left out, a fare that is missing is 0.
PriceCalendar parsePriceCalendar(const QJsonObject &result);

/// One flight for each offered itinerary. Every member that is missing or mistyped gets a fixed
/// default, so that a reply of any shape yields displayable cards; a reply without itineraries
/// yields none. `origin` and `destination` are the codes that were searched for.
QList<FlightOption> parseFlightOptions(const QJsonObject &result, const QString &origin,
                                       const QString &destination);

/// A complete record from a reply of any shape: what is missing is filled with sample values, so
/// that a call which returned always has something to show.
FlightStatusResult parseFlightStatus(const QJsonObject &result, const QString &requestedNumber,
                                     const std::optional<QString> &requestedDate);

/// The promotions that have a title, in the server's order. A reply without a list of promotions
/// gives the built-in ones; an empty list gives none.
QList<PromotionItem> parsePromotions(const QJsonObject &result);

/// A complete guide from a reply of any shape: city and country fall back to the airport of `code`,
/// the texts to built-in ones. A list that is present but empty stays empty.
CityGuideInfo parseCityGuide(const QJsonObject &result, const QString &code);

} // namespace ToolResults
