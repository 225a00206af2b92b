#pragma once

#include "Controls/Accessibility/SpokenItem.h"

/// A control: a button, a choice, a menu entry, a box that drops a menu. The texts in it are its
/// name and description, and not told by themselves; controls in it are. Beside what `Accessible`
/// says of it, it tells the properties `isExpanded` and `busy` where the control has them. It is
/// pressed only where a user could.
class SpokenControl : public SpokenItem, public QAccessibleActionInterface
{
public:
    using SpokenItem::SpokenItem;

    void *interface_cast(QAccessible::InterfaceType type) override;
    QAccessible::State state() const override;

    QStringList actionNames() const override;
    void doAction(const QString &action) override;
    QStringList keyBindingsForAction(const QString &) const override { return {}; }

protected:
    QList<QAccessibleInterface *> children() const override;
};
