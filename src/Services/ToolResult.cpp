#include "Services/ToolResult.h"

#include "Services/McpError.h"
#include "Services/PlatformErrorText.h"

#include <QJsonDocument>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

// What one reply may hold. Each object or array of three bytes may become a record of a kilobyte.
// A list of 25,000 flights has 75,000 of them and 400,000 values.
constexpr int mostContainers = 80'000;
constexpr int mostValues = 1'000'000;

bool isTooMuch(const QByteArray &json)
{
    const auto opens = [](char sign) { return sign == '{' || sign == '['; };
    // Counting without regard to texts is many times as fast, and nearly always enough.
    if (std::count_if(json.cbegin(), json.cend(), opens) <= mostContainers
        && std::count(json.cbegin(), json.cend(), ',') <= mostValues) {
        return false;
    }
    int containers = 0;
    int values = 0;
    bool isText = false;
    for (const char *sign = json.cbegin(); sign != json.cend(); ++sign) {
        if (isText && *sign == '\\' && sign + 1 != json.cend())
            ++sign;
        else if (*sign == '"')
            isText = !isText;
        else if (!isText && opens(*sign))
            ++containers;
        else if (!isText && *sign == ',')
            ++values;
    }
    return containers > mostContainers || values > mostValues;
}

} // namespace

JsonObject readToolResult(const QByteArray &body)
{
    if (isTooMuch(body)) {
        throw McpError(McpError::Domain::Network, QAbstractSocket::OperationError,
                       PlatformErrorText::tooLarge());
    }
    QJsonParseError parseError;
    const auto answer = JsonObject::parsed(body, parseError);
    if (parseError.error != QJsonParseError::NoError) {
        throw McpError(McpError::Domain::Json, parseError.error,
                       PlatformErrorText::json(parseError));
    }
    if (!answer)
        throw McpError(McpError::Domain::Client, -1, u"Invalid JSON response"_s);

    if (const auto error = answer->object("error")) {
        throw McpError(McpError::Domain::Client, -1,
                       error->text("message").value_or(u"Tool execution failed"_s));
    }
    const JsonObject result = answer->object("result").value_or(JsonObject());
    return result.object("structuredContent").value_or(result);
}
