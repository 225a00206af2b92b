#include "Models/JsonReading.h"

#include <QJsonArray>

DecodingError::DecodingError(const QString &description)
    : m_description(description)
    , m_utf8(description.toUtf8())
{ }

namespace JsonReading {

namespace {

template<typename List, typename Matches, typename Convert>
std::optional<List> uniformArray(const QJsonValue &value, Matches matches, Convert convert)
{
    if (!value.isArray())
        return std::nullopt;
    const QJsonArray array = value.toArray();
    List list;
    list.reserve(array.size());
    for (const QJsonValue element : array) {
        if (!matches(element))
            return std::nullopt;
        list.append(convert(element));
    }
    return list;
}

} // namespace

std::optional<QString> text(const QJsonObject &object, QStringView key)
{
    const QJsonValue value = object.value(key);
    return value.isString() ? std::optional(value.toString()) : std::nullopt;
}

std::optional<double> number(const QJsonObject &object, QStringView key)
{
    const QJsonValue value = object.value(key);
    return value.isDouble() ? std::optional(value.toDouble()) : std::nullopt;
}

std::optional<qint64> integer(const QJsonObject &object, QStringView key)
{
    const QJsonValue value = object.value(key);
    if (!value.isDouble())
        return std::nullopt;
    // toInteger() falls back to its argument for a fraction or a number beyond 64 bits, so a value
    // that answers two different fallbacks alike is an integer.
    const qint64 result = value.toInteger(0);
    return result == value.toInteger(1) ? std::optional(result) : std::nullopt;
}

std::optional<bool> boolean(const QJsonObject &object, QStringView key)
{
    const QJsonValue value = object.value(key);
    return value.isBool() ? std::optional(value.toBool()) : std::nullopt;
}

std::optional<QJsonObject> object(const QJsonObject &object, QStringView key)
{
    const QJsonValue value = object.value(key);
    return value.isObject() ? std::optional(value.toObject()) : std::nullopt;
}

std::optional<QStringList> texts(const QJsonObject &object, QStringView key)
{
    return uniformArray<QStringList>(
        object.value(key), [](const QJsonValue &v) { return v.isString(); },
        [](const QJsonValue &v) { return v.toString(); });
}

std::optional<QList<QJsonObject>> objects(const QJsonObject &object, QStringView key)
{
    return uniformArray<QList<QJsonObject>>(
        object.value(key), [](const QJsonValue &v) { return v.isObject(); },
        [](const QJsonValue &v) { return v.toObject(); });
}

} // namespace JsonReading
