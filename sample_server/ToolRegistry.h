#pragma once

#include "sample_server/Tool.h"

#include <QJsonArray>

namespace Sample {

/// What "tools/list" shows: name, description and schemas of each tool, out of data/tools.json.
const QJsonArray &toolDescriptions();

/// The tool's structured result. Throws RpcError for an unknown tool, for arguments that do not
/// satisfy its input schema, and for those that the tool itself refuses.
QJsonObject callTool(const QString &name, const QJsonObject &arguments, const ToolContext &context);

/// The array under this key in a JSON file among the resources.
QJsonArray readResource(const QString &fileName, QLatin1StringView key);

} // namespace Sample
