#include "App/Application.h"

#include "App/DarkFrame.h"
#include "App/GraphicsHardware.h"
#include "Services/ServiceAddresses.h"
#include "Views/ExternalLinks.h"

#include <QDirIterator>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QNetworkProxyFactory>
#include <QPalette>
#include <QQuickWindow>
#include <QScreen>
#include <QWindow>
#include <QtQml/QQmlExtensionPlugin>

Q_IMPORT_QML_PLUGIN(VantoraPlugin)
Q_IMPORT_QML_PLUGIN(Vantora_ControlsPlugin)

using namespace Qt::StringLiterals;

namespace {

void embedFonts()
{
    QDirIterator fonts(u":/fonts"_s);
    while (fonts.hasNext()) {
        const QString file = fonts.next();
        if (QFontDatabase::addApplicationFont(file) < 0)
            qWarning("The embedded font %s cannot be read.", qPrintable(file));
    }
    QFont font(u"Vantora Sans"_s);
    font.setPixelSize(13);
    QGuiApplication::setFont(font);
}

/// What the first screen has free for a window, without the title bar that it gets.
QSize roomForTheWindow()
{
    constexpr int titleBar = 40;
    constexpr int largest = 16384;
    const QScreen *screen = QGuiApplication::primaryScreen();
    return screen ? screen->availableSize() - QSize(0, titleBar) : QSize(largest, largest);
}

/// Window frames that Qt itself draws, as it does on Wayland, take their colours from the palette
/// when the window is first shown.
void setFrameColours(const QColor &background)
{
    QPalette palette;
    palette.setColor(QPalette::Window, background);
    palette.setColor(QPalette::WindowText, Qt::white);
    QGuiApplication::setPalette(palette);
}

} // namespace

void prepareApplication()
{
    chooseDrawing();
    embedFonts();
    QGuiApplication::setApplicationName(u"vantora"_s);
    // The desktop file's name; it names "vantora" as the window class on X11.
    QGuiApplication::setDesktopFileName(u"example.vantora_air.vantora"_s);
    QNetworkProxyFactory::setUseSystemConfiguration(true);
}

QQuickWindow *loadMainWindow(QQmlApplicationEngine &engine, const QString &title)
{
    ExternalLinks::setAddresses(QUrl(ServiceAddresses::webSite(), QUrl::StrictMode),
                                ServiceAddresses::mcpEndpoint());
    engine.addImportPath(u"qrc:/qt/qml"_s);
    engine.setInitialProperties(
        { { u"title"_s, title }, { u"room"_s, QSizeF(roomForTheWindow()) } });
    engine.load(u"qrc:/qt/qml/Vantora/MainWindow.qml"_s);
    auto *window = qobject_cast<QQuickWindow *>(engine.rootObjects().value(0));
    if (!window) {
        qCritical("The window could not be loaded.");
        return nullptr;
    }
    setFrameColours(window->color());
    requestDarkFrame(window);
    window->show();
    return window;
}

int runApplication(const QString &title)
{
    prepareApplication();
    QQmlApplicationEngine engine;
    if (!loadMainWindow(engine, title))
        return 1;
    return QGuiApplication::exec();
}
