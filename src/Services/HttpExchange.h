#pragma once

#include "Services/HttpAnswer.h"
#include "Services/HttpAnswerReader.h"

#include <QAbstractSocket>
#include <QFuture>
#include <QNetworkProxy>
#include <QObject>
#include <QPromise>
#include <QTimer>
#include <QUrl>

#include <optional>

class QNetworkCookieJar;
class QTcpSocket;

/// What is posted. The headers are those beside the ones of HTTP itself.
struct HttpRequest
{
    QUrl url; ///< https or http, with a host
    HttpHeaders headers;
    QByteArray body;
};

/// One POST on a connection of its own, which ends with it: what a server sends too much, too late
/// or unasked never reaches another question, and no request is ever sent twice. It ends exactly
/// once: with an answer, or with McpError of the domain Network. The object deletes itself after
/// the end.
class HttpExchange : public QObject
{
    Q_OBJECT

public:
    HttpExchange(const HttpRequest &request, const HttpLimits &limits);
    ~HttpExchange() override;

    QFuture<HttpAnswer> answer() const { return m_promise.future(); }
    /// To be called once, in the thread in which the object lives. `cookies` outlives it.
    void start(QNetworkCookieJar *cookies);
    /// Ends the exchange with this error, unless it has ended.
    void abort(int code, const QString &localizedDescription);

private:
    void connectTo(QAbstractSocket::NetworkLayerProtocol protocol);
    void connectOtherwise();
    void noteConnection(QTcpSocket *socket);
    void noteError(QTcpSocket *socket, QAbstractSocket::SocketError error);
    void sendRequest();
    void takeBytes();
    void takeState(HttpAnswerReader::State state);
    void end();

    HttpRequest m_request;
    HttpLimits m_limits;
    QPromise<HttpAnswer> m_promise;
    HttpAnswerReader m_reader;
    QNetworkCookieJar *m_cookies = nullptr;
    QNetworkProxy m_proxy { QNetworkProxy::NoProxy };
    QList<QTcpSocket *> m_attempts; ///< that may still become the connection
    QTcpSocket *m_socket = nullptr; ///< the connection, once it stands
    bool m_canConnectOtherwise = false;
    std::optional<QAbstractSocket::SocketError> m_failure; ///< of an attempt
    QTimer m_idleTimer { this };
    QTimer m_totalTimer { this };
    QString m_certificateError;
    bool m_hasEnded = false;
};
