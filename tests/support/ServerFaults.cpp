#include "support/ServerFaults.h"

#include <QProcess>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using namespace ServerFaults;

namespace {

using A = ScriptedAnswer;
using Ending = ScriptedAnswer::Ending;

/// These bytes instead of an answer.
A raw(const QByteArray &bytes) { return { .pieces = { bytes } }; }

/// The same, and the end of the connection.
A closing(const QByteArray &bytes) { return { .pieces = { bytes }, .ending = Ending::close }; }

/// Goes on with `unit` for as long as the client reads.
A endless(const QByteArray &beginning, const QByteArray &unit)
{
    return { .pieces = { beginning }, .endless = unit.repeated(100'000 / unit.size()) };
}

/// Bytes of a good answer, changed.
A changed(const A &good, const QByteArray &before, const QByteArray &after)
{
    return closing(good.bytes().replace(before, after));
}

const QByteArray okLine = "HTTP/1.1 200 OK\r\n";
const QByteArray hint = "HTTP/1.1 103 Early Hints\r\n\r\n";
const QByteArray chunkedHead = okLine + "Transfer-Encoding: chunked\r\n\r\n";

/// A body without end that is not packed as it says.
A wronglyPacked(const QByteArray &encoding, const QByteArray &beginning)
{
    return endless(okLine + "Content-Encoding: " + encoding + "\r\n\r\n" + beginning, "\0"_ba);
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

ScriptedAnswer packed(const ScriptedAnswer &answer, const QString &program, qsizetype bytes)
{
    QProcess process;
    process.start(program, { u"-c"_s, u"-1"_s });
    process.write(answer.body());
    process.closeWriteChannel();
    if (!process.waitForFinished() || process.exitCode() != 0)
        qFatal("%s does not pack.", qPrintable(program));
    return A::text(process.readAllStandardOutput().mid(0, bytes))
        .withHeader("Content-Encoding", program == u"brotli" ? "br"_ba : program.toLatin1());
}

const QList<Fault> &inCalls()
{
    static const QList<Fault> all {
        { "closes without a byte", [](A a) { return a.cut(0); } },
        { "resets without a byte", [](A a) { return a.cut(0, Ending::reset); } },
        { "closes in the head", [](A a) { return a.cut(20); } },
        { "closes in the body", [](A a) { return a.cut(200); } },
        { "resets in the body", [](A a) { return a.cut(200, Ending::reset); } },
        { "closes in a chunk", [](A a) { return closing(chunkedHead + "ffff\r\n" + a.body()); } },
        { "closes before the last chunk",
          [](A a) { return closing(a.inChunks(1000).bytes().chopped("0\r\n\r\n"_ba.size())); } },
        { "says nothing", [](A a) { return a.cut(0, Ending::keepAlive); }, soonIdle },
        { "stops in the head", [](A a) { return a.cut(20, Ending::keepAlive); }, soonIdle },
        { "stops in the body", [](A a) { return a.cut(200, Ending::keepAlive); }, soonIdle },
        { "sends an early hint and no answer", [](A) { return raw(hint); }, soonIdle },
        { "sends a few bytes now and then",
          [](A a) { return a.inChunks(a.body().size() / 60, 50); }, soonLate },
        { "sends slowly, but in time", [](A a) { return a.inChunks(a.body().size() / 4, 400); },
          soonIdle },
        { "sends a status line without end", [](A) { return endless("HTTP/1.1 200 ", "O"); } },
        { "sends header lines without end", [](A) { return endless(okLine, "a: b\r\n"); } },
        { "sends a header line of 30 MB",
          [](A a) {
              return raw(okLine + "a: " + QByteArray(30'000'000, 'b') + "\r\n" + a.body());
          } },
        { "sends 20,000 headers",
          [](A a) { return a.withHeader("a", "b\r\na: "_ba.repeated(20'000)); } },
        { "sends early hints without end", [](A) { return endless(hint, hint); } },
        { "sends a chunk extension without end", [](A) { return endless(chunkedHead + "5;", "x"); },
          soonIdle },
        { "sends trailers without end",
          [](A) { return endless(chunkedHead + "0\r\n", "a: b\r\n"); } },
        { "sends a body without end", [](A) { return endless(okLine + "\r\n", " "); } },
        { "announces 60 MB", [](A) { return raw(okLine + "Content-Length: 60000000\r\n\r\n"); } },
        { "sends 13 MB in chunks",
          [](A) { return A::text(QByteArray(13 << 20, ' ')).inChunks(1 << 20); } },
        { "sends 300,000 empty objects",
          [](A) { return A::text("{\"result\":[" + "{},"_ba.repeated(300'000) + "{}]}"); } },
        { "greets like a mail server",
          [](A) { return closing("220 posta.example ESMTP hazir\r\n\r\n"); } },
        { "sends what is no text",
          [](A) { return closing("\x15\x03\x01\x00\x02\x02\x50\r\n\r\n"_ba); } },
        { "wants to speak another protocol",
          [](A a) { return changed(a, "200 Scripted", "101 Switching"); } },
        { "packs the body with gzip", [](A a) { return packed(a, u"gzip"_s); } },
        { "packs the body with brotli", [](A a) { return packed(a, u"brotli"_s); } },
        { "packs the body with zstd", [](A a) { return packed(a, u"zstd"_s); } },
        { "cuts what it has packed with gzip", [](A a) { return packed(a, u"gzip"_s, 60); } },
        { "cuts what it has packed with brotli", [](A a) { return packed(a, u"brotli"_s, 60); } },
        { "cuts what it has packed with zstd", [](A a) { return packed(a, u"zstd"_s, 60); } },
        { "packs 16 MB with gzip", [](A) { return bomb(u"gzip"_s); } },
        { "packs 16 MB with brotli", [](A) { return bomb(u"brotli"_s); } },
        { "packs 16 MB with zstd", [](A) { return bomb(u"zstd"_s); } },
        { "says gzip of what is none", [](A) { return wronglyPacked("gzip", "\x1f\x8b\x08"); } },
        { "says brotli of what is none",
          [](A) { return wronglyPacked("identity, br", "\xcf\xff\xff"); } },
        { "packs in a way that nobody asked for",
          [](A a) { return a.withHeader("Content-Encoding", "compress"); } },
        { "names an unknown transfer encoding",
          [](A a) { return a.withHeader("Transfer-Encoding", "gzip, chunked"); } },
        { "tells two lengths", [](A a) { return a.withHeader("Content-Length", "7"); } },
        { "tells a negative length",
          [](A) { return closing(okLine + "Content-Length: -1\r\n\r\n{}"); } },
        { "sends a chunk of a size that is no number",
          [](A) { return closing(chunkedHead + "0x10\r\n{}"); } },
        { "sends a chunk that is longer than it says",
          [](A) { return closing(chunkedHead + "1\r\n{}\r\n0\r\n\r\n"); } },
        { "has a control character in a header",
          [](A a) { return a.withHeader("a", "\x1b[31m"); } },
        { "sends an early hint before the answer",
          [](A a) { return raw("HTTP/1.1 103 Early Hints\r\nLink: </x>\r\n\r\n" + a.bytes()); } },
        { "says three times that it still works",
          [](A a) { return raw("HTTP/1.1 102 Processing\r\n\r\n"_ba.repeated(3) + a.bytes()); } },
        { "sends a second answer unasked",
          [](A a) { return raw(a.bytes() + A::content().bytes()); } },
        { "sends more than it said", [](A a) { return raw(a.bytes() + "{}\r\n\r\n"); } },
        { "sends chunks of one byte, with extensions and trailers",
          [](A a) {
              QByteArray bytes = chunkedHead;
              for (const char byte : a.body())
                  bytes += QByteArray("1;a=b\r\n") + byte + "\r\n";
              return raw(bytes + "0\r\nChecksum: 1\r\n\r\n");
          } },
        { "tells no length and closes",
          [](A a) { return closing("HTTP/1.0 200 OK\r\n\r\n" + a.body()); } },
        { "ends lines without a carriage return",
          [](A a) { return closing("HTTP/1.1 200 OK\na: b\n c\n\n" + a.body()); } },
        { "answers 500 with a result",
          [](A a) { return changed(a, "200 Scripted", "500 Trouble"); } },
        { "says that nothing is new, and sends a body",
          [](A a) { return changed(a, "200 Scripted", "304 Not Modified"); } },
        { "sends an event stream",
          [](A a) { return A::text("event: message\ndata: " + a.body() + "\n\n"); } },
        { "sends a page", [](A) { return A::text("<!DOCTYPE html><p>Bakım</p>"); } },
        { "sends an empty body", [](A) { return A::text(""); } },
        { "sends two documents", [](A a) { return A::text(a.body() + a.body()); } },
        { "sends bytes that are no UTF-8", [](A) { return A::text("{\"a\":\"\xff\"}"); } },
        { "nests arrays 3,000 deep",
          [](A) { return A::text(QByteArray(3000, '[') + QByteArray(3000, ']')); } },
        { "sends no object", [](A) { return A::text("[{}]"); } },
        { "reports an error", [](A) { return A::failure(u"dolu"_s); } },
        { "reports an error of two lines", [](A) { return A::failure(u"dolu\nçok"_s); } },
    };
    return all;
}

const QList<Fault> &inOpening()
{
    static const QList<Fault> all {
        { "sends an early hint before the session", [](A a) { return raw(hint + a.bytes()); } },
        { "closes before the session", [](A a) { return a.cut(20); } },
        { "has a control character in the session's name",
          [](A) { return A::session("a\rb\x1b[31m"); } },
        { "opens no session", [](A) { return A::text("bakım"); } },
    };
    return all;
}

} // namespace ServerFaults
