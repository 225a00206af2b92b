#include "Models/JsonReading.h"
#include "Services/VTRMCPClient.h"

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

QCoro::Task<QList<PromotionItem>> VTRMCPClient::fetchPromotions(QString departureAirportCode,
                                                                QString countryCode)
{
    return ask<QList<PromotionItem>>(
        u"get_airline_promotions"_s,
        { { u"departureAirportCode"_s, departureAirportCode.toUpper() },
          { u"countryCode"_s, countryCode.toUpper() } },
        &ToolResults::parsePromotions);
}

QList<PromotionItem> ToolResults::parsePromotions(const QJsonObject &result)
{
    using JsonReading::text;
    const auto elements = JsonReading::objects(result, { "promotions"_L1, "promotionList"_L1 });
    if (!elements)
        return builtInPromotions();

    QList<PromotionItem> promotions;
    for (const QJsonValue value : *elements) {
        const QJsonObject element = value.toObject();
        const QString title = text(element, { "title"_L1, "name"_L1 }).value_or(QString());
        if (title.isEmpty())
            continue;
        promotions.append(
            { .title = title,
              .description = text(element, { "description"_L1, "detail"_L1 }).value_or(QString()),
              .discount = text(element, { "discount"_L1, "badge"_L1 }),
              .validUntil = text(element, { "validUntil"_L1, "expireDate"_L1 }),
              .route = text(element, { "route"_L1 }) });
    }
    return promotions;
}
