#include "Services/VTRMCPClient.h"

#include "Services/PlatformErrorText.h"
#include "Services/ServiceAddresses.h"
#include "Services/ToolCall.h"

#include <QCoroFuture>

#include <QCoreApplication>
#include <QHostAddress>
#include <QJsonDocument>
#include <QNetworkProxy>
#include <QStringDecoder>

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

/// Empty when there is no such header.
QString sessionIdOf(const HttpAnswer &answer)
{
    for (const auto &[name, value] : answer.headers) {
        if (name.toLower() == "mcp-session-id")
            return QString::fromLatin1(value);
    }
    return {};
}

/// Empty when the bytes are no UTF-8.
QString utf8Text(const QByteArray &bytes)
{
    // Without state a cut character at the end is an error too.
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    const QString text = decoder(bytes);
    return decoder.hasError() ? QString() : text;
}

bool isLoopback(const QUrl &url)
{
    return url.host() == u"localhost" || QHostAddress(url.host()).isLoopback();
}

} // namespace

VTRMCPClient::VTRMCPClient(const QUrl &endpoint, const HttpLimits &limits)
    : m_endpoint(endpoint)
    , m_limits(limits)
{
    if (!endpoint.isValid())
        qFatal("The MCP endpoint is no address: %s", qPrintable(endpoint.toString()));
    if (isLoopback(endpoint))
        m_manager.setProxy(QNetworkProxy::NoProxy);
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
        client.reset(new VTRMCPClient(ServiceAddresses::mcpEndpoint(), HttpLimits()));
        // Network objects must not outlive the application object.
        qAddPostRoutine([] { instance().reset(); });
    }
    return *client;
}

void VTRMCPClient::shutDown()
{
    m_isShutDown = true;
    const auto exchanges = findChildren<HttpExchange *>(Qt::FindDirectChildrenOnly);
    for (HttpExchange *exchange : exchanges)
        exchange->abort(QNetworkReply::OperationCanceledError,
                        PlatformErrorText::applicationQuits());
    // Awaiting tasks are resumed by posted events, and no event loop follows. The number of rounds
    // is that of the awaits inside one another, with room to spare.
    for (int round = 0; m_callsUnderWay > 0 && round < 32; ++round) {
        m_readerPool.waitForDone();
        QCoreApplication::sendPostedEvents();
    }
}

QNetworkRequest VTRMCPClient::makeRequest() const
{
    QNetworkRequest request(m_endpoint);
    request.setHeader(QNetworkRequest::ContentTypeHeader, u"application/json"_s);
    request.setRawHeader("Accept", "application/json, text/event-stream");
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute,
                         QNetworkRequest::ManualRedirectPolicy);
    // HttpExchange has a limit of its own; Qt's would refuse a list that compresses well.
    request.setDecompressedSafetyCheckThreshold(-1);
    // Qt would answer a 401 itself, by sending the request again, and the server's words were lost.
    request.setAttribute(QNetworkRequest::AuthenticationReuseAttribute, QNetworkRequest::Manual);
    // HttpExchange's promise to send a body only once holds for HTTP/1.1.
    request.setAttribute(QNetworkRequest::Http2AllowedAttribute, false);
    return request;
}

QFuture<HttpAnswer> VTRMCPClient::post(const QNetworkRequest &request, const QByteArray &body)
{
    if (m_isShutDown) {
        return QtFuture::makeExceptionalFuture<HttpAnswer>(
            McpError(McpError::Domain::Network, QNetworkReply::OperationCanceledError,
                     PlatformErrorText::applicationQuits()));
    }
    auto *exchange = new HttpExchange(&m_manager, request, body, m_limits);
    exchange->setParent(this);
    return exchange->answer();
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

    QPromise<QString> promise;
    promise.start();
    m_initTask = promise.future();
    try {
        const QString sessionId = co_await initialize();
        m_sessionId = sessionId;
        m_isInitialized = true;
        m_initTask.reset();
        promise.addResult(sessionId);
    } catch (const McpError &error) {
        // The failed task stays: later calls get its error without asking the server again.
        promise.setException(error);
    }
    const QFuture<QString> settled = promise.future();
    promise.finish();
    co_return settled.result();
}

QCoro::Task<QString> VTRMCPClient::initialize()
{
    const QNetworkRequest request = makeRequest();
    const QFuture<HttpAnswer> exchange = post(request, initializeBody());
    const HttpAnswer answer = co_await exchange;
    const QString sessionId = sessionIdOf(answer);
    if (sessionId.isEmpty()) {
        throw McpError(McpError::Domain::Client, answer.status,
                       u"No mcp-session-id header: "_s + utf8Text(answer.body));
    }
    co_return sessionId;
}

QCoro::Task<QByteArray> VTRMCPClient::exchangeToolCall(QString name, QJsonObject arguments)
{
    while (true) {
        const QString sessionId = co_await getSessionId();
        QNetworkRequest request = makeRequest();
        request.setRawHeader("mcp-session-id", sessionId.toLatin1());
        const qint64 id = m_requestId++;
        const QFuture<HttpAnswer> exchange = post(request, toolCallBody(id, name, arguments));
        const HttpAnswer answer = co_await exchange;
        if (answer.status != 400 && answer.status != 404)
            co_return answer.body;
        m_isInitialized = false;
        m_sessionId.reset();
        m_initTask.reset();
    }
}

QCoro::Task<QJsonObject> VTRMCPClient::callTool(QString name, QJsonObject arguments)
{
    const std::function<QJsonObject(const QJsonObject &)> asItIs = [](const QJsonObject &result) {
        return result;
    };
    co_return co_await callTool<QJsonObject>(name, arguments, asItIs);
}
