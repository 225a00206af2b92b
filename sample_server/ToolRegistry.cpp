#include "sample_server/ToolRegistry.h"

#include "sample_server/JsonSchema.h"

#include <QFile>
#include <QHash>
#include <QJsonDocument>

#include <algorithm>

namespace Sample {

using namespace Qt::StringLiterals;

const QJsonArray &toolDescriptions()
{
    static const QJsonArray descriptions = readResource(u"tools.json"_s, "tools"_L1);
    return descriptions;
}

QJsonObject callTool(const QString &name, const QJsonObject &arguments, const ToolContext &context)
{
    static const QHash<QString, decltype(&searchFlights)> implementations {
        { u"find_flight_price_calendar"_s, &findPriceCalendar },
        { u"search_flights"_s, &searchFlights },
        { u"flight-status"_s, &flightStatus },
        { u"get_airline_promotions"_s, &airlinePromotions },
        { u"get_city_guide"_s, &cityGuide },
    };
    const QJsonArray &descriptions = toolDescriptions();
    const auto tool = std::find_if(
        descriptions.begin(), descriptions.end(),
        [&name](const QJsonValue &description) { return description["name"_L1] == name; });
    if (tool == descriptions.end() || !implementations.contains(name))
        throw RpcError { u"\"%1\" adında bir araç yok."_s.arg(name.left(80)) };
    if (const auto violation =
            JsonSchema::violation((*tool)["inputSchema"_L1].toObject(), arguments))
        throw RpcError { *violation };
    return implementations.value(name)(arguments, context);
}

QJsonArray readResource(const QString &fileName, QLatin1StringView key)
{
    QFile file(u":/vantora/sample_server/"_s + fileName);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("The sample server was built without %s", qPrintable(fileName));
    return QJsonDocument::fromJson(file.readAll())[key].toArray();
}

} // namespace Sample
