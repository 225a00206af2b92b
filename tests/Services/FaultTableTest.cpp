#include "Services/PlatformErrorText.h"
#include "ViewModels/FlightSearchViewModel.h"
#include "support/ClientTesting.h"
#include "support/ConsoleCapture.h"
#include "support/ToolAnswers.h"

#include <QFile>
#include <QSslConfiguration>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

using Ending = ScriptedAnswer::Ending;

const QString closed =
    u"Sunucu bağlantıyı geçerli bir yanıt vermeden kapattı. Lütfen yeniden deneyin."_s;
const QString idle = u"Sunucu yanıt vermedi, istek zaman aşımına uğradı. Lütfen yeniden deneyin."_s;
const QString late =
    u"Yanıt zamanında tamamlanmadı, istek zaman aşımına uğradı. Lütfen yeniden deneyin."_s;
const QString invalid = u"Sunucudan geçersiz bir yanıt alındı."_s;
const QString tooLarge = u"Sunucunun yanıtı kabul edilemeyecek kadar büyük."_s;
// What Qt has to say about the details follows these two.
const QString noJson = u"Sunucunun yanıtı okunamadı: …"_s;
const QString insecure = u"Sunucuyla güvenli bağlantı kurulamadı…"_s;
const QString result; // nothing is wrong

/// A text that ends in … stands for all that begin like it.
bool isText(const QString &actual, const QString &expected)
{
    return expected.endsWith(u'…') ? actual.startsWith(expected.chopped(1)) : actual == expected;
}

ScriptedAnswer raw(const QByteArray &bytes, Ending ending = Ending::keepAlive,
                   const QByteArray &endless = {})
{
    return { .ending = ending, .raw = bytes, .endless = endless };
}

ScriptedAnswer cut(ScriptedAnswer answer, qsizetype bytes, Ending ending)
{
    answer.cutAfter = bytes;
    answer.ending = ending;
    return answer;
}

ScriptedAnswer inPieces(ScriptedAnswer answer, int count, int interval)
{
    answer.pieceSize = answer.body.size() / count + 1;
    answer.pieceInterval = interval;
    return answer;
}

/// Bytes of a good answer, changed.
ScriptedAnswer changed(const ScriptedAnswer &good, const QByteArray &before,
                       const QByteArray &after)
{
    return raw(good.bytes().replace(before, after), Ending::close);
}

QByteArray repeated(const QByteArray &unit, qsizetype bytes)
{
    return unit.repeated(bytes / unit.size() + 1);
}

const QByteArray okLine = "HTTP/1.1 200 OK\r\n";
const QByteArray chunkedHead = okLine + "Transfer-Encoding: chunked\r\n\r\n";

/// What a server does with a good answer, and what the user is told.
struct Fault
{
    const char *what;
    QString text;
    std::function<ScriptedAnswer(ScriptedAnswer)> change;
    HttpLimits limits = {};
};

const HttpLimits soonIdle { .idle = 1s };
const HttpLimits soonLate { .total = 1500ms };

using A = ScriptedAnswer;

