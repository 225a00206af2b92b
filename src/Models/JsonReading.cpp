#include "Models/JsonReading.h"

#include <QVariant>

#include <algorithm>

namespace {

std::optional<QJsonArray> arrayOf(QJsonValue::Type type, const QJsonObject &json,
                                  JsonReading::Keys keys)
{
    for (const QLatin1StringView key : keys) {
        const QJsonValue value = json[key];
        const QJsonArray array = value.toArray();
        const auto isWanted = [type](const QJsonValue &element) { return element.type() == type; };
        if (value.isArray() && std::all_of(array.begin(), array.end(), isWanted))
            return array;
    }
    return std::nullopt;
}

} // namespace

namespace JsonReading {

std::optional<QString> text(const QJsonObject &json, Keys keys)
{
    for (const QLatin1StringView key : keys) {
        if (const QJsonValue value = json[key]; value.isString())
            return value.toString();
    }
    return std::nullopt;
}

std::optional<QStringList> texts(const QJsonObject &json, Keys keys)
{
    const auto array = arrayOf(QJsonValue::String, json, keys);
    return array ? std::optional(QVariant(array->toVariantList()).toStringList()) : std::nullopt;
}

std::optional<QJsonArray> objects(const QJsonObject &json, Keys keys)
{
    return arrayOf(QJsonValue::Object, json, keys);
}

QJsonValue required(const QJsonObject &json, QLatin1StringView key, QJsonValue::Type type)
{
    QJsonValue value = json[key];
    if (value.type() != type)
        throw DecodingError("Missing or of another type: " + std::string(key.data(), key.size()));
    return value;
}

} // namespace JsonReading
