#pragma once

#include <QJsonObject>
#include <QString>

#include <optional>

namespace Sample::JsonSchema {

/// What is wrong with the value, in English, with the member named first; absent when the value
/// satisfies the schema. A library does the checking. It throws on a "format" beside a value that
/// is no text, and its date is no real one: schemas write "pattern" instead.
std::optional<QString> violation(const QJsonObject &schema, const QJsonValue &value);

} // namespace Sample::JsonSchema
