#include "App/Application.h"

#include "App/DarkFrame.h"
#include "App/GraphicsHardware.h"
#include "Services/PlatformErrorText.h"
#include "Services/ServiceAddresses.h"
#include "Views/ExternalLinks.h"

#include <QDirIterator>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QNetworkProxyFactory>
#include <QOpenGLContext>
#include <QPalette>
#include <QQmlComponent>
#include <QQuickStyle>
#include <QQuickWindow>
#include <QResource>
#include <QScreen>
#include <QWindow>
#include <QtQml/QQmlExtensionPlugin>

#include <thread>
#include <utility>

#ifdef __GLIBC__
#include <malloc.h>
#endif

Q_IMPORT_QML_PLUGIN(VantoraPlugin)
Q_IMPORT_QML_PLUGIN(Vantora_ControlsPlugin)

using namespace Qt::StringLiterals;

void prepareApplication()
{
    chooseDrawing();
    // Everything is drawn from back to front and clipped by upright rectangles, so that a depth and
    // a stencil buffer, of the window's size, would be for nothing.
    qputenv("QSG_NO_DEPTH_BUFFER", "1");
    qputenv("QSG_NO_STENCIL_BUFFER", "1");
    QGuiApplication::setApplicationName(u"vantora"_s);
    // The desktop file's name; it names "vantora" as the window class on X11.
    QGuiApplication::setDesktopFileName(u"example.vantora_air.vantora"_s);
    QNetworkProxyFactory::setUseSystemConfiguration(true);
    PlatformErrorText::installTurkishCatalogue();

    QQuickStyle::setStyle(u"Basic"_s);
    // Frames that the toolkit draws itself take their colours from here.
    QPalette dark;
    dark.setColor(QPalette::Window, QColor(11, 15, 25));
    dark.setColor(QPalette::WindowText, Qt::white);
    QGuiApplication::setPalette(dark);
}

namespace {

/// Gives Qt the fonts in the executable; any thread may.
void addFonts()
{
    QDirIterator fonts(u":/fonts"_s);
    while (fonts.hasNext()) {
        const QResource file(fonts.next());
        // Not copied: it is in the executable.
        const auto data = QByteArray::fromRawData(reinterpret_cast<const char *>(file.data()),
                                                  static_cast<qsizetype>(file.size()));
        if (QFontDatabase::addApplicationFontFromData(data) < 0)
            qWarning("The embedded font %s cannot be read.", qPrintable(file.fileName()));
    }
    // Makes Qt list the system's fonts here, not with the first text.
    QFontDatabase::families();
}

/// Whether loadGraphicsDriver() is of use. On X11 only, where Qt and its libraries are ready for a
/// driver that is loaded beside the main thread.
bool isDrawnByDriver()
{
    return QGuiApplication::platformName() == u"xcb"_s
        && QQuickWindow::sceneGraphBackend().isEmpty()
        && qEnvironmentVariableIsEmpty("QT_QUICK_BACKEND")
        && QQuickWindow::graphicsApi() == QSGRendererInterface::OpenGL;
}

/// Makes a context of OpenGL, which loads the driver: the longest single step of a start.
void loadGraphicsDriver() { QOpenGLContext().create(); }

bool areFontsEmbedded = false;

} // namespace

void embedFonts()
{
    if (!std::exchange(areFontsEmbedded, true))
        addFonts();
    QFont font(u"Vantora Sans"_s);
    font.setPixelSize(13);
    QGuiApplication::setFont(font);
}

namespace {

/// What the first screen has free for a window, without the title bar that it gets.
QSize roomForTheWindow()
{
    constexpr int titleBar = 40;
    const QScreen *screen = QGuiApplication::primaryScreen();
    return screen ? screen->availableSize() - QSize(0, titleBar) : QSize(1280, 860);
}

/// Loads, in the engine's thread, the types that the first frame does without: what is made of them
/// opens at once then.
void loadLateTypes(QQmlEngine &engine)
{
    for (const auto &name :
         { "AirportPickerSheet"_L1, "FlightStatusSheet"_L1, "CityGuideSheet"_L1 })
        new QQmlComponent(&engine, QUrl(u"qrc:/qt/qml/Vantora/%1.qml"_s.arg(name)),
                          QQmlComponent::Asynchronous, &engine);
}

} // namespace

bool loadMainWindow(QQmlApplicationEngine &engine, const QString &title)
{
    ExternalLinks::setAddresses(QUrl(ServiceAddresses::webSite(), QUrl::StrictMode),
                                ServiceAddresses::mcpEndpoint());
    engine.addImportPath(u"qrc:/qt/qml"_s);
    engine.setInitialProperties(
        { { u"title"_s, title }, { u"room"_s, QSizeF(roomForTheWindow()) } });
    const QUrl mainWindow(u"qrc:/qt/qml/Vantora/MainWindow.qml"_s);
    const bool addsFonts = !std::exchange(areFontsEmbedded, true);
    const bool loadsDriver = isDrawnByDriver();
    std::thread beside([addsFonts, loadsDriver] {
        if (addsFonts)
            addFonts();
        if (loadsDriver)
            loadGraphicsDriver();
    });
    // The QML types are loaded in a thread of the engine, for which this one waits.
    const QQmlComponent types(&engine, mainWindow);
    beside.join();
#ifdef __GLIBC__
    // Of the memory that the context has left free, nothing else would make use.
    if (loadsDriver)
        malloc_trim(0);
#endif
    embedFonts();
    engine.load(mainWindow);
    if (engine.rootObjects().isEmpty()) {
        qCritical("The window could not be loaded.");
        return false;
    }
    auto *window = qobject_cast<QQuickWindow *>(engine.rootObjects().constFirst());
    requestDarkFrame(window);
    QObject::connect(
        window, &QQuickWindow::frameSwapped, &engine, [&engine] { loadLateTypes(engine); },
        Qt::ConnectionType(Qt::QueuedConnection | Qt::SingleShotConnection));
    return true;
}

int runApplication(const QString &title)
{
    prepareApplication();
    QQmlApplicationEngine engine;
    if (!loadMainWindow(engine, title))
        return 1;
    return QGuiApplication::exec();
}
