#include "support/ClientTesting.h"
#include "support/Http2Front.h"
#include "support/ServerFaults.h"

#include <QElapsedTimer>
#include <QNetworkProxyFactory>
#include <QSemaphore>
#include <QTcpServer>

using namespace Qt::StringLiterals;
using namespace ServerFaults;
using namespace std::chrono_literals;

namespace {

const QString noProxy =
    u"Vekil sunucuya (proxy) bağlanılamadı. Ağ ayarlarınızı denetleyin."_s + restart;

const char *const withoutFront = "HTTP/2 needs nghttpx (Debian: nghttp2-proxy).";

/// Answers no query before it may.
class SlowProxyFactory : public QNetworkProxyFactory
{
public:
    explicit SlowProxyFactory(QSemaphore &permission)
        : m_permission(permission)
    { }
    QList<QNetworkProxy> queryProxy(const QNetworkProxyQuery &) override
    {
        m_permission.acquire();
        return { QNetworkProxy::NoProxy };
    }

private:
    QSemaphore &m_permission;
};

} // namespace

/// The way to the server: HTTP/2, names, addresses, redirects, proxies.
class HttpTransportTest : public ClientTest
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup()
    {
        m_front.reset();
        ClientTest::cleanup();
        QNetworkProxy::setApplicationProxy({});
    }

    void callsShareOneConnection()
    {
        if (!putFrontBefore())
            QSKIP(withoutFront);
        for (int search = 0; search < 5; ++search) {
            const auto first = watch(call());
            const auto second = watch(call());
            QCOMPARE(settle(first).errorText(), QString());
            QCOMPARE(settle(second).errorText(), QString());
        }
        QCOMPARE(m_server->toolCalls().size(), 10);
        QCOMPARE(m_front->connections(), 1);
    }

    void http2Faults_data()
    {
        QTest::addColumn<ScriptedAnswer>("answer");
        QTest::addColumn<QString>("text");
        const ScriptedAnswer good = ScriptedAnswer::content();
        QTest::newRow("resets a stream")
            << ScriptedAnswer::text(QByteArray(30'000, ' ')).cut(20'000) << closed;
        QTest::newRow("sends 400 KB of headers")
            << good.withHeader("a", ("x\r\na: " + QByteArray(50'000, 'x')).repeated(8)) << closed;
        QTest::newRow("sends 2,000 headers")
            << good.withHeader("a", QByteArray("b\r\na: ").repeated(2000) + 'b') << tooLarge;
        QTest::newRow("sends a body without end")
            << ScriptedAnswer { .pieces = { "HTTP/1.1 200 OK\r\n\r\n" },
                                .endless = QByteArray(100'000, ' ') }
            << tooLarge;
        QTest::newRow("says nothing") << ScriptedAnswer() << idle;
    }
    void http2Faults()
    {
        QFETCH(ScriptedAnswer, answer);
        QFETCH(QString, text);
        if (!putFrontBefore({ .idle = text == idle ? 6s : 30s }))
            QSKIP(withoutFront);
        QCOMPARE(settle(call()).errorText(), QString());
        m_server->enqueue({ answer });
        QCOMPARE(settle(call()).errorText(), text);
        QCOMPARE(settle(call()).errorText(), QString());
        QCOMPARE(m_server->toolCalls().size(), 3);
        QCOMPARE(m_server->initializations().size(), 1);
    }

    void http2Ends()
    {
        if (!putFrontBefore())
            QSKIP(withoutFront);
        QVERIFY(settle(call()).value);
        // Between two calls.
        m_front->stop();
        m_front->start();
        QCOMPARE(settle(call()).errorText(), QString());
        // During one.
        m_server->enqueue({ ScriptedAnswer::content().held() });
        const auto cut = watch(call());
        QTRY_COMPARE(m_server->heldCount(), 1);
        m_front->stop();
        const QString cutText = settle(cut).errorText();
        m_front->start();
        // Some versions of libcurl ask once more by themselves, and find nobody, or one who leaves.
        const QStringList endings {
            closed, u"Sunucuya bağlanılamadı: bağlantı reddedildi. Lütfen yeniden deneyin."_s,
            u"Sunucuyla güvenli bağlantı kurulamadı."_s
        };
        QVERIFY2(endings.contains(cutText), qPrintable(cutText));
        m_server->release();
        // It goes away, and says so in time.
        m_server->enqueue({ ScriptedAnswer::content({ { u"a"_s, 1 } }).held() });
        const auto last = watch(call());
        QTRY_COMPARE(m_server->heldCount(), 1);
        m_front->retire();
        QTest::qWait(100);
        m_server->release();
        QCOMPARE(settle(last).errorText(), QString());
        m_front->stop();
        m_front->start();
        QCOMPARE(settle(call()).errorText(), QString());
        QCOMPARE(m_server->toolCalls().size(), 5);
    }

    void redirects_data()
    {
        QTest::addColumn<int>("status");
        QTest::addColumn<QString>("location"); // %1 is the server's port
        QTest::addColumn<int>("count");
        QTest::addColumn<QString>("text");
        QTest::newRow("temporary") << 307 << u"/mcp/"_s << 1 << QString();
        QTest::newRow("for good") << 308 << u"/mcp/"_s << 1 << QString();
        QTest::newRow("by its whole address")
            << 308 << u"https://127.0.0.1:%1/mcp/?a=b"_s << 1 << QString();
        QTest::newRow("five times") << 307 << u"/mcp/"_s << 5 << QString();
        QTest::newRow("without end") << 307 << u"/mcp/"_s << 1000 << invalid;
        QTest::newRow("to another method") << 302 << u"/mcp/"_s << 1 << invalid;
        QTest::newRow("to another host") << 307 << u"https://localhost:%1/mcp/"_s << 1 << invalid;
        QTest::newRow("to another port") << 307 << u"https://127.0.0.1:1/mcp/"_s << 1 << invalid;
        QTest::newRow("to another scheme") << 307 << u"http://127.0.0.1:%1/mcp/"_s << 1 << invalid;
        QTest::newRow("with a password")
            << 307 << u"https://a:b@127.0.0.1:%1/mcp/"_s << 1 << invalid;
    }
    void redirects()
    {
        QFETCH(int, status);
        QFETCH(QString, location);
        QFETCH(int, count);
        QFETCH(QString, text);
        ScriptedServer server(u"trusted"_s);
        location.replace(u"%1"_s, QString::number(server.endpoint().port()));
        server.onToolCall = [&](const ReceivedRequest &) {
            return server.toolCalls().size() <= count
                ? ScriptedAnswer::text("", status).withHeader("Location", location.toLatin1())
                : ScriptedAnswer::content();
        };
        VTRMCPClientTestAccess::replaceShared(server.endpoint(), trustingSettings());
        QCOMPARE(settle(call()).errorText(), text);
        const auto calls = server.toolCalls();
        QCOMPARE(calls.size(), text.isEmpty() ? count + 1 : std::min(count, 6));
        for (const ReceivedRequest &request : calls) {
            QCOMPARE(request.method, "POST");
            QCOMPARE(request.header("mcp-session-id"), "session-1");
            QCOMPARE(request.body, calls.first().body);
        }
        if (text.isEmpty())
            QVERIFY(location.endsWith(QString::fromLatin1(calls.last().path)));
    }

    void aNameWithTheDefaultPort()
    {
        ScriptedServer server(u"trusted"_s);
        HttpSettings settings = trustingSettings();
        settings.otherHosts = { "fares.example:443:127.0.0.1:"
                                + QByteArray::number(server.endpoint().port()) };
        VTRMCPClientTestAccess::replaceShared(QUrl(u"https://fares.example/mcp"_s), settings);
        const auto redirect = [](const QByteArray &port) {
            return ScriptedAnswer::text("", 307).withHeader("Location",
                                                            "https://fares.example:" + port + "/x");
        };
        server.enqueue({ redirect("443"), ScriptedAnswer::content(), redirect("80") });
        QCOMPARE(settle(call()).errorText(), QString());
        QCOMPARE(server.requests().first().header("Host"), "fares.example");
        QCOMPARE(settle(call()).errorText(), invalid);
    }

    void theFirstAddressIsDead()
    {
        ScriptedServer server(u"trusted"_s);
        const int port = server.endpoint().port();
        // Connections that nobody accepts fill its queue; from then on it is silent.
        QTcpServer dead;
        dead.setListenBacklogSize(1);
        QVERIFY(dead.listen(QHostAddress(u"127.0.0.2"_s), static_cast<quint16>(port)));
        dead.pauseAccepting();
        std::vector<std::unique_ptr<QTcpSocket>> queue;
        do {
            queue.push_back(std::make_unique<QTcpSocket>());
            queue.back()->connectToHost(dead.serverAddress(), dead.serverPort());
        } while (queue.back()->waitForConnected(200) && queue.size() < 10);
        QVERIFY(queue.size() < 10);

        HttpSettings settings = trustingSettings();
        settings.limits.connecting = 2s;
        settings.addresses = { "fares.example:" + QByteArray::number(port)
                               + ":127.0.0.2,127.0.0.1" };
        VTRMCPClientTestAccess::replaceShared(QUrl(u"https://fares.example:%1/mcp"_s.arg(port)),
                                              settings);
        QCOMPARE(settle(call()).errorText(), QString());
    }

    void aProxyThatCannotBeFoundOut()
    {
        QSemaphore permission;
        QNetworkProxyFactory::setApplicationProxyFactory(new SlowProxyFactory(permission));
        HttpSettings settings;
        settings.limits.findingProxy = 200ms;
        VTRMCPClientTestAccess::replaceShared(QUrl(u"https://fares.example/mcp"_s), settings);
        QCOMPARE(settle(call()).errorText(),
                 u"Kullanılacak vekil sunucu (proxy) öğrenilemedi. Ağ ayarlarınızı denetleyin."_s
                     + restart);
        VTRMCPClientTestAccess::replaceShared(QUrl(u"https://fares.example/mcp"_s));
        const auto outcome = watch(call());
        QTest::qWait(50);
        endSoon(*outcome);
        permission.release(2);
        QTRY_COMPARE(permission.available(), 0);
    }

    void aProxyThatRefuses()
    {
        const auto ask = [](const QUrl &proxy) {
            QNetworkProxy::setApplicationProxy(
                { QNetworkProxy::HttpProxy, proxy.host(), static_cast<quint16>(proxy.port()) });
            VTRMCPClientTestAccess::replaceShared(QUrl(u"https://fares.example/mcp"_s));
            return settle(call()).errorText();
        };
        m_server->enqueue({ ScriptedAnswer::text("", 403) });
        QCOMPARE(ask(m_server->endpoint()), noProxy);
        QCOMPARE(m_server->requests().size(), 1);
        QCOMPARE(m_server->requests().first().method, "CONNECT");
        QCOMPARE(m_server->requests().first().path, "fares.example:443");
        QCOMPARE(m_server->requests().first().header("mcp-session-id"), "");
        const QUrl gone = m_server->endpoint();
        m_server->close();
        QCOMPARE(ask(gone), noProxy);
    }

    void theEndDuringAHandshake()
    {
        QTcpServer silent;
        QVERIFY(silent.listen(QHostAddress::LocalHost));
        VTRMCPClientTestAccess::replaceShared(
            QUrl(u"https://127.0.0.1:%1/mcp"_s.arg(silent.serverPort())));
        const auto outcome = watch(call());
        QTRY_VERIFY(silent.hasPendingConnections());
        endSoon(*outcome);
    }

private:
    static void endSoon(const Outcome<QJsonObject> &outcome)
    {
        QElapsedTimer clock;
        clock.start();
        VTRMCPClientTestAccess::destroyShared();
        QVERIFY2(clock.elapsed() < 1000, qPrintable(QString::number(clock.elapsed())));
        QTRY_VERIFY(outcome.hasEnded());
    }

    bool putFrontBefore(const HttpLimits &limits = {})
    {
        if (!Http2Front::isInstalled())
            return false;
        m_front = std::make_unique<Http2Front>(m_server->endpoint());
        HttpSettings settings = trustingSettings();
        settings.limits = limits;
        VTRMCPClientTestAccess::replaceShared(m_front->endpoint(), settings);
        return true;
    }

    std::unique_ptr<Http2Front> m_front;
};

QTEST_GUILESS_MAIN(HttpTransportTest)
#include "HttpTransportTest.moc"
