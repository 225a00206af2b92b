#pragma once

#include <QObject>
#include <QPointer>
#include <QQmlEngine>
#include <QQuickWindow>

/// Lets Tab go on from a control that was disabled while it had the keyboard, as a button that
/// starts something does. Qt gives the keyboard to the scope around it, and Tab would begin anew.
class TabOrder : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    /// The window whose keys are watched; set once.
    Q_PROPERTY(QQuickWindow *window READ window WRITE setWindow NOTIFY windowChanged REQUIRED)

public:
    using QObject::QObject;

    QQuickWindow *window() const { return m_window; }
    void setWindow(QQuickWindow *window);

Q_SIGNALS:
    void windowChanged();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QPointer<QQuickWindow> m_window;
};
