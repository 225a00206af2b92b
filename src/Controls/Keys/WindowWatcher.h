#pragma once

#include <QPointer>
#include <QQmlEngine>
#include <QQuickWindow>

/// Sees every event of one window before the window does.
class WindowWatcher : public QObject
{
    Q_OBJECT
    QML_ANONYMOUS
    /// Set once.
    Q_PROPERTY(QQuickWindow *window READ window WRITE setWindow NOTIFY windowChanged REQUIRED)

public:
    using QObject::QObject;

    QQuickWindow *window() const { return m_window; }
    void setWindow(QQuickWindow *window)
    {
        if (m_window == window || !window)
            return;
        m_window = window;
        m_window->installEventFilter(this);
        Q_EMIT windowChanged();
    }

Q_SIGNALS:
    void windowChanged();

private:
    QPointer<QQuickWindow> m_window;
};
