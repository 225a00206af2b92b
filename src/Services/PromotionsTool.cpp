#include "Services/PromotionsTool.h"

#include "Models/JsonReading.h"
#include "Services/ToolCall.h"

#include <functional>
#include <optional>

using namespace Qt::StringLiterals;
using namespace JsonReading;

namespace {

std::optional<QString> firstText(const QJsonObject &json, QStringView key, QStringView alternative)
{
    const auto value = text(json, key);
    return value ? value : text(json, alternative);
}

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

QJsonObject arguments(const QString &departureAirportCode, const QString &countryCode)
{
    return { { u"departureAirportCode"_s, departureAirportCode.toUpper() },
             { u"countryCode"_s, countryCode.toUpper() } };
}

QList<PromotionItem> parsePromotions(const QJsonObject &result)
{
    auto elements = objects(result, u"promotions");
    if (!elements)
        elements = objects(result, u"promotionList");
    if (!elements)
        return builtInPromotions();

    QList<PromotionItem> promotions;
    for (const QJsonObject &element : std::as_const(*elements)) {
        const QString title = firstText(element, u"title", u"name").value_or(QString());
        if (title.isEmpty())
            continue;
        promotions.append(
            { .title = title,
              .description = firstText(element, u"description", u"detail").value_or(QString()),
              .discount = firstText(element, u"discount", u"badge"),
              .validUntil = firstText(element, u"validUntil", u"expireDate"),
              .route = text(element, u"route") });
    }
    return promotions;
}

} // namespace PromotionsTool

QCoro::Task<QList<PromotionItem>> VTRMCPClient::fetchPromotions(QString departureAirportCode,
                                                                QString countryCode)
{
    const QString tool = u"get_airline_promotions"_s;
    const QJsonObject arguments = PromotionsTool::arguments(departureAirportCode, countryCode);
    const std::function<QList<PromotionItem>(const QJsonObject &)> reader =
        &PromotionsTool::parsePromotions;
    co_return co_await callTool<QList<PromotionItem>>(tool, arguments, reader);
}
