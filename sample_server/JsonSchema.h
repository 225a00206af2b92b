#pragma once

#include <QDate>
#include <QJsonObject>
#include <QString>
#include <QStringList>

#include <optional>

/// Checks JSON values against the part of JSON Schema that the tools' descriptions use: type,
/// properties, required, additionalProperties (true or false), items, minItems, maxItems, enum,
/// pattern, minLength, maxLength, minimum, maximum, and the format "date" as a real check.
namespace Sample::JsonSchema {

/// The first thing that is wrong with the value, as a Turkish sentence that names the member;
/// absent when the value satisfies the schema.
std::optional<QString> violation(const QJsonObject &schema, const QJsonValue &value);

/// Keywords of the schema, at any depth, that violation() would silently not check. Annotations
/// such as "description" are no such keywords.
QStringList uncheckedKeywords(const QJsonObject &schema);

/// A "yyyy-MM-dd" text that is a day of the calendar; invalid otherwise.
QDate parseDate(const QString &text);

} // namespace Sample::JsonSchema
