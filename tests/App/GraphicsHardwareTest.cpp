#include "App/GraphicsHardware.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <tuple>

using namespace Qt::StringLiterals;

class GraphicsHardwareTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void isToldByDeviceFiles()
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

QTEST_GUILESS_MAIN(GraphicsHardwareTest)
#include "GraphicsHardwareTest.moc"
