#include "ViewModels/FlightSearchViewModel.h"
#include "support/ClientTesting.h"
#include "support/ConsoleCapture.h"
#include "support/ServerFaults.h"
#include "support/ToolAnswers.h"

#include <QFile>
#include <QSslSocket>

using namespace Qt::StringLiterals;
using namespace ServerFaults;
using namespace std::chrono_literals;

namespace {

const QString result; // nothing is wrong

/// A text that ends in … stands for all that begin like it.
bool isText(const QString &actual, const QString &expected)
{
    return expected.endsWith(u'…') ? actual.startsWith(expected.chopped(1)) : actual == expected;
}

} // namespace

/// What a server may do wrong, over real sockets, and what comes of it. The tables are also those
/// of docs/reliability.md.
class FaultTableTest : public ClientTest
{
    Q_OBJECT

private Q_SLOTS:
    void calls_data() { addRows(inCalls()); }
    void calls()
    {
        QFETCH(const Fault *, fault);
        VTRMCPClientTestAccess::replaceShared(m_server->endpoint(), { .limits = fault->limits });
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

    void opening_data() { addRows(inOpening()); }
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
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("certificate");
        const auto refusal = [](const char *what, const QString &text, const QString &certificate) {
            QTest::newRow(what) << u"Sunucuyla güvenli bağlantı kurulamadı"_s + text + restart
                                << certificate;
        };
        const QString date = u" Bilgisayarınızın tarihini denetleyin."_s;
        const QString others = u": sunucunun sertifikası başka bir adres için verilmiş."_s;
        QTest::newRow("has a certificate of a trusted authority") << result << u"trusted"_s;
        refusal("has a self-signed certificate",
                u": sunucunun sertifikasını tanınan bir kurum vermemiş."_s, u"self-signed"_s);
        refusal("has a certificate that has expired",
                u": sunucunun sertifikasının süresi dolmuş."_s + date, u"expired"_s);
        refusal("has a certificate that is not valid yet",
                u": sunucunun sertifikası henüz geçerli değil."_s + date, u"not-yet-valid"_s);
        refusal("has a certificate for another host", others, u"other-host"_s);
        refusal("has a certificate for others whose common name fits", others, u"other-names"_s);
        refusal("speaks only TLS 1.1", u"."_s, u"trusted"_s);
    }
    void secureConnection()
    {
        QFETCH(QString, text);
        QFETCH(QString, certificate);
        if (!QSslSocket::supportsSsl())
            QSKIP("No TLS here.");
        const QByteArray what = QTest::currentDataTag();
        QT_WARNING_PUSH
        QT_WARNING_DISABLE_DEPRECATED
        ScriptedServer server(certificate,
                              what.contains("1.1") ? QSsl::TlsV1_1 : QSsl::SecureProtocols);
        QT_WARNING_POP
        VTRMCPClientTestAccess::replaceShared(server.endpoint(), trustingSettings());

        QCOMPARE(settle(call()).errorText(), text);
        // Not a byte of a request has left before.
        QCOMPARE(server.requests().isEmpty(), text != result);
        document(QString::fromUtf8(what), text);
    }

    void noServer()
    {
        m_server->close();
        QCOMPARE(settle(call()).errorText(),
                 u"Sunucuya bağlanılamadı: bağlantı reddedildi."_s + restart);
    }

    void noSecureServer()
    {
        QUrl endpoint = m_server->endpoint();
        endpoint.setScheme(u"https"_s);
        VTRMCPClientTestAccess::replaceShared(endpoint, { .limits = { .idle = 1s } });
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
