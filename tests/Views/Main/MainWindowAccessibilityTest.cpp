#include "Views/Foundation/SearchChoices.h"
#include "support/WindowTesting.h"

#include <QAccessible>

using namespace Qt::StringLiterals;

/// The window without eyes and without a mouse.
class MainWindowAccessibilityTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void everyControlHasRoleNameAndAction();
    void pickerHasRolesNamesAndActions();
    void tabReachesEveryControlOnceAndReturns();
    void errorsAndLoadingAreNamed();
};

namespace {

void visit(QAccessibleInterface *node, const std::function<void(QAccessibleInterface *)> &look)
{
    if (!node || node->state().invisible)
        return;
    look(node);
    for (int i = 0; i < node->childCount(); ++i)
        visit(node->child(i), look);
}

QString describe(QAccessibleInterface *node)
{
    return u"%1 \"%2\" (%3)"_s.arg(QString::number(node->role()), node->text(QAccessible::Name),
                                   QString::fromLatin1(node->object()->metaObject()->className()));
}

/// What a focusable node lacks, by node; `buttons` becomes the number of buttons.
QStringList faultsOf(const TestWindow &window, int &buttons)
{
    QStringList faults;
    visit(QAccessible::queryAccessibleInterface(window.window()), [&](QAccessibleInterface *node) {
        if (!node->state().focusable || node->role() == QAccessible::Window)
            return;
        if (node->role() == QAccessible::NoRole || node->text(QAccessible::Name).isEmpty())
            faults.append(u"no role or name: "_s + describe(node));
        if (node->role() != QAccessible::Button)
            return;
        ++buttons;
        auto *action = node->actionInterface();
        if (!action || !action->actionNames().contains(QAccessibleActionInterface::pressAction()))
            faults.append(u"no press action: "_s + describe(node));
    });
    return faults;
}

void serveResults(ScriptedServer &server)
{
    server.onToolCall = [](const ReceivedRequest &request) {
        return ScriptedAnswer::content(request.tool() == u"search_flights" ? flightsContent(3)
                                                                           : calendarContent(14));
    };
}

} // namespace

void MainWindowAccessibilityTest::initTestCase()
{
    QAccessible::setActive(true);
    prepareApplication();
}

void MainWindowAccessibilityTest::everyControlHasRoleNameAndAction()
{
    ScriptedServer server;
    serveResults(server);
    const TestWindow window(server);
    QVERIFY(window.waitForSearch());
    QTRY_COMPARE(window.itemsOfType("FlightCardView").size(), 3);

    QTRY_COMPARE(window.itemsOfType("CalendarBarColumn").size(), 14);
    int buttons = 0;
    const QStringList faults = faultsOf(window, buttons);
    QCOMPARE(faults, QStringList());
    QVERIFY2(buttons > 14 + 3, qPrintable(QString::number(buttons)));

    const QList<QQuickItem *> choices = window.itemsOfType("ChoiceButton");
    QVERIFY(choices.size() >= SearchChoices().sortOptions().size());
    for (QQuickItem *choice : choices)
        QCOMPARE(QAccessible::queryAccessibleInterface(choice)->role(), QAccessible::RadioButton);

    QQuickItem *bar = window.itemsOfType("CalendarBarColumn").at(3);
    QAccessibleInterface *node = QAccessible::queryAccessibleInterface(bar);
    QCOMPARE(node->text(QAccessible::Name), u"4 Ara Cuma, 4300 TRY"_s);
    node->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    QCOMPARE(window.viewModel()->selectedDate(), u"2026-12-04"_s);
    QVERIFY(node->state().selected);
}

