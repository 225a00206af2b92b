#include "Services/HttpAnswerReader.h"

#include <algorithm>
#include <optional>

namespace {

/// A size and what its sender adds to it; no server needs more.
constexpr qsizetype longestChunkSizeLine = 4096;

/// Nothing but digits of the base, and few enough for 64 bits.
std::optional<qint64> wholeNumber(QByteArrayView text, int base)
{
    constexpr qsizetype mostDigits = 15;
    const bool isNumber = !text.isEmpty() && text.size() <= mostDigits
        && std::all_of(text.begin(), text.end(), [base](char digit) {
               return (digit >= '0' && digit <= '9')
                   || (base == 16 && ((digit | ' ') >= 'a' && (digit | ' ') <= 'f'));
           });
    return isNumber ? std::optional(text.toByteArray().toLongLong(nullptr, base)) : std::nullopt;
}

bool hasControlCharacter(QByteArrayView line)
{
    return std::any_of(line.begin(), line.end(), [](char sign) {
        return (static_cast<unsigned char>(sign) < ' ' && sign != '\t') || sign == 0x7f;
    });
}

/// The values of every header of this name.
QByteArrayList valuesOf(const HttpHeaders &headers, QByteArrayView name)
{
    QByteArrayList values;
    for (const auto &[key, value] : headers) {
        if (key.compare(name, Qt::CaseInsensitive) == 0)
            values.append(value);
    }
    return values;
}

} // namespace

HttpAnswerReader::State HttpAnswerReader::take(QByteArrayView bytes)
{
    while (m_state == State::unfinished && !bytes.isEmpty()) {
        const bool isBody =
            m_part == Part::body || m_part == Part::bodyToTheEnd || m_part == Part::chunk;
        bytes = bytes.sliced(isBody ? takeBody(bytes) : takeLine(bytes));
    }
    return m_state;
}

HttpAnswerReader::State HttpAnswerReader::takeEnd()
{
    if (m_state == State::unfinished && m_part == Part::bodyToTheEnd)
        m_state = State::whole;
    return m_state;
}

qsizetype HttpAnswerReader::takeLine(QByteArrayView bytes)
{
    const qsizetype end = bytes.indexOf('\n');
    const qsizetype taken = end < 0 ? bytes.size() : end + 1;
    if (m_part == Part::chunkSize || m_part == Part::chunkEnd) {
        if (m_line.size() + taken > longestChunkSizeLine)
            m_state = State::broken;
    } else {
        m_headBytes += taken;
        m_headLines += end < 0 ? 0 : 1;
        if (m_headBytes > m_limits.headBytes || m_headLines > m_limits.headLines)
            m_state = State::tooLarge;
    }
    if (m_state != State::unfinished)
        return taken;

    m_line.append(bytes.first(taken));
    if (end >= 0) {
        const QByteArray line = std::exchange(m_line, {});
        readLine(QByteArrayView(line).chopped(line.endsWith("\r\n") ? 2 : 1));
    }
    return taken;
}

qsizetype HttpAnswerReader::takeBody(QByteArrayView bytes)
{
    const bool hasSize = m_part != Part::bodyToTheEnd;
    const qsizetype taken =
        hasSize ? std::min<qint64>(bytes.size(), m_bodyBytesLeft) : bytes.size();
    if (m_answer.body.size() + taken > m_limits.bodyBytes) {
        m_state = State::tooLarge;
        return taken;
    }
    m_answer.body.append(bytes.first(taken));
    m_bodyBytesLeft -= taken;
    if (hasSize && m_bodyBytesLeft == 0) {
        if (m_part == Part::body)
            m_state = State::whole;
        else
            m_part = Part::chunkEnd;
    }
    return taken;
}

void HttpAnswerReader::readLine(QByteArrayView line)
{
    switch (m_part) {
    case Part::statusLine:
        readStatusLine(line);
        break;
    case Part::header:
        if (line.isEmpty())
            readEndOfHead();
        else
            readHeader(line);
        break;
    case Part::chunkSize:
        readChunkSize(line);
        break;
    case Part::chunkEnd:
        if (line.isEmpty())
            m_part = Part::chunkSize;
        else
            m_state = State::broken;
        break;
    case Part::trailer:
        if (line.isEmpty())
            m_state = State::whole;
        break;
    case Part::body:
    case Part::bodyToTheEnd:
    case Part::chunk:
        break; // have no lines
    }
}

void HttpAnswerReader::readStatusLine(QByteArrayView line)
{
    // "HTTP/1.1 200 OK"; the words may be missing.
    const bool hasForm = line.size() >= 12 && line.startsWith("HTTP/1.") && line.at(8) == ' '
        && (line.size() == 12 || line.at(12) == ' ');
    const auto status = hasForm ? wholeNumber(line.sliced(9, 3), 10) : std::nullopt;
    // A 101 would make the connection speak something else.
    if (!status || *status < 100 || *status == 101) {
        m_state = State::broken;
        return;
    }
    m_answer.status = static_cast<int>(*status);
    m_part = Part::header;
}

void HttpAnswerReader::readHeader(QByteArrayView line)
{
    if (hasControlCharacter(line)) {
        m_state = State::broken;
        return;
    }
    auto &headers = m_answer.headers;
    const bool isContinuation = line.front() == ' ' || line.front() == '\t';
    if (isContinuation && !headers.isEmpty()) {
        headers.last().second += ' ' + line.trimmed().toByteArray();
        return;
    }
    const qsizetype colon = line.indexOf(':');
    if (colon > 0) {
        headers.append({ line.first(colon).trimmed().toByteArray(),
                         line.sliced(colon + 1).trimmed().toByteArray() });
    }
}

void HttpAnswerReader::readEndOfHead()
{
    if (m_answer.status < 200) {
        m_answer = {};
        m_part = Part::statusLine;
        return;
    }
    // No encoding is asked for.
    for (const QByteArray &encoding : valuesOf(m_answer.headers, "Content-Encoding")) {
        if (!encoding.isEmpty() && encoding.compare("identity", Qt::CaseInsensitive) != 0) {
            m_state = State::broken;
            return;
        }
    }
    if (m_answer.status == 204 || m_answer.status == 304) {
        m_state = State::whole;
        return;
    }
    const QByteArrayList encodings = valuesOf(m_answer.headers, "Transfer-Encoding");
    const QByteArrayList lengths = valuesOf(m_answer.headers, "Content-Length");
    if (!encodings.isEmpty()) {
        m_part = Part::chunkSize;
        if (encodings.size() > 1 || encodings.first().compare("chunked", Qt::CaseInsensitive) != 0)
            m_state = State::broken;
    } else if (!lengths.isEmpty()) {
        const auto length = wholeNumber(lengths.first(), 10);
        if (!length || lengths.count(lengths.first()) != lengths.size())
            m_state = State::broken;
        else
            expect(*length, Part::body);
    } else {
        m_part = Part::bodyToTheEnd;
    }
}

void HttpAnswerReader::readChunkSize(QByteArrayView line)
{
    const qsizetype extension = line.indexOf(';');
    const auto size =
        wholeNumber(line.first(extension < 0 ? line.size() : extension).trimmed(), 16);
    if (!size)
        m_state = State::broken;
    else if (*size == 0)
        m_part = Part::trailer;
    else
        expect(*size, Part::chunk);
}

void HttpAnswerReader::expect(qint64 size, Part part)
{
    m_part = part;
    m_bodyBytesLeft = size;
    if (m_answer.body.size() + size > m_limits.bodyBytes)
        m_state = State::tooLarge;
    else if (size == 0)
        m_state = State::whole;
}
