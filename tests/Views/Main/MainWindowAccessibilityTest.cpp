#include "support/WindowTesting.h"

using namespace Qt::StringLiterals;

namespace {

/// What assistive technology would miss in the window's controls, and how many buttons it finds.
std::pair<QStringList, int> survey(const TestWindow &window)
{
    QStringList faults;
    int buttons = 0;
    TestWindow::itemsIn(window.window()->contentItem(), [&](QQuickItem *item) {
        QAccessibleInterface *node = accessible(item);
        // Qt calls every text focusable.
        const bool isControl =
            node && node->state().focusable && node->role() != QAccessible::StaticText;
        if (!isControl && !item->activeFocusOnTab())
            return false;
        const QString type = QString::fromLatin1(item->metaObject()->className());
        if (!node || node->role() == QAccessible::NoRole || !node->state().focusable)
            faults.append(u"no role, or not focusable: "_s + type);
        else if (node->text(QAccessible::Name).isEmpty())
            faults.append(u"no name: "_s + type);
        const bool isButton = node
            && (node->role() == QAccessible::Button || node->role() == QAccessible::RadioButton);
        buttons += isButton;
        if (isButton
            && !node->actionInterface()->actionNames().contains(
                QAccessibleActionInterface::pressAction()))
            faults.append(u"no press action: "_s + type);
        return false;
    });
    return { faults, buttons };
}

} // namespace

/// The window without eyes and without a mouse.
class MainWindowAccessibilityTest : public WindowTest
{
    Q_OBJECT

private Q_SLOTS:
    void everyControlHasRoleNameAndAction_data()
    {
        QTest::addColumn<QString>("opener"); // of the sheet
        QTest::addColumn<QByteArray>("content"); // that shows then
        QTest::newRow("main window") << QString() << QByteArray("CalendarBarColumn");
        QTest::newRow("picker") << u"destinationButton"_s << QByteArray("AirportRowView");
        QTest::newRow("status") << u"flightStatusButton"_s << QByteArray("FlightStatusContent");
        QTest::newRow("guide") << u"cityGuideButton"_s << QByteArray("CityGuideContent");
    }
    void everyControlHasRoleNameAndAction()
    {
        QFETCH(QString, opener);
        QFETCH(QByteArray, content);
        QTRY_COMPARE(m_window->itemsOfType("CalendarBarColumn").size(), 14);
        QTRY_COMPARE(m_window->itemsOfType("FlightCardView").size(), 3);
        if (!opener.isEmpty())
            pressAccessibly(m_window->named(opener));
        QTRY_VERIFY(!m_window->itemsOfType(content).isEmpty());
        const auto [faults, buttons] = survey(*m_window);
        QCOMPARE(faults.join(u"; "_s), QString());
        QVERIFY2(buttons > 14 + 3, qPrintable(QString::number(buttons)));
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
        // The rows of days, the chips and the cards are one stop each.
        QVERIFY2(visited.size() < 30, qPrintable(QString::number(visited.size())));
        QVERIFY(types.contains({ u"HeaderButton"_s, u"CalendarBarColumn"_s, u"CalendarTileView"_s,
                                 u"FlightCardView"_s }));

        // And back again by the same way.
        while (!visited.isEmpty()) {
            m_window->key(Qt::Key_Backtab, Qt::ShiftModifier);
            QCOMPARE(m_window->focused(), visited.takeLast());
        }
    }
};

QTEST_MAIN(MainWindowAccessibilityTest)
#include "MainWindowAccessibilityTest.moc"
