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

/// An undefined member is left out of an object.
QJsonValue orUndefined(const std::optional<QString> &text)
{
    return text ? QJsonValue(*text) : QJsonValue::Undefined;
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
    return { { u"date"_s, date },
             { u"amount"_s, amount },
             { u"currency"_s, orUndefined(currency) },
             { u"is_best_price"_s, isBestPrice } };
}

BestPrice BestPrice::fromJson(const JsonObject &json)
{
    return { .date = json.required(&JsonObject::text, "date"),
             .amount = json.required(&JsonObject::number, "amount"),
             .currency = optionalText(json, "currency") };
}

QJsonObject BestPrice::toJson() const
{
    return { { u"date"_s, date },
             { u"amount"_s, amount },
             { u"currency"_s, orUndefined(currency) } };
}

PriceCalendarResult PriceCalendarResult::fromJson(const JsonObject &json)
{
    PriceCalendarResult result { .origin = optionalText(json, "origin"),
                                 .destination = optionalText(json, "destination"),
                                 .currency = optionalText(json, "currency"),
                                 .prices = dailyPrices(json),
                                 .bestPrice = {} };
    if (json.hasValue("best_price"))
        result.bestPrice = BestPrice::fromJson(json.required(&JsonObject::object, "best_price"));
    return result;
}

QJsonObject PriceCalendarResult::toJson() const
{
    QJsonArray days;
    for (const DailyPrice &price : prices.value_or(QList<DailyPrice>()))
        days.append(price.toJson());
    return { { u"origin"_s, orUndefined(origin) },
             { u"destination"_s, orUndefined(destination) },
             { u"currency"_s, orUndefined(currency) },
             { u"prices"_s, prices ? days : QJsonValue(QJsonValue::Undefined) },
             { u"best_price"_s,
               bestPrice ? bestPrice->toJson() : QJsonValue(QJsonValue::Undefined) } };
}
