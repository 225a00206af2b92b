#pragma once

#include "Services/HttpAnswer.h"

#include <QFuture>
#include <QThread>
#include <QUrl>

/// Posts to one address, on a thread of its own: whatever a server sends, the thread that asks is
/// not held up. Cookies, by which the front of a server may know which of its machines a session
/// lives on, are kept as long as the object.
class HttpTransport
{
public:
    HttpTransport(const QUrl &url, const HttpLimits &limits);
    ~HttpTransport();
    Q_DISABLE_COPY_MOVE(HttpTransport)

    /// Ends exactly once, with an answer or with McpError of the domain Network.
    QFuture<HttpAnswer> post(const HttpHeaders &headers, const QByteArray &body);
    /// Ends every exchange before it returns. Later ones end at once.
    void stop();

private:
    class Exchanges;

    QUrl m_url;
    HttpLimits m_limits;
    QThread m_thread;
    Exchanges *m_exchanges; ///< lives in the thread
    bool m_isStopped = false;
};
