#include "sample_server/ToolRegistry.h"

#include "sample_server/CityGuideTool.h"
#include "sample_server/FlightSearchTool.h"
#include "sample_server/FlightStatusTool.h"
#include "sample_server/JsonSchema.h"
#include "sample_server/PriceCalendarTool.h"
#include "sample_server/PromotionsTool.h"

#include <QFile>
#include <QHash>
#include <QJsonArray>
#include <QJsonDocument>

#include <algorithm>

namespace Sample {

using namespace Qt::StringLiterals;

ToolRegistry::ToolRegistry()
{
    const QHash<QString, decltype(Tool::run)> implementations {
        { u"find_flight_price_calendar"_s, &findPriceCalendar },
        { u"search_flights"_s, &searchFlights },
        { u"flight-status"_s, &flightStatus },
        { u"get_airline_promotions"_s, &airlinePromotions },
        { u"get_city_guide"_s, &cityGuide },
    };
    const QJsonArray descriptions = readResource(u"tools.json"_s).value("tools"_L1).toArray();
    for (const QJsonValue description : descriptions) {
        const QString name = description["name"_L1].toString();
        m_tools.append({ .name = name,
                         .description = description.toObject(),
                         .run = implementations.value(name) });
        Q_ASSERT(m_tools.last().run);
    }
    Q_ASSERT(m_tools.size() == implementations.size());
}

QJsonObject ToolRegistry::call(const QString &name, const QJsonObject &arguments,
                               const ToolContext &context) const
{
    const auto tool = std::find_if(m_tools.cbegin(), m_tools.cend(),
                                   [&name](const Tool &other) { return other.name == name; });
    if (tool == m_tools.cend())
        throw JsonRpc::Error { JsonRpc::InvalidParams,
                               u"\"%1\" adında bir araç yok."_s.arg(name.left(80)) };
    if (const auto violation = JsonSchema::violation(tool->inputSchema(), arguments))
        throw JsonRpc::Error { JsonRpc::InvalidParams, *violation };
    return tool->run(arguments, context);
}

QJsonObject readResource(const QString &fileName)
{
    QFile file(u":/vantora/sample_server/"_s + fileName);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("The sample server was built without %s", qPrintable(fileName));
    return QJsonDocument::fromJson(file.readAll()).object();
}

} // namespace Sample
