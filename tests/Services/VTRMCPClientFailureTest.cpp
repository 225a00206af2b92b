#include "support/ClientTesting.h"
#include "support/ScriptedServer.h"

#include "Services/PlatformErrorText.h"

#include <QElapsedTimer>
#include <QHostInfo>
#include <QMetaEnum>
#include <QSslError>
#include <QSslSocket>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr HttpLimits quickLimits { .idle = 300ms, .total = 800ms, .bodyBytes = 100'000 };

QCoro::Task<QJsonObject> call() { return VTRMCPClient::shared().callTool(u"any"_s, {}); }

} // namespace

/// What goes wrong below the protocol, provoked over real HTTP: one McpError each, in Turkish.
class VTRMCPClientFailureTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { PlatformErrorText::installTurkishCatalogue(); }
    void init()
    {
        m_server = std::make_unique<ScriptedServer>();
        VTRMCPClientTestAccess::replaceShared(m_server->endpoint(), quickLimits);
    }
    void cleanup()
    {
        VTRMCPClientTestAccess::destroyShared();
        m_server.reset();
    }

    void brokenAnswer_data();
    void brokenAnswer();
    void bodyThatIsNoJson_data();
    void bodyThatIsNoJson();
    void connectionRefused();
    void unknownHost();
    void slowBytesWithinTheLimitsAreAwaited();
    void aSelfSignedCertificateIsRefused();
    void aServerWithoutTlsIsRefused();
    void textsAreTurkish();

private:
    std::unique_ptr<ScriptedServer> m_server;
};

