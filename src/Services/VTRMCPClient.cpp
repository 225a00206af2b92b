#include "Services/VTRMCPClient.h"

#include "Services/PlatformErrorText.h"
#include "Services/ServiceAddresses.h"

#include <QCoroSignal>

#include <QCoreApplication>
#include <QJsonDocument>
#include <QStringDecoder>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

QByteArray initializeBody()
{
    const QJsonObject params {
        { u"protocolVersion"_s, u"2024-11-05"_s },
        { u"capabilities"_s,
          QJsonObject { { u"tools"_s, QJsonObject { { u"listChanged"_s, true } } } } },
        { u"clientInfo"_s,
          QJsonObject { { u"name"_s, u"vtr-flight-finder-macos-native"_s },
                        { u"version"_s, u"1.0.0"_s } } },
    };
    const QJsonObject request { { u"jsonrpc"_s, u"2.0"_s },
                                { u"id"_s, 1 },
                                { u"method"_s, u"initialize"_s },
                                { u"params"_s, params } };
    return QJsonDocument(request).toJson(QJsonDocument::Compact);
}

QByteArray toolCallBody(qint64 id, const QString &name, const QJsonObject &arguments)
{
    const QJsonObject request {
        { u"jsonrpc"_s, u"2.0"_s },
        { u"id"_s, id },
        { u"method"_s, u"tools/call"_s },
        { u"params"_s, QJsonObject { { u"name"_s, name }, { u"arguments"_s, arguments } } },
    };
    return QJsonDocument(request).toJson(QJsonDocument::Compact);
}

/// Empty when the bytes are no UTF-8.
QString utf8Text(const QByteArray &bytes)
{
    // Without state a cut character at the end is an error too.
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    const QString text = decoder(bytes);
    return decoder.hasError() ? QString() : text;
}

/// The session that an answer to "initialize" opens; an McpError when it opens none.
QString readSessionId(const HttpAnswer &answer)
{
    const QByteArray sessionId = answer.headers.value("mcp-session-id");
    if (!sessionId.isEmpty())
        return QString::fromLatin1(sessionId);
    throw McpError(McpError::Domain::Client, answer.status,
                   u"No mcp-session-id header: "_s + utf8Text(answer.body));
}

HttpHeaders commonHeaders()
{
    return { { "Content-Type", "application/json" },
             { "Accept", "application/json, text/event-stream" } };
}

} // namespace

VTRMCPClient::VTRMCPClient(const QUrl &endpoint, const HttpSettings &settings)
    : m_transport(endpoint, settings)
{
    if (!ServiceAddresses::isAcceptableEndpoint(endpoint))
        qFatal("The MCP endpoint is no address to use: %s", qPrintable(endpoint.toString()));
    // Two large answers at once would cost twice the memory.
    m_readerPool.setMaxThreadCount(1);
    connect(QCoreApplication::instance(), &QCoreApplication::aboutToQuit, this,
            &VTRMCPClient::shutDown);
}

VTRMCPClient::~VTRMCPClient() { shutDown(); }

std::unique_ptr<VTRMCPClient> &VTRMCPClient::instance()
{
    static std::unique_ptr<VTRMCPClient> client;
    return client;
}

VTRMCPClient &VTRMCPClient::shared()
{
    auto &client = instance();
    if (!client) {
        client.reset(new VTRMCPClient(ServiceAddresses::mcpEndpoint(), HttpSettings()));
        // Network objects must not outlive the application object.
        qAddPostRoutine([] { instance().reset(); });
    }
    return *client;
}

void VTRMCPClient::shutDown()
{
    m_isShutDown = true;
    m_transport.stop();
    Q_EMIT isShuttingDown();
    // Awaiting tasks are resumed by posted events, and no event loop follows. The number of rounds
    // is that of the awaits inside one another, with room to spare.
    for (int round = 0; m_callsUnderWay > 0 && round < 32; ++round) {
        m_readerPool.waitForDone();
        QCoreApplication::sendPostedEvents();
    }
}

QCoro::Task<QString> VTRMCPClient::getSessionId()
{
    if (m_sessionId && m_isInitialized) {
        // QCoro moves out of what is returned by name unless that is const.
        const QString sessionId = *m_sessionId;
        co_return sessionId;
    }

    if (m_initTask) {
        const QFuture<QString> running = *m_initTask;
        co_return co_await running;
    }

    // The body of a refusal becomes its description, and may be large.
    m_initTask = m_transport.post(commonHeaders(), initializeBody())
                     .then(&m_readerPool, [](const QFuture<HttpAnswer> &exchange) {
                         try {
                             return readSessionId(exchange.result());
                         } catch (...) {
                             throw McpError::current().asFinal();
                         }
                     });
    const QFuture<QString> opening = *m_initTask;
    // A failed task stays: later calls get its error without asking the server again.
    const QString sessionId = co_await opening;
    m_sessionId = sessionId;
    m_isInitialized = true;
    m_initTask.reset();
    co_return sessionId;
}

QCoro::Task<QByteArray> VTRMCPClient::exchangeToolCall(QString name, QJsonObject arguments)
{
    for (int repetition = 1;; ++repetition) {
        const QString sessionId = co_await getSessionId();
        HttpHeaders headers = commonHeaders();
        headers.insert("mcp-session-id", sessionId.toLatin1());
        const qint64 id = m_requestId++;
        const QFuture<HttpAnswer> exchange =
            m_transport.post(headers, toolCallBody(id, name, arguments));
        const HttpAnswer answer = co_await exchange;
        if (answer.status != 400 && answer.status != 404)
            co_return answer.body;
        m_isInitialized = false;
        m_sessionId.reset();
        m_initTask.reset();
        // The first repetition is free: a session may simply have grown old.
        if (repetition > 1 && !m_isShutDown) {
            const std::chrono::milliseconds grown(50 << std::min(repetition, 10));
            const auto pause =
                qCoro(this, &VTRMCPClient::isShuttingDown, std::min(grown, m_longestPause));
            co_await pause;
        }
    }
}

QCoro::Task<QJsonObject> VTRMCPClient::callTool(QString name, QJsonObject arguments)
{
    return ask<QJsonObject>(name, arguments, std::identity());
}
