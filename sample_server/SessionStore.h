#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>

#include <chrono>
#include <optional>

namespace Sample {

/// The MCP sessions that are open. It is used by one thread; time is handed in.
class SessionStore
{
public:
    using Moment = std::chrono::steady_clock::time_point;

    /// A session that no request has named for this long is dropped.
    void setIdleTimeout(std::chrono::milliseconds timeout) { m_idleTimeout = timeout; }
    /// When more are opened, the session that has been idle the longest is dropped.
    void setMaximumCount(int count) { m_maximumCount = count; }

    /// The identifier of a new session that speaks the given protocol version. Identifiers are
    /// unguessable and consist of visible ASCII characters.
    QByteArray open(const QString &protocolVersion, Moment now);
    /// The session's protocol version, and a sign of life; absent when there is no such session.
    std::optional<QString> touch(const QByteArray &id, Moment now);
    /// False when there is no such session.
    bool close(const QByteArray &id, Moment now);
    int count(Moment now);

private:
    struct Session
    {
        QString protocolVersion;
        Moment lastUse;
    };

    void dropIdle(Moment now);

    QHash<QByteArray, Session> m_sessions;
    std::chrono::milliseconds m_idleTimeout = std::chrono::minutes(30);
    int m_maximumCount = 1000;
};

} // namespace Sample