void VTRMCPClientFailureTest::brokenAnswer_data()
{
    QTest::addColumn<ScriptedAnswer>("answer");
    QTest::addColumn<QString>("text");

    const QString closed =
        u"Sunucu bağlantıyı geçerli bir yanıt vermeden kapattı. Lütfen yeniden deneyin."_s;
    const QString invalid = u"Sunucudan geçersiz bir yanıt alındı."_s;
    const QString tooLarge = u"Sunucunun yanıtı kabul edilemeyecek kadar büyük."_s;
    const ScriptedAnswer whole = ScriptedAnswer::content({ { u"a"_s, QString(2000, u'x') } });

    ScriptedAnswer answer = ScriptedAnswer::closedWithoutAnswer();
    QTest::newRow("closed without an answer") << answer << closed;
    answer.ending = ScriptedAnswer::Ending::reset;
    QTest::newRow("reset without an answer") << answer << closed;

    answer = whole;
    answer.ending = ScriptedAnswer::Ending::close;
    answer.cutAfter = 20;
    QTest::newRow("closed in the head") << answer << closed;
    answer.cutAfter = 1000;
    QTest::newRow("closed in the body") << answer << closed;

    answer = ScriptedAnswer::silence();
    QTest::newRow("silence")
        << answer << u"Sunucu yanıt vermedi, istek zaman aşımına uğradı. Lütfen yeniden deneyin."_s;
    answer = whole;
    answer.cutAfter = 1000;
    QTest::newRow("silence in the body")
        << answer << u"Sunucu yanıt vermedi, istek zaman aşımına uğradı. Lütfen yeniden deneyin."_s;
    answer = whole;
    answer.pieceSize = 20;
    answer.pieceInterval = 100;
    QTest::newRow("slow drip")
        << answer
        << u"Yanıt zamanında tamamlanmadı, istek zaman aşımına uğradı. Lütfen yeniden deneyin."_s;

    answer = ScriptedAnswer();
    answer.raw = "220 posta.example ESMTP hazir\r\n\r\n";
    answer.ending = ScriptedAnswer::Ending::close;
    QTest::newRow("not HTTP") << answer << closed;
    answer.raw = QByteArray("\x15\x03\x01\x00\x02\x02\x50\r\n\r\n", 11);
    QTest::newRow("binary") << answer << closed;
    QTest::newRow("encoded otherwise than told")
        << ScriptedAnswer::text(QByteArray(100, 'x')).withHeader("Content-Encoding", "gzip")
        << invalid;

    answer = ScriptedAnswer::content({ { u"a"_s, QString(100'001, u'x') } });
    QTest::newRow("too large") << answer << tooLarge;
    answer.framing = ScriptedAnswer::Framing::chunked;
    answer.pieceSize = 10'000;
    answer.pieceInterval = 10;
    QTest::newRow("too large, in chunks") << answer << tooLarge;
}

void VTRMCPClientFailureTest::brokenAnswer()
{
    QFETCH(ScriptedAnswer, answer);
    QFETCH(QString, text);
    m_server->enqueue({ answer });

    const auto outcome = settle(call());
    QVERIFY(outcome.error);
    QCOMPARE(outcome.errorText(), text);
    QCOMPARE(outcome.error->domain(), McpError::Domain::Network);
    QCOMPARE(m_server->toolCalls().size(), 1);
    // The session is still good.
    QVERIFY(settle(call()).value);
    QCOMPARE(m_server->initializations().size(), 1);
}

void VTRMCPClientFailureTest::bodyThatIsNoJson_data()
{
    QTest::addColumn<QByteArray>("body");
    QTest::newRow("event stream") << QByteArray(
        "event: message\ndata: {\"jsonrpc\":\"2.0\",\"id\":1,\"result\":{}}\n\n");
    QTest::newRow("page") << QByteArray("<!DOCTYPE html><p>Bakım</p>");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("blanks") << QByteArray("  \n");
    QTest::newRow("number") << QByteArray("5");
    QTest::newRow("text") << QByteArray("\"x\"");
    QTest::newRow("cut") << QByteArray("{\"result\":{\"a\":1}");
    QTest::newRow("two documents") << QByteArray("{}{}");
    QTest::newRow("no UTF-8") << QByteArray("{\"a\":\"\xff\xfe\"}");
    QTest::newRow("too deep") << QByteArray(3000, '[') + QByteArray(3000, ']');
}

void VTRMCPClientFailureTest::bodyThatIsNoJson()
{
    QFETCH(QByteArray, body);
    m_server->enqueue({ ScriptedAnswer::text(body) });
    const auto outcome = settle(call());
    QVERIFY(outcome.error);
    QCOMPARE(outcome.error->domain(), McpError::Domain::Json);
    const QString beginning = u"Sunucunun yanıtı okunamadı: "_s;
    QVERIFY2(outcome.errorText().startsWith(beginning), qPrintable(outcome.errorText()));
    QVERIFY(outcome.errorText().size() > beginning.size());
}

void VTRMCPClientFailureTest::connectionRefused()
{
    const QUrl endpoint = m_server->endpoint();
    m_server->close();
    VTRMCPClientTestAccess::replaceShared(endpoint, quickLimits);
    QCOMPARE(settle(call()).errorText(),
             u"Sunucuya bağlanılamadı: bağlantı reddedildi. Lütfen daha sonra yeniden deneyin."_s);
}

void VTRMCPClientFailureTest::unknownHost()
{
    QElapsedTimer timer;
    timer.start();
    if (QHostInfo::fromName(u"vantora.invalid"_s).error() != QHostInfo::HostNotFound
        || timer.elapsed() > 500) {
        QSKIP("Names are not resolved quickly here.");
    }
    VTRMCPClientTestAccess::replaceShared(QUrl(u"https://vantora.invalid/mcp"_s), {});
    QCOMPARE(settle(call()).errorText(), u"Sunucu bulunamadı. İnternet bağlantınızı denetleyin."_s);
}

void VTRMCPClientFailureTest::slowBytesWithinTheLimitsAreAwaited()
{
    // Longer in all than the idle limit, which each piece starts anew.
    ScriptedAnswer answer = ScriptedAnswer::content({ { u"a"_s, u"yavaş"_s } });
    answer.framing = ScriptedAnswer::Framing::chunked;
    answer.pieceSize = answer.body.size() / 4;
    answer.pieceInterval = 100;
    m_server->enqueue({ answer });
    const auto outcome = settle(call());
    QVERIFY2(outcome.value, qPrintable(outcome.errorText()));
}

void VTRMCPClientFailureTest::aSelfSignedCertificateIsRefused()
{
    if (!QSslSocket::supportsSsl())
        QSKIP("No TLS here.");
    ScriptedServer server(ScriptedServer::Transport::tls);
    VTRMCPClientTestAccess::replaceShared(server.endpoint(), quickLimits);
    const auto outcome = settle(call());
    QVERIFY(outcome.error);
    QCOMPARE(outcome.errorText(),
             u"Sunucuyla güvenli bağlantı kurulamadı: Sertifika kendinden imzalı ve güvenilmez"_s);
    QVERIFY(server.requests().isEmpty());
}

void VTRMCPClientFailureTest::aServerWithoutTlsIsRefused()
{
    if (!QSslSocket::supportsSsl())
        QSKIP("No TLS here.");
    QTcpServer server;
    QVERIFY(server.listen(QHostAddress::LocalHost, 0));
    connect(&server, &QTcpServer::newConnection, &server, [&server] {
        QTcpSocket *socket = server.nextPendingConnection();
        connect(socket, &QTcpSocket::readyRead, socket,
                [socket] { socket->write("HTTP/1.1 400 Bad Request\r\n\r\n"); });
    });
    QUrl endpoint = m_server->endpoint();
    endpoint.setScheme(u"https"_s);
    endpoint.setPort(server.serverPort());
    VTRMCPClientTestAccess::replaceShared(endpoint, quickLimits);
    // The details that OpenSSL has for this are in English.
    QCOMPARE(settle(call()).errorText(), u"Sunucuyla güvenli bağlantı kurulamadı."_s);
}

void VTRMCPClientFailureTest::textsAreTurkish()
{
    // Every error that Qt can report has a sentence of its own or the general one.
    const QMetaEnum errors = QMetaEnum::fromType<QNetworkReply::NetworkError>();
    for (int index = 0; index < errors.keyCount(); ++index) {
        const auto error = static_cast<QNetworkReply::NetworkError>(errors.value(index));
        QVERIFY2(PlatformErrorText::network(error, QString()).endsWith(u'.'), errors.key(index));
    }
    // The embedded catalogue knows every detail: none is left as Qt writes it.
    QSet<QString> details;
    for (int code = QJsonParseError::UnterminatedObject; code <= QJsonParseError::GarbageAtEnd;
         ++code) {
        details.insert(
            QJsonParseError { .error = QJsonParseError::ParseError(code) }.errorString());
    }
    for (int code = QSslError::UnableToGetIssuerCertificate; code <= QSslError::OcspStatusUnknown;
         ++code) {
        details.insert(QSslError(QSslError::SslError(code)).errorString());
    }
    QVERIFY(details.size() > 40);
    for (const QString &detail : std::as_const(details)) {
        for (const QString &english : { u" the "_s, u"The "_s, u" is "_s, u"unterminated"_s })
            QVERIFY2(!detail.contains(english), qPrintable(detail));
    }
}

QTEST_GUILESS_MAIN(VTRMCPClientFailureTest)
#include "VTRMCPClientFailureTest.moc"
