#include "Controls/Accessibility/SpokenControl.h"

#include "Controls/Accessibility/QtInternals.h"
#include "Controls/Accessibility/TopLayer.h"

void *SpokenControl::interface_cast(QAccessible::InterfaceType type)
{
    return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface *>(this)
                                                : nullptr;
}

QList<QAccessibleInterface *> SpokenControl::children() const
{
    QList<QAccessibleInterface *> parts = Spoken::childrenOf(item());
    parts.removeIf([](QAccessibleInterface *part) { return !dynamic_cast<SpokenControl *>(part); });
    return parts;
}

QAccessible::State SpokenControl::state() const
{
    QAccessible::State state = Spoken::baseState(item());
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

QStringList SpokenControl::actionNames() const { return { pressAction(), setFocusAction() }; }

void SpokenControl::doAction(const QString &action)
{
    if (!item()->isEnabled() || !TopLayer::holds(item()))
        return;
    if (action == setFocusAction())
        item()->forceActiveFocus(Qt::TabFocusReason);
    else if (QObject *told = QtInternals::accessibleAttached(item());
             told && action == pressAction())
        QMetaObject::invokeMethod(told, "pressAction");
}
