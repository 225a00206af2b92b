#include "support/WindowTesting.h"

#include <QProcess>

using namespace Qt::StringLiterals;

/// Keys held down on a real display server, whose repeats are not always flagged as such.
class HeldKeysTest : public WindowTest
{
    Q_OBJECT

private Q_SLOTS:
    void actOnce_data()
    {
        QTest::addColumn<QString>("afterOneHold");
        QTest::addColumn<QString>("afterTwo");
        const auto add = [](const char *keyAndControl, const QString &afterOneHold,
                            const QString &afterTwo = {}) {
            QTest::newRow(keyAndControl) << afterOneHold << afterTwo;
        };
        add("Return FlightList", u"1 page"_s, u"2 pages"_s);
        add("space FlightList", u"1 page"_s, u"2 pages"_s);
        add("Return DayStrip", u"1 question"_s, u"2 questions"_s);
        add("space DayStrip", u"1 question"_s, u"2 questions"_s);
        add("Return cabinClass", u"1 open"_s);
        add("space cabinClass", u"1 open"_s);
        add("Return departureDate", u"1 open"_s);
        add("space departureDate", u"1 open"_s);
        add("Return QuickRouteButton", u"2 questions"_s, u"4 questions"_s);
        add("space searchButton", u"2 questions"_s, u"4 questions"_s);
        add("space swapButton", u"LHR"_s);
        add("Return originButton", u"1 open"_s);
        add("Return flightStatusButton", u"1 open"_s, u"1 open, 1 question"_s);
    }
    void actOnce()
    {
        QFETCH(const QString, afterOneHold);
        QFETCH(const QString, afterTwo);
        const QStringList keyAndControl = QString::fromUtf8(QTest::currentDataTag()).split(u' ');
        QTRY_VERIFY(m_window->item(keyAndControl.at(1)));
        m_window->focus(keyAndControl.at(1));
        for (const QString &expected : { afterOneHold, afterTwo }) {
            QProcess::execute(u"xdotool"_s, { u"keydown"_s, keyAndControl.at(0) });
            QTest::qWait(400);
            QProcess::execute(u"xdotool"_s, { u"keyup"_s, keyAndControl.at(0) });
            QTest::qWait(100);
            QTRY_COMPARE(deeds(), expected);
        }
    }

private:
    /// What happened since the window opened.
    QString deeds() const
    {
        const auto counted = [](qsizetype count, const QString &what) {
            return count == 0 ? QString()
                              : u"%1 %2"_s.arg(count).arg(what) + (count > 1 ? u"s"_s : QString());
        };
        const auto isPopUp = [](QQuickItem *shown) { return shown->inherits("QQuickPopupItem"); };
        const auto open = TestWindow::itemsIn(m_window->window()->contentItem(), isPopUp).size();
        QStringList deeds = { counted(m_opened.size(), u"page"_s),
                              open > 0 ? u"%1 open"_s.arg(open) : QString(),
                              counted(questions().size(), u"question"_s),
                              m_window->viewModel()->originCode() };
        deeds.removeAll(QString());
        deeds.removeAll(u"IST"_s);
        return deeds.join(u", "_s);
    }
};

QTEST_MAIN(HeldKeysTest)
#include "HeldKeysTest.moc"
