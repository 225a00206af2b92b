#include "App/GraphicsHardware.h"

#include <QDir>
#include <QProcess>
#include <QTcpServer>
#include <QTemporaryDir>
#include <QTest>

#include <tuple>

using namespace Qt::StringLiterals;

/// The programs as people start them, and on which hardware they find themselves.
class ProgramsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void demoOpensWithoutComplaint()
    {
        const QTemporaryDir runtime;
        qputenv("XDG_RUNTIME_DIR", runtime.path().toUtf8());
        QProcess demo;
        demo.start(QString::fromUtf8(DEMO_PROGRAM), QStringList());
        QVERIFY(!demo.waitForFinished(3000));
        demo.kill();
        demo.waitForFinished();
        QCOMPARE(demo.readAllStandardError() + demo.readAllStandardOutput(), QByteArray());
    }

    void argumentsAreAnsweredOnATerminal()
    {
        QTcpServer occupant;
        QVERIFY(occupant.listen(QHostAddress::LocalHost));
        const QString taken = QString::number(occupant.serverPort());
        const QString vantora = QStringLiteral(VANTORA_PROGRAM);
        const QString sampleServer = QStringLiteral(SAMPLE_SERVER_PROGRAM);
        struct Call
        {
            QString program;
            QString argument;
            int status;
            QString said;
        };
        for (const auto &[program, argument, status, said] : std::initializer_list<Call> {
                 { vantora, u"--version"_s, 0, u"vantora " VANTORA_VERSION "\n"_s },
                 { vantora, u"--help"_s, 0, u"Kullanım: "_s },
                 { vantora, u"-h"_s, 0, u"--version"_s },
                 { vantora, u"--verison"_s, 2, u"Bilinmeyen seçenek: “--verison”."_s },
                 { vantora, u"IST"_s, 2, u"Bilinmeyen seçenek: “IST”."_s },
                 { sampleServer, u"--help"_s, 0, u"--jitter"_s },
                 { sampleServer, u"--prot"_s, 2, u"prot"_s },
                 { sampleServer, u"8080"_s, 2, u"8080"_s },
                 { sampleServer, u"--port=65536"_s, 2,
                   u"--port takes a number from 0 to 65535."_s },
                 { sampleServer, u"--port="_s + taken, 1, taken } }) {
            QProcess process;
            QProcessEnvironment withoutDisplay = QProcessEnvironment::systemEnvironment();
            for (const QString &name : { u"DISPLAY"_s, u"WAYLAND_DISPLAY"_s, u"QT_QPA_PLATFORM"_s })
                withoutDisplay.remove(name);
            // What is left when Qt has taken its own arguments is refused, so a platform is needed.
            if (status != 0)
                withoutDisplay.insert(u"QT_QPA_PLATFORM"_s, u"offscreen"_s);
            process.setProcessEnvironment(withoutDisplay);
            process.start(program, { argument });
            QVERIFY2(process.waitForFinished(20'000), qPrintable(argument));
            const QString output = QString::fromUtf8(process.readAllStandardOutput());
            const QString errors = QString::fromUtf8(process.readAllStandardError());
            const QString all = u"%1: %2, output “%3”, errors “%4”"_s.arg(argument)
                                    .arg(process.exitCode())
                                    .arg(output, errors);
            QVERIFY2(process.exitCode() == status && (status == 0 ? output : errors).contains(said)
                         && output.isEmpty() == (status != 0),
                     qPrintable(all));
        }
    }

    void graphicsHardwareIsToldByDeviceFiles()
    {
#ifndef Q_OS_LINUX
        QSKIP("Only Linux is asked.");
#endif
        const auto usable = QFile::ReadUser | QFile::WriteUser;
        for (const auto &[file, permissions, expected] :
             { std::tuple(u"dri/card0"_s, usable, false), // a screen alone
               { u"dri/renderD128"_s, usable, true },
               { u"nvidiactl"_s, usable, true }, // a driver's own
               { u"dri/renderD129"_s, QFile::Permissions(), false } }) {
            QTemporaryDir devices;
            QVERIFY(QDir(devices.path()).mkdir(u"dri"_s));
            QFile device(devices.filePath(file));
            QVERIFY(device.open(QIODevice::WriteOnly));
            device.setPermissions(permissions);
            if (permissions == QFile::Permissions() && QFileInfo(device).isReadable())
                QSKIP("This user may open every file.");
            QCOMPARE(std::pair(file, hasGraphicsHardware(devices.path())),
                     std::pair(file, expected));
        }
    }
};

QTEST_GUILESS_MAIN(ProgramsTest)
#include "ProgramsTest.moc"
