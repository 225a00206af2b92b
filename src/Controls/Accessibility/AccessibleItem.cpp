#include "Controls/Accessibility/AccessibleItem.h"

#include "Controls/Accessibility/AccessibleTree.h"
#include "Controls/Accessibility/QtInternals.h"
#include "Controls/Look/ShownText.h"

namespace {

bool isText(QAccessible::Role role)
{
    return role == QAccessible::StaticText || role == QAccessible::Heading;
}

bool isControl(QAccessible::Role role)
{
    return role == QAccessible::Button || role == QAccessible::RadioButton
        || role == QAccessible::MenuItem || role == QAccessible::ComboBox;
}

} // namespace

QVariant AccessibleItem::attached(const char *property) const
{
    const QObject *attached = QtInternals::accessibleAttached(item());
    return attached ? attached->property(property) : QVariant();
}

QList<QAccessibleInterface *> AccessibleItem::children() const
{
    if (isText(role()))
        return {};
    QList<QAccessibleInterface *> children = AccessibleTree::childrenOf(item());
    if (isControl(role()))
        children.removeIf([](QAccessibleInterface *child) { return isText(child->role()); });
    return children;
}

QWindow *AccessibleItem::window() const { return item()->window(); }

QAccessibleInterface *AccessibleItem::parent() const { return AccessibleTree::parentOf(item()); }

QString AccessibleItem::text(QAccessible::Text kind) const
{
    switch (kind) {
    case QAccessible::Name:
        return ShownText::of(attached("name").toString(), false);
    case QAccessible::Description:
        return ShownText::of(attached("description").toString(), false);
    default:
        return {};
    }
}

QRect AccessibleItem::rect() const { return AccessibleTree::screenRect(item()); }

QAccessible::Role AccessibleItem::role() const
{
    // Qt makes a popup a dialog; the dialog, where there is one, lies in it.
    if (QtInternals::popupOf(item()))
        return QAccessible::Grouping;
    // Qt makes the title of a menu a menu bar.
    if (QtInternals::isMenuTitle(item()))
        return QAccessible::MenuItem;
    return static_cast<QAccessible::Role>(attached("role").toInt());
}

QAccessible::State AccessibleItem::state() const
{
    QAccessible::State state = AccessibleTree::stateOf(item());
    state.modal = role() == QAccessible::Dialog;
    if (!isControl(role()))
        return state;
    state.busy = item()->property("busy").toBool();
    state.focusable = item()->property("focusPolicy").toInt() != Qt::NoFocus;
    state.focused = item()->hasActiveFocus();
    const QVariant expanded = item()->property("isExpanded");
    state.expandable = state.hasPopup = expanded.isValid();
    state.expanded = expanded.toBool();
    state.collapsed = expanded.isValid() && !expanded.toBool();
    state.checkable = role() == QAccessible::RadioButton;
    state.checked = state.checkable && item()->property("checked").toBool();
    return state;
}

void *AccessibleItem::interface_cast(QAccessible::InterfaceType type)
{
    return type == QAccessible::ActionInterface && isControl(role())
        ? static_cast<QAccessibleActionInterface *>(this)
        : nullptr;
}

void AccessibleItem::doAction(const QString &action)
{
    if (!item()->isEnabled() || !AccessibleTree::isReachable(item()))
        return;
    if (action == setFocusAction())
        item()->forceActiveFocus(Qt::TabFocusReason);
    else if (action == pressAction())
        QMetaObject::invokeMethod(QtInternals::accessibleAttached(item()), "pressAction");
}
