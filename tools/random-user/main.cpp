#include "App/Application.h"
#include "RandomUser.h"
#include "support/ConsoleCapture.h"

#include <QAccessible>
#include <QCommandLineParser>
#include <QGuiApplication>
#include <QTextStream>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

RandomUser *user = nullptr;
int complaints = 0;

/// Nothing that the user does may make Qt or QML complain.
void noteMessage(QtMsgType type, const QMessageLogContext &, const QString &message)
{
    QTextStream(stderr) << message << Qt::endl;
    if (type == QtDebugMsg || type == QtInfoMsg)
        return;
    ++complaints;
    if (user)
        user->surprise(message);
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
    QTextStream(stderr) << "vantora-random-user --seed " << seed << " --seconds " << time.count()
                        << Qt::endl;

    prepareApplication();
    QAccessible::setActive(true);
    QGuiApplication::setQuitOnLastWindowClosed(false);
    qInstallMessageHandler(noteMessage);
    QString summary;
    bool isCalm = false;
    {
        ConsoleCapture console;
        RandomUser randomUser(seed, parser.isSet(u"http2"_s));
        user = &randomUser;
        isCalm = randomUser.act(time);
        const QStringList lines = console.text().split(u'\n');
        for (const QString &line : lines) {
            if (!isExpected(line))
                randomUser.surprise(u"On the console: "_s + line.left(200));
            isCalm = isCalm && isExpected(line);
        }
        summary = randomUser.summary();
        user = nullptr;
    }
    QTextStream(stdout) << summary << Qt::endl;
    return isCalm && complaints == 0 ? 0 : 1;
}
