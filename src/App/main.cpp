#include "App/Application.h"
#include "Services/PlatformErrorText.h"

#include <QCommandLineParser>
#include <QGuiApplication>

#include <cstdio>
#include <cstdlib>

using namespace Qt::StringLiterals;

namespace {

/// Ends the program with this message and the exit status of a wrong call.
[[noreturn]] void refuse(const QString &message)
{
    const QString line = u"vantora: %1 Yardım için: vantora --help\n"_s.arg(message);
    std::fputs(qUtf8Printable(line), stderr);
    std::exit(2);
}

/// Answers --help and --version and refuses what it does not know. It ends the program then,
/// without a display.
void readCommandLine(int argc, char *argv[])
{
    QCoreApplication terminal(argc, argv);
    QCoreApplication::setApplicationName(u"vantora"_s);
    QCoreApplication::setApplicationVersion(u"" VANTORA_VERSION ""_s);
    PlatformErrorText::installTurkishCatalogue();

    QCommandLineParser parser;
    parser.setApplicationDescription(u"Vantora'nın en uygun fiyatlı uçuşlarını bulur."_s);
    parser.setSingleDashWordOptionMode(QCommandLineParser::ParseAsLongOptions);
    // Qt's own help option comes with one for the options below.
    const QCommandLineOption help({ u"h"_s, u"help"_s }, u"Bu yardımı gösterir."_s);
    parser.addOption(help);
    const QCommandLineOption version = parser.addVersionOption();
    // Qt takes these from the command line of every window; they are in its documentation.
    const auto addHidden = [&parser](const QString &name, const QString &value) {
        QCommandLineOption option(name, {}, value);
        option.setFlags(QCommandLineOption::HiddenFromHelp);
        parser.addOption(option);
    };
    for (const char *name :
         { "platform", "platformpluginpath", "platformtheme", "plugin", "qwindowgeometry",
           "qwindowicon", "qwindowtitle", "session", "display", "qmljsdebugger" })
        addHidden(QString::fromLatin1(name), u"value"_s);
    addHidden(u"reverse"_s, {});
    if (!parser.parse(QCoreApplication::arguments()))
        refuse(parser.errorText());
    if (parser.isSet(help))
        parser.showHelp();
    if (parser.isSet(version))
        parser.showVersion();
    if (!parser.positionalArguments().isEmpty())
        refuse(u"Beklenmeyen bağımsız değişken: “%1”."_s.arg(parser.positionalArguments().first()));
}

} // namespace

int main(int argc, char *argv[])
{
    if (argc > 1)
        readCommandLine(argc, argv);
    QGuiApplication application(argc, argv);
    return runApplication(QStringLiteral("Vantora"));
}
