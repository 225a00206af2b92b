#include "sample_server/ToolRegistry.h"

#include "sample_server/JsonSchema.h"

#include <QFile>
#include <QJsonDocument>

#include <algorithm>
#include <iterator>

namespace Sample {

using namespace Qt::StringLiterals;

const QJsonArray &toolDescriptions()
{
    static const QJsonArray descriptions = readResource(u"tools.json"_s, "tools"_L1);
    return descriptions;
}

QJsonObject callTool(const QString &name, const QJsonObject &arguments, const ToolContext &context)
{
    const auto entry = std::find_if(std::begin(tools), std::end(tools),
                                    [&name](const ToolEntry &tool) { return tool.name == name; });
    const QJsonArray &descriptions = toolDescriptions();
    const auto tool = std::find_if(
        descriptions.begin(), descriptions.end(),
        [&name](const QJsonValue &description) { return description["name"_L1] == name; });
    if (tool == descriptions.end() || entry == std::end(tools))
        throw RpcError { u"\"%1\" adında bir araç yok."_s.arg(name.left(80)) };
    if (const auto violation =
            JsonSchema::violation((*tool)["inputSchema"_L1].toObject(), arguments))
        throw RpcError { *violation };
    return entry->call(arguments, context);
}

QJsonArray readResource(const QString &fileName, QLatin1StringView key)
{
    QFile file(u":/vantora/sample_server/"_s + fileName);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("The sample server was built without %s", qPrintable(fileName));
    return QJsonDocument::fromJson(file.readAll())[key].toArray();
}

} // namespace Sample
