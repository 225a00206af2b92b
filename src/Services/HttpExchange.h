#pragma once

#include <QByteArray>
#include <QFuture>
#include <QList>
#include <QNetworkRequest>
#include <QObject>
#include <QPromise>
#include <QTimer>

#include <chrono>

class QNetworkAccessManager;
class QNetworkReply;

/// Any HTTP answer, whatever its status.
struct HttpAnswer
{
    int status = 0;
    QList<std::pair<QByteArray, QByteArray>> headers; ///< names as received
    QByteArray body; ///< decompressed
};

/// When a request is given up.
struct HttpLimits
{
    std::chrono::milliseconds idle = std::chrono::seconds(30); ///< without a byte
    std::chrono::milliseconds total = std::chrono::seconds(60);
    qint64 bodyBytes = 64 * 1024 * 1024;
};

/// One POST. It ends exactly once: with an answer, or with McpError of the domain Network. The body
/// is sent at most once: where the network stack would send it again on a new connection, the
/// request fails instead, because a server may already have acted on the first.
/// The object deletes itself after the end.
class HttpExchange : public QObject
{
    Q_OBJECT

public:
    HttpExchange(QNetworkAccessManager *manager, const QNetworkRequest &request,
                 const QByteArray &body, const HttpLimits &limits);
    ~HttpExchange() override;

    QFuture<HttpAnswer> answer() const { return m_promise.future(); }
    /// Ends the exchange with this error, unless it has ended.
    void abort(int code, const QString &localizedDescription);

private:
    void takeBytes();
    void finish();
    void succeed(int status);

    QPromise<HttpAnswer> m_promise;
    QNetworkReply *m_reply;
    HttpLimits m_limits;
    QTimer m_idleTimer;
    QTimer m_totalTimer;
    QByteArray m_body;
    QString m_certificateError;
    bool m_hasEnded = false;
};
