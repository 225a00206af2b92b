#include "Services/ToolResults.h"

#include "Services/McpError.h"
#include "Services/PlatformErrorText.h"

#include <QJsonDocument>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// An object of three bytes can become a record of a kilobyte. Characters inside strings count too;
/// honest replies stay far below the limits.
bool isTooMuch(const QByteArray &json)
{
    constexpr int mostContainers = 80'000;
    constexpr int mostValues = 1'000'000;
    return json.count('{') + json.count('[') > mostContainers || json.count(',') > mostValues;
}

} // namespace

QJsonObject ToolResults::parseAnswer(const QByteArray &body)
{
    if (isTooMuch(body))
        throw McpError(McpError::Domain::Network, -1, PlatformErrorText::tooLarge());
    QJsonParseError parseError;
    const QJsonDocument document = QJsonDocument::fromJson(body, &parseError);
    if (parseError.error != QJsonParseError::NoError)
        throw McpError(McpError::Domain::Json, parseError.error, PlatformErrorText::notJson());
    if (!document.isObject())
        throw McpError(McpError::Domain::Client, -1, u"Invalid JSON response"_s);

    if (const QJsonValue error = document["error"_L1]; error.isObject()) {
        throw McpError(McpError::Domain::Client, -1,
                       error["message"_L1].toString(u"Tool execution failed"_s));
    }
    const QJsonObject result = document["result"_L1].toObject();
    return result["structuredContent"_L1].toObject(result);
}
