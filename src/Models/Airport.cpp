#include "Models/Airport.h"

#include "Models/JsonObject.h"

Airport Airport::fromJson(const JsonObject &json)
{
    return { .code = json.required(&JsonObject::text, "code"),
             .city = json.required(&JsonObject::text, "city"),
             .name = json.required(&JsonObject::text, "name"),
             .country = json.required(&JsonObject::text, "country"),
             .hub = json.required(&JsonObject::boolean, "hub") };
}
