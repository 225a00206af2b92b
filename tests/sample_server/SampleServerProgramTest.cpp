#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QProcess>
#include <QTcpServer>
#include <QTest>

using namespace Qt::StringLiterals;

/// The program as people start it.
class SampleServerProgramTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void badArgumentsAreRefused_data();
    void badArgumentsAreRefused();
    void portInUse();
    void announcesItsPortAndEndsOnRequest();
};

namespace {

const QString program = QStringLiteral(SAMPLE_SERVER_PROGRAM);

} // namespace

void SampleServerProgramTest::badArgumentsAreRefused_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<int>("status");
    QTest::addColumn<QString>("said");

    QTest::newRow("unknown") << QStringList { u"--prot"_s } << 2 << u"Bilinmeyen seçenek: --prot"_s;
    QTest::newRow("positional") << QStringList { u"8080"_s } << 2 << u"Bilinmeyen seçenek: 8080"_s;
    QTest::newRow("no value") << QStringList { u"--port"_s } << 2
                              << u"--port seçeneğinin değeri eksik."_s;
    const QString number = u"%1 için 0 ile %2 arasında bir sayı gerekir, \"%3\" verildi."_s;
    QTest::newRow("port text") << QStringList { u"--port"_s, u"http"_s } << 2
                               << number.arg(u"--port", u"65535", u"http");
    QTest::newRow("port large") << QStringList { u"--port"_s, u"65536"_s } << 2
                                << number.arg(u"--port", u"65535", u"65536");
    QTest::newRow("delay negative")
        << QStringList { u"--delay"_s, u"-1"_s } << 2 << number.arg(u"--delay", u"60000", u"-1");
    QTest::newRow("help") << QStringList { u"--help"_s } << 0 << u"Kullanım:"_s;
}

void SampleServerProgramTest::badArgumentsAreRefused()
{
    QFETCH(QStringList, arguments);
    QFETCH(int, status);
    QFETCH(QString, said);
    QProcess process;
    process.start(program, arguments);
    QVERIFY(process.waitForFinished(20'000));
    QCOMPARE(process.exitCode(), status);
    const QByteArray text =
        status == 0 ? process.readAllStandardOutput() : process.readAllStandardError();
    QVERIFY2(QString::fromUtf8(text).contains(said), text.constData());
}

void SampleServerProgramTest::portInUse()
{
    QTcpServer occupant;
    QVERIFY(occupant.listen(QHostAddress::LocalHost));
    QProcess process;
    process.start(program, { u"--port"_s, QString::number(occupant.serverPort()) });
    QVERIFY(process.waitForFinished(20'000));
    QCOMPARE(process.exitCode(), 1);
    QVERIFY(process.readAllStandardOutput().isEmpty());
    const QString said = QString::fromUtf8(process.readAllStandardError());
    QVERIFY(said.startsWith(u"127.0.0.1:%1 dinlenemiyor"_s.arg(occupant.serverPort())));
}

void SampleServerProgramTest::announcesItsPortAndEndsOnRequest()
{
    QProcess process;
    process.start(program, { u"--delay"_s, u"1"_s });
    QVERIFY(process.waitForReadyRead(20'000));
    const QByteArray line = process.readLine();
    QVERIFY(line.startsWith("listening ") && line.endsWith('\n'));
    const int port = line.mid(10).trimmed().toInt();
    QVERIFY(port > 0);

    QNetworkAccessManager network;
    QNetworkRequest request(QUrl(u"http://127.0.0.1:%1/mcp"_s.arg(port)));
    std::unique_ptr<QNetworkReply> reply(network.get(request));
    QTRY_VERIFY_WITH_TIMEOUT(reply->isFinished(), 10'000);
    QCOMPARE(reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt(), 405);

#ifdef Q_OS_UNIX
    process.terminate();
    QVERIFY(process.waitForFinished(20'000));
    QCOMPARE(process.exitStatus(), QProcess::NormalExit);
    QCOMPARE(process.exitCode(), 0);
#else
    process.kill();
    process.waitForFinished(20'000);
#endif
}

QTEST_GUILESS_MAIN(SampleServerProgramTest)
#include "SampleServerProgramTest.moc"
