#include "support/ServerFaults.h"

#include <QProcess>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using namespace ServerFaults;

namespace {

using A = ScriptedAnswer;
using Ending = ScriptedAnswer::Ending;

const QString result; // nothing is wrong

A raw(const QByteArray &bytes, Ending ending = Ending::keepAlive, const QByteArray &endless = {})
{
    return { .ending = ending, .raw = bytes, .endless = endless };
}

A cut(A answer, qsizetype bytes, Ending ending)
{
    answer.cutAfter = bytes;
    answer.ending = ending;
    return answer;
}

A inPieces(A answer, int count, int interval)
{
    answer.pieceSize = answer.body.size() / count + 1;
    answer.pieceInterval = interval;
    return answer;
}

/// Bytes of a good answer, changed.
A changed(const A &good, const QByteArray &before, const QByteArray &after)
{
    return raw(good.bytes().replace(before, after), Ending::close);
}

QByteArray repeated(const QByteArray &unit, qsizetype bytes)
{
    return unit.repeated(bytes / unit.size() + 1);
}

const QByteArray okLine = "HTTP/1.1 200 OK\r\n";
const QByteArray chunkedHead = okLine + "Transfer-Encoding: chunked\r\n\r\n";

/// A body without end that is not packed as it says.
A wronglyPacked(const QByteArray &encoding, const QByteArray &beginning)
{
    return raw(okLine + "Content-Encoding: " + encoding + "\r\n\r\n" + beginning, Ending::keepAlive,
               QByteArray(100'000, '\0'));
}

/// Few bytes that become 16 MB.
A bomb(const QString &program)
{
    static QHash<QString, A> bombs;
    if (!bombs.contains(program))
        bombs.insert(program, packed(A::text(QByteArray(16 << 20, ' ')), program));
    return bombs.value(program);
}

const HttpLimits soonIdle { .idle = 1s };
const HttpLimits soonLate { .total = 1500ms };

} // namespace

namespace ServerFaults {

ScriptedAnswer packed(ScriptedAnswer answer, const QString &program, qsizetype bytes)
{
    QProcess process;
    process.start(program, { u"-c"_s, u"-1"_s });
    process.write(answer.body);
    process.closeWriteChannel();
    if (!process.waitForFinished() || process.exitCode() != 0)
        qFatal("%s does not pack.", qPrintable(program));
    answer.body = process.readAllStandardOutput().mid(0, bytes);
    return answer.withHeader("Content-Encoding",
                             program == u"brotli" ? "br"_ba : program.toLatin1());
}

const QList<Fault> &inCalls()
{
    static const QList<Fault> all {
        { "closes without a byte", closed, [](A a) { return cut(a, 0, Ending::close); } },
        { "resets without a byte", closed, [](A a) { return cut(a, 0, Ending::reset); } },
        { "closes in the head", closed, [](A a) { return cut(a, 20, Ending::close); } },
        { "closes in the body", closed, [](A a) { return cut(a, 200, Ending::close); } },
        { "resets in the body", closed, [](A a) { return cut(a, 200, Ending::reset); } },
        { "closes in a chunk", closed,
          [](A a) { return raw(chunkedHead + "ffff\r\n" + a.body, Ending::close); } },
        { "closes before the last chunk", closed,
          [](A a) {
              return raw(chunkedHead + QByteArray::number(a.body.size(), 16) + "\r\n" + a.body
                             + "\r\n",
                         Ending::close);
          } },
        { "says nothing", idle, [](A a) { return cut(a, 0, Ending::keepAlive); }, soonIdle },
        { "stops in the head", idle, [](A a) { return cut(a, 20, Ending::keepAlive); }, soonIdle },
        { "stops in the body", idle, [](A a) { return cut(a, 200, Ending::keepAlive); }, soonIdle },
        { "sends an early hint and no answer", idle,
          [](A) { return raw("HTTP/1.1 103 Early Hints\r\n\r\n"); }, soonIdle },
        { "sends a few bytes now and then", late, [](A a) { return inPieces(a, 60, 50); },
          soonLate },
        { "sends slowly, but in time", result, [](A a) { return inPieces(a, 4, 400); }, soonIdle },
        { "sends a status line without end", tooLarge,
          [](A) { return raw("HTTP/1.1 200 ", Ending::keepAlive, QByteArray(100'000, 'O')); } },
        { "sends header lines without end", tooLarge,
          [](A) { return raw(okLine, Ending::keepAlive, repeated("a: b\r\n", 100'000)); } },
        { "sends a header line of 30 MB", tooLarge,
          [](A a) { return raw(okLine + "a: " + QByteArray(30'000'000, 'b') + "\r\n" + a.body); } },
        { "sends 20,000 headers", tooLarge,
          [](A a) { return a.withHeader("a", repeated("b\r\na: ", 20'000 * 6)); } },
        { "sends early hints without end", tooLarge,
          [](A) {
              const QByteArray hint = "HTTP/1.1 103 Early Hints\r\n\r\n";
              return raw(hint, Ending::keepAlive, repeated(hint, 100'000));
          } },
        { "sends a chunk extension without end", idle,
          [](A) { return raw(chunkedHead + "5;", Ending::keepAlive, QByteArray(100'000, 'x')); },
          soonIdle },
        { "sends trailers without end", tooLarge,
          [](A) {
              return raw(chunkedHead + "0\r\n", Ending::keepAlive, repeated("a: b\r\n", 100'000));
          } },
        { "sends a body without end", tooLarge,
          [](A) { return raw(okLine + "\r\n", Ending::keepAlive, QByteArray(1'000'000, ' ')); } },
        { "announces 60 MB", tooLarge,
          [](A) { return raw(okLine + "Content-Length: 60000000\r\n\r\n"); } },
        { "sends 13 MB in chunks", tooLarge,
          [](A) { return inPieces(A::text(QByteArray(13 << 20, ' ')), 13, 0); } },
        { "sends 300,000 empty objects", tooLarge,
          [](A) { return A::text("{\"result\":[" + repeated("{},", 300'000) + "{}]}"); } },
        { "greets like a mail server", invalid,
          [](A) { return raw("220 posta.example ESMTP hazir\r\n\r\n", Ending::close); } },
        { "sends what is no text", invalid,
          [](A) { return raw("\x15\x03\x01\x00\x02\x02\x50\r\n\r\n"_ba, Ending::close); } },
        { "wants to speak another protocol", invalid,
          [](A a) { return changed(a, "200 Scripted", "101 Switching"); } },
        { "packs the body with gzip", result, [](A a) { return packed(a, u"gzip"_s); } },
        { "packs the body with brotli", result, [](A a) { return packed(a, u"brotli"_s); } },
        { "packs the body with zstd", result, [](A a) { return packed(a, u"zstd"_s); } },
        { "cuts what it has packed with gzip", closedOrInvalid,
          [](A a) { return packed(a, u"gzip"_s, 60); } },
        { "cuts what it has packed with brotli", closedOrInvalid,
          [](A a) { return packed(a, u"brotli"_s, 60); } },
        { "cuts what it has packed with zstd", closedOrInvalid,
          [](A a) { return packed(a, u"zstd"_s, 60); } },
        { "packs 16 MB with gzip", tooLarge, [](A) { return bomb(u"gzip"_s); } },
        { "packs 16 MB with brotli", tooLarge, [](A) { return bomb(u"brotli"_s); } },
        { "packs 16 MB with zstd", tooLarge, [](A) { return bomb(u"zstd"_s); } },
        { "says gzip of what is none", invalid,
          [](A) { return wronglyPacked("gzip", "\x1f\x8b\x08"); } },
        { "says brotli of what is none", invalid,
          [](A) { return wronglyPacked("identity, br", "\xcf\xff\xff"); } },
        { "packs in a way that nobody asked for", invalid,
          [](A a) { return a.withHeader("Content-Encoding", "compress"); } },
        { "names an unknown transfer encoding", closedOrInvalid,
          [](A a) { return a.withHeader("Transfer-Encoding", "gzip, chunked"); } },
        { "tells two lengths", invalid, [](A a) { return a.withHeader("Content-Length", "7"); } },
        { "tells a negative length", invalid,
          [](A) { return raw(okLine + "Content-Length: -1\r\n\r\n{}", Ending::close); } },
        { "sends a chunk of a size that is no number", closedOrInvalid,
          [](A) { return raw(chunkedHead + "0x10\r\n{}", Ending::close); } },
        { "sends a chunk that is longer than it says", closedOrInvalid,
          [](A) { return raw(chunkedHead + "1\r\n{}\r\n0\r\n\r\n", Ending::close); } },
        { "has a control character in a header", invalid,
          [](A a) { return a.withHeader("a", "\x1b[31m"); } },
        { "sends an early hint before the answer", result,
          [](A a) { return raw("HTTP/1.1 103 Early Hints\r\nLink: </x>\r\n\r\n" + a.bytes()); } },
        { "says three times that it still works", result,
          [](A a) {
              return raw(QByteArray("HTTP/1.1 102 Processing\r\n\r\n").repeated(3) + a.bytes());
          } },
        { "sends a second answer unasked", result,
          [](A a) { return raw(a.bytes() + A::content().bytes()); } },
        { "sends more than it said", result, [](A a) { return raw(a.bytes() + "{}\r\n\r\n"); } },
        { "sends chunks of one byte, with extensions and trailers", result,
          [](A a) {
              QByteArray bytes = chunkedHead;
              for (const char byte : std::as_const(a.body))
                  bytes += QByteArray("1;a=b\r\n") + byte + "\r\n";
              return raw(bytes + "0\r\nChecksum: 1\r\n\r\n");
          } },
        { "tells no length and closes", result,
          [](A a) { return raw("HTTP/1.0 200 OK\r\n\r\n" + a.body, Ending::close); } },
        { "ends lines without a carriage return", result,
          [](A a) { return raw("HTTP/1.1 200 OK\na: b\n c\n\n" + a.body, Ending::close); } },
        { "answers 500 with a result", result,
          [](A a) { return changed(a, "200 Scripted", "500 Trouble"); } },
        { "says that nothing is new, and sends a body", noJson,
          [](A a) { return changed(a, "200 Scripted", "304 Not Modified"); } },
        { "sends an event stream", noJson,
          [](A a) { return A::text("event: message\ndata: " + a.body + "\n\n"); } },
        { "sends a page", noJson, [](A) { return A::text("<!DOCTYPE html><p>Bakım</p>"); } },
        { "sends an empty body", noJson, [](A) { return A::text(""); } },
        { "sends two documents", noJson, [](A a) { return A::text(a.body + a.body); } },
        { "sends bytes that are no UTF-8", noJson, [](A) { return A::text("{\"a\":\"\xff\"}"); } },
        { "nests arrays 3,000 deep", noJson,
          [](A) { return A::text(QByteArray(3000, '[') + QByteArray(3000, ']')); } },
        { "sends no object", u"Invalid JSON response"_s, [](A) { return A::text("[{}]"); } },
        { "reports an error", u"dolu"_s, [](A) { return A::failure(u"dolu"_s); } },
        { "reports an error of two lines", u"dolu\nçok"_s,
          [](A) { return A::failure(u"dolu\nçok"_s); } },
    };
    return all;
}

const QList<Fault> &inOpening()
{
    static const QList<Fault> all {
        { "sends an early hint before the session", result,
          [](A a) { return raw("HTTP/1.1 103 Early Hints\r\n\r\n" + a.bytes()); } },
        { "closes before the session", closedAtStart,
          [](A a) { return cut(a, 20, Ending::close); } },
        { "has a control character in the session's name", invalid + restart,
          [](A) { return A::session("a\rb\x1b[31m"); } },
        { "opens no session", u"No mcp-session-id header: bakım"_s,
          [](A) { return A::text("bakım"); } },
    };
    return all;
}

} // namespace ServerFaults
