#include "Models/JsonObject.h"

#include <QJsonArray>

namespace {

std::optional<QString> asText(const QJsonValue &value)
{
    return value.isString() ? std::optional(value.toString()) : std::nullopt;
}

std::optional<JsonObject> asObject(const QJsonValue &value)
{
    return value.isObject() ? std::optional(JsonObject(value.toObject())) : std::nullopt;
}

template<typename T>
std::optional<QList<T>> asList(const QJsonValue &value,
                               std::optional<T> (*asElement)(const QJsonValue &))
{
    if (!value.isArray())
        return std::nullopt;
    QList<T> list;
    const QJsonArray array = value.toArray();
    for (const QJsonValue element : array) {
        const std::optional<T> read = asElement(element);
        if (!read)
            return std::nullopt;
        list.append(*read);
    }
    return list;
}

} // namespace

std::optional<QString> JsonObject::text(std::string_view key) const { return asText(value(key)); }

std::optional<double> JsonObject::number(std::string_view key) const
{
    const QJsonValue found = value(key);
    return found.isDouble() ? std::optional(found.toDouble()) : std::nullopt;
}

std::optional<qint64> JsonObject::integer(std::string_view key) const
{
    // What is no integer becomes the default, whichever that is.
    const QJsonValue found = value(key);
    const qint64 integer = found.toInteger(0);
    return found.toInteger(1) == integer ? std::optional(integer) : std::nullopt;
}

std::optional<bool> JsonObject::boolean(std::string_view key) const
{
    const QJsonValue found = value(key);
    return found.isBool() ? std::optional(found.toBool()) : std::nullopt;
}

std::optional<JsonObject> JsonObject::object(std::string_view key) const
{
    return asObject(value(key));
}

std::optional<QStringList> JsonObject::texts(std::string_view key) const
{
    return asList<QString>(value(key), asText);
}

std::optional<QList<JsonObject>> JsonObject::objects(std::string_view key) const
{
    return asList<JsonObject>(value(key), asObject);
}

bool JsonObject::hasValue(std::string_view key) const
{
    const QJsonValue found = value(key);
    return !found.isUndefined() && !found.isNull();
}
