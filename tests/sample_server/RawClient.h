#pragma once

#include "support/ParsedJson.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QHostAddress>
#include <QTcpSocket>
#include <QTimer>

/// A client that sends bytes as it is told and reads answers one by one. It shares the thread with
/// the server: whatever waits here lets the server work.
class RawClient
{
public:
    struct Answer
    {
        int status = 0; ///< 0 when none came before the server left
        QByteArray head; ///< in lower case
        QByteArray body;

        QJsonObject json() const { return parsed(body); }
        QByteArray header(const QByteArray &name) const
        {
            const QByteArray rest = head.mid(head.indexOf("\r\n" + name + ": "));
            return rest.mid(name.size() + 4).split('\r').first();
        }
    };

    explicit RawClient(quint16 port)
    {
        socket.connectToHost(QHostAddress::LocalHost, port);
        m_tick.start(1000); // no wait lasts for ever
    }

    void send(const QByteArray &bytes) { socket.write(bytes); }

    Answer read()
    {
        Answer answer;
        waitUntil([this, &answer] {
            m_bytes += socket.readAll();
            const qsizetype end = m_bytes.indexOf("\r\n\r\n") + 4;
            answer.head = m_bytes.left(end).toLower();
            const qsizetype size = answer.header("content-length").toInt();
            if (end < 4 || m_bytes.size() < end + size)
                return false;
            answer.status = answer.head.mid(9, 3).toInt();
            answer.body = m_bytes.mid(end, size);
            m_bytes.remove(0, end + size);
            return true;
        });
        return answer;
    }

    /// Whether the server ends the connection.
    bool isDropped()
    {
        waitUntil([] { return false; });
        return socket.state() == QAbstractSocket::UnconnectedState;
    }

    QTcpSocket socket;

private:
    /// Or until the server has left, or for long.
    template<typename Condition>
    void waitUntil(Condition condition)
    {
        const QDeadlineTimer deadline(20'000);
        while (!condition() && socket.state() != QAbstractSocket::UnconnectedState
               && !deadline.hasExpired())
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }

    QTimer m_tick;
    QByteArray m_bytes;
};

using Headers = QMap<QByteArray, QByteArray>;

/// A request as clients send it, but for the headers given; an empty one is left out.
inline QByteArray post(const QByteArray &body, const Headers &headers = {},
                       const QByteArray &start = "POST /mcp HTTP/1.1")
{
    Headers all { { "Host", "127.0.0.1" },
                  { "Content-Type", "application/json" },
                  { "Accept", "application/json, text/event-stream" },
                  { "Content-Length", QByteArray::number(body.size()) } };
    all.insert(headers);
    QByteArray request = start + "\r\n";
    for (auto header = all.cbegin(); header != all.cend(); ++header) {
        if (!header.value().isEmpty())
            request += header.key() + ": " + header.value() + "\r\n";
    }
    return request + "\r\n" + body;
}

inline QByteArray rpc(const QJsonValue &id, const QString &method, const QJsonObject &params = {})
{
    const QJsonObject message { { QStringLiteral("jsonrpc"), QStringLiteral("2.0") },
                                { QStringLiteral("id"), id },
                                { QStringLiteral("method"), method },
                                { QStringLiteral("params"), params } };
    return QJsonDocument(message).toJson(QJsonDocument::Compact);
}
