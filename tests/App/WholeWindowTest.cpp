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

/// The lines of each state that whole-window.txt has in brackets.
QHash<QString, QStringList> expectedLines()
{
    QFile file(QFINDTESTDATA("whole-window.txt"));
    if (!file.open(QIODevice::ReadOnly))
        qFatal("There is no whole-window.txt.");
    QHash<QString, QStringList> lines;
    QString name;
    for (const QString &line : QString::fromUtf8(file.readAll()).split(u'\n', Qt::SkipEmptyParts)) {
        if (line.startsWith(u'[') || line.startsWith(u'('))
            name = line;
        else if (line.startsWith(u"= "))
            lines[name] += lines.value(u'(' + line.sliced(2) + u')');
        else if (!line.startsWith(u'#'))
            lines[name] += withDays(line);
    }
    lines.removeIf([](const auto &entry) { return entry.key().startsWith(u'('); });
    return lines;
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
            useTheWindow();
            m_driver.window()->close();
        });
        QCOMPARE(runApplication(u"Vantora"_s), 0);
        for (auto state = m_expected.cbegin(); state != m_expected.cend(); ++state)
            m_faults += state.key() + u" was not looked at."_s;
        // One by one: a message of a test ends after a thousand characters.
        for (const QString &fault : std::as_const(m_faults))
            qInfo("%s", qPrintable(fault));
        QCOMPARE(m_faults.size(), 0);
    }

private:
    void useTheWindow()
    {
        see(u"loading"_s);
        releaseAnswers(2);
        see(u"failed"_s);
        m_isOut = false;
        click(u"En Uygun Fiyatları Bul"_s);
        see(u"empty"_s);
        m_answers = knownAnswers();
        click(u"En Uygun Fiyatları Bul"_s);
        see(u"full"_s);
        const auto isInAnotherFont = [](QQuickItem *item) {
            const auto font = item->property("font").value<QFont>();
            return item->inherits("QQuickText") && QFontInfo(font).family() != font.family();
        };
        for (const QQuickItem *text :
             m_driver.itemsIn(m_driver.window()->contentItem(), isInAnotherFont))
            m_faults += text->property("text").toString() + u" is not in the font that it names."_s;
        click(u"4 Mar"_s);
        click(u"En Erken"_s);
        see(u"another day, the earliest first"_s);
        click(u"Direkt Uçuşlar"_s);
        click(u"Gidiş - Dönüş"_s);
        click(u"SAW"_s);
        see(u"a round trip by a popular route, direct flights alone"_s);
        m_isOut = true;
        click(u"5 Mar"_s);
        see(u"failed over the flights of another day"_s);

        click(u"Uçuş Durumu"_s);
        see(u"status: nothing asked"_s);
        m_isSlow = true;
        click(u"Sorgula"_s);
        see(u"status: loading"_s);
        releaseAnswers(1);
        see(u"status: failed"_s);
        m_isOut = false;
        click(u"Sorgula"_s);
        see(u"status: full"_s);
        leaveSheet();

        m_isSlow = true;
        click(u"Şehir Rehberi"_s);
        see(u"guide: loading"_s);
        releaseAnswers(2);
        see(u"guide: full"_s);
        click(u"Aktif Kampanyalar"_s);
        see(u"promotions: full"_s);
        leaveSheet();

        click(u"Varış Yeri"_s);
        m_driver.type(u"izm"_s);
        see(u"airports that match izm"_s);
        leaveSheet();
        m_driver.key(Qt::Key_F10);
        see(u"help"_s);
    }

    /// Waits until the lines are those of the state.
    void see(const QString &state)
    {
        const QStringList expected = m_expected.take(u'[' + state + u']');
        QStringList seen;
        if (QTest::qWaitFor([&] { return (seen = seenLines(m_driver.window())) == expected; }))
            return;
        m_faults += u"[%1] is not as in whole-window.txt:"_s.arg(state);
        const qsizetype before = m_faults.size();
        for (const QString &line : std::as_const(seen)) {
            if (!expected.contains(line))
                m_faults += u"  seen:      "_s + line;
        }
        for (const QString &line : expected) {
            if (!seen.contains(line))
                m_faults += u"  expected:  "_s + line;
        }
        if (m_faults.size() == before)
            m_faults += u"  in another order:  "_s + seen.join(u'\n');
    }

    void releaseAnswers(int count)
    {
        if (!QTest::qWaitFor([&] { return m_server.heldCount() == count; }))
            m_faults += u"%1 questions came, not %2."_s.arg(m_server.heldCount()).arg(count);
        m_isSlow = false;
        while (m_server.heldCount() > 0)
            m_server.release();
    }

    void leaveSheet()
    {
        m_driver.key(Qt::Key_Escape);
        if (!QTest::qWaitFor([&] { return m_driver.saying(u"VANTORA"_s) != nullptr; }))
            m_faults += u"Escape did not close the sheet."_s;
    }

    /// When it stands still: what has just come is still being laid out.
    void click(const QString &text)
    {
        QPointF place(-1, -1);
        const auto standsStill = [&] {
            const QQuickItem *item = m_driver.saying(text);
            const QPointF last = place;
            return item && (place = item->mapToScene(QPointF())) == last;
        };
        if (QTest::qWaitFor(standsStill))
            m_driver.click(m_driver.saying(text));
        else
            m_faults += u"\"%1\" is not seen."_s.arg(text);
    }

    QHash<QString, QStringList> m_expected = expectedLines();
    QStringList m_faults;
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
