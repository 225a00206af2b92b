#pragma once

#include "sample_server/HttpConnection.h"
#include "sample_server/Tool.h"

#include <functional>
#include <optional>

namespace Sample {

/// The one HTTP resource of the server: checks requests, keeps the sessions, and answers what
/// clients of the Model Context Protocol ask: "initialize", "ping", "tools/list" and "tools/call".
class McpEndpoint
{
public:
    /// Is told each tool call before its arguments are checked.
    using Observer = std::function<void(const QString &name, const QJsonObject &arguments)>;

    explicit McpEndpoint(const Observer &observer)
        : m_toolCalled(observer)
    { }

    HttpAnswer answer(const HttpRequest &request, const ToolContext &context);
    int sessionCount() const { return int(m_sessions.size()); }

private:
    HttpAnswer answerMessage(const HttpRequest &request, const ToolContext &context);
    QJsonObject resultOf(const QString &method, const QJsonObject &params,
                         const ToolContext &context) const;
    /// Notes a sign of life of the session that the request names, or says what is wrong with it.
    std::optional<HttpAnswer> sessionRefusal(const HttpRequest &request);
    QByteArray openSession();

    Observer m_toolCalled;
    QList<QByteArray> m_sessions; ///< the one that was named last stands last
};

} // namespace Sample