const QList<Fault> &faults()
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
        { "sends a chunk extension without end", invalid,
          [](A) { return raw(chunkedHead + "5;", Ending::keepAlive, QByteArray(100'000, 'x')); } },
        { "sends trailers without end", tooLarge,
          [](A) {
              return raw(chunkedHead + "0\r\n", Ending::keepAlive, repeated("a: b\r\n", 100'000));
          } },
        { "sends a body without end", tooLarge,
          [](A) { return raw(okLine + "\r\n", Ending::keepAlive, QByteArray(1'000'000, ' ')); } },
        { "announces 60 MB", tooLarge,
          [](A) { return raw(okLine + "Content-Length: 60000000\r\n\r\n"); } },
        { "sends 9 MB in chunks", tooLarge,
          [](A) { return inPieces(A::text(QByteArray(9 << 20, ' ')), 9, 0); } },
        { "sends 300,000 empty objects", tooLarge,
          [](A) { return A::text("{\"result\":[" + repeated("{},", 300'000) + "{}]}"); } },
        { "greets like a mail server", invalid,
          [](A) { return raw("220 posta.example ESMTP hazir\r\n\r\n", Ending::close); } },
        { "sends what is no text", invalid,
          [](A) { return raw("\x15\x03\x01\x00\x02\x02\x50\r\n\r\n"_ba, Ending::close); } },
        { "wants to speak another protocol", invalid,
          [](A a) { return changed(a, "200 Scripted", "101 Switching"); } },
        { "packs the body, which was not asked for", invalid,
          [](A a) { return a.withHeader("Content-Encoding", "br"); } },
        { "names an unknown transfer encoding", invalid,
          [](A a) { return a.withHeader("Transfer-Encoding", "gzip, chunked"); } },
        { "tells two lengths", invalid, [](A a) { return a.withHeader("Content-Length", "7"); } },
        { "tells a negative length", invalid,
          [](A) { return raw(okLine + "Content-Length: -1\r\n\r\n{}", Ending::close); } },
        { "sends a chunk of a size that is no number", invalid,
          [](A) { return raw(chunkedHead + "0x10\r\n{}", Ending::close); } },
        { "sends a chunk that is longer than it says", invalid,
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

/// What a server does with "initialize".
const QList<Fault> &openingFaults()
{
    static const QList<Fault> all {
        { "sends an early hint before the session", result,
          [](A a) { return raw("HTTP/1.1 103 Early Hints\r\n\r\n" + a.bytes()); } },
        { "closes before the session", closed, [](A a) { return cut(a, 20, Ending::close); } },
        { "has a control character in the session's name", invalid,
          [](A) { return A::session("a\rb\x1b[31m"); } },
        { "opens no session", u"No mcp-session-id header: bakım"_s,
          [](A) { return A::text("bakım"); } },
    };
    return all;
}

struct Certificate
{
    const char *what;
    QString text;
    QString name;
    QSsl::SslProtocol protocol = QSsl::SecureProtocols;
};

const QList<Certificate> &certificates()
{
    QT_WARNING_PUSH
    QT_WARNING_DISABLE_DEPRECATED
    static const QList<Certificate> all {
        { "has a certificate of a trusted authority", result, u"trusted"_s },
        { "has a self-signed certificate", insecure, u"self-signed"_s },
        { "has a certificate that has expired", insecure, u"expired"_s },
        { "has a certificate for another host", insecure, u"other-host"_s },
        { "has a certificate for others whose common name fits", insecure, u"other-names"_s },
        { "speaks only TLS 1.1", insecure, u"trusted"_s, QSsl::TlsV1_1 },
    };
    QT_WARNING_POP
    return all;
}

} // namespace

/// What a server may do wrong, over real sockets, and what comes of it. The tables are also those
/// of docs/reliability.md.
class FaultTableTest : public ClientTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { PlatformErrorText::installTurkishCatalogue(); }

    void calls_data() { addRows(faults()); }
    void calls()
    {
        QFETCH(const Fault *, fault);
        VTRMCPClientTestAccess::replaceShared(m_server->endpoint(), fault->limits);
        FlightSearchViewModel viewModel;
        m_server->onToolCall = [](const ReceivedRequest &request) { return good(request, 3); };
        search(viewModel);
        const QList<FlightOption> flights = viewModel.flights();
        const QList<DailyPrice> prices = viewModel.calendarPrices();
        QCOMPARE(flights.size(), 3);
        QCOMPARE(prices.size(), 3);

        m_server->onToolCall = [fault](const ReceivedRequest &request) {
            return fault->change(good(request, 4));
        };
        const QString console = search(viewModel);
        verify(*fault, viewModel, console);
        if (fault->text != result) {
            QCOMPARE(viewModel.flights(), flights);
            QCOMPARE(viewModel.calendarPrices(), prices);
        } else {
            QCOMPARE(viewModel.flights().size(), 4);
            QCOMPARE(viewModel.calendarPrices().size(), 4);
        }
        QCOMPARE(m_server->toolCalls().size(), 4);

        // Nothing of it reaches the next question, and the session is still good.
        m_server->onToolCall = [](const ReceivedRequest &request) { return good(request, 5); };
        search(viewModel);
        QVERIFY(!viewModel.hasErrorMessage());
        QCOMPARE(viewModel.flights().size(), 5);
        QCOMPARE(viewModel.calendarPrices().size(), 5);
        QCOMPARE(m_server->initializations().size(), 1);
    }

    void opening_data() { addRows(openingFaults()); }
    void opening()
    {
        QFETCH(const Fault *, fault);
        FlightSearchViewModel viewModel;
        m_server->onToolCall = [](const ReceivedRequest &request) { return good(request, 3); };
        m_server->onInitialize = [fault](const ReceivedRequest &) {
            return fault->change(ScriptedAnswer::session("s"));
        };
        for (int round = 1; round <= 2; ++round) {
            verify(*fault, viewModel, search(viewModel));
            QCOMPARE(viewModel.flights().size(), fault->text == result ? 3 : 0);
        }
        QCOMPARE(m_server->initializations().size(), 1);
        QCOMPARE(m_server->toolCalls().size(), fault->text == result ? 4 : 0);
    }

    void secureConnection_data()
    {
        QTest::addColumn<const Certificate *>("certificate");
        for (const Certificate &certificate : certificates())
            QTest::newRow(certificate.what) << &certificate;
    }
    void secureConnection()
    {
        QFETCH(const Certificate *, certificate);
        if (!QSslSocket::supportsSsl())
            QSKIP("No TLS here.");
        QSslConfiguration trusting = QSslConfiguration::defaultConfiguration();
        trusting.addCaCertificate(ScriptedServer::certificate(u"authority"_s));
        QSslConfiguration::setDefaultConfiguration(trusting);
        ScriptedServer server(certificate->name, certificate->protocol);
        VTRMCPClientTestAccess::replaceShared(server.endpoint());

        const auto outcome = settle(call());
        QVERIFY2(isText(outcome.errorText(), certificate->text), qPrintable(outcome.errorText()));
        // Not a byte of a request has left before.
        QCOMPARE(server.requests().isEmpty(), certificate->text != result);
        document(QString::fromUtf8(certificate->what), certificate->text);
    }

    void noServer()
    {
        m_server->close();
        QCOMPARE(
            settle(call()).errorText(),
            u"Sunucuya bağlanılamadı: bağlantı reddedildi. Lütfen daha sonra yeniden deneyin."_s);
    }

    void noSecureServer()
    {
        // The details that OpenSSL has for this are in English.
        QUrl endpoint = m_server->endpoint();
        endpoint.setScheme(u"https"_s);
        VTRMCPClientTestAccess::replaceShared(endpoint, soonIdle);
        QVERIFY(settle(call()).error);
        QVERIFY(m_server->requests().isEmpty());
    }

    void theDocumentHasTheTables()
    {
        QFile document(QFINDTESTDATA("../../docs/reliability.md"));
        QVERIFY(document.open(QIODevice::ReadOnly));
        const QString text = QString::fromUtf8(document.readAll());
        QStringList missing;
        std::copy_if(m_rows.begin(), m_rows.end(), std::back_inserter(missing),
                     [&text](const QString &row) { return !text.contains(row); });
        for (const QString &row : std::as_const(missing))
            qInfo("%s", qPrintable(row));
        QCOMPARE(missing, QStringList());
    }

private:
    static void addRows(const QList<Fault> &faults)
    {
        QTest::addColumn<const Fault *>("fault");
        for (const Fault &fault : faults)
            QTest::newRow(fault.what) << &fault;
    }

    /// `count` days or flights.
    static ScriptedAnswer good(const ReceivedRequest &request, int count)
    {
        if (request.tool() == flightsTool)
            return flightsAnswer(QList<Offer>(count, Offer { .number = u"1"_s }));
        QStringList days;
        for (int day = 1; day <= count; ++day)
            days.append(u"2026-12-0%1"_s.arg(day));
        return calendarAnswer(days);
    }

    /// Searches to the end. Returns what the console said meanwhile.
    static QString search(FlightSearchViewModel &viewModel)
    {
        ConsoleCapture console;
        viewModel.startSearchAll();
        [&viewModel] { QTRY_VERIFY_WITH_TIMEOUT(!viewModel.isLoading(), 60'000); }();
        return console.text();
    }

    void verify(const Fault &fault, const FlightSearchViewModel &viewModel, const QString &console)
    {
        const QString heading = u"Uçuş bilgileri alınırken hata oluştu: "_s;
        QStringList lines = console.split(u'\n', Qt::SkipEmptyParts);
        lines.sort();
        QVERIFY(!viewModel.isLoading());
        if (fault.text == result) {
            QCOMPARE(viewModel.errorMessage(), std::nullopt);
            QCOMPARE(lines, QStringList());
        } else {
            const QString message = viewModel.errorMessageText();
            QVERIFY2(isText(message, heading + fault.text), qPrintable(message));
            const QString text = message.sliced(heading.size()).replace(u'\n', u' ');
            QCOMPARE(lines,
                     QStringList({ u"Flights search error: "_s + text,
                                   u"Price calendar fetch error: "_s + text }));
        }
        document(QString::fromUtf8(fault.what), fault.text);
    }

    /// Notes the line of the document that tells this.
    void document(const QString &what, QString text)
    {
        text.replace(u'\n', u' ');
        const QString row = text == result ? u"| %1 | – | the new answer |"_s.arg(what)
                                           : u"| %1 | %2 | the earlier results |"_s.arg(what, text);
        m_rows.append(row);
    }

    QStringList m_rows;
};

QTEST_GUILESS_MAIN(FaultTableTest)
#include "FaultTableTest.moc"
