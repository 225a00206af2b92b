#include "Models/Airport.h"

#include "Models/JsonReading.h"

using namespace Qt::StringLiterals;

Airport Airport::fromJson(const QJsonObject &json)
{
    using JsonReading::required;
    return { .code = required(json, "code"_L1, QJsonValue::String).toString(),
             .city = required(json, "city"_L1, QJsonValue::String).toString(),
             .name = required(json, "name"_L1, QJsonValue::String).toString(),
             .country = required(json, "country"_L1, QJsonValue::String).toString(),
             .hub = required(json, "hub"_L1, QJsonValue::Bool).toBool() };
}
