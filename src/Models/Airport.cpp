#include "Models/Airport.h"

#include "Models/JsonReading.h"

using namespace Qt::StringLiterals;

QJsonObject Airport::toJson() const
{
    return { { u"code"_s, code },
             { u"city"_s, city },
             { u"name"_s, name },
             { u"country"_s, country },
             { u"hub"_s, hub } };
}

Airport Airport::fromJson(const QJsonObject &json)
{
    using namespace JsonReading;
    return { .code = required(json, u"code", text(json, u"code")),
             .city = required(json, u"city", text(json, u"city")),
             .name = required(json, u"name", text(json, u"name")),
             .country = required(json, u"country", text(json, u"country")),
             .hub = required(json, u"hub", boolean(json, u"hub")) };
}
