// Runs the programs beside it and prints one table. `--quick` takes fewer runs. A figure that
// misses its goal is no failure; a figure that is missing is.

#include "benchmarks/Figures.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QHash>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTextStream>

#include <cmath>
#include <cstdlib>

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

/// What a program told.
class Figures
{
public:
    void insert(const QString &name, double value) { m_values.insert(name, value); }
    bool contains(const QString &name) const { return m_values.contains(name); }
    double at(const QString &name) const
    {
        if (!m_values.contains(name))
            fail(u"there is no figure "_s + name);
        return m_values.value(name);
    }

private:
    QHash<QString, double> m_values;
};

/// Its lines "name value", and as "seconds" the time from its start to the first of them.
Figures run(const QString &program, const QStringList &arguments = {})
{
    QProcess process;
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    QElapsedTimer clock;
    clock.start();
    process.start(besideThis(program), arguments);
    Figures figures;
    // The application itself may print lines before them: without a server the search fails.
    while (process.canReadLine() || process.waitForReadyRead(timeLimit)) {
        const QStringList words = QString::fromUtf8(process.readLine()).split(u' ');
        if (words.size() != 2)
            continue;
        figures.insert(words.first(), words.last().toDouble());
        if (!figures.contains(u"seconds"_s))
            figures.insert(u"seconds"_s, double(clock.nsecsElapsed()) / 1e9);
    }
    process.waitForFinished(timeLimit);
    if (process.state() != QProcess::NotRunning || process.exitCode() != 0)
        fail(program + u" did not end well"_s);
    return figures;
}

double median(const QList<Figures> &runs, const QString &name)
{
    QList<double> values;
    for (const Figures &figures : runs)
        values.append(figures.at(name));
    return ::median(values);
}

/// The sample server in a process of its own, from construction to destruction.
class SampleServer
{
public:
    SampleServer()
    {
        m_process.start(besideThis(u"../bin/vantora-sample-server"_s), {});
        if (!m_process.waitForReadyRead())
            fail(u"the sample server does not start"_s);
        m_port = QString::fromUtf8(m_process.readLine()).split(u' ').value(1).trimmed();
    }
    ~SampleServer()
    {
        m_process.terminate();
        m_process.waitForFinished();
    }
    QString endpoint() const { return u"http://127.0.0.1:%1/mcp"_s.arg(m_port); }

private:
    QProcess m_process;
    QString m_port;
};

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
    const SampleServer server;
    QList<Figures> bare;
    QList<Figures> frame;
    QList<Figures> cards;
    for (int i = 0; i < runs; ++i) {
        bare.append(run(u"bare-window"_s));
        frame.append(run(u"window-start"_s));
        cards.append(run(u"window-start"_s, { server.endpoint() }));
    }
    const auto compare = [&](const QString &what, const QList<Figures> &figures,
                             const QString &name, double divisor, const QString &unit,
                             double goal) {
        table.compare(what, median(figures, name) / divisor, median(bare, name) / divisor, unit,
                      goal);
    };
    compare(u"start to the first frame / bare window"_s, frame, u"seconds"_s, 1, u" s"_s, 1.5);
    compare(u"start to the first flight cards / bare window"_s, cards, u"seconds"_s, 1, u" s"_s,
            2.2);
    compare(u"peak memory at the first frame / bare window"_s, frame, u"memory"_s, 1024, u" MiB"_s,
            1.25);
    compare(u"peak memory with results / bare window"_s, cards, u"memory"_s, 1024, u" MiB"_s, 1.4);
}

/// Milliseconds of CPU, medians.
Figures readerFigures(int repetitions)
{
    QProcess process;
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process.start(besideThis(u"reader-figures"_s),
                  { u"--benchmark_format=json"_s, u"--benchmark_min_time=0.1"_s,
                    u"--benchmark_repetitions=%1"_s.arg(repetitions),
                    u"--benchmark_enable_random_interleaving=true"_s });
    if (!process.waitForFinished(timeLimit) || process.exitCode() != 0)
        fail(u"reader-figures did not end well"_s);
    const QJsonDocument report = QJsonDocument::fromJson(process.readAllStandardOutput());
    const QJsonArray benchmarks = report[u"benchmarks"].toArray();
    Figures figures;
    for (const QJsonValue &benchmark : benchmarks) {
        if (benchmark[u"aggregate_name"].toString() == u"median")
            figures.insert(benchmark[u"run_name"].toString(),
                           benchmark[u"cpu_time"].toDouble() / 1e6);
    }
    return figures;
}

void compareReaders(Table &table, int repetitions)
{
    const Figures figures = readerFigures(repetitions);
    for (const QString &count : { u"12"_s, u"2000"_s }) {
        table.compare(u"reply of %1 flights to records / its JSON alone"_s.arg(count),
                      figures.at(u"readFlights/"_s + count), figures.at(u"parseJson/"_s + count),
                      u" ms"_s, 1.5);
    }
    table.judge(u"applyFilter over 2,000 flights"_s, figures.at(u"applyFilter"_s), u" ms"_s, 4);
}

void judgeOpenWindow(Table &table, int searches)
{
    const double bareScroll = run(u"bare-window"_s, { u"--scroll"_s }).at(u"scroll"_s);
    const Figures open = run(u"window-figures"_s);
    const SampleServer server;
    const double growth =
        run(u"window-start"_s, { server.endpoint(), QString::number(searches) }).at(u"growth"_s);
    const double frame = open.at(u"frame"_s);
    table.judge(u"main thread away while 2,000 flights come"_s, open.at(u"stall"_s), u" ms"_s, 16);
    table.judge(u"main thread away while 2,000 flights are sorted"_s, open.at(u"sort-stall"_s),
                u" ms"_s, 16);
    table.judge(u"main thread away while a reply of 12 MiB comes"_s, open.at(u"largest-stall"_s),
                u" ms"_s, 200);
    table.compare(u"CPU a frame, scrolling 2,000 cards / plain rectangles"_s, open.at(u"scroll"_s),
                  bareScroll, u" ms"_s, 1.6);
    table.judge(u"frames drawn in 10 idle seconds"_s, open.at(u"idle-frames"_s), {}, 0);
    table.judge(u"memory growth, search %1 to %2"_s.arg(searches / 10).arg(searches), growth,
                u" KiB"_s, 1024);
    table.compare(u"airport picker to its first frame / a frame"_s, open.at(u"picker"_s), frame,
                  u" ms"_s, 3);
    table.compare(u"press on a day to its loading state / a frame"_s, open.at(u"day"_s), frame,
                  u" ms"_s, 2);
}

} // namespace

int main(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    const bool isQuick = QCoreApplication::arguments().contains(u"--quick"_s);
    Table table;
    compareStarts(table, isQuick ? 3 : 11);
    compareReaders(table, isQuick ? 3 : 11);
    judgeOpenWindow(table, isQuick ? 100 : 1000);
    table.judge(u"stripped executable"_s,
                double(QFileInfo(besideThis(u"vantora-stripped"_s)).size()) / 1e6, u" MB"_s, 5);
    return 0;
}
