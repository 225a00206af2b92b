#pragma once

#include <QHash>
#include <QObject>
#include <QTimer>

class QTcpSocket;

namespace Sample {

struct HttpRequest
{
    QByteArray method;
    QByteArray path; ///< without the query
    QHash<QByteArray, QByteArray> headers; ///< names in lower case
    QByteArray body;
};

struct HttpAnswer
{
    int status = 200;
    QByteArray body; ///< JSON; empty for an answer without a body
    QList<QPair<QByteArray, QByteArray>> headers;
};

/// One client that speaks HTTP/1.1, and at most one request of it at a time: the next one is read
/// once the client has taken the answer before it. So answers keep the order of the requests, and
/// neither side of a connection costs more memory than the limits.
class HttpConnection : public QObject
{
    Q_OBJECT

public:
    /// What a request line and the headers may take together. Clients send less than a kilobyte.
    static constexpr qsizetype largestHead = 16 * 1024;
    /// A larger body is refused before it is read. The largest question takes half a kilobyte.
    static constexpr qsizetype largestBody = 64 * 1024;

    /// Takes the socket over.
    HttpConnection(QTcpSocket *socket, QObject *parent);

    /// Whether a request waits for its answer.
    bool isBusy() const { return m_stage == Stage::Answer; }
    /// The one that waits.
    const HttpRequest &request() const { return m_request; }
    /// Answers the request. Nothing happens when none waits.
    void answer(const HttpAnswer &answer);

Q_SIGNALS:
    void requestReceived();
    /// The client has left, or was given up.
    void closed();

private:
    enum class Stage {
        Head,
        Body,
        Answer,
        End, ///< nothing more is served; what still comes is thrown away
    };

    void read();
    bool readRequest();
    void readHead(const QByteArray &head);
    void refuse(int status);
    void write(const HttpAnswer &answer);

    QTcpSocket *m_socket;
    QTimer m_patience;
    Stage m_stage = Stage::Head;
    QByteArray m_bytes; ///< received and not read yet
    HttpRequest m_request;
    qsizetype m_bodySize = 0;
    bool m_staysOpen = true;
};

} // namespace Sample
