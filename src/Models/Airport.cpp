#include "Models/Airport.h"

#include "Models/JsonObject.h"

using namespace Qt::StringLiterals;

QJsonObject Airport::toJson() const
{
    return { { u"code"_s, code },
             { u"city"_s, city },
             { u"name"_s, name },
             { u"country"_s, country },
             { u"hub"_s, hub } };
}

Airport Airport::fromJson(const JsonObject &json)
{
    return { .code = json.required(&JsonObject::text, "code"),
             .city = json.required(&JsonObject::text, "city"),
             .name = json.required(&JsonObject::text, "name"),
             .country = json.required(&JsonObject::text, "country"),
             .hub = json.required(&JsonObject::boolean, "hub") };
}
