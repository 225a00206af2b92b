#include "sample_server/HttpConnection.h"

#include <QTcpSocket>

#include <chrono>

using namespace std::chrono_literals;

namespace Sample {

namespace {

/// For a whole request to arrive, or the next one, and for an answer to be taken.
constexpr auto patience = 60s;
/// For a refused client to read its answer. Closing at once would take it away from one that is
/// still sending.
constexpr auto patienceAfterRefusal = 5s;

} // namespace

HttpConnection::HttpConnection(QTcpSocket *socket, QObject *parent)
    : QObject(parent)
    , m_socket(socket)
{
    socket->setParent(this);
    socket->setReadBufferSize(largestHead);
    m_patience.setSingleShot(true);
    m_patience.start(patience);
    connect(&m_patience, &QTimer::timeout, socket, &QTcpSocket::abort);
    connect(socket, &QTcpSocket::disconnected, this, &HttpConnection::closed);
    connect(socket, &QTcpSocket::readyRead, this, &HttpConnection::read);
    connect(socket, &QTcpSocket::bytesWritten, this, &HttpConnection::read);
}

void HttpConnection::read()
{
    if (m_stage == Stage::End)
        m_socket->skip(m_socket->bytesAvailable());
    if (m_socket->bytesToWrite() > 0)
        return;
    // More is taken from the socket only when what is at hand is no whole request.
    if (!readRequest()) {
        m_bytes += m_socket->readAll();
        readRequest();
    }
}

/// Returns false when it needs more bytes.
bool HttpConnection::readRequest()
{
    if (m_stage == Stage::Head) {
        const qsizetype size = m_bytes.indexOf("\r\n\r\n");
        if ((size < 0 ? m_bytes.size() : size) > largestHead)
            refuse(431);
        else if (size < 0)
            return false;
        else
            readHead(m_bytes.left(size));
        m_bytes.remove(0, size + 4);
    }
    if (m_stage == Stage::Body) {
        if (m_bytes.size() < m_bodySize)
            return false;
        m_request.body = m_bytes.left(m_bodySize);
        m_bytes.remove(0, m_bodySize);
        m_stage = Stage::Answer;
        m_patience.stop();
        Q_EMIT requestReceived();
    }
    return true;
}

void HttpConnection::readHead(const QByteArray &head)
{
    QList<QByteArray> lines = head.split('\n');
    const QList<QByteArray> start = lines.takeFirst().trimmed().split(' ');
    if (start.size() != 3 || !start.last().startsWith("HTTP/1."))
        return refuse(400);
    m_request.method = start.first();
    m_request.path = start.at(1).split('?').first();
    for (const QByteArray &line : std::as_const(lines)) {
        const qsizetype colon = line.indexOf(':');
        const QByteArray name = line.left(colon).toLower();
        if (colon <= 0 || m_request.headers.contains(name))
            return refuse(400);
        m_request.headers.insert(name, line.mid(colon + 1).trimmed());
    }

    bool isNumber = false;
    const qulonglong size = m_request.headers.value("content-length", "0").toULongLong(&isNumber);
    if (m_request.headers.contains("transfer-encoding"))
        return refuse(411);
    if (!isNumber)
        return refuse(400);
    if (size > largestBody)
        return refuse(413);
    m_staysOpen =
        start.last() == "HTTP/1.1" && m_request.headers.value("connection").toLower() != "close";
    m_bodySize = qsizetype(size);
    m_stage = Stage::Body;
}

void HttpConnection::answer(const HttpAnswer &answer)
{
    if (m_stage != Stage::Answer)
        return;
    write(answer);
    m_stage = Stage::Head;
    m_request = {};
    m_patience.start(patience);
    if (!m_staysOpen) {
        m_stage = Stage::End;
        m_socket->disconnectFromHost();
    }
}

void HttpConnection::refuse(int status)
{
    m_staysOpen = false;
    write({ status, {}, {} });
    m_stage = Stage::End;
    m_patience.start(patienceAfterRefusal);
}

void HttpConnection::write(const HttpAnswer &answer)
{
    QByteArray head = "HTTP/1.1 " + QByteArray::number(answer.status) + " \r\n";
    for (const auto &header : answer.headers)
        head += header.first + ": " + header.second + "\r\n";
    if (!answer.body.isEmpty())
        head += "Content-Type: application/json\r\n";
    if (!m_staysOpen)
        head += "Connection: close\r\n";
    head += "Content-Length: " + QByteArray::number(answer.body.size()) + "\r\n\r\n";
    m_socket->write(head + answer.body);
}

} // namespace Sample
