#include "Services/PromotionsTool.h"

#include "Models/JsonObject.h"
#include "Services/ToolCall.h"

#include <functional>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

std::optional<QString> firstText(const JsonObject &json, std::string_view key,
                                 std::string_view alternative)
{
    const auto value = json.text(key);
    return value ? value : json.text(alternative);
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

QList<PromotionItem> parsePromotions(const JsonObject &result)
{
    auto elements = result.objects("promotions");
    if (!elements)
        elements = result.objects("promotionList");
    if (!elements)
        return builtInPromotions();

    QList<PromotionItem> promotions;
    for (const JsonObject &element : std::as_const(*elements)) {
        const QString title = firstText(element, "title", "name").value_or(QString());
        if (title.isEmpty())
            continue;
        promotions.append(
            { .title = title,
              .description = firstText(element, "description", "detail").value_or(QString()),
              .discount = firstText(element, "discount", "badge"),
              .validUntil = firstText(element, "validUntil", "expireDate"),
              .route = element.text("route") });
    }
    return promotions;
}

} // namespace PromotionsTool

QCoro::Task<QList<PromotionItem>> VTRMCPClient::fetchPromotions(QString departureAirportCode,
                                                                QString countryCode)
{
    const QString tool = u"get_airline_promotions"_s;
    const QJsonObject arguments = PromotionsTool::arguments(departureAirportCode, countryCode);
    const std::function<QList<PromotionItem>(const JsonObject &)> reader =
        &PromotionsTool::parsePromotions;
    co_return co_await callTool<QList<PromotionItem>>(tool, arguments, reader);
}
