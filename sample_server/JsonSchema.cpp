#include "sample_server/JsonSchema.h"

#include <QDate>
#include <QJsonArray>
#include <QJsonDocument>
#include <QRegularExpression>

#include <cmath>

namespace Sample::JsonSchema {

using namespace Qt::StringLiterals;

namespace {

using Violation = std::optional<QString>;

constexpr int longestQuotedValue = 40;

QString typeText(const QString &type)
{
    static const QHash<QString, QString> texts {
        { u"object"_s, u"bir nesne"_s }, { u"array"_s, u"bir liste"_s },
        { u"string"_s, u"bir metin"_s }, { u"integer"_s, u"bir tam sayı"_s },
        { u"number"_s, u"bir sayı"_s },  { u"boolean"_s, u"true ya da false"_s },
    };
    return texts.value(type, type);
}

bool hasType(const QJsonValue &value, const QString &type)
{
    if (type == "object"_L1)
        return value.isObject();
    if (type == "array"_L1)
        return value.isArray();
    if (type == "string"_L1)
        return value.isString();
    if (type == "boolean"_L1)
        return value.isBool();
    if (type == "number"_L1)
        return value.isDouble();
    return type == "integer"_L1 && value.isDouble()
        && std::trunc(value.toDouble()) == value.toDouble();
}

/// The value as JSON text, shortened so that it fits into a sentence.
QString quoted(const QJsonValue &value)
{
    QByteArray json = QJsonDocument(QJsonArray { value }).toJson(QJsonDocument::Compact);
    const QString text = QString::fromUtf8(json.mid(1, json.size() - 2));
    return text.size() <= longestQuotedValue ? text : text.left(longestQuotedValue) + u"…"_s;
}

QString named(const QString &path) { return path.isEmpty() ? u"İstek"_s : u"\"%1\""_s.arg(path); }

QString memberPath(const QString &path, const QString &key)
{
    return path.isEmpty() ? key : path + u'.' + key;
}

QString exampleText(const QJsonObject &schema)
{
    const QJsonArray examples = schema.value("examples"_L1).toArray();
    return examples.isEmpty() ? QString() : u" (örnek: %1)"_s.arg(examples.first().toString());
}

/// JSON Schema's "$" is the end of the text; the platform's also stands before a last line break.
QString endingStrictly(const QString &pattern)
{
    return pattern.endsWith(u'$') ? pattern.chopped(1) + uR"(\z)"_s : pattern;
}

/// Text like `"from": "xx" <complaint>`; the value comes in unchanged by further placeholders.
QString complaint(const QString &path, const QJsonValue &value, const QString &what)
{
    return named(path) + u": "_s + quoted(value) + u' ' + what;
}

Violation textViolation(const QJsonObject &schema, const QJsonValue &value, const QString &path)
{
    const QString text = value.toString();
    const QJsonValue shortest = schema.value("minLength"_L1);
    if (shortest.isDouble() && text.size() < shortest.toInteger()) {
        if (text.isEmpty())
            return named(path) + u" boş olamaz."_s;
        return complaint(path, value,
                         u"çok kısa; en az %1 karakter olmalı."_s.arg(shortest.toInteger()));
    }
    const QJsonValue longest = schema.value("maxLength"_L1);
    if (longest.isDouble() && text.size() > longest.toInteger())
        return complaint(path, value,
                         u"çok uzun; en çok %1 karakter olmalı."_s.arg(longest.toInteger()));
    const QJsonValue pattern = schema.value("pattern"_L1);
    if (pattern.isString()) {
        if (!QRegularExpression(endingStrictly(pattern.toString())).match(text).hasMatch())
            return complaint(path, value, u"beklenen biçimde değil%1."_s.arg(exampleText(schema)));
    }
    if (schema.value("format"_L1).toString() == "date"_L1 && !parseDate(text).isValid())
        return complaint(path, value,
                         u"geçerli bir tarih değil; yyyy-aa-gg biçiminde, takvimde "
                         "var olan bir gün olmalı."_s);
    return std::nullopt;
}

Violation numberViolation(const QJsonObject &schema, const QJsonValue &value, const QString &path)
{
    const QJsonValue minimum = schema.value("minimum"_L1);
    if (minimum.isDouble() && value.toDouble() < minimum.toDouble())
        return complaint(path, value, u"çok küçük; en az %1 olmalı."_s.arg(quoted(minimum)));
    const QJsonValue maximum = schema.value("maximum"_L1);
    if (maximum.isDouble() && value.toDouble() > maximum.toDouble())
        return complaint(path, value, u"çok büyük; en çok %1 olmalı."_s.arg(quoted(maximum)));
    return std::nullopt;
}

Violation valueViolation(const QJsonObject &schema, const QJsonValue &value, const QString &path);

Violation arrayViolation(const QJsonObject &schema, const QJsonArray &array, const QString &path)
{
    const QJsonValue fewest = schema.value("minItems"_L1);
    if (fewest.isDouble() && array.size() < fewest.toInteger())
        return named(path) + u" en az %1 öge içermeli."_s.arg(fewest.toInteger());
    const QJsonValue most = schema.value("maxItems"_L1);
    if (most.isDouble() && array.size() > most.toInteger())
        return named(path) + u" en çok %1 öge içermeli."_s.arg(most.toInteger());
    const QJsonValue items = schema.value("items"_L1);
    for (qsizetype i = 0; items.isObject() && i < array.size(); ++i) {
        if (Violation found =
                valueViolation(items.toObject(), array.at(i), path + u"[%1]"_s.arg(i)))
            return found;
    }
    return std::nullopt;
}

Violation objectViolation(const QJsonObject &schema, const QJsonObject &object, const QString &path)
{
    for (const QJsonValue required : schema.value("required"_L1).toArray()) {
        if (!object.contains(required.toString()))
            return named(memberPath(path, required.toString())) + u" eksik."_s;
    }
    const QJsonObject properties = schema.value("properties"_L1).toObject();
    const bool closed = schema.value("additionalProperties"_L1) == QJsonValue(false);
    for (auto member = object.begin(); member != object.end(); ++member) {
        const QJsonValue property = properties.value(member.key());
        if (property.isUndefined() && closed)
            return named(memberPath(path, member.key())) + u" bilinmeyen bir alan."_s;
        if (!property.isObject())
            continue;
        if (Violation found =
                valueViolation(property.toObject(), member.value(), memberPath(path, member.key())))
            return found;
    }
    return std::nullopt;
}

Violation enumViolation(const QJsonArray &allowed, const QJsonValue &value, const QString &path)
{
    if (allowed.isEmpty() || allowed.contains(value))
        return std::nullopt;
    QStringList names;
    for (const QJsonValue choice : allowed)
        names.append(choice.isString() ? choice.toString() : quoted(choice));
    return complaint(path, value,
                     names.size() == 1
                         ? u"geçerli değil; %1 olmalı."_s.arg(names.first())
                         : u"geçerli değil; şunlardan biri olmalı: %1."_s.arg(names.join(u", ")));
}

Violation valueViolation(const QJsonObject &schema, const QJsonValue &value, const QString &path)
{
    const QString type = schema.value("type"_L1).toString();
    if (!type.isEmpty() && !hasType(value, type))
        return named(path) + u' ' + typeText(type) + u" olmalı."_s;
    if (Violation found = enumViolation(schema.value("enum"_L1).toArray(), value, path))
        return found;
    if (value.isString())
        return textViolation(schema, value, path);
    if (value.isDouble())
        return numberViolation(schema, value, path);
    if (value.isArray())
        return arrayViolation(schema, value.toArray(), path);
    if (value.isObject())
        return objectViolation(schema, value.toObject(), path);
    return std::nullopt;
}

} // namespace

std::optional<QString> violation(const QJsonObject &schema, const QJsonValue &value)
{
    return valueViolation(schema, value, QString());
}

QStringList uncheckedKeywords(const QJsonObject &schema)
{
    static const QStringList known {
        u"type"_s,     u"properties"_s, u"required"_s,  u"additionalProperties"_s,
        u"items"_s,    u"minItems"_s,   u"maxItems"_s,  u"enum"_s,
        u"pattern"_s,  u"minLength"_s,  u"maxLength"_s, u"minimum"_s,
        u"maximum"_s,  u"format"_s,     u"title"_s,     u"description"_s,
        u"examples"_s, u"default"_s,
    };
    QStringList unchecked;
    for (auto member = schema.begin(); member != schema.end(); ++member) {
        if (!known.contains(member.key()))
            unchecked.append(member.key());
    }
    const QJsonValue format = schema.value("format"_L1);
    if (!format.isUndefined() && format.toString() != "date"_L1)
        unchecked.append(u"format: "_s + format.toString());
    const QJsonObject properties = schema.value("properties"_L1).toObject();
    for (const QJsonValue property : properties)
        unchecked += uncheckedKeywords(property.toObject());
    if (schema.value("items"_L1).isObject())
        unchecked += uncheckedKeywords(schema.value("items"_L1).toObject());
    return unchecked;
}

QDate parseDate(const QString &text)
{
    static const QRegularExpression shape(uR"(^[0-9]{4}-[0-9]{2}-[0-9]{2}\z)"_s);
    return shape.match(text).hasMatch() ? QDate::fromString(text, Qt::ISODate) : QDate();
}

} // namespace Sample::JsonSchema
