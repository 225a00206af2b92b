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
        // Pages opened, pop-ups open, questions asked, the airport of departure.
        QTest::addColumn<QString>("afterOneHold");
        QTest::addColumn<QString>("afterTwo");
        const auto add = [](const char *keyAndControl, const QString &afterOneHold,
                            const QString &afterTwo = u"0 0 0 IST"_s) {
            QTest::newRow(keyAndControl) << afterOneHold << afterTwo;
        };
        add("Return FlightList", u"1 0 0 IST"_s, u"2 0 0 IST"_s);
        add("space FlightList", u"1 0 0 IST"_s, u"2 0 0 IST"_s);
        add("Return AccessibleList", u"0 0 1 IST"_s, u"0 0 2 IST"_s);
        add("space AccessibleList", u"0 0 1 IST"_s, u"0 0 2 IST"_s);
        add("Return cabinClass", u"0 1 0 IST"_s);
        add("Return departureDate", u"0 1 0 IST"_s);
        add("Return QuickRouteButton", u"0 0 2 IST"_s, u"0 0 4 IST"_s);
        add("space searchButton", u"0 0 2 IST"_s, u"0 0 4 IST"_s);
        add("space swapButton", u"0 0 0 LHR"_s);
        add("Return originButton", u"0 1 0 IST"_s);
        add("Return flightStatusButton", u"0 1 0 VQ1983"_s, u"0 1 1 VQ1983"_s);
        // The number is in a field that has the keyboard then: a new press types.
        add("space flightStatusButton", u"0 1 0 VQ1983"_s, u"0 1 0 IST"_s);
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
            QTRY_COMPARE(outcome(), expected);
            if (!m_opened.isEmpty())
                QTest::qWait(1000); // a page opens once in a second
        }
    }

private:
    /// What happened since the window opened: pages, pop-ups that are open, questions; then what is
    /// typed into the field with the keyboard, or where the flights leave from.
    QString outcome() const
    {
        const auto isPopUp = [](QQuickItem *shown) {
            return shown->inherits("QQuickPopupItem")
                && shown->parent()->property("modal").toBool();
        };
        const auto open = TestWindow::itemsIn(m_window->window()->contentItem(), isPopUp).size();
        const QQuickItem *keyboard = m_window->window()->activeFocusItem();
        const QString typed = keyboard->inherits("QQuickTextField")
            ? keyboard->property("text").toString().trimmed()
            : QString();
        return u"%1 %2 %3 %4"_s.arg(m_opened.size())
            .arg(open)
            .arg(questions().size())
            .arg(typed.isEmpty() ? m_window->viewModel()->originCode() : typed);
    }
};

QTEST_MAIN(HeldKeysTest)
#include "HeldKeysTest.moc"
