#include "Services/ToolResult.h"

#include "Models/JsonReading.h"
#include "Services/McpError.h"
#include "Services/PlatformErrorText.h"

#include <QJsonDocument>

using namespace Qt::StringLiterals;

QJsonObject readToolResult(const QByteArray &body)
{
    QJsonParseError parseError;
    const QJsonDocument document = QJsonDocument::fromJson(body, &parseError);
    if (parseError.error != QJsonParseError::NoError) {
        throw McpError(McpError::Domain::Json, parseError.error,
                       PlatformErrorText::json(parseError));
    }
    if (!document.isObject())
        throw McpError(McpError::Domain::Client, -1, u"Invalid JSON response"_s);

    const QJsonObject answer = document.object();
    if (const auto error = JsonReading::object(answer, u"error")) {
        throw McpError(McpError::Domain::Client, -1,
                       JsonReading::text(*error, u"message").value_or(u"Tool execution failed"_s));
    }
    const QJsonObject result = JsonReading::object(answer, u"result").value_or(QJsonObject());
    return JsonReading::object(result, u"structuredContent").value_or(result);
}
