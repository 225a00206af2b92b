#include "Services/PromotionsTool.h"

using namespace Qt::StringLiterals;

namespace {

QList<PromotionItem> builtInPromotions()
{
    return {
        { .title = u"Avrupa Erken Rezervasyon Fırsatları"_s,
          .description = u"Londra, Paris, Roma ve Amsterdam uçuşlarında Voyalis üyelerine özel "
                         "indirimler."_s,
          .discount = u"%25 İndirim"_s,
          .validUntil = u"30 Eylül 2026"_s,
          .route = u"İstanbul ⇄ Avrupa"_s },
        { .title = u"Amerika & Uzak Doğu Fırsatları"_s,
          .description = u"New York, Miami, Tokyo ve Seul uçuşlarında avantajlı fiyatlar."_s,
          .discount = u"Özel Fiyat"_s,
          .validUntil = u"15 Ekim 2026"_s,
          .route = u"Kıtalararası Hatlar"_s },
    };
}

} // namespace

namespace PromotionsTool {

ToolCall<QList<PromotionItem>> call(const QString &departureAirportCode, const QString &countryCode)
{
    return { u"get_airline_promotions"_s,
             { { u"departureAirportCode"_s, departureAirportCode.toUpper() },
               { u"countryCode"_s, countryCode.toUpper() } },
             parsePromotions };
}

QList<PromotionItem> parsePromotions(const JsonObject &result)
{
    const auto elements = result.objects("promotions", "promotionList");
    if (!elements)
        return builtInPromotions();

    QList<PromotionItem> promotions;
    for (const JsonObject &element : *elements) {
        const QString title = element.text("title", "name").value_or(QString());
        if (title.isEmpty())
            continue;
        promotions.append(
            { .title = title,
              .description = element.text("description", "detail").value_or(QString()),
              .discount = element.text("discount", "badge"),
              .validUntil = element.text("validUntil", "expireDate"),
              .route = element.text("route") });
    }
    return promotions;
}

} // namespace PromotionsTool
