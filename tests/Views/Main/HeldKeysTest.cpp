#include "support/WindowTesting.h"

#include <QDesktopServices>
#include <QProcess>

using namespace Qt::StringLiterals;

/// Keys held down on a real display server, whose repeats are not always flagged as such.
class HeldKeysTest : public WindowTest
{
    Q_OBJECT

private Q_SLOTS:
    void actOnce_data()
    {
        QTest::addColumn<QString>("control"); // its object name, or else its QML type
        QTest::addColumn<QString>("key");
        QTest::addColumn<QString>("afterOneHold");
        QTest::addColumn<QString>("afterTwo");
        const auto add = [](const QString &control, const QString &key, const QString &afterOneHold,
                            const QString &afterTwo) {
            QTest::addRow("%s, %s", qPrintable(control), qPrintable(key))
                << control << key << afterOneHold << afterTwo;
        };
        for (const QString &key : { u"Return"_s, u"space"_s }) {
            add(u"FlightList"_s, key, u"1 page"_s, u"2 pages"_s);
            add(u"DayStrip"_s, key, u"1 question"_s, u"2 questions"_s);
            add(u"cabinClass"_s, key, u"1 open"_s, QString());
            add(u"departureDate"_s, key, u"1 open"_s, QString());
        }
        add(u"QuickRouteButton"_s, u"Return"_s, u"2 questions"_s, u"4 questions"_s);
        add(u"searchButton"_s, u"space"_s, u"2 questions"_s, u"4 questions"_s);
        add(u"swapButton"_s, u"space"_s, u"LHR"_s, QString());
        add(u"originButton"_s, u"Return"_s, u"1 open"_s, QString());
        add(u"flightStatusButton"_s, u"Return"_s, u"1 open"_s, u"1 open, 1 question"_s);
    }
    void actOnce()
    {
        QFETCH(const QString, control);
        QFETCH(const QString, key);
        QFETCH(const QString, afterOneHold);
        QFETCH(const QString, afterTwo);
        const auto item = [&] {
            QQuickItem *named = m_window->named(control);
            return named ? named : m_window->itemsOfType(control.toLatin1()).value(0);
        };
        QTRY_VERIFY(item());
        m_pages = 0;
        QDesktopServices::setUrlHandler(u"https"_s, this, "countPage");
        item()->forceActiveFocus(Qt::TabFocusReason);
        hold(key);
        QTRY_COMPARE(deeds(), afterOneHold);
        hold(key);
        QTRY_COMPARE(deeds(), afterTwo);
        QDesktopServices::unsetUrlHandler(u"https"_s);
    }

public Q_SLOTS:
    void countPage(const QUrl &) { ++m_pages; }

private:
    static void hold(const QString &key)
    {
        QProcess::execute(u"xdotool"_s, { u"keydown"_s, key });
        QTest::qWait(400);
        QProcess::execute(u"xdotool"_s, { u"keyup"_s, key });
        QTest::qWait(100);
    }

    /// What happened since the window opened.
    QString deeds() const
    {
        const auto counted = [](qsizetype count, const QString &what) {
            return count == 0 ? QString()
                              : u"%1 %2"_s.arg(count).arg(what) + (count > 1 ? u"s"_s : QString());
        };
        const auto isPopUp = [](QQuickItem *shown) { return shown->inherits("QQuickPopupItem"); };
        const auto open = TestWindow::itemsIn(m_window->window()->contentItem(), isPopUp).size();
        QStringList deeds = { counted(m_pages, u"page"_s),
                              open > 0 ? u"%1 open"_s.arg(open) : QString(),
                              counted(questions().size(), u"question"_s),
                              m_window->viewModel()->originCode() };
        deeds.removeAll(QString());
        deeds.removeAll(u"IST"_s);
        return deeds.join(u", "_s);
    }

    int m_pages = 0;
};

QTEST_MAIN(HeldKeysTest)
#include "HeldKeysTest.moc"
