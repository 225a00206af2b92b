#include "sample_server/McpProtocol.h"

#include "sample_server/JsonSchema.h"

#include <QJsonArray>
#include <QJsonDocument>

namespace Sample {

using namespace Qt::StringLiterals;

namespace {

void requireValid(const QJsonObject &schema, const QJsonObject &params)
{
    if (const auto violation = JsonSchema::violation(schema, params))
        throw JsonRpc::Error { JsonRpc::InvalidParams, *violation };
}

QJsonObject paramsOf(const QJsonObject &request)
{
    const QJsonValue params = request.value("params"_L1);
    if (!params.isUndefined() && !params.isObject())
        throw JsonRpc::Error { JsonRpc::InvalidParams, u"\"params\" bir nesne olmalı."_s };
    return params.toObject();
}

QJsonObject typed(const QString &type) { return { { u"type"_s, type } }; }

} // namespace

const QStringList &McpProtocol::versions()
{
    static const QStringList versions { u"2024-11-05"_s, u"2025-03-26"_s, u"2025-06-18"_s,
                                        u"2025-11-25"_s };
    return versions;
}

bool McpProtocol::allowsBatches(const QString &version) { return version == "2025-03-26"_L1; }

QString McpProtocol::negotiatedVersion(const QJsonObject &request) const
{
    static const QJsonObject clientInfo {
        { u"type"_s, u"object"_s },
        { u"required"_s, QJsonArray { u"name"_s, u"version"_s } },
        { u"properties"_s,
          QJsonObject { { u"name"_s, typed(u"string"_s) }, { u"version"_s, typed(u"string"_s) } } },
    };
    static const QJsonObject schema {
        { u"required"_s, QJsonArray { u"protocolVersion"_s, u"capabilities"_s, u"clientInfo"_s } },
        { u"properties"_s,
          QJsonObject { { u"protocolVersion"_s, typed(u"string"_s) },
                        { u"capabilities"_s, typed(u"object"_s) },
                        { u"clientInfo"_s, clientInfo } } },
    };
    const QJsonObject params = paramsOf(request);
    requireValid(schema, params);
    const QString wanted = params.value("protocolVersion"_L1).toString();
    return versions().contains(wanted) ? wanted : versions().last();
}

QJsonObject McpProtocol::initializeResult(const QString &version) const
{
    return {
        { u"protocolVersion"_s, version },
        { u"capabilities"_s,
          QJsonObject { { u"tools"_s, QJsonObject { { u"listChanged"_s, false } } } } },
        { u"serverInfo"_s,
          QJsonObject { { u"name"_s, u"vantora-sample-server"_s },
                        { u"title"_s, u"Vantora sample server"_s },
                        { u"version"_s, u"1.0.0"_s } } },
        { u"instructions"_s,
          u"All fares, schedules and states are invented. Airports are named by IATA codes, days "
          "are written yyyy-MM-dd."_s },
    };
}

QJsonObject McpProtocol::answer(const QJsonObject &request, const ToolContext &context) const
{
    const QJsonValue id = JsonRpc::idOf(request);
    try {
        return JsonRpc::result(id, resultOf(request, context));
    } catch (const JsonRpc::Error &error) {
        return JsonRpc::error(id, error);
    }
}

QJsonObject McpProtocol::resultOf(const QJsonObject &request, const ToolContext &context) const
{
    const QString method = request.value("method"_L1).toString();
    if (method == "ping"_L1)
        return {};
    if (method == "tools/list"_L1)
        return toolList(paramsOf(request));
    if (method == "tools/call"_L1)
        return toolResult(paramsOf(request), context);
    if (method == "initialize"_L1)
        throw JsonRpc::Error { JsonRpc::InvalidRequest,
                               u"\"initialize\" başka iletilerle birlikte gönderilemez."_s };
    throw JsonRpc::Error { JsonRpc::MethodNotFound,
                           u"\"%1\" adında bir yöntem yok."_s.arg(method.left(80)) };
}

QJsonObject McpProtocol::toolList(const QJsonObject &params) const
{
    // The list fits into one page, so no cursor was ever handed out.
    if (params.contains("cursor"_L1))
        throw JsonRpc::Error { JsonRpc::InvalidParams, u"\"cursor\" geçerli değil."_s };
    QJsonArray descriptions;
    for (const Tool &tool : m_tools.tools())
        descriptions.append(tool.description);
    return { { u"tools"_s, descriptions } };
}

QJsonObject McpProtocol::toolResult(const QJsonObject &params, const ToolContext &context) const
{
    static const QJsonObject schema {
        { u"required"_s, QJsonArray { u"name"_s } },
        { u"properties"_s,
          QJsonObject { { u"name"_s, typed(u"string"_s) },
                        { u"arguments"_s, typed(u"object"_s) } } },
    };
    requireValid(schema, params);
    const QJsonObject structured = m_tools.call(params.value("name"_L1).toString(),
                                                params.value("arguments"_L1).toObject(), context);
    const QJsonObject text {
        { u"type"_s, u"text"_s },
        { u"text"_s, QString::fromUtf8(QJsonDocument(structured).toJson(QJsonDocument::Compact)) },
    };
    return { { u"content"_s, QJsonArray { text } },
             { u"structuredContent"_s, structured },
             { u"isError"_s, false } };
}

} // namespace Sample
