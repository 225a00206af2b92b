#include "support/WindowTesting.h"

#include "App/Application.h"

#include <QFont>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

QString accessibleName(QQuickItem *item)
{
    QAccessibleInterface *node = accessible(item);
    return node ? node->text(QAccessible::Name) : QString();
}

TestWindow::TestWindow()
{
    loadMainWindow(m_engine, u"Test"_s);
    activate();
    // High enough for the day tiles, which are clicked.
    m_window->resize(1280, 1200);
}

TestWindow::TestWindow(const QByteArray &controls)
{
    m_engine.addImportPath(u"qrc:/qt/qml"_s);
    m_engine.loadData("import QtQuick\nimport QtQuick.Controls.Basic\nimport Vantora\n"
                      "import Vantora.Controls\n"
                      "ApplicationWindow { id: page; width: 900; height: 700; visible: true\n"
                      "HeldKeys { window: page }\n"
                      + controls + "}");
    activate();
}

void TestWindow::activate()
{
    m_window = qobject_cast<QQuickWindow *>(m_engine.rootObjects().value(0));
    if (!m_window)
        qFatal("There is no window.");
    m_window->requestActivate();
    if (!QTest::qWaitForWindowActive(m_window))
        qFatal("The window has no keyboard.");
}

QList<QQuickItem *> TestWindow::itemsOfType(const QByteArray &type) const
{
    // QML types are named after their file and a number.
    return itemsIn(m_window->contentItem(), [&type](QQuickItem *item) {
        return QByteArray(item->metaObject()->className()).startsWith(type + "_QMLTYPE");
    });
}

QQuickItem *TestWindow::called(const QString &name) const
{
    return itemsIn(m_window->contentItem(),
                   [&name](QQuickItem *item) { return accessibleName(item) == name; })
        .value(0);
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
    itemsIn(root, [&texts](QQuickItem *item) {
        const bool isSymbol = item->property("font").value<QFont>().family().contains(u"Icons");
        if (item->inherits("QQuickText") && !isSymbol)
            texts.append(item->property("text").toString());
        return false;
    });
    return texts.join(u'|');
}

QString TestWindow::textOf(const QString &objectName) const
{
    QQuickItem *item = named(objectName);
    return item ? textIn(item) : QString();
}

QStringList TestWindow::misplacedTexts(QQuickItem *root)
{
    QStringList misplaced;
    const QRectF inside = root->boundingRect();
    QList<QRectF> places;
    for (QQuickItem *item :
         itemsIn(root, [](QQuickItem *item) { return item->inherits("QQuickText"); })) {
        const QRectF place = item->mapRectToItem(root, item->boundingRect());
        bool isClear = inside.contains(place);
        for (const QRectF &other : std::as_const(places)) {
            const QRectF common = place.intersected(other);
            isClear = isClear && (common.width() < 1 || common.height() < 1);
        }
        if (!isClear)
            misplaced.append(item->property("text").toString());
        places.append(place);
    }
    return misplaced;
}

bool TestWindow::search() const
{
    viewModel()->startSearchAll();
    return waitForSearch();
}

void TestWindow::focus(const QString &objectName) const
{
    QQuickItem *wanted = named(objectName);
    QVERIFY2(wanted, qPrintable(objectName));
    wanted->forceActiveFocus(Qt::TabFocusReason);
}

void TestWindow::click(QQuickItem *item) const
{
    const QPointF centre = item->mapToScene(QPointF(item->width() / 2, item->height() / 2));
    QTest::mouseClick(m_window, Qt::LeftButton, Qt::NoModifier, centre.toPoint());
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

bool TestWindow::isOpen(const QString &sheetName) const
{
    return sheet(sheetName)->property("opened").toBool();
}

bool TestWindow::isGone(const QString &sheetName) const
{
    return !sheet(sheetName)->property("visible").toBool();
}

void prepareWindows()
{
    QAccessible::setActive(true);
    prepareApplication();
}

void WindowTest::init()
{
    QTest::failOnWarning(QRegularExpression(u"."_s));
    ClientTest::init();
    m_answers = { { calendarTool, calendarAnswer() }, { flightsTool, flightsAnswer(3) } };
    m_server->onToolCall = [this](const ReceivedRequest &request) {
        return m_answers.value(request.tool(), ScriptedAnswer::content());
    };
    m_window = std::make_unique<TestWindow>();
    QVERIFY(m_window->waitForSearch());
}

void WindowTest::cleanup()
{
    m_window.reset();
    ClientTest::cleanup();
}

ScriptedAnswer calendarAnswer()
{
    QStringList days;
    for (int i = 0; i < 14; ++i)
        days.append(QDate(2026, 12, 1).addDays(i).toString(Qt::ISODate));
    return calendarAnswer(days);
}

ScriptedAnswer flightsAnswer(int count, int segments)
{
    QList<Offer> offers;
    for (int i = 0; i < count; ++i) {
        offers.append({ .number = u"VQ%1"_s.arg(100 + i),
                        .price = 4000.0 + i,
                        .minutes = 20'000 - i,
                        .segments = segments });
    }
    return flightsAnswer(offers);
}
