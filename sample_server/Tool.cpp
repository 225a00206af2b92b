#include "sample_server/Tool.h"

#include "sample_server/JsonSchema.h"

#include <QFile>
#include <QHash>
#include <QJsonDocument>
#include <QLocale>

namespace Sample {

using namespace Qt::StringLiterals;

const QJsonArray &toolDescriptions()
{
    static const QJsonArray descriptions = readResource(u"tools.json"_s, "tools"_L1);
    return descriptions;
}

QJsonObject callTool(const QString &name, const QJsonObject &arguments, const ToolContext &context)
{
    static const QHash<QString, decltype(&searchFlights)> tools {
        { u"find_flight_price_calendar"_s, &findPriceCalendar },
        { u"search_flights"_s, &searchFlights },
        { u"flight-status"_s, &flightStatus },
        { u"get_airline_promotions"_s, &airlinePromotions },
        { u"get_city_guide"_s, &cityGuide },
    };
    const auto call = tools.value(name);
    if (!call)
        throw RpcError { u"\"%1\" adında bir araç yok."_s.arg(name.left(80)) };
    for (const QJsonValue tool : toolDescriptions()) {
        if (tool["name"_L1] != name)
            continue;
        const QJsonObject schema = tool["inputSchema"_L1].toObject();
        if (const auto violation = JsonSchema::violation(schema, arguments))
            throw RpcError { u"İstek, aracın tanımına uymuyor: %1"_s.arg(*violation) };
    }
    return call(arguments, context);
}

const AirportSite &airportArgument(const QJsonObject &arguments, QLatin1StringView key)
{
    const QString code = arguments.value(key).toString();
    const AirportSite *site = airportSite(code);
    if (!site)
        throw RpcError { u"\"%1\" bilinen bir havalimanı kodu değil."_s.arg(code) };
    return *site;
}

void requireDifferent(const AirportSite &origin, const AirportSite &destination)
{
    if (origin.code == destination.code)
        throw RpcError { u"Kalkış ve varış havalimanı aynı olamaz (%1)."_s.arg(origin.code) };
}

QDate dateArgument(const QJsonObject &arguments, QLatin1StringView key)
{
    const QString text = arguments.value(key).toString();
    const QDate date = QDate::fromString(text, Qt::ISODate);
    if (!text.isEmpty() && !date.isValid())
        throw RpcError { u"%1 takvimde olmayan bir gün."_s.arg(text) };
    return date;
}

QString turkishDate(QDate date)
{
    return QLocale(QLocale::Turkish, QLocale::Turkey).toString(date, u"d MMMM yyyy");
}

QJsonArray readResource(const QString &fileName, QLatin1StringView key)
{
    QFile file(u":/vantora/sample_server/"_s + fileName);
    file.open(QIODevice::ReadOnly);
    return QJsonDocument::fromJson(file.readAll())[key].toArray();
}

} // namespace Sample
