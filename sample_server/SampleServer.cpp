#include "sample_server/SampleServer.h"

#include "sample_server/StableRandom.h"
#include "sample_server/Tool.h"

#include <QHostAddress>
#include <QJsonDocument>
#include <QUrl>
#include <QUuid>

#include <thread>

using namespace Qt::StringLiterals;
using namespace Sample;

namespace {

constexpr auto sessionHeader = "mcp-session-id";
/// One more, and the session that was not named for the longest time ends.
constexpr int mostSessions = 1000;

HttpAnswer jsonAnswer(const QJsonValue &id, const QString &member, const QJsonObject &content,
                      int status = 200)
{
    const QJsonObject message { { u"jsonrpc"_s, u"2.0"_s }, { u"id"_s, id }, { member, content } };
    return { status, QJsonDocument(message).toJson(QJsonDocument::Compact), {} };
}

HttpAnswer errorAnswer(int status, const QString &message,
                       RpcError::Code code = RpcError::InvalidRequest,
                       const QJsonValue &id = QJsonValue::Null)
{
    return jsonAnswer(id, u"error"_s, { { u"code"_s, int(code) }, { u"message"_s, message } },
                      status);
}

/// Whether an address, such as "http://127.0.0.1:8080", is one of this machine. A web page of
/// elsewhere must not talk to the server: browsers tell its address as the origin, and a name that
/// was turned to this machine as the host.
bool isLoopback(const QByteArray &address)
{
    const QString host = QUrl(QString::fromLatin1(address), QUrl::StrictMode).host();
    return host == "localhost"_L1 || QHostAddress(host).isLoopback();
}

/// What HTTP demands of a request before its message is looked at. Throws the answer to one that
/// fails it.
void checkHttp(const HttpRequest &request)
{
    if (!isLoopback("http://" + request.headers.value("host"))
        || !isLoopback(request.headers.value("origin", "http://localhost")))
        throw errorAnswer(403, u"Yalnızca bu bilgisayardan gelen istekler kabul edilir."_s);
    if (request.path != "/mcp")
        throw errorAnswer(404, u"Burada bir şey yok; sunucu /mcp adresinde."_s);
    if (request.method != "POST" && request.method != "DELETE")
        throw HttpAnswer { 405, {}, { { "Allow", "POST, DELETE" } } };
    const QByteArray type = request.headers.value("content-type").split(';').first().trimmed();
    if (request.method == "POST" && type.toLower() != "application/json")
        throw errorAnswer(415, u"İsteğin Content-Type başlığı application/json olmalı."_s);
}

QJsonObject initializeResult(const QJsonObject &params)
{
    static const QStringList versions { u"2024-11-05"_s, u"2025-03-26"_s, u"2025-06-18"_s,
                                        u"2025-11-25"_s };
    const QString wanted = params["protocolVersion"_L1].toString();
    return {
        { u"protocolVersion"_s, versions.contains(wanted) ? wanted : versions.last() },
        { u"capabilities"_s, QJsonObject { { u"tools"_s, QJsonObject() } } },
        { u"serverInfo"_s,
          QJsonObject { { u"name"_s, u"vantora-sample-server"_s }, { u"version"_s, u"1.0.0"_s } } },
        { u"instructions"_s,
          u"All fares, schedules and states are invented. Airports are named by IATA codes, days "
          "are written yyyy-MM-dd."_s },
    };
}

} // namespace

void SampleServer::setAnswerDelay(std::chrono::milliseconds delay, std::chrono::milliseconds jitter)
{
    const QMutexLocker lock(&m_mutex);
    m_delay = delay;
    m_jitter = jitter;
}

HttpAnswer SampleServer::answer(const HttpRequest &request)
{
    QMutexLocker lock(&m_mutex);
    const int more = StableRandom(u"jitter", ++m_answerCount).below(int(m_jitter.count()) + 1);
    const auto delay = m_delay + std::chrono::milliseconds(more);
    HttpAnswer answer;
    try {
        checkHttp(request);
        if (request.method == "POST")
            answer = answerMessage(request);
        else
            m_sessions.removeOne(usedSession(request));
    } catch (const HttpAnswer &refusal) {
        answer = refusal;
    }
    lock.unlock();
    std::this_thread::sleep_for(delay);
    return answer;
}

HttpAnswer SampleServer::answerMessage(const HttpRequest &request)
{
    const QJsonDocument document = QJsonDocument::fromJson(request.body);
    if (document.isNull())
        throw errorAnswer(400, u"İstek geçerli bir JSON belgesi değil."_s, RpcError::ParseError);
    const QString method = document["method"_L1].toString();
    const QJsonValue id = document["id"_L1];
    if (document["jsonrpc"_L1] != "2.0"_L1 || method.isEmpty()
        || !(id.isUndefined() || id.isString() || id.isDouble()))
        throw errorAnswer(400, u"İstek geçerli bir JSON-RPC 2.0 iletisi değil."_s);

    const bool opensSession = method == "initialize"_L1;
    if (!opensSession)
        usedSession(request);
    if (id.isUndefined())
        return { 202, {}, {} };
    try {
        HttpAnswer answer =
            jsonAnswer(id, u"result"_s, resultOf(method, document["params"_L1].toObject()));
        if (opensSession) {
            if (m_sessions.size() == mostSessions)
                m_sessions.removeFirst();
            // Made of random bits.
            m_sessions.append(QUuid::createUuid().toByteArray(QUuid::Id128));
            answer.headers.append({ sessionHeader, m_sessions.last() });
        }
        return answer;
    } catch (const RpcError &error) {
        return errorAnswer(200, error.message, error.code, id);
    }
}

QJsonObject SampleServer::resultOf(const QString &method, const QJsonObject &params)
{
    if (method == "initialize"_L1)
        return initializeResult(params);
    if (method == "ping"_L1)
        return {};
    if (method == "tools/list"_L1)
        return { { u"tools"_s, toolDescriptions() } };
    if (method != "tools/call"_L1)
        throw RpcError { u"\"%1\" adında bir yöntem yok."_s.arg(method.left(80)),
                         RpcError::MethodNotFound };

    const QString name = params["name"_L1].toString();
    const QJsonObject arguments = params["arguments"_L1].toObject();
    Q_EMIT toolCalled(name, arguments);
    const QJsonObject structured = callTool(
        name, arguments, { QDateTime::currentDateTime(), QStringLiteral(VANTORA_WEB_SITE) });
    const QByteArray text = QJsonDocument(structured).toJson(QJsonDocument::Compact);
    const QJsonObject content { { u"type"_s, u"text"_s }, { u"text"_s, QString::fromUtf8(text) } };
    return { { u"content"_s, QJsonArray { content } }, { u"structuredContent"_s, structured } };
}

QByteArray SampleServer::usedSession(const HttpRequest &request)
{
    QByteArray id = request.headers.value(sessionHeader);
    if (id.isEmpty())
        throw errorAnswer(400, u"Mcp-Session-Id başlığı eksik; önce \"initialize\" gönderilmeli."_s,
                          RpcError::SessionUnknown);
    if (!m_sessions.removeOne(id))
        throw errorAnswer(404, u"Oturum bulunamadı ya da sona erdi."_s, RpcError::SessionUnknown);
    m_sessions.append(id);
    return id;
}
