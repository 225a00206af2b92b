#pragma once

#include <QAccessible>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickWindow>

/// What assistive technology has of a window: the items with `Accessible` properties that are seen
/// and not ignored, each with an AccessibleItem. While sheets and menus are open, only what lies in
/// the one on top is there.
///
/// One is made before the items of the first window. It has this program's interfaces asked for
/// before those of Qt, which come with the import of QtQuick.
class AccessibleTree : public QObject
{
    Q_OBJECT
    QML_ELEMENT

public:
    explicit AccessibleTree(QObject *parent = nullptr);

    /// The item in which everything lies that a user can reach: that of the last modal popup, or
    /// the window's content. It is itself not in the tree.
    static QQuickItem *top(const QQuickWindow *window);
    /// Whether a user can reach the item: nothing modal lies over it.
    static bool isReachable(const QQuickItem *item);
    /// The nearest items of the tree below an item, in their order.
    static QList<QAccessibleInterface *> childrenOf(const QQuickItem *item);
    /// The nearest item of the tree above an item, or its window.
    static QAccessibleInterface *parentOf(const QQuickItem *item);
    static QRect screenRect(const QQuickItem *item);
    /// Whether an item is visible, on the screen and enabled.
    static QAccessible::State stateOf(const QQuickItem *item);
};
