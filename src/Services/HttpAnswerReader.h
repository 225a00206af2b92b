#pragma once

#include "Services/HttpAnswer.h"

#include <QByteArrayView>

/// Reads one HTTP/1.1 answer from its bytes, however they are cut. Answers below 200, which precede
/// the real one, are skipped. Bytes after the end belong to nobody and are ignored: a connection
/// carries one answer.
class HttpAnswerReader
{
public:
    enum class State {
        unfinished,
        whole,
        broken, ///< not HTTP/1
        tooLarge, ///< beyond one of the limits of size
    };

    explicit HttpAnswerReader(const HttpLimits &limits)
        : m_limits(limits)
    { }

    State take(QByteArrayView bytes);
    /// The server has closed the connection, which is the end of a body of unknown length.
    State takeEnd();
    /// To be used when the state is `whole`.
    const HttpAnswer &answer() const { return m_answer; }

private:
    enum class Part { statusLine, header, body, bodyToTheEnd, chunkSize, chunk, chunkEnd, trailer };

    qsizetype takeLine(QByteArrayView bytes);
    qsizetype takeBody(QByteArrayView bytes);
    void readLine(QByteArrayView line);
    void readStatusLine(QByteArrayView line);
    void readHeader(QByteArrayView line);
    void readEndOfHead();
    void readChunkSize(QByteArrayView line);
    /// Begins a body, or a piece of it, of this size.
    void expect(qint64 size, Part part);

    HttpLimits m_limits;
    HttpAnswer m_answer;
    State m_state = State::unfinished;
    Part m_part = Part::statusLine;
    QByteArray m_line;
    qint64 m_headBytes = 0;
    int m_headLines = 0;
    qint64 m_bodyBytesLeft = 0; ///< of the body, or of the chunk
};
