#pragma once

#include <QDateTime>
#include <QJsonObject>
#include <QObject>
#include <QString>

#include <chrono>
#include <functional>
#include <memory>
#include <optional>

/// An MCP server over streamable HTTP with JSON answers that stands in for the airline's. It serves
/// the path "/mcp" on the loopback interface only, and all its data is invented.
///
/// It lives in one thread, which needs a running event loop, and may be moved to another one before
/// listen(); every function is called in its thread. Tools run on threads of its own, so an answer
/// that takes long does not hold up others. Destroying it waits for running tools; requests that
/// have no answer yet get none.
class SampleServer : public QObject
{
    Q_OBJECT

public:
    using Clock = std::function<QDateTime()>;

    explicit SampleServer(QObject *parent = nullptr);
    ~SampleServer() override;

    /// Starts to listen on 127.0.0.1 and returns the port; 0 lets the system choose a free one.
    /// Absent when that failed, with the reason in errorString().
    std::optional<quint16> listen(quint16 port = 0);
    QString errorString() const;

    /// The time by which days are past and flights are in the air; the system's when not set.
    void setClock(const Clock &clock);
    /// Base of the booking links: an http or https address; a trailing slash is ignored. The web
    /// site that the build is configured for when not set.
    void setWebSite(const QString &webSite);
    /// Holds back every answer for `delay` and a pseudo-random time up to `jitter`, without
    /// blocking other requests. With jitter, answers overtake one another.
    void setAnswerDelay(std::chrono::milliseconds delay,
                        std::chrono::milliseconds jitter = std::chrono::milliseconds(0));
    /// A session that no request names for this long is dropped; 30 minutes when not set.
    void setSessionIdleTimeout(std::chrono::milliseconds timeout);
    /// When more sessions are opened, the one that has been idle longest is dropped.
    void setMaximumSessionCount(int count);
    int sessionCount();

Q_SIGNALS:
    /// A tool call was received, before its arguments are checked.
    void toolCalled(const QString &name, const QJsonObject &arguments);

private:
    struct Private;
    std::unique_ptr<Private> d;
};
