#pragma once

#include "ViewModels/FlightSearchViewModel.h"
#include "support/ClientTesting.h"
#include "support/ToolAnswers.h"

#include <QAccessible>
#include <QQmlApplicationEngine>
#include <QQuickItem>
#include <QQuickWindow>

#include <functional>

inline QAccessibleInterface *accessible(QQuickItem *item)
{
    return QAccessible::queryAccessibleInterface(item);
}

QString accessibleName(QQuickItem *item);
void pressAccessibly(QQuickItem *item);

/// Once in a test program, before its first window.
void prepareWindows();

/// A window under a user's hands and eyes.
class TestWindow
{
public:
    /// The real window. It starts its first search at once.
    TestWindow();
    /// A window of 900 × 700 with the id `page` that holds nothing but these controls, in QML.
    explicit TestWindow(const QByteArray &controls);

    /// Whether it is loaded and has the keyboard.
    bool isReady() const { return m_isReady; }
    QQuickWindow *window() const { return m_window; }
    QVariant state(const char *property) const { return m_window->property(property); }
    FlightSearchViewModel *viewModel() const;
    /// Waits for the end of the search under way; false after the time limit.
    bool waitForSearch() const;

    using Condition = std::function<bool(QQuickItem *)>;
    /// All visible items below `root` for which `isWanted` holds, in tree order.
    static QList<QQuickItem *> itemsIn(QQuickItem *root, const Condition &isWanted);
    /// All visible items whose QML type is `type`.
    QList<QQuickItem *> itemsOfType(const QByteArray &type) const;
    /// The visible item of this object name; null when there is none.
    QQuickItem *named(const QString &objectName) const;
    /// The visible item that assistive technology knows by this name.
    QQuickItem *called(const QString &name) const;
    /// Every text that is seen below the item, one after the other with | between them.
    static QString textIn(QQuickItem *root);

    QQuickItem *focused() const { return m_window->activeFocusItem(); }
    QString focusedName() const { return accessibleName(focused()); }
    void focus(const QString &objectName) const;
    void key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const;
    void type(const QString &text) const;
    void click(QQuickItem *item) const;
    /// Puts every item in its place, as the next frame would.
    void layOut() const { m_window->grabWindow(); }

    QObject *sheet(const QString &name) const { return m_window->findChild<QObject *>(name); }
    bool isOpen(const QString &sheetName) const;
    bool isGone(const QString &sheetName) const;
    /// The state object of the sheet that is open, which its content has under `property`.
    template<typename State>
    State *stateOf(const QString &sheetName, const char *property) const
    {
        auto *body = sheet(sheetName)->property("body").value<QQuickItem *>();
        return body ? body->property(property).value<State *>() : nullptr;
    }

private:
    void activate();

    QQmlApplicationEngine m_engine;
    QQuickWindow *m_window = nullptr;
    bool m_isReady = false;
};

/// A test class in which each test has a window of its own, on a scripted server, as it stands
/// after its first search. A test fails when Qt or QML warns of anything.
class WindowTest : public ClientTest
{
    Q_OBJECT

protected Q_SLOTS:
    void initTestCase() { prepareWindows(); }
    void init();
    void cleanup();

protected:
    /// The calls after those of the first search.
    QList<ReceivedRequest> questions() const { return m_server->toolCalls().sliced(2); }

    /// What the server answers, by tool; at first 14 days and 3 flights. The others get `{}`.
    QHash<QString, ScriptedAnswer> m_answers;
    std::unique_ptr<TestWindow> m_window;
};

/// 14 days from 1 December 2026 on.
ScriptedAnswer calendarAnswer();
/// `count` flights; the dearer ones are the faster ones, and every one has `segments` segments.
ScriptedAnswer flightsAnswer(int count, int segments = 1);
