#pragma once

#include <QJsonArray>
#include <QJsonObject>
#include <QString>
#include <QStringList>

#include <initializer_list>
#include <optional>
#include <stdexcept>

/// A JSON value that a record cannot be read from.
class DecodingError : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

/// Reads of a JSON object beside those with a default, which QJsonValue has. What counts is the
/// first of the keys whose value is of the wanted type: servers differ in what they send, and every
/// caller has a fallback.
namespace JsonReading {

using Keys = std::initializer_list<QLatin1StringView>;

std::optional<QString> text(const QJsonObject &json, Keys keys);
/// An array whose every element is a text.
std::optional<QStringList> texts(const QJsonObject &json, Keys keys);
/// An array whose every element is an object.
std::optional<QJsonArray> objects(const QJsonObject &json, Keys keys);

/// Throws DecodingError naming the member when it is not of this type.
QJsonValue required(const QJsonObject &json, QLatin1StringView key, QJsonValue::Type type);

} // namespace JsonReading
