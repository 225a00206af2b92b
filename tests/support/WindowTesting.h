#pragma once

#include "inspect/WindowDriver.h"
#include "support/ClientTesting.h"
#include "support/ToolAnswers.h"

#include <QQmlApplicationEngine>

#include <memory>

QString accessibleName(QQuickItem *item);

/// Once in a test program, before its first window.
void prepareWindows();

/// A window under a user's hands and eyes. It has the keyboard.
class TestWindow : public WindowDriver
{
public:
    /// The real window. It starts its first search at once.
    TestWindow();
    /// A window of 900 × 700 with the id `page` that holds nothing but these controls, in QML.
    explicit TestWindow(const QByteArray &controls);

    /// Starts a search and waits for its end.
    bool search() const;
    QVariant state(const char *property) const { return m_window->property(property); }

    /// All visible items whose QML type is `type`.
    QList<QQuickItem *> itemsOfType(const QByteArray &type) const;
    /// The visible item that assistive technology knows by this name.
    QQuickItem *called(const QString &name) const;
    /// What assistive technology comes upon under this name from the window down; null when
    /// nothing.
    QAccessibleInterface *told(const QString &name) const;
    /// Every text that is seen below the item, one after the other with | between them.
    static QString textIn(QQuickItem *root);
    /// What `textIn` gives for the item of this name; empty when there is no such item.
    QString textOf(const QString &objectName) const;
    /// The texts below the item that leave it or cover one another.
    static QStringList misplacedTexts(QQuickItem *root);

    QQuickItem *focused() const { return m_window->activeFocusItem(); }
    QString focusedName() const { return accessibleName(focused()); }
    void focus(const QString &objectName) const;
    void click(QQuickItem *item) const;
    /// Puts every item in its place, as the next frame would.
    void layOut() const { m_window->grabWindow(); }

    QObject *sheet(const QString &name) const { return m_window->findChild<QObject *>(name); }
    /// Clicks the button and waits until the sheet stands still.
    bool open(const QString &button, const QString &sheetName) const;
    /// Presses Escape and waits until the sheet has gone.
    bool close(const QString &sheetName) const;
    bool isOpen(const QString &sheetName) const;
    bool isGone(const QString &sheetName) const;
    /// The state object of the sheet that is open.
    template<typename State>
    State *stateOf(const QString &sheetName) const
    {
        auto *body = sheet(sheetName)->property("body").value<QQuickItem *>();
        return body ? body->property("viewModel").value<State *>() : nullptr;
    }

private:
    void activate();

    QQmlApplicationEngine m_engine;
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
