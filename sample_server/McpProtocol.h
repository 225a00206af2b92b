#pragma once

#include "sample_server/JsonRpc.h"
#include "sample_server/ToolRegistry.h"

#include <QStringList>

namespace Sample {

/// Answers the requests of the Model Context Protocol. It keeps no state of a session, so it may be
/// asked from several threads at once.
class McpProtocol
{
public:
    /// Protocol versions that are served, the newest last.
    static const QStringList &versions();
    /// The only version in which several messages may come in one body.
    static bool allowsBatches(const QString &version);

    /// The version to speak with a client that asks for this one in its "initialize" parameters.
    /// Throws JsonRpc::Error when the parameters are malformed.
    QString negotiatedVersion(const QJsonObject &request) const;
    QJsonObject initializeResult(const QString &version) const;

    /// The answer, result or error, to any request but "initialize".
    QJsonObject answer(const QJsonObject &request, const ToolContext &context) const;

    const ToolRegistry &tools() const { return m_tools; }

private:
    QJsonObject resultOf(const QJsonObject &request, const ToolContext &context) const;
    QJsonObject toolList(const QJsonObject &params) const;
    QJsonObject toolResult(const QJsonObject &params, const ToolContext &context) const;

    ToolRegistry m_tools;
};

} // namespace Sample
