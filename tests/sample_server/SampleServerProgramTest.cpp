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
    void initTestCase() { QVERIFY(m_occupant.listen(QHostAddress::LocalHost)); }

    void endsAtOnce_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<int>("status");
        QTest::addColumn<QString>("said");

        const auto row = [](const char *name, const QStringList &arguments, int status,
                            const QString &said) {
            QTest::newRow(name) << arguments << status << said;
        };
        row("help", { u"--help"_s }, 0, u"Kullanım:"_s);
        row("unknown", { u"--prot"_s }, 2, u"Bilinmeyen seçenek: --prot"_s);
        row("positional", { u"8080"_s }, 2, u"Bilinmeyen seçenek: 8080"_s);
        row("no value", { u"--port"_s }, 2, u"--port seçeneğinin değeri eksik."_s);
        const QString number = u"%1 için 0 ile %2 arasında bir sayı gerekir, \"%3\" verildi."_s;
        row("port large", { u"--port"_s, u"65536"_s }, 2,
            number.arg(u"--port", u"65535", u"65536"));
        row("delay negative", { u"--delay"_s, u"-1"_s }, 2,
            number.arg(u"--delay", u"60000", u"-1"));
        const QString taken = QString::number(m_occupant.serverPort());
        row("port in use", { u"--port"_s, taken }, 1, u"127.0.0.1:%1 dinlenemiyor"_s.arg(taken));
    }
    void endsAtOnce()
    {
        QFETCH(QStringList, arguments);
        QFETCH(int, status);
        QFETCH(QString, said);
        QProcess process;
        process.start(m_program, arguments);
        QVERIFY(process.waitForFinished(20'000));
        QCOMPARE(process.exitCode(), status);
        const QByteArray output = process.readAllStandardOutput();
        const QByteArray text = status == 0 ? output : process.readAllStandardError();
        QVERIFY2(QString::fromUtf8(text).contains(said), text.constData());
        QCOMPARE(output.isEmpty(), status != 0);
    }

    void announcesItsPortAndEndsOnRequest()
    {
        QProcess process;
        process.start(m_program, { u"--delay"_s, u"1"_s });
        QVERIFY(process.waitForReadyRead(20'000));
        const QByteArray line = process.readLine();
        QVERIFY(line.startsWith("listening ") && line.endsWith('\n'));

        QNetworkAccessManager network;
        const QString port = QString::fromLatin1(line.mid(10).trimmed());
        const QUrl endpoint(u"http://127.0.0.1:%1/mcp"_s.arg(port));
        const std::unique_ptr<QNetworkReply> reply(network.get(QNetworkRequest(endpoint)));
        QTRY_VERIFY_WITH_TIMEOUT(reply->isFinished(), 10'000);
        QCOMPARE(reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt(), 405);

        process.terminate();
        QVERIFY(process.waitForFinished(20'000));
        QCOMPARE(process.exitStatus(), QProcess::NormalExit);
        QCOMPARE(process.exitCode(), 0);
    }

private:
    const QString m_program = QStringLiteral(SAMPLE_SERVER_PROGRAM);
    QTcpServer m_occupant;
};

QTEST_GUILESS_MAIN(SampleServerProgramTest)
#include "SampleServerProgramTest.moc"
