#include "Models/JsonObject.h"

#include <QJsonArray>

namespace {

std::optional<QString> asText(const QJsonValue &value)
{
    return value.isString() ? std::optional(value.toString()) : std::nullopt;
}

std::optional<double> asNumber(const QJsonValue &value)
{
    return value.isDouble() ? std::optional(value.toDouble()) : std::nullopt;
}

std::optional<qint64> asInteger(const QJsonValue &value)
{
    // toInteger() returns its default for what is no integer: two defaults tell the cases apart.
    const qint64 integer = value.toInteger(0);
    return value.toInteger(1) == integer ? std::optional(integer) : std::nullopt;
}

std::optional<bool> asBoolean(const QJsonValue &value)
{
    return value.isBool() ? std::optional(value.toBool()) : std::nullopt;
}

std::optional<JsonObject> asObject(const QJsonValue &value)
{
    return value.isObject() ? std::optional(JsonObject(value.toObject())) : std::nullopt;
}

template<typename T, std::optional<T> (*asElement)(const QJsonValue &)>
std::optional<QList<T>> asList(const QJsonValue &value)
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

template<typename T>
std::optional<T> JsonObject::read(std::optional<T> (*as)(const QJsonValue &), std::string_view key,
                                  std::string_view alternative) const
{
    const std::optional<T> found = as(value(key));
    return found || alternative.empty() ? found : as(value(alternative));
}

std::optional<QString> JsonObject::text(std::string_view key, std::string_view alternative) const
{
    return read(asText, key, alternative);
}

std::optional<double> JsonObject::number(std::string_view key, std::string_view alternative) const
{
    return read(asNumber, key, alternative);
}

std::optional<qint64> JsonObject::integer(std::string_view key, std::string_view alternative) const
{
    return read(asInteger, key, alternative);
}

std::optional<bool> JsonObject::boolean(std::string_view key, std::string_view alternative) const
{
    return read(asBoolean, key, alternative);
}

std::optional<JsonObject> JsonObject::object(std::string_view key,
                                             std::string_view alternative) const
{
    return read(asObject, key, alternative);
}

std::optional<QStringList> JsonObject::texts(std::string_view key,
                                             std::string_view alternative) const
{
    return read(asList<QString, asText>, key, alternative);
}

std::optional<QList<JsonObject>> JsonObject::objects(std::string_view key,
                                                     std::string_view alternative) const
{
    return read(asList<JsonObject, asObject>, key, alternative);
}

bool JsonObject::hasValue(std::string_view key) const
{
    const QJsonValue found = value(key);
    return !found.isUndefined() && !found.isNull();
}
