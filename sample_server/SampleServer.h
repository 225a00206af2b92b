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
/// Connections are served in a thread of their own; requests are answered one after the other, each
/// in a few milliseconds, in the thread of this object, which needs a running event loop.
class SampleServer : public QObject
{
    Q_OBJECT

public:
    using Clock = std::function<QDateTime()>;

    SampleServer();
    ~SampleServer() override;

    /// Starts to listen on 127.0.0.1 and returns the port; 0 lets the system choose a free one.
    /// Absent when that failed, with the reason in errno.
    std::optional<quint16> listen(quint16 port = 0);

    /// The time by which days are past and flights are in the air; the system's when not set.
    void setClock(const Clock &clock);
    /// Holds back every answer for `delay` and a pseudo-random time up to `jitter`, without
    /// blocking other requests. With jitter, answers to different connections overtake one another.
    void setAnswerDelay(std::chrono::milliseconds delay,
                        std::chrono::milliseconds jitter = std::chrono::milliseconds(0));

Q_SIGNALS:
    /// A tool call was received, before its arguments are checked.
    void toolCalled(const QString &name, const QJsonObject &arguments);

private:
    struct Private;
    std::unique_ptr<Private> d;
};
