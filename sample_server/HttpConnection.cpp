#include "sample_server/HttpConnection.h"

#include <QTcpSocket>

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
    socket->setReadBufferSize(largestBody);
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
    while (m_stage == Stage::Head && m_socket->canReadLine())
        readLine(m_socket->readLine());
    if (m_stage == Stage::Head && m_headSize + m_socket->bytesAvailable() > largestHead)
        refuse(431);
    if (m_stage == Stage::Body && m_socket->bytesAvailable() >= m_bodySize) {
        m_request.body = m_socket->read(m_bodySize);
        m_stage = Stage::Answer;
        m_patience.stop();
        Q_EMIT requestReceived();
    }
}

void HttpConnection::readLine(const QByteArray &line)
{
    m_headSize += line.size();
    const QByteArray text = line.trimmed();
    const qsizetype colon = text.indexOf(':');
    if (m_headSize > largestHead)
        refuse(431);
    else if (m_request.method.isEmpty())
        readRequestLine(text);
    else if (text.isEmpty())
        endHead();
    else if (colon <= 0 || m_request.headers.contains(text.left(colon).toLower()))
        refuse(400);
    else
        m_request.headers.insert(text.left(colon).toLower(), text.mid(colon + 1).trimmed());
}

void HttpConnection::readRequestLine(const QByteArray &line)
{
    const QList<QByteArray> parts = line.split(' ');
    if (parts.size() != 3 || parts.first().isEmpty() || !parts.last().startsWith("HTTP/1."))
        return refuse(400);
    m_request.method = parts.first();
    m_request.path = parts.at(1).split('?').first();
    m_staysOpen = parts.last() == "HTTP/1.1";
}

void HttpConnection::endHead()
{
    const QByteArray size = m_request.headers.value("content-length", "0");
    bool isNumber = false;
    const qulonglong bytes = size.toULongLong(&isNumber);
    if (m_request.headers.contains("transfer-encoding"))
        return refuse(411);
    if (!isNumber)
        return refuse(400);
    if (bytes > largestBody)
        return refuse(413);
    m_staysOpen &= m_request.headers.value("connection").toLower() != "close";
    m_bodySize = qsizetype(bytes);
    m_stage = Stage::Body;
}

void HttpConnection::answer(const HttpAnswer &answer)
{
    if (m_stage != Stage::Answer)
        return;
    write(answer);
    m_stage = Stage::Head;
    m_request = {};
    m_headSize = 0;
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
