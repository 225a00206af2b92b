#pragma once

#include "inspect/WindowDriver.h"
#include "support/ClientTesting.h"
#include "support/ToolAnswers.h"

#include <QQmlApplicationEngine>

#include <memory>

/// Moves the keyboard there as assistive technology does.
void focusAccessibly(QAccessibleInterface *node);

/// A window that a test uses as a user would. It has the keyboard. A test that has one fails when
/// Qt or QML warns of anything.
class TestWindow : public WindowDriver
{
public:
    /// A window of 900 × 700 with the id `page` that holds nothing but these controls, in QML;
    /// without any the real window, which starts its first search at once.
    explicit TestWindow(const QByteArray &controls = {});

    QVariant state(const char *property) const { return m_window->property(property); }

    /// All visible items whose QML type is `type`.
    QList<QQuickItem *> itemsOfType(const QByteArray &type) const;
    qsizetype count(const QByteArray &type) const { return itemsOfType(type).size(); }
    /// The visible item of this object name, or else the first of this QML type; null when there
    /// is neither.
    QQuickItem *item(const QString &name) const;
    /// What assistive technology comes upon under this name from the window down; null when
    /// nothing.
    QAccessibleInterface *told(const QString &name) const;
    /// Every text that is seen below the item, one after the other with | between them; empty when
    /// there is no such item.
    static QString textIn(QQuickItem *root);
    QString textOf(const QString &objectName) const { return textIn(named(objectName)); }

    QQuickItem *focused() const { return m_window->activeFocusItem(); }
    QString focusedName() const { return accessibleName(focused()); }
    /// Gives it the keyboard, as the Tab key would. `name` is as in `item`.
    void focus(const QString &name) const;
    /// Presses one key after the other, as in "Home Right Shift+Backtab"; first focuses the item if
    /// one is given.
    void press(const char *keys, const QString &item = {}) const;
    /// Moves the mouse that far with its left button down.
    void drag(const QPoint &from, const QPoint &distance) const;
    /// Puts every item in its place, as the next frame would.
    void layOut() const { m_window->grabWindow(); }

    /// Clicks the button and waits until the sheet stands still.
    bool open(const QString &button, const QString &sheetName) const;
    /// Presses Escape and waits until the sheet has gone.
    bool close(const QString &sheetName) const;
    bool isOpen(const QString &name) const
    {
        return sheet(name) && sheet(name)->property("opened").toBool();
    }
    bool isGone(const QString &name) const { return !sheet(name); }

private:
    QObject *sheet(const QString &name) const { return m_window->findChild<QObject *>(name); }

    QQmlApplicationEngine m_engine;
};

/// A test class in which each test has a window of its own, on a scripted server, as it stands
/// after its first search for 14 days and 3 flights.
class WindowTest : public ClientTest
{
    Q_OBJECT

protected Q_SLOTS:
    void init();
    void cleanup();
    void rememberLink(const QUrl &link) { m_opened.append(link.toString()); }

protected:
    /// Starts a search that these flights answer, and waits for its end.
    void find(const ScriptedAnswer &flights);
    /// The calendar slides in; a click during that would miss.
    void waitForTheCalendar() const;
    /// How far the page is scrolled.
    qreal place() const
    {
        return m_window->named(QStringLiteral("page"))->property("contentY").toReal();
    }
    /// The calls after those of the first search.
    QList<ReceivedRequest> questions() const { return m_server->toolCalls().sliced(2); }

    std::unique_ptr<TestWindow> m_window;
    /// The links that were opened.
    QStringList m_opened;
};
