#include "Models/PriceCalendar.h"

#include "Models/JsonObject.h"

#include <QJsonArray>

using namespace Qt::StringLiterals;

namespace {

/// Absent when the member is missing or null; throws when it is of another type than text.
std::optional<QString> optionalText(const JsonObject &json, std::string_view key)
{
    return json.hasValue(key) ? std::optional(json.required(&JsonObject::text, key)) : std::nullopt;
}

QList<DailyPrice> dailyPrices(const JsonObject &json)
{
    QList<DailyPrice> prices;
    try {
        for (const JsonObject &day : json.objects("prices").value_or(QList<JsonObject>()))
            prices.append(DailyPrice::fromJson(day));
    } catch (const DecodingError &) {
        prices.clear();
    }
    return prices;
}

/// 0 for what is no number.
double amountText(const JsonObject &json)
{
    const QString written = json.text("amount").value_or(QString());
    bool isNumber = false;
    const double amount = written.toDouble(&isNumber);
    // toDouble() forgives surrounding blanks, which are an error here.
    return isNumber && written == written.trimmed() ? amount : 0;
}

template<typename T>
void insertIfPresent(QJsonObject &json, QLatin1StringView key, const std::optional<T> &value)
{
    if (value)
        json.insert(key, *value);
}

} // namespace

DailyPrice DailyPrice::fromJson(const JsonObject &json)
{
    const auto amount = json.number("amount", "price");
    return { .date = json.required(&JsonObject::text, "date"),
             .amount = amount ? *amount : amountText(json),
             .currency = json.text("currency").value_or(u"TRY"_s),
             .isBestPrice = json.boolean("is_best_price", "isBestPrice").value_or(false) };
}

QJsonObject DailyPrice::toJson() const
{
    QJsonObject json { { u"date"_s, date },
                       { u"amount"_s, amount },
                       { u"is_best_price"_s, isBestPrice } };
    insertIfPresent(json, "currency"_L1, currency);
    return json;
}

BestPrice BestPrice::fromJson(const JsonObject &json)
{
    return { .date = json.required(&JsonObject::text, "date"),
             .amount = json.required(&JsonObject::number, "amount"),
             .currency = optionalText(json, "currency") };
}

QJsonObject BestPrice::toJson() const
{
    QJsonObject json { { u"date"_s, date }, { u"amount"_s, amount } };
    insertIfPresent(json, "currency"_L1, currency);
    return json;
}

PriceCalendarResult PriceCalendarResult::fromJson(const JsonObject &json)
{
    PriceCalendarResult result;
    result.origin = optionalText(json, "origin");
    result.destination = optionalText(json, "destination");
    result.currency = optionalText(json, "currency");
    result.prices = dailyPrices(json);
    if (json.hasValue("best_price"))
        result.bestPrice = BestPrice::fromJson(json.required(&JsonObject::object, "best_price"));
    return result;
}

QJsonObject PriceCalendarResult::toJson() const
{
    QJsonObject json;
    insertIfPresent(json, "origin"_L1, origin);
    insertIfPresent(json, "destination"_L1, destination);
    insertIfPresent(json, "currency"_L1, currency);
    if (prices) {
        QJsonArray days;
        for (const DailyPrice &price : *prices)
            days.append(price.toJson());
        json.insert("prices"_L1, days);
    }
    if (bestPrice)
        json.insert("best_price"_L1, bestPrice->toJson());
    return json;
}
