#include "support/ClientTesting.h"

#include "Services/PlatformErrorText.h"

#include <QElapsedTimer>
#include <QHostInfo>
#include <QRegularExpression>
#include <QSslError>
#include <QSslSocket>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

using Ending = ScriptedAnswer::Ending;

const QString couldNotBeSecured = u"Sunucuyla güvenli bağlantı kurulamadı"_s;

ScriptedAnswer ofSize(int size)
{
    return ScriptedAnswer::content({ { u"a"_s, QString(size, u'x') } });
}

ScriptedAnswer cut(qsizetype bytes, Ending ending)
{
    ScriptedAnswer answer = ofSize(2000);
    answer.cutAfter = bytes;
    answer.ending = ending;
    return answer;
}

ScriptedAnswer inChunks(ScriptedAnswer answer, qsizetype size, int interval)
{
    answer.pieceSize = size;
    answer.pieceInterval = interval;
    return answer;
}

} // namespace

/// What goes wrong below the protocol, provoked over real HTTP: one McpError each, in Turkish.
class VTRMCPClientFailureTest : public ClientTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        PlatformErrorText::installTurkishCatalogue();
        m_limits = { .idle = 300ms, .total = 800ms, .bodyBytes = 100'000 };
    }

    void brokenAnswer_data()
    {
        QTest::addColumn<ScriptedAnswer>("answer");
        QTest::addColumn<QString>("text");

        const QString closed =
            u"Sunucu bağlantıyı geçerli bir yanıt vermeden kapattı. Lütfen yeniden deneyin."_s;
        const QString idle =
            u"Sunucu yanıt vermedi, istek zaman aşımına uğradı. Lütfen yeniden deneyin."_s;
        const QString late =
            u"Yanıt zamanında tamamlanmadı, istek zaman aşımına uğradı. Lütfen yeniden deneyin."_s;
        const QString invalid = u"Sunucudan geçersiz bir yanıt alındı."_s;
        const QString tooLarge = u"Sunucunun yanıtı kabul edilemeyecek kadar büyük."_s;

        QTest::newRow("closed without an answer") << cut(0, Ending::close) << closed;
        QTest::newRow("reset without an answer") << cut(0, Ending::reset) << closed;
        QTest::newRow("closed in the head") << cut(20, Ending::close) << closed;
        QTest::newRow("closed in the body") << cut(1000, Ending::close) << closed;
        QTest::newRow("silence") << cut(0, Ending::keepAlive) << idle;
        QTest::newRow("silence in the body") << cut(1000, Ending::keepAlive) << idle;
        QTest::newRow("slow drip") << inChunks(ofSize(2000), 20, 100) << late;
        QTest::newRow("mail server")
            << ScriptedAnswer { .ending = Ending::close,
                                .raw = "220 posta.example ESMTP hazir\r\n\r\n" }
            << invalid;
        QTest::newRow("binary") << ScriptedAnswer {
            .ending = Ending::close, .raw = "\x15\x03\x01\x00\x02\x02\x50\r\n\r\n"_ba
        } << invalid;
        QTest::newRow("encoded otherwise than told")
            << ScriptedAnswer::text(QByteArray(100, 'x')).withHeader("Content-Encoding", "gzip")
            << invalid;
        QTest::newRow("nothing but an early hint")
            << ScriptedAnswer { .raw = "HTTP/1.1 103 Early Hints\r\n\r\n" } << idle;
        QTest::newRow("too large") << ofSize(100'001) << tooLarge;
        QTest::newRow("too large, in chunks") << inChunks(ofSize(100'001), 10'000, 10) << tooLarge;
    }
    void brokenAnswer()
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

    void bodyThatIsNoJson()
    {
        for (const QByteArray &body : QByteArrayList {
                 "event: message\ndata: {\"id\":1,\"result\":{}}\n\n",
                 "<!DOCTYPE html><p>Bakım</p>", "", "5", "{\"result\":{\"a\":1}", "{}{}",
                 "{\"a\":\"\xff\xfe\"}", QByteArray(3000, '[') + QByteArray(3000, ']') }) {
            m_server->enqueue({ ScriptedAnswer::text(body) });
            const auto outcome = settle(call());
            QVERIFY2(outcome.error, body.constData());
            QCOMPARE(outcome.error->domain(), McpError::Domain::Json);
            const QRegularExpression text(u"^Sunucunun yanıtı okunamadı: ."_s);
            QVERIFY2(outcome.errorText().contains(text), qPrintable(outcome.errorText()));
        }
    }

    void noConnection()
    {
        m_server->close();
        QCOMPARE(
            settle(call()).errorText(),
            u"Sunucuya bağlanılamadı: bağlantı reddedildi. Lütfen daha sonra yeniden deneyin."_s);
    }

    void unknownHost()
    {
        QElapsedTimer timer;
        timer.start();
        if (QHostInfo::fromName(u"vantora.invalid"_s).error() != QHostInfo::HostNotFound
            || timer.elapsed() > 500) {
            QSKIP("Names are not resolved quickly here.");
        }
        VTRMCPClientTestAccess::replaceShared(QUrl(u"https://vantora.invalid/mcp"_s), {});
        QCOMPARE(settle(call()).errorText(),
                 u"Sunucu bulunamadı. İnternet bağlantınızı denetleyin."_s);
    }

    void noSecureConnection()
    {
        if (!QSslSocket::supportsSsl())
            QSKIP("No TLS here.");
        const ScriptedServer selfSigned(ScriptedServer::Transport::tls);
        VTRMCPClientTestAccess::replaceShared(selfSigned.endpoint(), m_limits);
        QCOMPARE(settle(call()).errorText(),
                 couldNotBeSecured + u": Sertifika kendinden imzalı ve güvenilmez"_s);
        QVERIFY(selfSigned.requests().isEmpty());

        QTcpServer plain;
        QVERIFY(plain.listen(QHostAddress::LocalHost, 0));
        connect(&plain, &QTcpServer::newConnection, &plain, [&plain] {
            plain.nextPendingConnection()->write("HTTP/1.1 400 Bad Request\r\n\r\n");
        });
        QUrl endpoint = selfSigned.endpoint();
        endpoint.setPort(plain.serverPort());
        VTRMCPClientTestAccess::replaceShared(endpoint, m_limits);
        // The details that OpenSSL has for this are in English.
        QCOMPARE(settle(call()).errorText(), couldNotBeSecured + u'.');
    }

    void slowBytesWithinTheLimitsAreAwaited()
    {
        // Longer in all than the idle limit, which each piece starts anew.
        const ScriptedAnswer answer = ofSize(20);
        m_server->enqueue({ inChunks(answer, answer.body.size() / 4, 100) });
        const auto outcome = settle(call());
        QVERIFY2(outcome.value, qPrintable(outcome.errorText()));
    }

    void textsAreTurkish()
    {
        // The embedded catalogue knows every detail: none is left as Qt writes it.
        QSet<QString> details;
        for (int code = QJsonParseError::UnterminatedObject; code <= QJsonParseError::GarbageAtEnd;
             ++code)
            details.insert(QJsonParseError { 0, QJsonParseError::ParseError(code) }.errorString());
        for (int code = QSslError::UnableToGetIssuerCertificate;
             code <= QSslError::OcspStatusUnknown; ++code)
            details.insert(QSslError(QSslError::SslError(code)).errorString());
        QVERIFY(details.size() > 40);
        for (const QString &detail : std::as_const(details)) {
            for (const QString &english : { u" the "_s, u"The "_s, u" is "_s, u"unterminated"_s })
                QVERIFY2(!detail.contains(english), qPrintable(detail));
        }
    }
};

QTEST_GUILESS_MAIN(VTRMCPClientFailureTest)
#include "VTRMCPClientFailureTest.moc"
