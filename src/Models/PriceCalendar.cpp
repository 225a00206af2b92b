#include "Models/PriceCalendar.h"

#include "Models/JsonReading.h"

#include <QJsonArray>

using namespace Qt::StringLiterals;
using JsonReading::required;

namespace {

bool hasValue(const QJsonObject &json, QLatin1StringView key)
{
    return !json[key].isUndefined() && !json[key].isNull();
}

/// Absent when the member is missing or null; throws when it is of another type than text.
std::optional<QString> optionalText(const QJsonObject &json, QLatin1StringView key)
{
    return hasValue(json, key) ? std::optional(required(json, key, QJsonValue::String).toString())
                               : std::nullopt;
}

QList<DailyPrice> dailyPrices(const QJsonObject &json)
{
    QList<DailyPrice> prices;
    try {
        for (const QJsonValue day :
             JsonReading::objects(json, { "prices"_L1 }).value_or(QJsonArray()))
            prices.append(DailyPrice::fromJson(day.toObject()));
    } catch (const DecodingError &) {
        prices.clear();
    }
    return prices;
}

/// 0 for what is no number.
double numberIn(const QString &text)
{
    bool isNumber = false;
    const double number = text.toDouble(&isNumber);
    // toDouble() forgives surrounding blanks, which are an error here.
    return isNumber && text == text.trimmed() ? number : 0;
}

/// An undefined member is left out of an object.
QJsonValue orUndefined(const std::optional<QString> &text)
{
    return text ? QJsonValue(*text) : QJsonValue::Undefined;
}

} // namespace

DailyPrice DailyPrice::fromJson(const QJsonObject &json)
{
    const QJsonValue amount = json["amount"_L1];
    return { .date = required(json, "date"_L1, QJsonValue::String).toString(),
             .amount = amount.toDouble(json["price"_L1].toDouble(numberIn(amount.toString()))),
             .currency = json["currency"_L1].toString(u"TRY"_s),
             .isBestPrice = json["is_best_price"_L1].toBool(json["isBestPrice"_L1].toBool()) };
}

QJsonObject DailyPrice::toJson() const
{
    return { { u"date"_s, date },
             { u"amount"_s, amount },
             { u"currency"_s, orUndefined(currency) },
             { u"is_best_price"_s, isBestPrice } };
}

BestPrice BestPrice::fromJson(const QJsonObject &json)
{
    return { .date = required(json, "date"_L1, QJsonValue::String).toString(),
             .amount = required(json, "amount"_L1, QJsonValue::Double).toDouble(),
             .currency = optionalText(json, "currency"_L1) };
}

QJsonObject BestPrice::toJson() const
{
    return { { u"date"_s, date },
             { u"amount"_s, amount },
             { u"currency"_s, orUndefined(currency) } };
}

PriceCalendarResult PriceCalendarResult::fromJson(const QJsonObject &json)
{
    PriceCalendarResult result { .origin = optionalText(json, "origin"_L1),
                                 .destination = optionalText(json, "destination"_L1),
                                 .currency = optionalText(json, "currency"_L1),
                                 .prices = dailyPrices(json),
                                 .bestPrice = {} };
    if (hasValue(json, "best_price"_L1))
        result.bestPrice =
            BestPrice::fromJson(required(json, "best_price"_L1, QJsonValue::Object).toObject());
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
