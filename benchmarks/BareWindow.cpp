// What the application's window is compared with:
//   bare-window                  a bare window of its size, up to its first frame
//   bare-window --scroll PITCH   a list of two thousand plain rectangles with the texts of a flight
//                                card, one every PITCH pixels

#include "benchmarks/FrameWatch.h"

#include <QGuiApplication>
#include <QQmlApplicationEngine>

#include <cstdlib>

using namespace Qt::StringLiterals;

namespace {

constexpr auto bareWindow = R"(
import QtQuick
Window { width: 1280; height: 860; visible: true; color: "black" }
)";

constexpr auto rectangles = R"(
import QtQuick
Window {
    width: 1280; height: 860; visible: true; color: "black"
    required property int pitch
    id: window
    ListView {
        objectName: "page"
        anchors.fill: parent
        model: 2000
        spacing: 12
        delegate: Rectangle {
            required property int index
            width: ListView.view.width; height: window.pitch - 12; color: "#131a2a"
            Row {
                anchors.centerIn: parent
                spacing: 24
                Repeater {
                    model: ["VQ" + index, "VTR", "Airbus A321neo", "06:50", "IST", "3h 30m",
                            "Direkt Uçuş", "07:20", "LHR", "İkram", "23 kg", "Son 3 Koltuk!",
                            "₺6.594", "VTR'de Satın Al"]
                    Text { required property string modelData; text: modelData; color: "white" }
                }
            }
        }
    }
}
)";

} // namespace

int main(int argc, char *argv[])
{
    QGuiApplication application(argc, argv);
    const bool scrolls = QGuiApplication::arguments().contains(u"--scroll"_s);
    QQmlApplicationEngine engine;
    if (scrolls)
        engine.setInitialProperties(
            { { u"pitch"_s, QGuiApplication::arguments().last().toInt() } });
    engine.loadData(scrolls ? rectangles : bareWindow);
    if (engine.rootObjects().isEmpty())
        return 1;
    auto *window = qobject_cast<QQuickWindow *>(engine.rootObjects().constFirst());
    untilFrame(
        window, [] {}, [] { return true; }, [] { print("memory", memoryKiB("VmHWM") / 1024); });
    if (scrolls)
        print("scroll", cpuPerFrame(window, window->findChild<QObject *>(u"page"_s)));
    std::_Exit(0);
}
