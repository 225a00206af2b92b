#include "support/WindowTesting.h"

#include "App/Application.h"

#include <QDesktopServices>
#include <QFont>
#include <QKeySequence>
#include <QRegularExpression>

#include <utility>

using namespace Qt::StringLiterals;

void focusAccessibly(QAccessibleInterface *node)
{
    node->actionInterface()->doAction(QAccessibleActionInterface::setFocusAction());
}

TestWindow::TestWindow(const QByteArray &controls)
{
    QTest::failOnWarning(QRegularExpression(u"."_s));
    if (static bool isFirst = true; std::exchange(isFirst, false)) {
        QAccessible::setActive(true);
        prepareApplication();
    }
    if (controls.isEmpty()) {
        m_window = loadMainWindow(m_engine, u"Test"_s);
    } else {
        m_engine.addImportPath(u"qrc:/qt/qml"_s);
        m_engine.loadData("import QtQuick\nimport Vantora\n"
                          "import Vantora.Controls\n"
                          "ApplicationWindow { id: page; width: 900; height: 700; visible: true\n"
                          + controls + "}");
        m_window = qobject_cast<QQuickWindow *>(m_engine.rootObjects().value(0));
    }
    if (!m_window)
        qFatal("There is no window.");
    m_window->requestActivate();
    if (!QTest::qWaitForWindowActive(m_window))
        qFatal("The window has no keyboard.");
    // High enough for the day tiles, which are clicked.
    if (controls.isEmpty())
        m_window->resize(1280, 1200);
}

QList<QQuickItem *> TestWindow::itemsOfType(const QByteArray &type) const
{
    // A class that QML makes has the name of its file, or of its base, and a number.
    return itemsIn(m_window->contentItem(), [&type](QQuickItem *item) {
        const QByteArray name = item->metaObject()->className();
        return name == type || name.startsWith(type + "_QML");
    });
}

QAccessibleInterface *TestWindow::told(const QString &name) const
{
    QList<QAccessibleInterface *> nodes { QAccessible::queryAccessibleInterface(m_window) };
    while (!nodes.isEmpty()) {
        QAccessibleInterface *node = nodes.takeFirst();
        if (node->text(QAccessible::Name) == name)
            return node;
        for (int i = 0; i < node->childCount(); ++i)
            nodes.append(node->child(i));
    }
    return nullptr;
}

QString TestWindow::textIn(QQuickItem *root)
{
    QStringList texts;
    const auto take = [&texts](QQuickItem *item) {
        if (isText(item))
            texts.append(drawnText(item));
        return false;
    };
    if (root)
        itemsIn(root, take);
    return texts.join(u'|');
}

QQuickItem *TestWindow::item(const QString &name) const
{
    QQuickItem *item = named(name);
    return item ? item : itemsOfType(name.toLatin1()).value(0);
}

void TestWindow::focus(const QString &name) const
{
    QQuickItem *wanted = item(name);
    QVERIFY2(wanted, qPrintable(name));
    wanted->forceActiveFocus(Qt::TabFocusReason);
}

void TestWindow::press(const char *keys, const QString &item) const
{
    if (!item.isEmpty())
        focus(item);
    const QStringList names = QString::fromLatin1(keys).split(u' ');
    for (const QString &name : names) {
        const QKeyCombination pressed = QKeySequence(name)[0];
        key(pressed.key(), pressed.keyboardModifiers());
    }
}

void TestWindow::drag(const QPoint &from, const QPoint &distance) const
{
    QTest::mousePress(m_window, Qt::LeftButton, {}, from);
    for (int step = 1; step <= 10; ++step)
        QTest::mouseMove(m_window, from + distance * step / 10);
    QTest::mouseRelease(m_window, Qt::LeftButton, {}, from + distance);
}

bool TestWindow::open(const QString &button, const QString &sheetName) const
{
    click(named(button));
    return QTest::qWaitFor([&] { return isOpen(sheetName); });
}

bool TestWindow::close(const QString &sheetName) const
{
    key(Qt::Key_Escape);
    return QTest::qWaitFor([&] { return isGone(sheetName); });
}

void WindowTest::init()
{
    ClientTest::init();
    QDesktopServices::setUrlHandler(u"https"_s, this, "rememberLink");
    m_opened.clear();
    m_answers = { { calendarTool, calendarAnswer() }, { flightsTool, flightsAnswer(3) } };
    m_window = std::make_unique<TestWindow>();
    QVERIFY(m_window->waitForSearch());
}

void WindowTest::cleanup()
{
    m_window.reset();
    QDesktopServices::unsetUrlHandler(u"https"_s);
    ClientTest::cleanup();
}

void WindowTest::find(const ScriptedAnswer &flights)
{
    m_answers.insert(flightsTool, flights);
    m_window->viewModel()->startSearchAll();
    QVERIFY(m_window->waitForSearch());
}

void WindowTest::waitForTheCalendar() const
{
    QTRY_VERIFY(m_window->item(u"fareChart"_s));
    QTRY_COMPARE(m_window->item(u"fareChart"_s)->property("openness"), 1.0);
}
