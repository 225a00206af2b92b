#include "support/ParsedJson.h"

#include "sample_server/HttpServer.h"
#include "sample_server/SampleServer.h"
#include "sample_server/Tool.h"

#include <QEventLoop>
#include <QHostAddress>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QTcpSocket>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

struct Answer
{
    int status = 0; ///< 0 when none came
    QByteArray session;
    QString allowed; ///< methods, where another was used
    QJsonObject json;
};

using Headers = QMap<QByteArray, QByteArray>;

QByteArray rpc(const QJsonValue &id, const QString &method, const QJsonObject &params = {})
{
    const QJsonObject message { { u"jsonrpc"_s, u"2.0"_s },
                                { u"id"_s, id },
                                { u"method"_s, method },
                                { u"params"_s, params } };
    return QJsonDocument(message).toJson(QJsonDocument::Compact);
}

const QByteArray ping = rpc(5, u"ping"_s);

} // namespace

/// What the server makes of requests, good, bad and hostile.
class SampleServerTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_server = std::make_unique<SampleServer>();
        m_port = m_server->listen().value_or(0);
        m_session = openedSession();
        QCOMPARE(m_session.size(), 32);
    }
    void cleanup() { m_server.reset(); }

    void requests()
    {
        // The status; then that there is a result, or the code of the error, and what is allowed.
        const auto row = [this](const QString &what, const QString &expected,
                                const Headers &headers, const QByteArray &body = ping,
                                const QByteArray &method = "POST",
                                const QString &path = u"/mcp"_s) {
            const Answer answer = ask(body, headers, method, path);
            const QString code = QString::number(answer.json["error"_L1]["code"_L1].toInt());
            const QString seen = QString::number(answer.status)
                + (answer.json.contains("result"_L1) ? u" result"_s : QString())
                + (answer.json.contains("error"_L1) ? u' ' + code : QString())
                + (answer.allowed.isEmpty() ? QString() : u" allows "_s + answer.allowed);
            QCOMPARE(what + u": "_s + seen, what + u": "_s + expected);
            // No refusal costs the session or the server.
            QCOMPARE(ask(ping).status, 200);
        };
        row(u"host: name and port"_s, u"200 result"_s, { { "Host", "localhost:80" } });
        row(u"host: foreign"_s, u"403 -32600"_s, { { "Host", "127.0.0.1.evil.example" } });
        row(u"origin: IPv6"_s, u"200 result"_s, { { "Origin", "https://[::1]:1" } });
        row(u"origin: foreign"_s, u"403 -32600"_s,
            { { "Origin", "http://localhost.evil.example" } });
        row(u"path"_s, u"404 -32600"_s, {}, ping, "POST", u"/"_s);
        row(u"method"_s, u"405 allows POST, DELETE"_s, {}, {}, "GET");
        row(u"type: text"_s, u"415 -32600"_s, { { "Content-Type", "text/plain" } });
        row(u"type: parameter"_s, u"200 result"_s,
            { { "Content-Type", "Application/JSON; charset=utf-8" } });
        row(u"session: missing"_s, u"400 -32001"_s, { { "mcp-session-id", {} } });
        row(u"session: unknown"_s, u"404 -32001"_s, { { "mcp-session-id", "feedbeef" } });
        constexpr qsizetype largest = Sample::HttpServer::largestBody;
        row(u"length: largest"_s, u"200 result"_s, {}, ping.leftJustified(largest));
        row(u"length: too large"_s, u"413"_s, {}, ping.leftJustified(largest + 1));
        row(u"endless line"_s, u"431"_s, { { "X", QByteArray(100'000, 'x') } });

        row(u"cut off"_s, u"400 -32700"_s, {}, R"({"jsonrpc":"2.0","id":1,)");
        row(u"list"_s, u"400 -32600"_s, {}, '[' + ping + ']');
        row(u"id null"_s, u"400 -32600"_s, {}, R"({"jsonrpc":"2.0","id":null,"method":"ping"})");
        row(u"notification"_s, u"202"_s, {},
            R"({"jsonrpc":"2.0","method":"notifications/initialized"})");
        row(u"unknown method"_s, u"200 -32601"_s, {}, rpc(1, u"resources/list"_s));
        row(u"unknown tool"_s, u"200 -32602"_s, {},
            rpc(1, u"tools/call"_s, { { u"name"_s, u"fly"_s } }));
    }

    void sessions()
    {
        const QByteArray other = openedSession();
        for (const int status : { 200, 404 })
            QCOMPARE(ask({}, { { "mcp-session-id", other } }, "DELETE").status, status);
        // A version that is not known yet is answered with the newest one.
        for (const QString &version : { u"2024-11-05"_s, u"2025-11-25"_s, u"2031-01-01"_s }) {
            const Answer answer =
                ask(rpc(1, u"initialize"_s, { { u"protocolVersion"_s, version } }));
            QCOMPARE(answer.json["result"_L1]["protocolVersion"_L1],
                     std::min(version, u"2025-11-25"_s));
        }
        QCOMPARE(ask(rpc(1, u"tools/list"_s)).json["result"_L1]["tools"_L1].toArray(),
                 Sample::toolDescriptions());

        // Those in use outlive the others.
        const QByteArray idle = openedSession();
        for (int other = 1; other <= 1000; ++other) {
            openedSession();
            if (other % 500 == 0)
                QCOMPARE(ask(ping).status, 200);
        }
        QCOMPARE(ask(ping, { { "mcp-session-id", idle } }).status, 404);
    }

    void toolCalls()
    {
        m_server->setAnswerDelay(10ms, 5ms);
        const QJsonObject question { { u"cityCode"_s, u"LHR"_s } };
        const QJsonObject guide = Sample::cityGuide(question, {});
        const QJsonObject params { { u"name"_s, u"get_city_guide"_s },
                                   { u"arguments"_s, question } };
        const QJsonObject answer = ask(rpc(u"seven"_s, u"tools/call"_s, params)).json;
        const QJsonValue result = answer["result"_L1];
        QCOMPARE(answer["id"_L1], u"seven"_s);
        QCOMPARE(result["structuredContent"_L1].toObject(), guide);
        QCOMPARE(parsed(result["content"_L1][0]["text"_L1].toString().toUtf8()), guide);
    }

    void idleClientsAreGivenUp()
    {
        QTcpSocket idle;
        idle.connectToHost(QHostAddress::LocalHost, m_port);
        QTRY_COMPARE(idle.state(), QAbstractSocket::ConnectedState);
        QTRY_COMPARE_WITH_TIMEOUT(idle.state(), QAbstractSocket::UnconnectedState, 40'000);
    }

private:
    /// A request of the session as clients send it, but for these headers; without those of which
    /// the value is null.
    Answer ask(const QByteArray &body, const Headers &headers = {},
               const QByteArray &method = "POST", const QString &path = u"/mcp"_s)
    {
        Headers all { { "Content-Type", "application/json" }, { "mcp-session-id", m_session } };
        all.insert(headers);
        QNetworkRequest request(QUrl(u"http://127.0.0.1:%1%2"_s.arg(m_port).arg(path)));
        request.setTransferTimeout();
        for (auto header = all.cbegin(); header != all.cend(); ++header)
            request.setRawHeader(header.key(), header.value());
        const std::unique_ptr<QNetworkReply> reply(
            m_network.sendCustomRequest(request, method, body));
        // Not by QSignalSpy, which does not wait once a row has failed.
        QEventLoop loop;
        connect(reply.get(), &QNetworkReply::finished, &loop, &QEventLoop::quit);
        loop.exec();
        return { reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt(),
                 reply->rawHeader("mcp-session-id"), QString::fromLatin1(reply->rawHeader("Allow")),
                 parsed(reply->readAll()) };
    }
    QByteArray openedSession()
    {
        return ask(rpc(1, u"initialize"_s), { { "mcp-session-id", {} } }).session;
    }

    QNetworkAccessManager m_network;
    std::unique_ptr<SampleServer> m_server;
    quint16 m_port = 0;
    QByteArray m_session;
};

QTEST_GUILESS_MAIN(SampleServerTest)
#include "SampleServerTest.moc"
