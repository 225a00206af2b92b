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

struct Options
{
    QUrl endpoint;
    QString scene = u"search"_s;
    QString origin;
    QString destination;
    QStringList presses;
    QSize size { 1080, 720 };
    double scale = 1;
    QString picture;
    QString state;
    int timeoutSeconds = 30;
    bool listsScenes = false;
    bool stays = false;
};

/// Ends the program with this message and the exit status of a wrong call.
[[noreturn]] void refuse(const QString &message)
{
    QTextStream(stderr) << "vantora-inspect: " << message << Qt::endl;
    std::exit(2);
}

QSize parseSize(const QString &text)
{
    const QStringList parts = text.split(u'x');
    const QSize size = parts.size() == 2 ? QSize(parts[0].toInt(), parts[1].toInt()) : QSize();
    if (size.width() < 1080 || size.height() < 720 || size.width() > 7680 || size.height() > 4320)
        refuse(u"--size takes WIDTHxHEIGHT, from 1080x720 to 7680x4320."_s);
    return size;
}

double parseNumber(const QString &option, const QString &text, double least, double greatest)
{
    bool isNumber = false;
    const double number = text.toDouble(&isNumber);
    if (!isNumber || number < least || number > greatest)
        refuse(u"--%1 takes a number from %2 to %3."_s.arg(option).arg(least).arg(greatest));
    return number;
}

Options parseOptions(const QStringList &arguments)
{
    QCommandLineParser parser;
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
    if (!parser.parse(arguments))
        refuse(parser.errorText());
    if (parser.isSet(u"help"_s)) {
        QTextStream(stdout) << parser.helpText();
        std::exit(0);
    }
    if (!parser.positionalArguments().isEmpty())
        refuse(u"Unexpected argument \"%1\"."_s.arg(parser.positionalArguments().first()));

    Options options;
    options.listsScenes = parser.isSet(u"list-scenes"_s);
    options.stays = parser.isSet(u"stay"_s);
    options.scene = parser.value(u"scene"_s);
    options.origin = parser.value(u"origin"_s);
    options.destination = parser.value(u"destination"_s);
    options.presses = parser.values(u"press"_s);
    options.size = parseSize(parser.value(u"size"_s));
    options.scale = parseNumber(u"scale"_s, parser.value(u"scale"_s), 0.5, 4);
    options.timeoutSeconds = qRound(parseNumber(u"timeout"_s, parser.value(u"timeout"_s), 1, 3600));
    options.picture = parser.value(u"picture"_s);
    options.state = parser.value(u"state"_s);
    options.endpoint = QUrl(parser.value(u"endpoint"_s), QUrl::StrictMode);
    if (!options.listsScenes && !ServiceAddresses::isAcceptableEndpoint(options.endpoint))
        refuse(u"--endpoint takes an https address, or http on a loopback host."_s);
    return options;
}

const Scene &sceneNamed(const QString &name)
{
    const QList<Scene> &scenes = allScenes();
    const auto found = std::find_if(scenes.begin(), scenes.end(),
                                    [&name](const Scene &scene) { return scene.name == name; });
    if (found == scenes.end())
        refuse(u"There is no scene \"%1\"; --list-scenes names them."_s.arg(name));
    return *found;
}

/// Repeats the window's first search between the airports that were asked for.
bool searchBetween(Stage &stage, const Options &options)
{
    if (options.origin.isEmpty() && options.destination.isEmpty())
        return true;
    if (!options.origin.isEmpty())
        stage.viewModel()->setOriginCode(options.origin);
    if (!options.destination.isEmpty())
        stage.viewModel()->setDestinationCode(options.destination);
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

int show(const Options &options)
{
    const Scene &scene = sceneNamed(options.scene);
    QQmlApplicationEngine engine;
    if (!loadMainWindow(engine, u"Vantora"_s))
        return 1;
    auto *window = qobject_cast<QQuickWindow *>(engine.rootObjects().constFirst());
    window->resize(options.size);

    Stage stage(window, std::chrono::seconds(options.timeoutSeconds));
    const bool isThere = stage.waitUntil([window] { return window->isExposed(); })
        && stage.waitForSearch() && searchBetween(stage, options) && stage.waitUntilStill()
        && scene.play(stage) && (scene.isRestless || stage.waitUntilStill())
        && pressAll(stage, options.presses);
    const QImage picture = stage.picture();
    if (!isThere) {
        const QString reason = stage.viewModel()->errorMessageText();
        return fail(u"The scene \"%1\" was not reached. %2"_s.arg(scene.name, reason));
    }
    if (!options.picture.isEmpty() && !picture.save(options.picture))
        return fail(u"The picture %1 could not be written."_s.arg(options.picture));
    const QByteArray state = QJsonDocument(stateOf(*stage.viewModel())).toJson();
    if (!options.state.isEmpty() && !writeFile(options.state, state))
        return fail(u"The state %1 could not be written."_s.arg(options.state));
    if (!options.stays)
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
    const Options options = parseOptions(arguments);
    if (options.listsScenes) {
        for (const Scene &scene : allScenes())
            QTextStream(stdout) << scene.name << "  " << scene.description << Qt::endl;
        return 0;
    }

    ServiceAddresses::setMcpEndpoint(options.endpoint);
    qputenv("QT_SCALE_FACTOR", QByteArray::number(options.scale));
    QGuiApplication application(argc, argv);
    prepareApplication();
    // Scenes press buttons through the accessibility interface.
    QAccessible::setActive(true);
    return show(options);
}
