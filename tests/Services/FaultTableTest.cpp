#include "ViewModels/FlightSearchViewModel.h"
#include "support/ClientTesting.h"
#include "support/ConsoleText.h"
#include "support/ServerFaults.h"
#include "support/ToolAnswers.h"

#include <QFile>
#include <QRegularExpression>
#include <QSslSocket>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

/// What a server may do wrong, over real sockets. What comes of it is read in the tables of
/// docs/reliability.md.
class FaultTableTest : public ClientTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        QFile document(QFINDTESTDATA("../../docs/reliability.md"));
        QVERIFY(document.open(QIODevice::ReadOnly));
        static const QRegularExpression row(
            u"^\\| (.+) \\| (?:– \\| the new answer|(.+) \\| the earlier results) \\|$"_s,
            QRegularExpression::MultilineOption);
        for (const auto &match : row.globalMatch(QString::fromUtf8(document.readAll())))
            m_texts.insert(match.captured(1), match.captured(2).replace(u"<br>"_s, u"\n"_s));
        const auto certificates = 7;
        QCOMPARE(m_texts.size(),
                 ServerFaults::inCalls().size() + ServerFaults::inOpening().size() + certificates);
    }

    void calls_data() { addRows(ServerFaults::inCalls()); }
    void calls()
    {
        QFETCH(const ServerFaults::Fault *, fault);
        const QString text = documentedText();
        VTRMCPClientTestAccess::replaceShared(m_server->endpoint(), { .limits = fault->limits });
        FlightSearchViewModel viewModel;
        m_answers = good(3);
        search(viewModel);
        const QList<FlightOption> flights = viewModel.flights();
        const QList<DailyPrice> prices = viewModel.calendarPrices();
        QCOMPARE(flights.size(), 3);
        QCOMPARE(prices.size(), 3);

        m_answers = good(4);
        for (ScriptedAnswer &answer : m_answers)
            answer = fault->change(answer);
        verify(text, viewModel, search(viewModel));
        if (!text.isEmpty()) {
            QCOMPARE(viewModel.flights(), flights);
            QCOMPARE(viewModel.calendarPrices(), prices);
        } else {
            QCOMPARE(viewModel.flights().size(), 4);
            QCOMPARE(viewModel.calendarPrices().size(), 4);
        }
        QCOMPARE(m_server->toolCalls().size(), 4);

        // Nothing of it reaches the next question, and the session is still good.
        m_answers = good(5);
        search(viewModel);
        QVERIFY(!viewModel.hasErrorMessage());
        QCOMPARE(viewModel.flights().size(), 5);
        QCOMPARE(viewModel.calendarPrices().size(), 5);
        QCOMPARE(m_server->initializations().size(), 1);
    }

    void opening_data() { addRows(ServerFaults::inOpening()); }
    void opening()
    {
        QFETCH(const ServerFaults::Fault *, fault);
        const QString text = documentedText();
        FlightSearchViewModel viewModel;
        m_answers = good(3);
        m_server->onInitialize = [fault] { return fault->change(ScriptedAnswer::session("s")); };
        for (int round = 1; round <= 2; ++round) {
            verify(text, viewModel, search(viewModel));
            QCOMPARE(viewModel.flights().size(), text.isEmpty() ? 3 : 0);
        }
        QCOMPARE(m_server->initializations().size(), 1);
        QCOMPARE(m_server->toolCalls().size(), text.isEmpty() ? 4 : 0);
    }

    void secureConnection_data()
    {
        QTest::addColumn<QString>("certificate");
        QTest::newRow("has a certificate of a trusted authority") << u"trusted"_s;
        QTest::newRow("has a self-signed certificate") << u"self-signed"_s;
        QTest::newRow("has a certificate that has expired") << u"expired"_s;
        QTest::newRow("has a certificate that is not valid yet") << u"not-yet-valid"_s;
        QTest::newRow("has a certificate for another host") << u"other-host"_s;
        QTest::newRow("has a certificate for others whose common name fits") << u"other-names"_s;
        QTest::newRow("speaks only TLS 1.1") << u"trusted"_s;
    }
    void secureConnection()
    {
        QFETCH(QString, certificate);
        const QString text = documentedText();
        if (!QSslSocket::supportsSsl())
            QSKIP("No TLS here.");
        const bool isOld = QByteArray(QTest::currentDataTag()).contains("1.1");
        QT_WARNING_PUSH
        QT_WARNING_DISABLE_DEPRECATED
        ScriptedServer server(certificate, isOld ? QSsl::TlsV1_1 : QSsl::SecureProtocols);
        QT_WARNING_POP
        VTRMCPClientTestAccess::replaceShared(server.endpoint(), trustingSettings());

        QCOMPARE(settle(call()).errorText(), text);
        // Not a byte of a request has left before.
        QCOMPARE(server.requests().isEmpty(), !text.isEmpty());
    }

    void noServer()
    {
        m_server->close();
        QCOMPARE(settle(call()).errorText(),
                 u"Sunucuya bağlanılamadı: bağlantı reddedildi."_s + ServerFaults::restart);
    }

    void noSecureServer()
    {
        QUrl endpoint = m_server->endpoint();
        endpoint.setScheme(u"https"_s);
        VTRMCPClientTestAccess::replaceShared(endpoint, { .limits = { .idle = 1s } });
        QVERIFY(settle(call()).error);
        QVERIFY(m_server->requests().isEmpty());
    }

private:
    static void addRows(const QList<ServerFaults::Fault> &faults)
    {
        QTest::addColumn<const ServerFaults::Fault *>("fault");
        for (const ServerFaults::Fault &fault : faults)
            QTest::newRow(fault.what) << &fault;
    }

    /// `count` days or flights.
    static QHash<QString, ScriptedAnswer> good(int count)
    {
        return { { calendarTool, calendarAnswer(count) }, { flightsTool, flightsAnswer(count) } };
    }

    /// Searches to the end. Returns what the console said meanwhile.
    static QString search(FlightSearchViewModel &viewModel)
    {
        return consoleTextDuring([&viewModel] {
            viewModel.startSearchAll();
            QTRY_VERIFY_WITH_TIMEOUT(!viewModel.isLoading(), 60'000);
        });
    }

    static void verify(const QString &text, const FlightSearchViewModel &viewModel,
                       const QString &console)
    {
        const QString message = viewModel.errorMessageText();
        QStringList lines = console.split(u'\n', Qt::SkipEmptyParts);
        lines.sort();
        if (text.isEmpty()) {
            QCOMPARE(message, QString());
            QCOMPARE(lines, QStringList());
            return;
        }
        const QString heading = u"Uçuş bilgileri alınırken hata oluştu: "_s;
        if (text.endsWith(u'…'))
            QVERIFY2(message.startsWith(heading + text.chopped(1)), qPrintable(message));
        else
            QCOMPARE(message, heading + text);
        const QString line = message.mid(heading.size()).replace(u'\n', u' ');
        QCOMPARE(lines,
                 QStringList({ u"Flights search error: "_s + line,
                               u"Price calendar fetch error: "_s + line }));
    }

    /// What the document says that the user is told in this row; empty when nothing is wrong.
    QString documentedText() const
    {
        return m_texts.value(QString::fromUtf8(QTest::currentDataTag()),
                             u"docs/reliability.md has no such row"_s);
    }

    QHash<QString, QString> m_texts; ///< by what the server does
};

QTEST_GUILESS_MAIN(FaultTableTest)
#include "FaultTableTest.moc"
