#include "Services/ToolResult.h"

#include "Models/JsonReading.h"
#include "Services/McpError.h"
#include "Services/PlatformErrorText.h"

#include <QJsonDocument>

using namespace Qt::StringLiterals;

namespace {

// What one reply may hold. Each object or array of three bytes may become a record of a kilobyte.
// A list of 25,000 flights has 75,000 of them and 400,000 values.
constexpr int mostContainers = 80'000;
constexpr int mostValues = 1'000'000;

bool isTooMuch(const QByteArray &json)
{
    int containers = 0;
    int values = 0;
    bool isText = false;
    for (const char *sign = json.cbegin(); sign != json.cend(); ++sign) {
        if (isText && *sign == '\\' && sign + 1 != json.cend())
            ++sign;
        else if (*sign == '"')
            isText = !isText;
        else if (!isText && (*sign == '{' || *sign == '['))
            ++containers;
        else if (!isText && *sign == ',')
            ++values;
    }
    return containers > mostContainers || values > mostValues;
}

} // namespace

QJsonObject readToolResult(const QByteArray &body)
{
    if (isTooMuch(body)) {
        throw McpError(McpError::Domain::Network, QAbstractSocket::OperationError,
                       PlatformErrorText::tooLarge());
    }
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
