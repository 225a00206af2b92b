#include "App/GraphicsHardware.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

class GraphicsHardwareTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void isToldByDeviceFiles_data()
    {
        QTest::addColumn<QString>("file");
        QTest::addColumn<bool>("isUsable");
        QTest::addColumn<bool>("hasHardware");
        QTest::newRow("none at all") << QString() << false << false;
        QTest::newRow("one that programs draw with") << u"dri/renderD128"_s << true << true;
        QTest::newRow("another user's") << u"dri/renderD129"_s << false << false;
        QTest::newRow("a screen alone") << u"dri/card0"_s << true << false;
        QTest::newRow("a driver's own") << u"nvidiactl"_s << true << true;
    }
    void isToldByDeviceFiles()
    {
#ifndef Q_OS_LINUX
        QSKIP("Only Linux is asked.");
#endif
        QFETCH(QString, file);
        QFETCH(bool, isUsable);
        QTemporaryDir devices;
        QVERIFY(QDir(devices.path()).mkdir(u"dri"_s));
        if (!file.isEmpty()) {
            QFile device(devices.filePath(file));
            QVERIFY(device.open(QIODevice::WriteOnly));
            device.setPermissions(isUsable ? QFile::ReadUser | QFile::WriteUser
                                           : QFile::Permissions());
            if (!isUsable && QFileInfo(device).isReadable())
                QSKIP("This user may open every file.");
        }
        QTEST(hasGraphicsHardware(devices.path()), "hasHardware");
    }
};

QTEST_GUILESS_MAIN(GraphicsHardwareTest)
#include "GraphicsHardwareTest.moc"
