#include "App/Application.h"
#include "Services/ServiceAddresses.h"
#include "inspect/SeenTexts.h"
#include "support/WindowTesting.h"

#include <QFontInfo>
#include <QGuiApplication>
#include <QLocale>
#include <QRegularExpression>
#include <QTest>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace {

/// "{+14 d MMM}" in a line stands for the day in 14 days.
QString withDays(QString line)
{
    static const QRegularExpression pattern(u"\\{\\+(\\d+) ([^}]+)\\}"_s);
    for (auto match = pattern.match(line); match.hasMatch(); match = pattern.match(line)) {
        const QDate day = QDate::currentDate().addDays(match.captured(1).toInt());
        line.replace(match.capturedStart(), match.capturedLength(),
                     QLocale(QLocale::Turkish).toString(day, match.captured(2)));
    }
    return line;
}

/// A state that whole-window.txt has in brackets: what leads to it, and its lines.
struct State
{
    QString name;
    QStringList actions;
    QStringList lines;
};

QList<State> statesOfTheWindow()
{
    QFile file(QFINDTESTDATA("whole-window.txt"));
    if (!file.open(QIODevice::ReadOnly))
        qFatal("There is no whole-window.txt.");
    QList<State> states;
    QHash<QString, QStringList> parts; // in parentheses
    QStringList actions;
    QStringList *lines = nullptr;
    for (const QString &line : QString::fromUtf8(file.readAll()).split(u'\n', Qt::SkipEmptyParts)) {
        if (line.startsWith(u"> ")) {
            actions += line.sliced(2);
        } else if (line.startsWith(u'[')) {
            states.append({ line, std::exchange(actions, {}), {} });
            lines = &states.last().lines;
        } else if (line.startsWith(u'(')) {
            lines = &parts[line];
        } else if (line.startsWith(u"= ")) {
            *lines += parts.value(u'(' + line.sliced(2) + u')');
        } else if (!line.startsWith(u'#')) {
            *lines += withDays(line);
        }
    }
    return states;
}

} // namespace

/// Every text of the window in every state, for known answers of the server.
class WholeWindowTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyTextOfTheWindow()
    {
        QTest::failOnWarning(QRegularExpression(u"."_s));
        ServiceAddresses::setMcpEndpoint(m_server.endpoint());
        m_server.onToolCall = [this](const ReceivedRequest &request) {
            const auto answer = m_isOut
                ? ScriptedAnswer::text("<html>")
                : ScriptedAnswer::content(m_answers[request.tool()].toObject());
            return m_isSlow ? answer.held() : answer;
        };
        QTimer::singleShot(0, this, [this] {
            m_driver = WindowDriver(
                qobject_cast<QQuickWindow *>(QGuiApplication::topLevelWindows().value(0)));
            m_driver.window()->resize(1280, 1500);
            for (const State &state : statesOfTheWindow()) {
                for (const QString &action : state.actions)
                    act(action.section(u' ', 0, 0), action.section(u' ', 1));
                see(state);
                seeFonts();
                if (QTest::currentTestFailed())
                    break;
            }
            m_driver.window()->close();
        });
        QCOMPARE(runApplication(u"Vantora"_s), 0);
    }

private:
    void act(const QString &verb, const QString &what)
    {
        if (verb == u"click") {
            click(what);
        } else if (verb == u"type") {
            m_driver.type(what);
        } else if (verb == u"press") {
            m_driver.key(QKeySequence(what)[0].key());
        } else if (verb == u"leave") {
            m_driver.key(Qt::Key_Escape);
            QTRY_VERIFY(m_driver.saying(u"VANTORA"_s));
        } else if (verb == u"answer") {
            QTRY_COMPARE(m_server.heldCount(), what.toInt());
            m_isSlow = false;
            while (m_server.heldCount() > 0)
                m_server.release();
        } else if (what == u"is slow") {
            m_isSlow = true;
        } else if (what == u"knows all") {
            m_answers = knownAnswers();
        } else {
            m_isOut = what == u"is out";
        }
    }

    /// Waits until the lines are those of the state.
    void see(const State &state)
    {
        QStringList seen;
        if (QTest::qWaitFor([&] { return (seen = seenLines(m_driver.window())) == state.lines; }))
            return;
        qInfo("%s of whole-window.txt. What is seen:", qPrintable(state.name));
        for (const QString &line : std::as_const(seen))
            qInfo("%s", qPrintable(line));
        QCOMPARE(seen, state.lines);
    }

    /// Every text has the font that it names.
    void seeFonts()
    {
        const auto isInAnotherFont = [](QQuickItem *item) {
            const auto font = item->property("font").value<QFont>();
            return isText(item) && QFontInfo(font).family() != font.family();
        };
        for (QQuickItem *text : m_driver.itemsIn(m_driver.window()->contentItem(), isInAnotherFont))
            QFAIL(qPrintable(drawnText(text)));
    }

    /// When it stands still: what has just come is still being laid out.
    void click(const QString &text)
    {
        QPointF place(-1, -1);
        const auto standsStill = [&] {
            QTest::qWait(50); // for some frames
            const QQuickItem *item = m_driver.saying(text);
            const QPointF last = place;
            return item && (place = item->mapToScene(QPointF())) == last;
        };
        QVERIFY2(QTest::qWaitFor(standsStill), qPrintable(text));
        m_driver.click(m_driver.saying(text));
    }

    ScriptedServer m_server;
    /// What the server answers, by tool; nothing at first.
    QJsonObject m_answers;
    /// The server answers with something that is no JSON.
    bool m_isOut = true;
    /// It keeps its answers back.
    bool m_isSlow = true;
    WindowDriver m_driver;
};

QTEST_MAIN(WholeWindowTest)
#include "WholeWindowTest.moc"
