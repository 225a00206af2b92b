#pragma once

#include "sample_server/HttpServer.h"

#include <QJsonObject>
#include <QMutex>
#include <QObject>

#include <chrono>

/// An MCP server over streamable HTTP with JSON answers that stands in for the airline's. It serves
/// the path "/mcp" on the loopback interface only, and all its data is invented.
///
/// Requests are answered one after the other, each in a few milliseconds, in threads of the
/// server's own.
class SampleServer : public QObject
{
    Q_OBJECT

public:
    /// Starts to listen on 127.0.0.1 and returns the port; 0 lets the system choose a free one.
    /// Absent when that failed, with the reason in errno.
    std::optional<quint16> listen(quint16 port = 0) { return m_http.listen(port); }

    /// Holds back every answer for `delay` and a pseudo-random time up to `jitter`, without
    /// blocking other requests. With jitter, answers to different connections overtake one another.
    void setAnswerDelay(std::chrono::milliseconds delay,
                        std::chrono::milliseconds jitter = std::chrono::milliseconds(0));

Q_SIGNALS:
    /// A tool call was received, before its arguments are checked. Emitted in a thread of the
    /// server's own.
    void toolCalled(const QString &name, const QJsonObject &arguments);

private:
    Sample::HttpAnswer answer(const Sample::HttpRequest &request);
    Sample::HttpAnswer answerMessage(const Sample::HttpRequest &request);
    QJsonObject resultOf(const QString &method, const QJsonObject &params);
    /// The session that the request names, after it is marked as used. Throws the answer when there
    /// is none.
    QByteArray usedSession(const Sample::HttpRequest &request);

    QMutex m_mutex; ///< of everything below
    QList<QByteArray> m_sessions; ///< the one that was named last stands last
    std::chrono::milliseconds m_delay { 0 };
    std::chrono::milliseconds m_jitter { 0 };
    int m_answerCount = 0;
    /// The last member: it goes first, and with it the threads that use the others.
    Sample::HttpServer m_http { [this](const auto &request) { return answer(request); } };
};
