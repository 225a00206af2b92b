#pragma once

#include "ViewModels/FlightSearchViewModel.h"

#include <QAccessible>
#include <QQuickItem>
#include <QQuickWindow>

#include <chrono>
#include <functional>

inline QAccessibleInterface *accessible(QQuickItem *item)
{
    return QAccessible::queryAccessibleInterface(item);
}

QString accessibleName(QQuickItem *item);

/// Whether the item draws a text; a symbol is none.
bool isText(QQuickItem *item);
/// The text as it is drawn but for its end, which may be elided; empty for another item.
QString drawnText(QQuickItem *item);

/// Presses it as assistive technology does. False when there is nothing to press.
bool pressAccessibly(QQuickItem *item);
bool pressAccessibly(QAccessibleInterface *node);

/// Drives the application's window as a user would, for tests and for the inspection tool.
class WindowDriver
{
public:
    explicit WindowDriver(QQuickWindow *window = nullptr)
        : m_window(window)
    { }

    QQuickWindow *window() const { return m_window; }
    FlightSearchViewModel *viewModel() const;
    bool isSearching() const
    {
        return viewModel()->isLoading() || viewModel()->isSearchingFlightsOnly();
    }
    /// Runs the event loop until no search is running; false when the time is over.
    bool waitForSearch(std::chrono::milliseconds time = std::chrono::seconds(30)) const;

    using Condition = std::function<bool(QQuickItem *)>;
    /// All visible items below `root` for which `isWanted` holds, in tree order.
    static QList<QQuickItem *> itemsIn(QQuickItem *root, const Condition &isWanted);
    /// The visible item of this object name; null when there is none.
    QQuickItem *named(const QString &objectName) const;
    /// The visible item that assistive technology knows by this name; null when there is none.
    QQuickItem *called(const QString &name) const;
    /// The first visible item that shows this text and nothing else, of the sheet or menu on top if
    /// there is one; null when there is none.
    QQuickItem *saying(const QString &text) const;

    void click(QQuickItem *item) const;
    void key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const;
    void type(const QString &text) const;

protected:
    QQuickWindow *m_window;
};
