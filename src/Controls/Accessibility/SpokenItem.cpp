#include "Controls/Accessibility/SpokenItem.h"

#include "Controls/Accessibility/QtInternals.h"
#include "Controls/Accessibility/SpokenDialog.h"
#include "Controls/Accessibility/SpokenList.h"
#include "Controls/Accessibility/SpokenWhole.h"
#include "Controls/Accessibility/TopLayer.h"
#include "Controls/Look/ShownText.h"

#include <QGuiApplication>
#include <QQuickWindow>

namespace {

bool isInTree(const QQuickItem *item)
{
    const QObject *attached = QtInternals::accessibleAttached(item);
    return attached && !attached->property("ignored").toBool();
}

/// A window has what can be reached in it, its top layer, for its children.
class SpokenWindow : public QAccessibleObject
{
public:
    using QAccessibleObject::QAccessibleObject;

    QQuickWindow *quickWindow() const { return static_cast<QQuickWindow *>(object()); }
    QList<QAccessibleInterface *> children() const
    {
        return Spoken::childrenOf(TopLayer::of(quickWindow()));
    }

    QWindow *window() const override { return quickWindow(); }
    QAccessibleInterface *parent() const override
    {
        return QAccessible::queryAccessibleInterface(qApp);
    }
    QAccessibleInterface *child(int index) const override { return children().value(index); }
    int childCount() const override { return int(children().size()); }
    int indexOfChild(const QAccessibleInterface *child) const override
    {
        return int(children().indexOf(const_cast<QAccessibleInterface *>(child)));
    }
    QAccessibleInterface *focusChild() const override
    {
        return QAccessible::queryAccessibleInterface(quickWindow()->activeFocusItem());
    }
    QRect rect() const override { return quickWindow()->geometry(); }
    QAccessible::Role role() const override { return QAccessible::Window; }
    QString text(QAccessible::Text) const override { return quickWindow()->title(); }
    QAccessible::State state() const override
    {
        QAccessible::State state;
        state.active = QGuiApplication::focusWindow() == quickWindow();
        state.invisible = !quickWindow()->isVisible();
        return state;
    }
};

class SpokenDialogInterface : public SpokenItem
{
public:
    using SpokenItem::SpokenItem;

    QAccessible::State state() const override
    {
        QAccessible::State state = SpokenItem::state();
        state.modal = true;
        return state;
    }

protected:
    QList<QAccessibleInterface *> children() const override { return Spoken::childrenOf(item()); }
};

class SpokenListInterface : public SpokenItem
{
public:
    using SpokenItem::SpokenItem;

    SpokenList *list() const { return static_cast<SpokenList *>(object()); }

    QAccessibleInterface *child(int index) const override { return list()->row(index); }
    int childCount() const override { return list()->count(); }
    int indexOfChild(const QAccessibleInterface *child) const override
    {
        return SpokenList::rowOf(child);
    }
};

/// A button, a menu item or a combo box. The texts in it are its name and description, and no
/// children; controls in it are. Beside what `Accessible` says it has the states `isExpanded` and
/// `busy`, where the control has properties of these names. It is pressed only where a user could.
class SpokenControl : public SpokenItem, public QAccessibleActionInterface
{
public:
    using SpokenItem::SpokenItem;

    void *interface_cast(QAccessible::InterfaceType type) override
    {
        return type == QAccessible::ActionInterface
            ? static_cast<QAccessibleActionInterface *>(this)
            : nullptr;
    }

