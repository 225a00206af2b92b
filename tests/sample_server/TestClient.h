#pragma once

#include "sample_server/SampleServer.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QTest>
#include <QThread>

/// The server in a thread of its own, as applications run it, and a plain HTTP client.
class TestClient
{
public:
    using Headers = QList<QPair<QByteArray, QByteArray>>;

    struct Answer
    {
        int status = 0; ///< 0 when there was no answer in time
        QByteArray body;
        QByteArray session;
        QByteArray allow;

        QJsonObject json() const { return QJsonDocument::fromJson(body).object(); }
    };

    TestClient()
    {
        m_thread.start();
        m_server->moveToThread(&m_thread);
        onServer([this](SampleServer &server) { m_port = server.listen().value_or(0); });
    }
    ~TestClient()
    {
        onServer([](SampleServer &server) { delete &server; });
        m_thread.quit();
        m_thread.wait();
    }
    Q_DISABLE_COPY_MOVE(TestClient)

    /// Runs the function in the server's thread and waits for it.
    template<typename Function>
    void onServer(Function function)
    {
        SampleServer *server = m_server;
        QMetaObject::invokeMethod(
            server, [&] { function(*server); }, Qt::BlockingQueuedConnection);
    }

    quint16 port() const { return m_port; }

    QNetworkReply *send(const QByteArray &method, const Headers &headers, const QByteArray &body)
    {
        QNetworkRequest request(QUrl(QStringLiteral("http://127.0.0.1:%1/mcp").arg(m_port)));
        request.setTransferTimeout(30000);
        for (const auto &header : headers)
            request.setRawHeader(header.first, header.second);
        return m_network.sendCustomRequest(request, method, body);
    }

    static Answer read(QNetworkReply *reply)
    {
        reply->deleteLater();
        return { reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt(),
                 reply->readAll(), reply->rawHeader("mcp-session-id"), reply->rawHeader("Allow") };
    }

    Answer exchange(const QByteArray &method, const Headers &headers, const QByteArray &body)
    {
        QNetworkReply *reply = send(method, headers, body);
        [[maybe_unused]] const bool finished =
            QTest::qWaitFor([reply] { return reply->isFinished(); }, 30'000);
        return read(reply);
    }

    static Headers sessionHeaders(const QByteArray &session)
    {
        return { { "Content-Type", "application/json" }, { "mcp-session-id", session } };
    }

    Answer post(const QByteArray &session, const QByteArray &body)
    {
        return exchange("POST", sessionHeaders(session), body);
    }

    /// The answer to the "initialize" of a client that speaks this version.
    Answer initialize(const QByteArray &version = "2024-11-05")
    {
        return exchange("POST", { { "Content-Type", "application/json" } },
                        R"({"jsonrpc":"2.0","id":1,"method":"initialize","params":{)"
                        R"("capabilities":{},"clientInfo":{"name":"test","version":"1"},)"
                        R"("protocolVersion":")"
                            + version + R"("}})");
    }

private:
    QThread m_thread;
    SampleServer *m_server = new SampleServer;
    quint16 m_port = 0;
    QNetworkAccessManager m_network;
};
