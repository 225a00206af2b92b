#include "Models/PriceCalendar.h"

#include "Models/JsonReading.h"

#include <QJsonArray>

using namespace Qt::StringLiterals;
using namespace JsonReading;

namespace {

/// Absent when the member is missing or null; throws when it is of another type than text.
std::optional<QString> optionalText(const QJsonObject &json, QStringView key)
{
    const QJsonValue value = json.value(key);
    if (value.isUndefined() || value.isNull())
        return std::nullopt;
    return required(json, key, text(json, key));
}

QList<DailyPrice> dailyPrices(const QJsonObject &json)
{
    QList<DailyPrice> prices;
    try {
        for (const QJsonObject &day : objects(json, u"prices").value_or(QList<QJsonObject>()))
            prices.append(DailyPrice::fromJson(day));
    } catch (const DecodingError &) {
        prices.clear();
    }
    return prices;
}

double amountText(const QJsonObject &json)
{
    const QString written = text(json, u"amount").value_or(QString());
    // toDouble() forgives surrounding blanks, which are an error here.
    if (written != written.trimmed())
        return 0;
    bool converted = false;
    const double amount = written.toDouble(&converted);
    return converted ? amount : 0;
}

template<typename T>
void insertIfPresent(QJsonObject &json, QLatin1StringView key, const std::optional<T> &value)
{
    if (value)
        json.insert(key, *value);
}

} // namespace

DailyPrice DailyPrice::fromJson(const QJsonObject &json)
{
    DailyPrice price;
    price.date = required(json, u"date", text(json, u"date"));
    if (const auto amount = number(json, u"amount"))
        price.amount = *amount;
    else if (const auto alternative = number(json, u"price"))
        price.amount = *alternative;
    else
        price.amount = amountText(json);
    price.currency = text(json, u"currency").value_or(u"TRY"_s);
    price.isBestPrice =
        boolean(json, u"is_best_price").value_or(boolean(json, u"isBestPrice").value_or(false));
    return price;
}

QJsonObject DailyPrice::toJson() const
{
    QJsonObject json { { u"date"_s, date },
                       { u"amount"_s, amount },
                       { u"is_best_price"_s, isBestPrice } };
    insertIfPresent(json, "currency"_L1, currency);
    return json;
}

BestPrice BestPrice::fromJson(const QJsonObject &json)
{
    return { .date = required(json, u"date", text(json, u"date")),
             .amount = required(json, u"amount", number(json, u"amount")),
             .currency = optionalText(json, u"currency") };
}

QJsonObject BestPrice::toJson() const
{
    QJsonObject json { { u"date"_s, date }, { u"amount"_s, amount } };
    insertIfPresent(json, "currency"_L1, currency);
    return json;
}

PriceCalendarResult PriceCalendarResult::fromJson(const QJsonObject &json)
{
    PriceCalendarResult result;
    result.origin = optionalText(json, u"origin");
    result.destination = optionalText(json, u"destination");
    result.currency = optionalText(json, u"currency");
    result.prices = dailyPrices(json);
    const QJsonValue best = json.value("best_price"_L1);
    if (!best.isUndefined() && !best.isNull())
        result.bestPrice =
            BestPrice::fromJson(required(json, u"best_price", object(json, u"best_price")));
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
