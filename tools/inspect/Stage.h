#pragma once

#include "ViewModels/FlightSearchViewModel.h"

#include <QElapsedTimer>
#include <QImage>
#include <QQuickItem>
#include <QQuickWindow>

#include <functional>

/// The window of the application under the hand of a scene: what a user could do, and waiting.
class Stage
{
public:
    /// Everything together may take `timeout`.
    Stage(QQuickWindow *window, std::chrono::milliseconds timeout);

    QQuickWindow *window() const { return m_window; }
    FlightSearchViewModel *viewModel() const { return m_viewModel; }

    /// Runs the event loop until the condition holds; false when the time is over.
    bool waitUntil(const std::function<bool()> &condition);
    /// Waits until the window has drawn nothing for a while: every animation has ended.
    bool waitUntilStill();
    /// Waits until no search is running.
    bool waitForSearch();

    /// The visible item with this object name; null when there is none.
    QQuickItem *item(const QString &objectName) const;
    /// Presses the item as assistive technology does. False when there is no such item.
    bool press(const QString &objectName);
    /// Scrolls the window's page until the item begins at its top. False when there is no such
    /// item.
    bool scrollTo(const QString &objectName);
    void pressKey(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    void type(const QString &text);

    QImage picture() const { return m_window->grabWindow(); }

private:
    QQuickWindow *m_window;
    FlightSearchViewModel *m_viewModel;
    QElapsedTimer m_clock;
    QElapsedTimer m_lastFrame;
    qint64 m_timeout;
};
