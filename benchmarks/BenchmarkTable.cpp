// Runs the programs beside it and prints one table. `--quick` takes fewer runs. A figure that
// misses its goal is no failure; a figure that is missing is.

#include "sample_server/SampleServer.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QHash>
#include <QProcess>
#include <QTextStream>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr int timeLimit = 1'800'000;

[[noreturn]] void fail(const QString &what)
{
    QTextStream(stderr) << what << '\n';
    std::exit(1);
}

QString besideThis(const QString &program)
{
    return QCoreApplication::applicationDirPath() + u'/' + program;
}

/// What programs have printed, by name.
using Figures = QHash<QString, QList<double>>;

/// The median of what was printed under the name.
double at(const Figures &figures, const QString &name)
{
    QList<double> values = figures.value(name);
    if (values.isEmpty())
        fail(u"there is no figure "_s + name);
    std::ranges::sort(values);
    return values.at(values.size() / 2);
}

/// The lines "name value" of a program, and as "seconds" the time from its start to the first of
/// them, beside those of earlier runs.
Figures run(const QString &program, const QStringList &arguments = {}, Figures figures = {})
{
    QProcess process;
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    QElapsedTimer clock;
    clock.start();
    process.start(besideThis(program), arguments);
    bool isFirst = true;
    // The application itself may print lines before them: without a server the search fails.
    while (process.canReadLine() || process.waitForReadyRead(timeLimit)) {
        const QStringList words = QString::fromUtf8(process.readLine()).split(u' ');
        if (words.size() != 2)
            continue;
        figures[words.first()].append(words.last().toDouble());
        if (std::exchange(isFirst, false))
            figures[u"seconds"_s].append(double(clock.nsecsElapsed()) / 1e9);
    }
    process.waitForFinished(timeLimit);
    if (process.state() != QProcess::NotRunning || process.exitCode() != 0)
        fail(program + u" did not end well"_s);
    return figures;
}

QString endpoint(SampleServer &server)
{
    return u"http://127.0.0.1:%1/mcp"_s.arg(server.listen().value());
}

class Table
{
public:
    Table()
    {
        row({ u"what"_s, u"figure"_s, u"baseline"_s, u"ratio"_s, u"goal"_s, u"met"_s });
        row({ u"---"_s, u"---:"_s, u"---:"_s, u"---:"_s, u"---:"_s, u"---"_s });
    }

    /// A figure beside its baseline, whose ratio may be at most `goal`.
    void compare(const QString &what, double figure, double baseline, const QString &unit,
                 double goal)
    {
        const double ratio = figure / baseline;
        row({ what, number(figure) + unit, number(baseline) + unit, QString::number(ratio, 'f', 2),
              u"≤ %1"_s.arg(goal), ratio <= goal ? u"yes"_s : u"not met"_s });
    }
    /// A figure that may itself be at most `goal`.
    void judge(const QString &what, double figure, const QString &unit, double goal)
    {
        row({ what, number(figure) + unit, u"–"_s, u"–"_s, u"≤ %1"_s.arg(goal) + unit,
              figure <= goal ? u"yes"_s : u"not met"_s });
    }

private:
    static QString number(double value)
    {
        const double size = std::abs(value);
        return QString::number(value, 'f', size < 10 ? 3 : size < 100 ? 1 : 0);
    }
    void row(const QStringList &cells)
    {
        constexpr int widths[] = { 56, 9, 9, 5, 10, 7 };
        m_out << '|';
        for (int cell = 0; cell < cells.size(); ++cell)
            m_out << ' ' << cells.at(cell).leftJustified(widths[cell]) << " |";
        m_out << '\n' << Qt::flush;
    }

    QTextStream m_out { stdout };
};

