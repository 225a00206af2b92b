#include "App/GraphicsHardware.h"

#include <QDir>
#include <QFileInfo>
#include <QQuickWindow>

#include <algorithm>

using namespace Qt::StringLiterals;

bool hasGraphicsHardware(const QString &devices)
{
#ifdef Q_OS_LINUX
    // What Linux' own drivers offer to programs that draw, each under a number.
    QFileInfoList files =
        QDir(devices + u"/dri"_s).entryInfoList({ u"renderD*"_s }, QDir::System | QDir::Files);
    // Drivers of NVIDIA's, of a Windows around this Linux, of ARM's, Qualcomm's, Imagination's,
    // Vivante's.
    for (const QString &name :
         { u"nvidiactl"_s, u"dxg"_s, u"mali0"_s, u"kgsl-3d0"_s, u"pvrsrvkm"_s, u"galcore"_s })
        files.append(QFileInfo(devices + u'/' + name));
    return std::any_of(files.cbegin(), files.cend(), [](const QFileInfo &file) {
        return file.isReadable() && file.isWritable();
    });
#else
    Q_UNUSED(devices)
    return true;
#endif
}

void chooseDrawing()
{
    const bool isChosen = qEnvironmentVariableIsSet("QT_QUICK_BACKEND")
        || qEnvironmentVariableIsSet("QSG_RHI_BACKEND");
    // OpenGL would be emulated by the processor, for the same picture: five times the work for a
    // frame, and half of the memory again.
    if (!isChosen && !hasGraphicsHardware())
        QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
}
