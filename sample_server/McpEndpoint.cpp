#include "sample_server/McpEndpoint.h"

#include "sample_server/RequestCheck.h"

#include <QJsonArray>

#include <algorithm>

namespace Sample {

using namespace Qt::StringLiterals;
using Status = HttpAnswer::Status;
using RequestCheck::errorAnswer;

namespace {

constexpr auto sessionHeader = "mcp-session-id";
constexpr qsizetype longestBatch = 50;

HttpAnswer jsonAnswer(const QJsonDocument &document)
{
    return { Status::Ok, document.toJson(QJsonDocument::Compact), {} };
}

HttpAnswer malformed(const QJsonValue &id = QJsonValue::Null)
{
    return errorAnswer(Status::BadRequest, JsonRpc::InvalidRequest,
                       u"İstek geçerli bir JSON-RPC 2.0 iletisi değil."_s, id);
}

HttpAnswer sessionMissing()
{
    return errorAnswer(Status::BadRequest, JsonRpc::SessionMissing,
                       u"Mcp-Session-Id başlığı eksik; önce \"initialize\" gönderilmeli."_s);
}

HttpAnswer sessionUnknown()
{
    return errorAnswer(Status::NotFound, JsonRpc::SessionUnknown,
                       u"Oturum bulunamadı ya da sona erdi."_s);
}

bool isInitialize(const QJsonValue &message)
{
    return JsonRpc::kindOf(message) == JsonRpc::Kind::Request
        && message["method"_L1].toString() == "initialize"_L1;
}

} // namespace

std::variant<HttpAnswer, McpEndpoint::Job> McpEndpoint::receive(const QHttpServerRequest &request,
                                                                const ToolContext &context,
                                                                SessionStore::Moment now)
{
    if (auto refusal = RequestCheck::refusal(request))
        return std::move(*refusal);

    QJsonDocument document;
    const bool isPost = request.method() == QHttpServerRequest::Method::Post;
    if (isPost) {
        QJsonParseError error {};
        document = QJsonDocument::fromJson(request.body(), &error);
        if (error.error != QJsonParseError::NoError)
            return errorAnswer(Status::BadRequest, JsonRpc::ParseError,
                               u"İstek geçerli bir JSON belgesi değil."_s);
        if (document.isObject() && isInitialize(document.object()))
            return openSession(document.object(), now);
    }

    const QByteArray id = request.value(sessionHeader);
    if (id.isEmpty())
        return sessionMissing();
    const std::optional<QString> version = m_sessions.touch(id, now);
    if (!version)
        return sessionUnknown();
    const QByteArray versionHeader = request.value("mcp-protocol-version");
    if (!versionHeader.isEmpty()
        && !McpProtocol::versions().contains(QString::fromLatin1(versionHeader)))
        return errorAnswer(Status::BadRequest, JsonRpc::InvalidRequest,
                           u"MCP-Protocol-Version başlığındaki sürüm bilinmiyor."_s);

    if (!isPost) {
        m_sessions.close(id, now);
        return HttpAnswer {};
    }
    if (document.isArray())
        return receiveBatch(document.array(), *version, context);
    return receiveOne(document.object(), context);
}

HttpAnswer McpEndpoint::openSession(const QJsonObject &request, SessionStore::Moment now)
{
    const QJsonValue id = JsonRpc::idOf(request);
    try {
        const QString version = m_protocol->negotiatedVersion(request);
        HttpAnswer answer =
            jsonAnswer(QJsonDocument(JsonRpc::result(id, m_protocol->initializeResult(version))));
        answer.headers.emplaceBack(sessionHeader, m_sessions.open(version, now));
        return answer;
    } catch (const JsonRpc::Error &error) {
        return jsonAnswer(QJsonDocument(JsonRpc::error(id, error)));
    }
}

std::variant<HttpAnswer, McpEndpoint::Job> McpEndpoint::receiveOne(const QJsonValue &message,
                                                                   const ToolContext &context)
{
    switch (JsonRpc::kindOf(message)) {
    case JsonRpc::Kind::Invalid:
        return malformed(JsonRpc::idOf(message));
    case JsonRpc::Kind::Notification:
    case JsonRpc::Kind::Response:
        return HttpAnswer { Status::Accepted, {}, {} };
    case JsonRpc::Kind::Request:
        break;
    }
    observe(message);
    return [protocol = m_protocol, request = message.toObject(), context] {
        return jsonAnswer(QJsonDocument(protocol->answer(request, context)));
    };
}

std::variant<HttpAnswer, McpEndpoint::Job> McpEndpoint::receiveBatch(const QJsonArray &messages,
                                                                     const QString &version,
                                                                     const ToolContext &context)
{
    if (!McpProtocol::allowsBatches(version) || messages.isEmpty()
        || messages.size() > longestBatch)
        return malformed();
    const bool expectsAnswer =
        std::any_of(messages.cbegin(), messages.cend(), [](const QJsonValue &message) {
            const JsonRpc::Kind kind = JsonRpc::kindOf(message);
            return kind == JsonRpc::Kind::Request || kind == JsonRpc::Kind::Invalid;
        });
    if (!expectsAnswer)
        return HttpAnswer { Status::Accepted, {}, {} };

    for (const QJsonValue message : messages)
        observe(message);
    return [protocol = m_protocol, messages, context] {
        QJsonArray answers;
        for (const QJsonValue message : messages) {
            const JsonRpc::Kind kind = JsonRpc::kindOf(message);
            if (kind == JsonRpc::Kind::Request)
                answers.append(protocol->answer(message.toObject(), context));
            else if (kind == JsonRpc::Kind::Invalid)
                answers.append(
                    JsonRpc::error(JsonRpc::idOf(message),
                                   { JsonRpc::InvalidRequest,
                                     u"İstek geçerli bir JSON-RPC 2.0 iletisi değil."_s }));
        }
        return jsonAnswer(QJsonDocument(answers));
    };
}

void McpEndpoint::observe(const QJsonValue &message) const
{
    if (m_toolCallObserver && JsonRpc::kindOf(message) == JsonRpc::Kind::Request
        && message["method"_L1].toString() == "tools/call"_L1)
        m_toolCallObserver(message["params"_L1].toObject());
}

} // namespace Sample
