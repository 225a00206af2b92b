#include "sample_server/Tool.h"

#include <QHash>

namespace Sample {

using namespace Qt::StringLiterals;

namespace {

/// Guides by airport code; the airports of one city share a guide.
QHash<QString, QJsonObject> readGuides()
{
    QHash<QString, QJsonObject> guides;
    const QJsonArray cities = readResource(u"city_guides.json"_s, "cities"_L1);
    for (const QJsonValue city : cities) {
        QJsonObject guide = city.toObject();
        const QJsonArray codes = guide.take("airports"_L1).toArray();
        for (const QJsonValue code : codes)
            guides.insert(code.toString(), guide);
    }
    return guides;
}

} // namespace

QJsonObject cityGuide(const QJsonObject &arguments, const ToolContext &)
{
    static const QHash<QString, QJsonObject> guides = readGuides();
    const QString code = airportArgument(arguments, "cityCode"_L1).code;
    QJsonObject reply { { u"cityCode"_s, code } };
    if (const auto guide = guides.constFind(code); guide != guides.cend())
        reply.insert(u"guide"_s, *guide);
    return reply;
}

} // namespace Sample
