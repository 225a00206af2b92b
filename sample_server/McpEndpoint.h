#pragma once

#include "sample_server/HttpAnswer.h"
#include "sample_server/McpProtocol.h"
#include "sample_server/SessionStore.h"

#include <QHttpServerRequest>

#include <functional>
#include <variant>

namespace Sample {

/// The one HTTP resource of the server: checks requests, keeps the sessions, and hands the messages
/// to the protocol. It is used by one thread.
class McpEndpoint
{
public:
    /// Work that may run on any thread, also after the endpoint is gone.
    using Job = std::function<HttpAnswer()>;

    /// The answer if it is ready, else the work that makes it.
    std::variant<HttpAnswer, Job> receive(const QHttpServerRequest &request,
                                          const ToolContext &context, SessionStore::Moment now);

    SessionStore &sessions() { return m_sessions; }
    /// Is told the parameters of each "tools/call".
    void setToolCallObserver(const std::function<void(const QJsonObject &params)> &observer)
    {
        m_toolCallObserver = observer;
    }

private:
    HttpAnswer openSession(const QJsonObject &request, SessionStore::Moment now);
    std::variant<HttpAnswer, Job> receiveOne(const QJsonValue &message, const ToolContext &context);
    std::variant<HttpAnswer, Job> receiveBatch(const QJsonArray &messages, const QString &version,
                                               const ToolContext &context);
    void observe(const QJsonValue &message) const;

    std::shared_ptr<const McpProtocol> m_protocol = std::make_shared<const McpProtocol>();
    SessionStore m_sessions;
    std::function<void(const QJsonObject &params)> m_toolCallObserver;
};

} // namespace Sample
