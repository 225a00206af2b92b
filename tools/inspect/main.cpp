#include "App/Application.h"
#include "Services/ServiceAddresses.h"
#include "inspect/Scenes.h"
#include "inspect/SeenTexts.h"
#include "inspect/StateWriter.h"

#include <QAccessible>
#include <QCommandLineParser>
#include <QFile>
#include <QGuiApplication>
#include <QJsonDocument>
#include <QTextStream>

#include <algorithm>
#include <chrono>
#include <cstdlib>

using namespace Qt::StringLiterals;

namespace {

/// Ends the program with this message and the exit status of a wrong call.
[[noreturn]] void refuse(const QString &message)
{
    QTextStream(stderr) << "vantora-inspect: " << message << Qt::endl;
    std::exit(2);
}

double number(const QCommandLineParser &options, const QString &name, double least, double greatest)
{
    bool isNumber = false;
    const double number = options.value(name).toDouble(&isNumber);
    if (!isNumber || number < least || number > greatest)
        refuse(u"--%1 takes a number from %2 to %3."_s.arg(name).arg(least).arg(greatest));
    return number;
}

QSize size(const QCommandLineParser &options)
{
    const QStringList parts = options.value(u"size"_s).split(u'x');
    const QSize size = parts.size() == 2 ? QSize(parts[0].toInt(), parts[1].toInt()) : QSize();
    if (size != size.expandedTo({ 1080, 720 }).boundedTo({ 7680, 4320 }))
        refuse(u"--size takes WIDTHxHEIGHT, from 1080x720 to 7680x4320."_s);
    return size;
}

void addOptions(QCommandLineParser &parser)
{
    parser.setApplicationDescription(
        u"Shows the window against an MCP server, and writes a picture and the state of it."_s);
    parser.addHelpOption();
    parser.addOptions({
        { u"endpoint"_s, u"The MCP endpoint: https, or http on a loopback host."_s, u"URL"_s },
        { u"scene"_s, u"What to show (see --list-scenes)."_s, u"NAME"_s, u"search"_s },
        { u"origin"_s, u"Searches from this airport."_s, u"CODE"_s },
        { u"destination"_s, u"Searches to this airport."_s, u"CODE"_s },
        { u"press"_s, u"Then presses what a screen reader calls so; may be given more than once."_s,
          u"NAME"_s },
        { u"size"_s, u"Size of the window."_s, u"WxH"_s, u"1080x720"_s },
        { u"scale"_s, u"Device pixels for each pixel."_s, u"FACTOR"_s, u"1"_s },
        { u"picture"_s, u"Writes a picture of the window."_s, u"FILE.png"_s },
        { u"state"_s, u"Writes the view model's published state."_s, u"FILE.json"_s },
        { u"timeout"_s, u"How long it may take."_s, u"SECONDS"_s, u"30"_s },
        { u"stay"_s,
          u"Leaves the window open after the scene, and answers each line on the standard input "
          u"with the texts that are seen then, until the input ends."_s },
        { u"list-scenes"_s, u"Lists the scenes."_s },
    });
}

Scene sceneNamed(const QString &name)
{
    const QList<Scene> &scenes = allScenes();
    const auto found = std::find_if(scenes.begin(), scenes.end(),
                                    [&name](const Scene &scene) { return scene.name == name; });
    if (found == scenes.end())
        refuse(u"There is no scene \"%1\"; --list-scenes names them."_s.arg(name));
    return *found;
}

/// Repeats the window's first search between the airports that were asked for.
bool searchBetween(Stage &stage, const QString &origin, const QString &destination)
{
    if (origin.isEmpty() && destination.isEmpty())
        return true;
    if (!origin.isEmpty())
        stage.viewModel()->setOriginCode(origin);
    if (!destination.isEmpty())
        stage.viewModel()->setDestinationCode(destination);
    stage.viewModel()->startSearchAll();
    return stage.waitForSearch();
}

bool pressAll(Stage &stage, const QStringList &names)
{
    return std::all_of(names.begin(), names.end(), [&stage](const QString &name) {
        return stage.pressCalled(name) && stage.waitUntilStill();
    });
}

bool writeFile(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

int fail(const QString &message)
{
    QTextStream(stderr) << "vantora-inspect: " << message << Qt::endl;
    return 1;
}

int show(const QCommandLineParser &options)
{
    const Scene scene = sceneNamed(options.value(u"scene"_s));
    const QSize windowSize = size(options);
    const std::chrono::seconds timeout(qRound(number(options, u"timeout"_s, 1, 3600)));
    QQmlApplicationEngine engine;
    QQuickWindow *window = loadMainWindow(engine, u"Vantora"_s);
    if (!window)
        return 1;
    window->resize(windowSize);

    Stage stage(window, timeout);
    const bool isThere = stage.waitUntil([window] { return window->isExposed(); })
        && stage.waitForSearch()
        && searchBetween(stage, options.value(u"origin"_s), options.value(u"destination"_s))
        && stage.waitUntilStill() && scene.play(stage)
        && (scene.isRestless || stage.waitUntilStill())
        && pressAll(stage, options.values(u"press"_s));
    const QImage image = stage.picture();
    if (!isThere) {
        const QString reason = stage.viewModel()->errorMessageText();
        return fail(u"The scene \"%1\" was not reached. %2"_s.arg(scene.name, reason));
    }
    const QString picture = options.value(u"picture"_s);
    if (!picture.isEmpty() && !image.save(picture))
        return fail(u"The picture %1 could not be written."_s.arg(picture));
    const QString state = options.value(u"state"_s);
    if (!state.isEmpty() && !writeFile(state, QJsonDocument(stateOf(*stage.viewModel())).toJson()))
        return fail(u"The state %1 could not be written."_s.arg(state));
    if (!options.isSet(u"stay"_s))
        return 0;
    answerWithSeenTexts(window);
    return QGuiApplication::exec();
}

} // namespace

int main(int argc, char *argv[])
{
    QStringList arguments;
    for (int i = 0; i < argc; ++i)
        arguments.append(QString::fromLocal8Bit(argv[i]));
    QCommandLineParser options;
    addOptions(options);
    if (!options.parse(arguments))
        refuse(options.errorText());
    if (!options.positionalArguments().isEmpty())
        refuse(u"Unexpected argument \"%1\"."_s.arg(options.positionalArguments().first()));
    if (options.isSet(u"help"_s)) {
        QTextStream(stdout) << options.helpText();
        return 0;
    }
    if (options.isSet(u"list-scenes"_s)) {
        for (const Scene &scene : allScenes())
            QTextStream(stdout) << scene.name << "  " << scene.description << Qt::endl;
        return 0;
    }
    const QUrl endpoint(options.value(u"endpoint"_s), QUrl::StrictMode);
    if (!ServiceAddresses::isAcceptableEndpoint(endpoint))
        refuse(u"--endpoint takes an https address, or http on a loopback host."_s);

    ServiceAddresses::setMcpEndpoint(endpoint);
    qputenv("QT_SCALE_FACTOR", QByteArray::number(number(options, u"scale"_s, 0.5, 4)));
    QGuiApplication application(argc, argv);
    prepareApplication();
    // Scenes press buttons through the accessibility interface.
    QAccessible::setActive(true);
    return show(options);
}
