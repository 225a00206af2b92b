#pragma once

#include "Models/PromotionItem.h"
#include "Services/ToolCall.h"

/// The tool "get_airline_promotions".
namespace PromotionsTool {

ToolCall<QList<PromotionItem>> call(const QString &departureAirportCode,
                                    const QString &countryCode);

/// The promotions that have a title, in the server's order. A reply without a list of promotions
/// gives the built-in ones; an empty list gives none.
QList<PromotionItem> parsePromotions(const JsonObject &result);

} // namespace PromotionsTool
