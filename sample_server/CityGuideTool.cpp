#include "sample_server/Tool.h"

namespace Sample {

using namespace Qt::StringLiterals;

QJsonObject cityGuide(const QJsonObject &arguments, const ToolContext &)
{
    static const QJsonArray cities = readResource(u"city_guides.json"_s, "cities"_L1);
    const QString code = airportArgument(arguments, "cityCode"_L1).code;
    QJsonObject reply { { u"cityCode"_s, code } };
    for (const QJsonValue city : cities) {
        QJsonObject guide = city.toObject();
        if (guide.take("airports"_L1).toArray().contains(code)) // the airports of one city share it
            reply.insert(u"guide"_s, guide);
    }
    return reply;
}

} // namespace Sample
