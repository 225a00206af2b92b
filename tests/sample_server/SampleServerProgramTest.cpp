#include <QProcess>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTest>

#ifdef Q_OS_UNIX
#include <sys/resource.h>
#endif

#include <list>
#include <tuple>

using namespace Qt::StringLiterals;

/// The program as people start it.
class SampleServerProgramTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void endsAtOnce()
    {
        QTcpServer occupant;
        QVERIFY(occupant.listen(QHostAddress::LocalHost));
        const QString taken = QString::number(occupant.serverPort());
        for (const auto &[argument, status, said] :
             { std::tuple(u"--help"_s, 0, u"--jitter"_s),
               { u"--prot"_s, 2, u"prot"_s },
               { u"8080"_s, 2, u"8080"_s },
               { u"--port=65536"_s, 2, u"--port takes a number from 0 to 65535."_s },
               { u"--delay=-1"_s, 2, u"--delay takes a number from 0 to 60000."_s },
               { u"--port="_s + taken, 1, taken } }) {
            QProcess process;
            process.start(m_program, { argument });
            QVERIFY(process.waitForFinished(20'000));
            QCOMPARE(process.exitCode(), status);
            const QByteArray output = process.readAllStandardOutput();
            const QByteArray text = status == 0 ? output : process.readAllStandardError();
            QVERIFY2(QString::fromUtf8(text).contains(said), text.constData());
            QCOMPARE(output.isEmpty(), status != 0);
        }
    }

    /// Which it would be out of, with as many clients.
    void servesWithFewDescriptors()
    {
#ifdef __SANITIZE_ADDRESS__
        QSKIP("A sanitizer needs descriptors for its own checks.");
#endif
        QProcess process;
#ifdef Q_OS_UNIX
        process.setChildProcessModifier([] {
            const rlimit few { 40, 40 };
            setrlimit(RLIMIT_NOFILE, &few);
        });
#endif
        process.start(m_program, { u"--delay"_s, u"1"_s });
        QVERIFY(process.waitForReadyRead(20'000));
        const QByteArray line = process.readLine();
        QVERIFY(line.startsWith("listening ") && line.endsWith('\n'));
        const quint16 port = line.mid(10).trimmed().toUShort();

        std::list<QTcpSocket> idle(80);
        for (QTcpSocket &socket : idle) {
            socket.connectToHost(QHostAddress::LocalHost, port);
            QVERIFY(socket.waitForConnected(20'000));
        }
        idle.back().write("GET /mcp HTTP/1.1\r\nHost: localhost\r\n\r\n");
        QVERIFY(idle.back().waitForReadyRead(20'000));
        QVERIFY(idle.back().readAll().startsWith("HTTP/1.1 405"));
        process.kill();
        QVERIFY(process.waitForFinished(20'000));
    }

private:
    const QString m_program = QStringLiteral(SAMPLE_SERVER_PROGRAM);
};

QTEST_GUILESS_MAIN(SampleServerProgramTest)
#include "SampleServerProgramTest.moc"
