#pragma once

#include "support/WindowTesting.h"

#include <QAccessible>

/// A window with the controls of one test in it, which the test finds by their object names.
class ControlPage
{
public:
    /// `controls` is QML; it stands in a window of 900 × 700 whose id is `page`.
    explicit ControlPage(const QByteArray &controls)
    {
        m_engine.addImportPath(QStringLiteral("qrc:/qt/qml"));
        m_engine.loadData("import QtQuick\nimport QtQuick.Controls.Basic\nimport Vantora\n"
                          "ApplicationWindow { id: page; width: 900; height: 700; visible: true\n"
                          + controls + "}");
        if (m_engine.rootObjects().isEmpty())
            return;
        m_window = qobject_cast<QQuickWindow *>(m_engine.rootObjects().constFirst());
        m_window->requestActivate();
        m_isReady = QTest::qWaitForWindowActive(m_window);
    }

    bool isReady() const { return m_isReady; }
    QQuickWindow *window() const { return m_window; }
    /// A property of the window.
    QVariant state(const char *name) const { return m_window->property(name); }

    /// The item of this name, seen or not.
    QQuickItem *named(const QString &objectName) const
    {
        return find(m_window->contentItem(),
                    [&](QQuickItem *item) { return item->objectName() == objectName; });
    }
    /// The visible item that assistive technology knows by this name.
    QQuickItem *called(const QString &name) const
    {
        return find(m_window->contentItem(), [&](QQuickItem *item) {
            QAccessibleInterface *node = QAccessible::queryAccessibleInterface(item);
            return item->isVisible() && node && node->text(QAccessible::Name) == name;
        });
    }
    QQuickItem *focused() const { return m_window->activeFocusItem(); }
    QString focusedName() const
    {
        QAccessibleInterface *node = QAccessible::queryAccessibleInterface(focused());
        return node ? node->text(QAccessible::Name) : QString();
    }

    void key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const
    {
        QTest::keyClick(m_window, key, modifiers);
    }
    void click(QQuickItem *item) const
    {
        const QPointF centre = item->mapToScene(QPointF(item->width() / 2, item->height() / 2));
        QTest::mouseClick(m_window, Qt::LeftButton, Qt::NoModifier, centre.toPoint());
    }
    void focus(const QString &objectName) const
    {
        named(objectName)->forceActiveFocus(Qt::TabFocusReason);
    }

private:
    template<typename Wanted>
    static QQuickItem *find(QQuickItem *root, const Wanted &isWanted)
    {
        if (isWanted(root))
            return root;
        const auto children = root->childItems();
        for (QQuickItem *child : children) {
            if (QQuickItem *found = find(child, isWanted))
                return found;
        }
        return nullptr;
    }

    QQmlApplicationEngine m_engine;
    QQuickWindow *m_window = nullptr;
    bool m_isReady = false;
};

inline QAccessibleInterface *accessible(QQuickItem *item)
{
    return QAccessible::queryAccessibleInterface(item);
}

inline void pressAccessibly(QQuickItem *item)
{
    accessible(item)->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
}
