#pragma once

#include <QAccessibleObject>
#include <QQuickItem>

/// The interface of an item. Its role, its name and its description are those that QML has set
/// under the name `Accessible`, and its role says the rest:
/// - a text or a heading has no children;
/// - a button of any kind, a menu item or a combo box has no texts for children, which are its name
///   and its description. Beside what `Accessible` says it has the states `isExpanded` and `busy`,
///   where the item has properties of these names. It is pressed only where a user could;
/// - a dialog is modal.
class AccessibleItem : public QAccessibleObject, public QAccessibleActionInterface
{
public:
    explicit AccessibleItem(QQuickItem *item)
        : QAccessibleObject(item)
    { }

    QWindow *window() const override;
    QAccessibleInterface *parent() const override;
    QAccessibleInterface *child(int index) const override { return children().value(index); }
    int childCount() const override { return int(children().size()); }
    int indexOfChild(const QAccessibleInterface *child) const override
    {
        return int(children().indexOf(const_cast<QAccessibleInterface *>(child)));
    }
    QString text(QAccessible::Text kind) const override;
    QRect rect() const override;
    QAccessible::Role role() const override;
    QAccessible::State state() const override;

    void *interface_cast(QAccessible::InterfaceType type) override;
    QStringList actionNames() const override { return { pressAction(), setFocusAction() }; }
    void doAction(const QString &action) override;
    QStringList keyBindingsForAction(const QString &) const override { return {}; }

private:
    QQuickItem *item() const { return static_cast<QQuickItem *>(object()); }
    QVariant attached(const char *property) const;
    QList<QAccessibleInterface *> children() const;
};
