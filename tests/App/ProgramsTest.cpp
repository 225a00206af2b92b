#include "sample_server/SampleServer.h"

#include <QImage>
#include <QProcess>
#include <QSet>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

/// The programs as developers start them.
class ProgramsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void inspectWritesAPicture()
    {
        SampleServer server;
        const std::optional<quint16> port = server.listen();
        QVERIFY(port);
        const QTemporaryDir folder;
        const QString picture = folder.filePath(u"window.png"_s);
        QProcess inspect;
        inspect.start(QString::fromUtf8(INSPECT_PROGRAM),
                      { u"--endpoint"_s, u"http://127.0.0.1:%1/mcp"_s.arg(*port), u"--picture"_s,
                        picture, u"--size"_s, u"1280x720"_s });
        // The server answers in this thread.
        QTRY_COMPARE_WITH_TIMEOUT(inspect.state(), QProcess::NotRunning, 60'000);
        QVERIFY2(inspect.exitCode() == 0, inspect.readAllStandardError().constData());
        const QImage image(picture);
        QCOMPARE(image.size(), QSize(1280, 720));
        QSet<QRgb> colours;
        for (int y = 0; y < image.height(); y += 3) {
            for (int x = 0; x < image.width(); x += 3)
                colours.insert(image.pixel(x, y));
        }
        QVERIFY2(colours.size() > 200, qPrintable(QString::number(colours.size())));
    }

    void demoOpensWithoutComplaint()
    {
        const QTemporaryDir runtime;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"XDG_RUNTIME_DIR"_s, runtime.path());
        QProcess demo;
        demo.setProcessEnvironment(environment);
        demo.start(QString::fromUtf8(DEMO_PROGRAM), QStringList());
        QVERIFY(!demo.waitForFinished(3000));
        demo.kill();
        demo.waitForFinished();
        QCOMPARE(demo.readAllStandardError() + demo.readAllStandardOutput(), QByteArray());
    }
};

QTEST_GUILESS_MAIN(ProgramsTest)
#include "ProgramsTest.moc"
