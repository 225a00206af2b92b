#pragma once

#include "sample_server/Tool.h"

#include <QList>

namespace Sample {

/// The tools of the server, in the order of data/tools.json, which holds their descriptions.
class ToolRegistry
{
public:
    ToolRegistry();

    const QList<Tool> &tools() const { return m_tools; }

    /// The tool's structured result. Throws JsonRpc::Error for an unknown tool, for arguments that
    /// do not satisfy its schema, and for those that the tool itself refuses.
    QJsonObject call(const QString &name, const QJsonObject &arguments,
                     const ToolContext &context) const;

private:
    QList<Tool> m_tools;
};

/// The object in a JSON file among the resources.
QJsonObject readResource(const QString &fileName);

} // namespace Sample