    QAccessible::State state() const override
    {
        QAccessible::State state = SpokenItem::state();
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

    QStringList actionNames() const override { return { pressAction(), setFocusAction() }; }
    void doAction(const QString &action) override
    {
        if (!item()->isEnabled() || !TopLayer::holds(item()))
            return;
        if (action == setFocusAction())
            item()->forceActiveFocus(Qt::TabFocusReason);
        else if (action == pressAction())
            QMetaObject::invokeMethod(QtInternals::accessibleAttached(item()), "pressAction");
    }
    QStringList keyBindingsForAction(const QString &) const override { return {}; }

protected:
    QList<QAccessibleInterface *> children() const override
    {
        QList<QAccessibleInterface *> parts = Spoken::childrenOf(item());
        parts.removeIf([](QAccessibleInterface *part) {
            return part->role() == QAccessible::StaticText || part->role() == QAccessible::Heading;
        });
        return parts;
    }
};

/// Qt asks with the name of each class of an object, from its own to QObject.
QAccessibleInterface *makeInterface(const QString &className, QObject *object)
{
    auto *item = qobject_cast<QQuickItem *>(object);
    const auto is = [&className](const QMetaObject &type) {
        return className == QLatin1StringView(type.className());
    };
    if (is(SpokenList::staticMetaObject))
        return new SpokenListInterface(item, QAccessible::List);
    if (is(SpokenDialog::staticMetaObject))
        return new SpokenDialogInterface(item, QAccessible::Dialog);
    if (is(SpokenWhole::staticMetaObject))
        return new SpokenItem(item, QAccessible::StaticText);
    switch (QtInternals::kindOf(className)) {
    case QtInternals::Kind::Window:
        return new SpokenWindow(object);
    case QtInternals::Kind::PopupItem:
        // Qt makes it a dialog; the dialog, where there is one, lies in it.
        return new SpokenItem(item, QAccessible::Grouping);
    case QtInternals::Kind::Text:
        // Qt's would offer a text interface, an empty one, and the focus.
        return new SpokenItem(item);
    case QtInternals::Kind::Control:
        return new SpokenControl(item);
    case QtInternals::Kind::Other:
        break;
    }
    return nullptr;
}

// In this file, as a linker leaves out sources that nothing refers to.
void installInterfaces() { QAccessible::installFactory(makeInterface); }
Q_COREAPP_STARTUP_FUNCTION(installInterfaces)

} // namespace

QVariant Spoken::attached(const QQuickItem *item, const char *property)
{
    const QObject *attached = QtInternals::accessibleAttached(item);
    return attached ? attached->property(property) : QVariant();
}

QRect Spoken::screenRect(const QQuickItem *item)
{
    if (!item->window())
        return {};
    const QRectF place = item->mapRectToScene(QRectF(0, 0, item->width(), item->height()));
    return { item->window()->mapToGlobal(place.topLeft().toPoint()), place.size().toSize() };
}

QAccessible::State Spoken::baseState(const QQuickItem *item)
{
    QAccessible::State state;
    state.invisible = !item->window() || !item->isVisible() || qFuzzyIsNull(item->opacity());
    state.offscreen = !state.invisible && !item->window()->geometry().intersects(screenRect(item));
    state.disabled = !item->isEnabled();
    return state;
}

QList<QAccessibleInterface *> Spoken::childrenOf(const QQuickItem *item)
{
    QList<QAccessibleInterface *> found;
    const auto children = item->childItems();
    for (QQuickItem *child : children) {
        if (!child->isVisible() || qFuzzyIsNull(child->opacity()))
            continue;
        QAccessibleInterface *node =
            isInTree(child) ? QAccessible::queryAccessibleInterface(child) : nullptr;
        if (node)
            found.append(node);
        else
            found += childrenOf(child);
    }
    return found;
}

QAccessibleInterface *SpokenItem::parent() const
{
    // The item on top is no part of the tree: what lies in it is a child of the window.
    const QQuickItem *top = item()->window() ? TopLayer::of(item()->window()) : nullptr;
    for (QQuickItem *above = item()->parentItem(); above && above != top;
         above = above->parentItem()) {
        if (isInTree(above))
            return QAccessible::queryAccessibleInterface(above);
    }
    return QAccessible::queryAccessibleInterface(item()->window());
}

QString SpokenItem::text(QAccessible::Text kind) const
{
    const char *property = kind == QAccessible::Name ? "name"
        : kind == QAccessible::Description           ? "description"
                                                     : nullptr;
    return property ? ShownText::of(Spoken::attached(item(), property).toString(), false)
                    : QString();
}

QAccessible::Role SpokenItem::role() const
{
    return m_role != QAccessible::NoRole
        ? m_role
        : static_cast<QAccessible::Role>(Spoken::attached(item(), "role").toInt());
}
