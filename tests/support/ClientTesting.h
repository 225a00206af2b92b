#pragma once

#include "Services/VTRMCPClient.h"
#include "support/ScriptedServer.h"

#include <QCoroTask>

#include <QHash>
#include <QTest>
#include <QTestEventLoop>

#include <functional>
#include <memory>
#include <optional>

/// Gives tests a client with an endpoint and limits of their own.
struct VTRMCPClientTestAccess
{
    /// Makes a fresh client the shared one; the former is destroyed first.
    static VTRMCPClient &replaceShared(const QUrl &endpoint, const HttpSettings &settings = {})
    {
        destroyShared();
        VTRMCPClient::instance().reset(new VTRMCPClient(endpoint, settings));
        return VTRMCPClient::shared();
    }
    /// Calls whose session is lost are repeated with pauses no longer than this.
    static void setLongestPause(std::chrono::milliseconds pause)
    {
        VTRMCPClient::shared().m_longestPause = pause;
    }
    static void destroyShared() { VTRMCPClient::instance().reset(); }

    /// Calls a tool with a reader of the test's own.
    template<typename Record>
    static QCoro::Task<Record> callTool(std::function<Record(const QJsonObject &)> reader)
    {
        return VTRMCPClient::shared().ask<Record>(QStringLiteral("any"), {}, std::move(reader));
    }
};

/// With the authority of the tests' certificates instead of the system's.
inline HttpSettings trustingSettings()
{
    return { .authorities = ScriptedServer::certificate(QStringLiteral("authority")).toPem() };
}

/// How a task ended.
template<typename T>
struct Outcome
{
    std::optional<T> value;
    std::optional<McpError> error;

    bool hasEnded() const { return value || error; }
    QString errorText() const
    {
        const QString otherwise = hasEnded() ? QString() : QStringLiteral("It has not ended.");
        return error ? error->localizedDescription() : otherwise;
    }
};

template<typename T>
using PendingOutcome = std::shared_ptr<Outcome<T>>;

template<typename T>
QCoro::Task<> note(QCoro::Task<T> task, PendingOutcome<T> outcome)
{
    try {
        const T value = co_await task;
        outcome->value = value;
    } catch (const McpError &error) {
        outcome->error = error;
    }
    QTestEventLoop::instance().exitLoop();
}

/// Watches a task without waiting for it.
template<typename T>
PendingOutcome<T> watch(QCoro::Task<T> task)
{
    auto outcome = std::make_shared<Outcome<T>>();
    note(std::move(task), outcome);
    return outcome;
}

/// Turns the event loop until the task has ended; an outcome without value and error after ten
/// seconds.
template<typename T>
Outcome<T> settle(const PendingOutcome<T> &outcome)
{
    QTestEventLoop &loop = QTestEventLoop::instance();
    bool isInTime = true;
    // The end of any task leaves the loop.
    while (!outcome->hasEnded() && isInTime && !QTest::currentTestFailed()) {
        loop.enterLoop(10);
        isInTime = !loop.timeout();
    }
    return *outcome;
}

template<typename T>
Outcome<T> settle(QCoro::Task<T> task)
{
    return settle(watch(std::move(task)));
}

/// A test class in which each test has a server and a fresh shared client of its own.
class ClientTest : public QObject
{
    Q_OBJECT

protected Q_SLOTS:
    void init()
    {
        m_answers.clear();
        m_server = std::make_unique<ScriptedServer>();
        m_server->onToolCall = [this](const ReceivedRequest &request) {
            return m_answers.value(request.tool(), ScriptedAnswer::content());
        };
        VTRMCPClientTestAccess::replaceShared(m_server->endpoint());
    }
    void cleanup()
    {
        VTRMCPClientTestAccess::destroyShared();
        m_server.reset();
    }

protected:
    static QCoro::Task<QJsonObject> call(const QString &tool = QStringLiteral("any"),
                                         const QJsonObject &arguments = {})
    {
        return VTRMCPClient::shared().callTool(tool, arguments);
    }

    std::unique_ptr<ScriptedServer> m_server;
    /// What it answers, by tool; the others get an empty result.
    QHash<QString, ScriptedAnswer> m_answers;
};
