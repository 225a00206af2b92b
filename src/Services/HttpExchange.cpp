#include "Services/HttpExchange.h"

#include "Services/McpError.h"
#include "Services/PlatformErrorText.h"

#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QSslError>

#include <algorithm>
#include <cstring>

namespace {

/// A request body that can be read once. The network stack repeats a POST on a new connection when
/// one drops before the answer, unless the body cannot be rewound.
class UnrepeatableBody : public QIODevice
{
public:
    explicit UnrepeatableBody(const QByteArray &bytes)
        : m_bytes(bytes)
    {
        open(QIODevice::ReadOnly | QIODevice::Unbuffered);
    }

    qint64 size() const override { return m_bytes.size(); }
    /// Qt also rewinds the body of an answered request when the status is 307 or 308, and drops the
    /// answer if it cannot. It may then: nothing is left to read either way.
    bool reset() override { return m_isAnswered; }
    void setAnswered() { m_isAnswered = true; }

protected:
    qint64 readData(char *data, qint64 maxSize) override
    {
        const qint64 length = std::min<qint64>(maxSize, m_bytes.size() - m_read);
        std::memcpy(data, m_bytes.constData() + m_read, static_cast<size_t>(length));
        m_read += length;
        return length > 0 || maxSize == 0 ? length : -1;
    }
    qint64 writeData(const char *, qint64) override { return -1; }

private:
    QByteArray m_bytes;
    qint64 m_read = 0;
    bool m_isAnswered = false;
};

/// Whether Qt reports `status`, of an answer that arrived whole, by this error.
bool reportsStatus(QNetworkReply::NetworkError error, int status)
{
    if (status < 400 || error == QNetworkReply::ContentReSendError)
        return false;
    return error == QNetworkReply::ProtocolInvalidOperationError // 400
        || error == QNetworkReply::ProxyAuthenticationRequiredError // 407
        || (error >= QNetworkReply::ContentAccessDenied
            && error <= QNetworkReply::UnknownContentError)
        || (error >= QNetworkReply::InternalServerError
            && error <= QNetworkReply::UnknownServerError);
}

} // namespace

HttpExchange::HttpExchange(QNetworkAccessManager *manager, const QNetworkRequest &request,
                           const QByteArray &body, const HttpLimits &limits)
    : m_limits(limits)
{
    m_promise.start();

    auto *source = new UnrepeatableBody(body);
    m_reply = manager->post(request, source);
    m_reply->setParent(this);
    source->setParent(m_reply);
    connect(m_reply, &QNetworkReply::readyRead, this, &HttpExchange::takeBytes);
    connect(m_reply, &QNetworkReply::finished, this, &HttpExchange::finish);
    connect(m_reply, &QNetworkReply::sslErrors, this, [this](const QList<QSslError> &errors) {
        if (!errors.isEmpty())
            m_certificateError = errors.first().errorString();
    });

    m_idleTimer.setSingleShot(true);
    m_totalTimer.setSingleShot(true);
    const auto restartIdleTimer = [this] { m_idleTimer.start(); };
    connect(m_reply, &QNetworkReply::uploadProgress, this, restartIdleTimer);
    connect(m_reply, &QNetworkReply::metaDataChanged, this, restartIdleTimer);
    connect(m_reply, &QNetworkReply::metaDataChanged, source, &UnrepeatableBody::setAnswered);
    connect(&m_idleTimer, &QTimer::timeout, this,
            [this] { abort(QNetworkReply::TimeoutError, PlatformErrorText::idleTimeout()); });
    connect(&m_totalTimer, &QTimer::timeout, this,
            [this] { abort(QNetworkReply::TimeoutError, PlatformErrorText::totalTimeout()); });
    m_idleTimer.start(limits.idle);
    m_totalTimer.start(limits.total);
}

HttpExchange::~HttpExchange()
{
    abort(QNetworkReply::OperationCanceledError, PlatformErrorText::applicationQuits());
}

void HttpExchange::takeBytes()
{
    m_idleTimer.start();
    // Piece by piece: what is left is not decompressed yet, and may be a thousand times larger.
    constexpr qint64 piece = 64 * 1024;
    for (QByteArray bytes = m_reply->read(piece); !bytes.isEmpty(); bytes = m_reply->read(piece)) {
        m_body += bytes;
        if (m_body.size() > m_limits.bodyBytes) {
            abort(QNetworkReply::UnknownContentError, PlatformErrorText::tooLarge());
            return;
        }
    }
}

void HttpExchange::finish()
{
    if (m_hasEnded)
        return;
    takeBytes();
    if (m_hasEnded)
        return;

    const QNetworkReply::NetworkError error = m_reply->error();
    const int status = m_reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    if (error == QNetworkReply::NoError || reportsStatus(error, status)) {
        // Qt takes an early hint (103) for the answer, and the answer is lost.
        if (status >= 200)
            succeed(status);
        else
            abort(QNetworkReply::ProtocolFailure, PlatformErrorText::badServerResponse());
        return;
    }
    abort(error, PlatformErrorText::network(error, m_certificateError));
}

void HttpExchange::succeed(int status)
{
    m_hasEnded = true;
    m_idleTimer.stop();
    m_totalTimer.stop();
    m_promise.addResult(HttpAnswer { status, m_reply->rawHeaderPairs(), m_body });
    m_promise.finish();
    deleteLater();
}

void HttpExchange::abort(int code, const QString &localizedDescription)
{
    if (m_hasEnded)
        return;
    m_hasEnded = true;
    m_idleTimer.stop();
    m_totalTimer.stop();
    // The reply is not aborted but destroyed with this object: an error that its thread has already
    // posted would be its second one, and Qt complains of that on the console.
    m_promise.setException(McpError(McpError::Domain::Network, code, localizedDescription));
    m_promise.finish();
    deleteLater();
}