void MainWindowAccessibilityTest::pickerHasRolesNamesAndActions()
{
    ScriptedServer server;
    serveResults(server);
    const TestWindow window(server);
    QVERIFY(window.waitForSearch());
    const auto press = [](QQuickItem *item) {
        QAccessible::queryAccessibleInterface(item)->actionInterface()->doAction(
            QAccessibleActionInterface::pressAction());
    };
    press(window.itemsOfType("AirportButton").constLast());
    QTRY_VERIFY(window.itemsOfType("AirportRowView").size() > 5);
    int buttons = 0;
    QCOMPARE(faultsOf(window, buttons), QStringList());

    QQuickItem *row = nullptr;
    for (QQuickItem *candidate : window.itemsOfType("AirportRowView")) {
        if (!candidate->property("isSelected").toBool())
            row = candidate;
    }
    const QString code = row->property("airport").value<Airport>().code;
    QVERIFY(QAccessible::queryAccessibleInterface(row)->text(QAccessible::Name).startsWith(code));
    press(row);
    QCOMPARE(window.viewModel()->destinationCode(), code);
    QTRY_VERIFY(window.itemsOfType("AirportRowView").isEmpty());
}

void MainWindowAccessibilityTest::tabReachesEveryControlOnceAndReturns()
{
    ScriptedServer server;
    serveResults(server);
    const TestWindow window(server);
    QVERIFY(window.waitForSearch());
    QTRY_COMPARE(window.itemsOfType("FlightCardView").size(), 3);
    window.window()->requestActivate();
    QVERIFY(QTest::qWaitForWindowActive(window.window()));

    QTest::keyClick(window.window(), Qt::Key_Tab);
    QQuickItem *first = window.window()->activeFocusItem();
    QList<QQuickItem *> visited;
    for (QQuickItem *item = first; visited.isEmpty() || item != first;) {
        QVERIFY2(!visited.contains(item), "Tab comes to one control twice before it returns.");
        QVERIFY(item->isVisible() && item->isEnabled());
        visited.append(item);
        QVERIFY(visited.size() < 100);
        QTest::keyClick(window.window(), Qt::Key_Tab);
        item = window.window()->activeFocusItem();
    }
    // The rows of days, the chips and the cards are one stop each.
    QVERIFY2(visited.size() < 30, qPrintable(QString::number(visited.size())));
    QSet<QString> types;
    for (QQuickItem *item : std::as_const(visited))
        types.insert(
            QString::fromLatin1(item->metaObject()->className()).section(u"_QMLTYPE"_s, 0, 0));
    for (const char *type :
         { "HeaderButton", "CalendarBarColumn", "CalendarTileView", "FlightCardView" })
        QVERIFY2(types.contains(QString::fromLatin1(type)), type);

    // And back again by the same way.
    for (qsizetype i = visited.size() - 1; i >= 0; --i) {
        QTest::keyClick(window.window(), Qt::Key_Backtab, Qt::ShiftModifier);
        QCOMPARE(window.window()->activeFocusItem(), visited.at(i));
    }
}

void MainWindowAccessibilityTest::errorsAndLoadingAreNamed()
{
    ScriptedServer server;
    server.onToolCall = [](const ReceivedRequest &) {
        return ScriptedAnswer::closedWithoutAnswer();
    };
    const TestWindow window(server);
    QVERIFY(window.waitForSearch());
    QTRY_COMPARE(window.itemsOfType("ErrorBanner").size(), 1);
    QAccessibleInterface *banner =
        QAccessible::queryAccessibleInterface(window.itemsOfType("ErrorBanner").constFirst());
    QCOMPARE(banner->role(), QAccessible::AlertMessage);
    QVERIFY(banner->text(QAccessible::Name).startsWith(u"Uçuş bilgileri alınırken hata oluştu: "));

    server.onToolCall = [](const ReceivedRequest &) { return ScriptedAnswer::silence(); };
    window.viewModel()->startSearchAll();
    QTRY_COMPARE(window.itemsOfType("LoadingPanel").size(), 1);
    QAccessibleInterface *loading =
        QAccessible::queryAccessibleInterface(window.itemsOfType("LoadingPanel").constFirst());
    QCOMPARE(loading->text(QAccessible::Name), u"Uçuşlar yükleniyor..."_s);
}

QTEST_MAIN(MainWindowAccessibilityTest)
#include "MainWindowAccessibilityTest.moc"
