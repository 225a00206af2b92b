// Uses the real window at random, on a server that answers with random faults, until something is
// wrong: a warning, a line on the console that a failed search does not explain, a result that came
// from nowhere or is gone, a flag that stays up though nothing runs, a strange link.

#include "App/Application.h"
#include "RandomUser.h"
#include "support/ConsoleText.h"

#include <QCommandLineParser>
#include <QDeadlineTimer>
#include <QGuiApplication>
#include <QTextStream>

using namespace Qt::StringLiterals;

namespace {

int warnings = 0;

/// Nothing that the user does may make Qt or QML complain.
void noteMessage(QtMsgType type, const QMessageLogContext &, const QString &message)
{
    QTextStream(stderr) << message << Qt::endl;
    warnings += type != QtDebugMsg && type != QtInfoMsg;
}

/// What failed searches write, each on a line that can be read.
bool isExpected(const QString &line)
{
    constexpr qsizetype longest = 1100;
    return line.isEmpty()
        || (line.size() < longest
            && (line.startsWith(u"Price calendar fetch error: ")
                || line.startsWith(u"Flights search error: ")));
}

} // namespace

int main(int argc, char *argv[])
{
    QGuiApplication application(argc, argv);
    QCommandLineParser parser;
    parser.setApplicationDescription(
        u"Does anything with the window, on a server that does anything wrong."_s);
    parser.addHelpOption();
    parser.addOptions({
        { u"seconds"_s, u"How long."_s, u"NUMBER"_s, u"60"_s },
        { u"http2"_s, u"Asks over HTTP/2, by nghttpx."_s },
        { u"seed"_s, u"Makes the same choices again."_s, u"NUMBER"_s,
          QString::number(QRandomGenerator::global()->generate()) },
    });
    parser.process(application);
    const quint32 seed = parser.value(u"seed"_s).toUInt();
    const std::chrono::seconds time(parser.value(u"seconds"_s).toInt());
    qInstallMessageHandler(noteMessage);
    qInfo("vantora-random-user --seed %u --seconds %lld", seed, qlonglong(time.count()));

    prepareApplication();
    QAccessible::setActive(true);
    QGuiApplication::setQuitOnLastWindowClosed(false);
    const QString console = consoleTextDuring([&] {
        RandomUser user(seed, parser.isSet(u"http2"_s));
        const QDeadlineTimer end(time);
        while (warnings == 0 && !end.hasExpired())
            user.act();
        if (warnings == 0)
            user.rest();
        qInfo() << "done:" << user.done() << "\nanswered:" << user.answers();
    });
    for (const QString &line : console.split(u'\n')) {
        if (!isExpected(line))
            qWarning("On the console: %s", qPrintable(line.left(200)));
    }
    return warnings > 0 ? 1 : 0;
}
