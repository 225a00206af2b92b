#pragma once

#include "inspect/WindowDriver.h"

#include <QDeadlineTimer>
#include <QElapsedTimer>
#include <QImage>

#include <chrono>
#include <functional>

/// Drives the application's window for a scene: what a user could do, and waiting.
class Stage : public WindowDriver
{
public:
    /// Everything together may take `timeout`.
    Stage(QQuickWindow *window, std::chrono::milliseconds timeout);

    /// Runs the event loop until the condition holds; false when the time is over.
    bool waitUntil(const std::function<bool()> &condition) const;
    /// Waits until the window has drawn nothing for a while: every animation has ended.
    bool waitUntilStill();
    /// Waits until no search is running.
    bool waitForSearch() const
    {
        return WindowDriver::waitForSearch(std::chrono::milliseconds(m_deadline.remainingTime()));
    }

    /// Presses the visible item of this name. False when there is none.
    bool press(const QString &objectName) const { return pressAccessibly(named(objectName)); }
    /// The same for what assistive technology calls so.
    bool pressCalled(const QString &name) const { return pressAccessibly(called(name)); }
    /// Scrolls the window's page until the item begins at its top. False when there is no such
    /// item.
    bool scrollTo(const QString &objectName) const;

    QImage picture() const { return m_window->grabWindow(); }

private:
    QDeadlineTimer m_deadline;
    QElapsedTimer m_lastFrame;
};
