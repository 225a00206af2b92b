#include "sample_server/JsonSchema.h"

#include <valijson/adapters/qtjson_adapter.hpp>
#include <valijson/schema.hpp>
#include <valijson/schema_parser.hpp>
#include <valijson/validator.hpp>

namespace Sample::JsonSchema {

std::optional<QString> violation(const QJsonObject &schema, const QJsonValue &value)
{
    using valijson::adapters::QtJsonAdapter;
    valijson::Schema parsed;
    valijson::SchemaParser().populateSchema(QtJsonAdapter(schema), parsed);
    valijson::ValidationResults results;
    if (valijson::Validator().validate(parsed, QtJsonAdapter(value), &results))
        return std::nullopt;
    // The first complaint lies deepest; the others are about what holds it. Its steps are written
    // "[from]" and "[0]", after one for the whole value.
    const valijson::ValidationResults::Error first = *results.begin();
    QString text;
    for (size_t i = 1; i < first.context.size(); ++i)
        text += QString::fromStdString(first.context[i]);
    return text + u' ' + QString::fromStdString(first.description);
}

} // namespace Sample::JsonSchema
