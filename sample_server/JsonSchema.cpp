#include "sample_server/JsonSchema.h"

#include <QHash>
#include <QJsonArray>
#include <QJsonDocument>
#include <QStringList>

#include <valijson/adapters/qtjson_adapter.hpp>
#include <valijson/schema.hpp>
#include <valijson/schema_parser.hpp>
#include <valijson/validator.hpp>

#include <string>
#include <vector>

namespace Sample::JsonSchema {

using namespace Qt::StringLiterals;

namespace {

constexpr int longestQuotedText = 40;

/// A member that is wrong, and the schema it had to satisfy.
struct Place
{
    QString path;
    QJsonObject schema;
    QJsonValue value;
};

/// The steps of a path are written "[from]" and "[0]", after one for the whole value.
Place follow(const std::vector<std::string> &steps, Place place)
{
    for (size_t i = 1; i < steps.size(); ++i) {
        const QString key = QString::fromStdString(steps[i]).mid(1).chopped(1);
        if (place.value.isArray()) {
            place = { place.path + u'[' + key + u']', place.schema["items"_L1].toObject(),
                      place.value[key.toInt()] };
        } else {
            place = { place.path.isEmpty() ? key : place.path + u'.' + key,
                      place.schema["properties"_L1][key].toObject(), place.value[key] };
        }
    }
    return place;
}

QString shortened(const QString &text)
{
    return text.size() <= longestQuotedText ? text : text.left(longestQuotedText) + u"…"_s;
}

QString json(const QJsonValue &value)
{
    const QByteArray array = QJsonDocument(QJsonArray { value }).toJson(QJsonDocument::Compact);
    return QString::fromUtf8(array.sliced(1).chopped(1));
}

/// The end of the sentence: what the schema allows.
QString expectation(const QJsonObject &schema)
{
    QStringList choices;
    for (const QJsonValue choice : schema["enum"_L1].toArray())
        choices.append(choice.toString());
    if (!choices.isEmpty())
        return u"şunlardan biri olmalı: %1."_s.arg(choices.join(u", "));
    if (schema.contains("maximum"_L1))
        return u"%1 ile %2 arasında bir tam sayı olmalı."_s.arg(json(schema["minimum"_L1]),
                                                                json(schema["maximum"_L1]));
    if (schema.contains("examples"_L1))
        return u"beklenen biçimde olmalı (örnek: %1)."_s.arg(schema["examples"_L1][0].toString());
    static const QHash<QString, QString> types {
        { u"object"_s, u"bir nesne"_s },
        { u"array"_s, u"uygun uzunlukta bir liste"_s },
        { u"boolean"_s, u"true ya da false"_s },
        { u"string"_s, u"bir metin"_s },
    };
    const QString type = schema["type"_L1].toString();
    return types.value(type, type) + u" olmalı."_s;
}

QString complaint(const Place &place)
{
    const auto named = [&place](const QString &key) {
        return u'"' + shortened(place.path.isEmpty() ? key : place.path + u'.' + key) + u'"';
    };
    const QJsonObject object = place.value.toObject();
    if (place.value.isObject()) {
        for (const QJsonValue required : place.schema["required"_L1].toArray()) {
            if (!object.contains(required.toString()))
                return named(required.toString()) + u" eksik."_s;
        }
        for (const QString &key : object.keys()) {
            if (!place.schema["properties"_L1].toObject().contains(key))
                return named(key) + u" bilinmeyen bir alan."_s;
        }
    }
    return u"\"%1\": %2 uygun değil; %3"_s.arg(place.path, shortened(json(place.value)),
                                               expectation(place.schema));
}

} // namespace

std::optional<QString> violation(const QJsonObject &schema, const QJsonValue &value)
{
    using valijson::adapters::QtJsonAdapter;
    valijson::Schema parsed;
    valijson::SchemaParser().populateSchema(QtJsonAdapter(schema), parsed);
    valijson::ValidationResults results;
    if (valijson::Validator().validate(parsed, QtJsonAdapter(value), &results))
        return std::nullopt;
    // The first complaint lies deepest; the others are about what holds it.
    return complaint(follow(results.begin()->context, { {}, schema, value }));
}

} // namespace Sample::JsonSchema