/// The process from its start to its first frame or cards, alternating with the bare window.
void compareStarts(Table &table, int runs)
{
    SampleServer server;
    const QString address = endpoint(server);
    Figures bare;
    Figures frame;
    Figures cards;
    for (int i = 0; i < runs; ++i) {
        bare = run(u"bare-window"_s, {}, bare);
        frame = run(u"window-start"_s, {}, frame);
        cards = run(u"window-start"_s, { address }, cards);
    }
    const double seconds = at(bare, u"seconds"_s);
    const double memory = at(bare, u"memory"_s);
    table.compare(u"start to the first frame / bare window"_s, at(frame, u"seconds"_s), seconds,
                  u" s"_s, 1.5);
    table.compare(u"start to the first flight cards / bare window"_s, at(cards, u"seconds"_s),
                  seconds, u" s"_s, 2.2);
    table.compare(u"peak memory at the first frame / bare window"_s, at(frame, u"memory"_s), memory,
                  u" MiB"_s, 1.25);
    table.compare(u"peak memory with results / bare window"_s, at(cards, u"memory"_s), memory,
                  u" MiB"_s, 1.4);
}

void judgeOpenWindow(Table &table, int searches)
{
    const Figures open = run(u"window-figures"_s);
    const QString pitch = QString::number(at(open, u"pitch"_s));
    const double bareScroll = at(run(u"bare-window"_s, { u"--scroll"_s, pitch }), u"scroll"_s);
    SampleServer server;
    const QStringList manySearches { endpoint(server), QString::number(searches) };
    const double growth = at(run(u"window-start"_s, manySearches), u"growth"_s);
    const double frame = at(open, u"frame"_s);
    table.compare(u"reply of 2,000 flights to records / its JSON alone"_s, at(open, u"read"_s),
                  at(open, u"parse"_s), u" ms"_s, 2.5);
    table.judge(u"main thread away while 2,000 flights come"_s, at(open, u"stall"_s), u" ms"_s, 16);
    table.judge(u"main thread away while 2,000 flights are sorted"_s, at(open, u"sort-stall"_s),
                u" ms"_s, 16);
    table.judge(u"main thread away while the largest reply comes"_s, at(open, u"largest-stall"_s),
                u" ms"_s, 200);
    table.compare(u"CPU a frame, scrolling 2,000 cards / plain rectangles"_s, at(open, u"scroll"_s),
                  bareScroll, u" ms"_s, 1.6);
    table.judge(u"frames drawn in 10 idle seconds"_s, at(open, u"idle-frames"_s), {}, 0);
    table.judge(u"memory growth, search %1 to %2"_s.arg(searches / 10).arg(searches), growth,
                u" KiB"_s, 1024);
    table.compare(u"airport picker to its first frame / a frame"_s, at(open, u"picker"_s), frame,
                  u" ms"_s, 3);
    table.compare(u"press on a day to its loading state / a frame"_s, at(open, u"day"_s), frame,
                  u" ms"_s, 2);
}

} // namespace

int main(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    const bool isQuick = QCoreApplication::arguments().contains(u"--quick"_s);
    Table table;
    compareStarts(table, isQuick ? 3 : 11);
    judgeOpenWindow(table, isQuick ? 100 : 1000);
    if (!isQuick) {
        const Figures hostile = run(u"window-figures"_s, { u"--hostile"_s });
        table.judge(u"main thread away, worst of the hostile replies"_s,
                    at(hostile, u"hostile-stall"_s), u" ms"_s, 50);
        table.judge(u"memory grown, worst of the hostile replies"_s,
                    at(hostile, u"hostile-memory"_s), u" MiB"_s, 200);
    }
    const Figures line = run(u"line-figures"_s);
    table.judge(u"round trips of \"initialize\" and two calls"_s, at(line, u"start"_s), {}, 4.6);
    table.judge(u"round trips of a later search"_s, at(line, u"search"_s), {}, 1.4);
    table.judge(u"round trips of a later search of 176 KB"_s, at(line, u"large_search"_s), {}, 2);
    table.judge(u"connections for a start and five searches"_s, at(line, u"connections"_s), {}, 1);
    table.judge(u"stripped executable"_s,
                double(QFileInfo(besideThis(u"vantora-stripped"_s)).size()) / 1e6, u" MB"_s, 5);
    return 0;
}
