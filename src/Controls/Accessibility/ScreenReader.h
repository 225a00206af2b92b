#pragma once

#include <QObject>
#include <QQmlEngine>
#include <QQuickItem>

/// What a screen reader is told beside the tree.
class ScreenReader : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

public:
    using QObject::QObject;

    /// Has the text read out, wherever the user is; for what happened and is seen on the screen.
    Q_INVOKABLE static void announce(const QString &text);
    /// Reports that the item has the focus, as after a menu of it has closed.
    Q_INVOKABLE static void focus(QQuickItem *item);
};
