#include "sample_server/ToolArguments.h"

#include "sample_server/JsonRpc.h"
#include "sample_server/JsonSchema.h"

#include <QLocale>

namespace Sample {

using namespace Qt::StringLiterals;

const AirportSite &airportArgument(const QJsonObject &arguments, QLatin1StringView key)
{
    const QString code = arguments.value(key).toString();
    const AirportSite *site = airportSite(code);
    if (!site)
        throw JsonRpc::Error { JsonRpc::InvalidParams,
                               u"\"%1\": \"%2\" bilinen bir havalimanı kodu değil."_s.arg(key,
                                                                                          code) };
    return *site;
}

void requireDifferent(const AirportSite &origin, QLatin1StringView originKey,
                      const AirportSite &destination, QLatin1StringView destinationKey)
{
    if (origin.code == destination.code)
        throw JsonRpc::Error { JsonRpc::InvalidParams,
                               u"\"%1\" ve \"%2\" aynı olamaz: ikisi de %3."_s.arg(
                                   originKey, destinationKey, origin.code) };
}

QDate dateArgument(const QJsonObject &arguments, QLatin1StringView key)
{
    return JsonSchema::parseDate(arguments.value(key).toString());
}

QString turkishDate(QDate date)
{
    static const QLocale turkish(QLocale::Turkish, QLocale::Turkey);
    return turkish.toString(date, u"d MMMM yyyy");
}

} // namespace Sample
