#include "sample_server/StableRandom.h"
#include "sample_server/Tool.h"

#include <algorithm>

namespace Sample {

using namespace Qt::StringLiterals;

namespace {

constexpr int fewest = 4;
constexpr int most = 6;

/// Promotions end with a month.
QString endOfMonthAfter(QDate today, int days)
{
    const QDate date = today.addDays(days);
    return turkishDate(QDate(date.year(), date.month(), date.daysInMonth()));
}

bool isOffered(const QJsonObject &promotion, const AirportSite &departure,
               const QString &countryCode)
{
    const QJsonArray countries = promotion.value("countries"_L1).toArray();
    const AirportSite *site = airportSite(promotion.value("destination"_L1).toString());
    const QString from = promotion.value("departsFrom"_L1).toString();
    return (countries.isEmpty() || countries.contains(countryCode))
        && (!site || site->city != departure.city)
        && (from.isEmpty() || departure.isDomestic() == (from == "domestic"_L1));
}

QJsonObject promotionObject(const QJsonObject &source, const AirportSite &departure, QDate today)
{
    QJsonObject promotion;
    for (const auto &key : { "title"_L1, "description"_L1, "discount"_L1, "route"_L1 }) {
        QString text = source.value(key).toString();
        if (!text.isEmpty())
            promotion.insert(key, text.replace(u"{city}"_s, departure.turkishCity));
    }
    if (source.contains("validForDays"_L1))
        promotion.insert(u"validUntil"_s,
                         endOfMonthAfter(today, source.value("validForDays"_L1).toInt()));
    return promotion;
}

} // namespace

QJsonObject airlinePromotions(const QJsonObject &arguments, const ToolContext &context)
{
    static const QJsonArray source = readResource(u"promotions.json"_s, "promotions"_L1);
    const AirportSite &departure = airportArgument(arguments, "departureAirportCode"_L1);
    const QString countryCode = arguments.value("countryCode"_L1).toString();

    QList<QJsonObject> offered;
    for (const QJsonValue promotion : source) {
        if (isOffered(promotion.toObject(), departure, countryCode))
            offered.append(promotion.toObject());
    }
    StableRandom random(u"promotions", departure.code, countryCode);
    const qsizetype count = fewest + random.below(most - fewest + 1);
    while (offered.size() > count)
        offered.removeAt(random.below(int(offered.size())));

    QJsonArray promotions;
    for (const QJsonObject &promotion : std::as_const(offered))
        promotions.append(promotionObject(promotion, departure, context.today()));
    return { { u"promotions"_s, promotions } };
}

} // namespace Sample
