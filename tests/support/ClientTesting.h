#pragma once

#include "Services/ToolCall.h"
#include "Services/VTRMCPClient.h"

#include <QCoroTask>

#include <QEventLoop>
#include <QTest>
#include <QTimer>

#include <functional>
#include <memory>
#include <optional>

/// The way of the tests to a client with an endpoint and limits of their own.
struct VTRMCPClientTestAccess
{
    /// Makes a fresh client the shared one; the former is destroyed first.
    static VTRMCPClient &replaceShared(const QUrl &endpoint, const HttpLimits &limits = {})
    {
        destroyShared();
        VTRMCPClient::instance().reset(new VTRMCPClient(endpoint, limits));
        return VTRMCPClient::shared();
    }
    static void destroyShared() { VTRMCPClient::instance().reset(); }
    /// What the end of the application does.
    static void shutDown() { VTRMCPClient::shared().shutDown(); }

    /// Calls a tool with a reader of the test's own.
    template<typename Record>
    static QCoro::Task<Record> callTool(std::function<Record(const QJsonObject &)> reader)
    {
        const QString tool = QStringLiteral("any");
        return VTRMCPClient::shared().callTool<Record>(tool, QJsonObject(), std::move(reader));
    }
};

/// How a task ended.
template<typename T>
struct Outcome
{
    std::optional<T> value;
    std::optional<McpError> error;
    std::function<void()> whenEnded = [] {};

    bool hasEnded() const { return value || error; }
    QString errorText() const { return error ? error->localizedDescription() : QString(); }
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
    outcome->whenEnded();
}

/// Watches a task without waiting for it.
template<typename T>
PendingOutcome<T> watch(QCoro::Task<T> task)
{
    auto outcome = std::make_shared<Outcome<T>>();
    note(std::move(task), outcome);
    return outcome;
}

constexpr int longestWait = 10'000;

/// Turns the event loop until the task has ended; an outcome without value and error after too
/// long a time.
template<typename T>
Outcome<T> settle(const PendingOutcome<T> &outcome)
{
    if (!outcome->hasEnded()) {
        QEventLoop loop;
        QTimer::singleShot(longestWait, &loop, &QEventLoop::quit);
        outcome->whenEnded = [&loop] { loop.quit(); };
        loop.exec();
        outcome->whenEnded = [] {};
    }
    return *outcome;
}

template<typename T>
Outcome<T> settle(QCoro::Task<T> task)
{
    return settle(watch(std::move(task)));
}
