#pragma once

#include "Services/ToolResult.h"
#include "Services/VTRMCPClient.h"

#include <QCoroFuture>

#include <QScopeGuard>
#include <QtConcurrentRun>

#include <functional>

// The body of VTRMCPClient::callTool with a reader, for the sources of the tool operations alone.

template<typename Record>
QCoro::Task<Record> VTRMCPClient::callTool(QString name, QJsonObject arguments,
                                           std::function<Record(const JsonObject &)> reader)
{
    ++m_callsUnderWay;
    const auto leave = qScopeGuard([this] { --m_callsUnderWay; });
    try {
        const QByteArray body = co_await exchangeToolCall(name, arguments);
        if (body.size() <= largestBodyParsedOnMainThread)
            co_return reader(readToolResult(body));

        const QFuture<Record> parsed = QtConcurrent::run(
            &m_readerPool, [body, reader] { return reader(readToolResult(body)); });
        co_return co_await parsed;
    } catch (...) {
        throw McpError::current();
    }
}
