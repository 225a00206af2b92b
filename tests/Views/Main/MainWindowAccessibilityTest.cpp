#include "support/WindowTesting.h"

#include <QDesktopServices>

using namespace Qt::StringLiterals;

namespace {

void focusAccessibly(QAccessibleInterface *node)
{
    node->actionInterface()->doAction(QAccessibleActionInterface::setFocusAction());
}

} // namespace

/// The window without eyes and without a mouse. What is said by itself, and what every control and
/// panel tells, tools/walk-screen-reader tries: this platform sends no events.
class MainWindowAccessibilityTest : public WindowTest
{
    Q_OBJECT

private Q_SLOTS:
    void aSheetHidesWhatLiesBehind()
    {
        const QString route = u"IST → JFK uçuşlarını ara"_s;
        QAccessibleInterface *button = m_window->told(route);
        QVERIFY(button && m_window->told(u"Yardım"_s));
        QTRY_VERIFY(m_window->told(u"4 Ara Cuma, 4300 TRY"_s));
        QAccessibleInterface *day = m_window->told(u"4 Ara Cuma, 4300 TRY"_s);
        pressAccessibly(m_window->named(u"flightStatusButton"_s));
        QAccessibleInterface *dialog = m_window->told(u"Canlı Uçuş Durumu Takibi"_s);
        QVERIFY(dialog && dialog->state().modal);
        QVERIFY(!m_window->told(route) && !m_window->told(u"Yardım"_s));
        // Who still holds on to them cannot press them.
        pressAccessibly(button);
        pressAccessibly(day);
        QVERIFY(m_window->waitForSearch());
        QCOMPARE(questions().size(), 0);

        // A menu over the sheet hides the sheet.
        pressAccessibly(m_window->told(u"Uçuş günü"_s));
        QTRY_VERIFY(m_window->told(u"Takvim"_s));
        QVERIFY(!m_window->told(u"Sorgula"_s));
        m_window->key(Qt::Key_Escape);
        QTRY_VERIFY(m_window->told(u"Sorgula"_s));
        m_window->key(Qt::Key_Escape);
        QTRY_VERIFY(m_window->told(route));
        pressAccessibly(button);
        QVERIFY(m_window->waitForSearch());
        QCOMPARE(questions().size(), 2);
    }

    void listsTellAllTheirRows()
    {
        m_answers.insert(flightsTool, flightsAnswer(1000));
        m_window->viewModel()->startSearchAll();
        QVERIFY(m_window->waitForSearch());
        QTRY_VERIFY(m_window->told(u"Uçuşlar"_s));
        QAccessibleInterface *flights = m_window->told(u"Uçuşlar"_s);
        QTRY_COMPARE(flights->childCount(), 1000);
        QVERIFY(m_window->itemsOfType("FlightCardView").size() < 40);
        QAccessibleInterface *last = flights->child(999);
        QVERIFY(last->text(QAccessible::Name).startsWith(u"VQ1099"));
        QCOMPARE(last->role(), QAccessible::ListItem);
        QCOMPARE(flights->indexOfChild(last), 999);

        // The arrows go on from where assistive technology went.
        focusAccessibly(flights->child(500));
        QVERIFY(flights->child(500)->state().focused);
        m_window->key(Qt::Key_Down);
        QVERIFY(flights->child(501)->state().focused);
        QDesktopServices::setUrlHandler(u"https"_s, this, "rememberUrl");
        pressAccessibly(last);
        QDesktopServices::unsetUrlHandler(u"https"_s);
        QCOMPARE(m_opened.scheme(), u"https"_s);

        // Days in their order, once.
        QTRY_VERIFY(m_window->told(u"Günler"_s));
        QAccessibleInterface *days = m_window->told(u"Günler"_s);
        QCOMPARE(days->childCount(), 14);
        focusAccessibly(days->child(3));
        m_window->key(Qt::Key_Right);
        QVERIFY(m_window->told(u"5 Ara Cumartesi, 4400 TRY"_s)->state().focused);
        pressAccessibly(days->child(3));
        QCOMPARE(m_window->viewModel()->selectedDate(), u"2026-12-04"_s);
        QVERIFY(days->child(3)->state().selected);
        QVERIFY(m_window->waitForSearch());
    }

    void thePickerTellsWhatIsTypedAndMarked()
    {
        pressAccessibly(m_window->named(u"destinationButton"_s));
        QTRY_COMPARE(m_window->focusedName(), u"Havalimanı ara"_s);
        QAccessibleInterface *rows = m_window->told(u"Havalimanları"_s);
        QCOMPARE(rows->childCount(), 121);
        m_window->type(u"lon"_s);
        QAccessibleInterface *field = accessible(m_window->focused());
        QCOMPARE(field->textInterface()->text(0, 3), u"lon"_s);
        m_window->key(Qt::Key_Down);
        QVERIFY(rows->child(1)->state().focused);
        m_window->key(Qt::Key_Backspace);
        QVERIFY(field->state().focused && !rows->child(0)->state().focused);
        focusAccessibly(rows->child(0));
        QVERIFY(rows->child(0)->state().focused);
        pressAccessibly(rows->child(1));
        QVERIFY(m_window->viewModel()->destinationCode() != u"LHR");
        QTRY_VERIFY(!m_window->named(u"airportPicker"_s));
    }

    void tabReachesEveryControlOnceAndReturns()
    {
        QTRY_COMPARE(m_window->itemsOfType("FlightCardView").size(), 3);
        m_window->key(Qt::Key_Tab);
        QList<QQuickItem *> visited;
        QSet<QString> types;
        do {
            QQuickItem *item = m_window->focused();
            QVERIFY2(!visited.contains(item), "Tab comes to one control twice before it returns.");
            QVERIFY(item->isVisible() && item->isEnabled());
            visited.append(item);
            const QString type = QString::fromLatin1(item->metaObject()->className());
            types.insert(type.section(u"_QMLTYPE"_s, 0, 0));
            m_window->key(Qt::Key_Tab);
        } while (m_window->focused() != visited.constFirst());
        // The days, the chips and the cards are one stop each.
        QVERIFY2(visited.size() < 30, qPrintable(QString::number(visited.size())));
        QVERIFY(types.contains({ u"HeaderButton"_s, u"SpokenList"_s, u"FlightCardView"_s }));

        // And back again by the same way.
        while (!visited.isEmpty()) {
            m_window->key(Qt::Key_Backtab, Qt::ShiftModifier);
            QCOMPARE(m_window->focused(), visited.takeLast());
        }
    }

public Q_SLOTS:
    void rememberUrl(const QUrl &url) { m_opened = url; }

private:
    QUrl m_opened;
};

QTEST_MAIN(MainWindowAccessibilityTest)
#include "MainWindowAccessibilityTest.moc"
