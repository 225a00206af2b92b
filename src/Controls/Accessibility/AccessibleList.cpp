#include "Controls/Accessibility/AccessibleList.h"

#include "Controls/Accessibility/AccessibleItem.h"
#include "Controls/Accessibility/AccessibleLeaf.h"
#include "Controls/Accessibility/AccessibleTree.h"
#include "Controls/Look/ShownText.h"

#include <QPointer>
#include <QQuickWindow>

namespace {

class AccessibleRow : public AccessibleLeaf, public QAccessibleActionInterface
{
public:
    AccessibleRow(AccessibleList *rows, int row)
        : m_rows(rows)
        , m_row(row)
    { }

    int row() const { return m_row; }

    bool isValid() const override { return m_rows && m_row < m_rows->count(); }
    QWindow *window() const override { return m_rows ? m_rows->window() : nullptr; }
    QAccessibleInterface *parent() const override
    {
        return QAccessible::queryAccessibleInterface(m_rows);
    }
    QAccessible::Role role() const override { return QAccessible::ListItem; }

    QString text(QAccessible::Text kind) const override
    {
        return isValid() && kind == QAccessible::Name
            ? ShownText::of(m_rows->textOfRow(m_row), false)
            : QString();
    }

    QRect rect() const override
    {
        const QQuickItem *item = isValid() ? m_rows->itemOfRow(m_row) : nullptr;
        return item ? AccessibleTree::screenRect(item) : QRect();
    }

    QAccessible::State state() const override
    {
        QAccessible::State state;
        if (!isValid()) {
            state.invalid = true;
            return state;
        }
        state = AccessibleTree::stateOf(m_rows);
        state.offscreen = !m_rows->window() || !m_rows->window()->geometry().intersects(rect());
        state.focusable = state.selectable = true;
        state.focused = m_rows->isActive() && m_rows->currentRow() == m_row;
        state.selected = m_rows->selectedRow() == m_row;
        return state;
    }

    void *interface_cast(QAccessible::InterfaceType type) override
    {
        return type == QAccessible::ActionInterface
            ? static_cast<QAccessibleActionInterface *>(this)
            : nullptr;
    }

    QStringList actionNames() const override { return { pressAction(), setFocusAction() }; }

    void doAction(const QString &action) override
    {
        if (!isValid() || !m_rows->isEnabled() || !AccessibleTree::isReachable(m_rows))
            return;
        if (action == pressAction())
            Q_EMIT m_rows->rowPressed(m_row);
        else if (action == setFocusAction())
            Q_EMIT m_rows->rowFocused(m_row);
    }

    QStringList keyBindingsForAction(const QString &) const override { return {}; }

private:
    QPointer<AccessibleList> m_rows;
    int m_row;
};

class AccessibleListInterface : public AccessibleItem
{
public:
    explicit AccessibleListInterface(AccessibleList *list)
        : AccessibleItem(list)
        , m_list(list)
    { }

    QAccessible::Role role() const override { return QAccessible::List; }
    QAccessibleInterface *child(int index) const override { return m_list->row(index); }
    int childCount() const override { return m_list->count(); }
    int indexOfChild(const QAccessibleInterface *child) const override
    {
        const auto *row = dynamic_cast<const AccessibleRow *>(child);
        return row ? row->row() : -1;
    }

private:
    AccessibleList *m_list;
};

} // namespace

AccessibleList::AccessibleList(QQuickItem *parent)
    : QQuickItem(parent)
{
    for (const auto changed :
         { &AccessibleList::currentRowChanged, &AccessibleList::isActiveChanged })
        connect(this, changed, this, &AccessibleList::announceCurrentRow);
}

AccessibleList::~AccessibleList()
{
    for (const QAccessible::Id id : std::as_const(m_rows))
        QAccessible::deleteAccessibleInterface(id);
}

QString AccessibleList::textOfRow(int row) const { return m_textOf.call({ row }).toString(); }

QQuickItem *AccessibleList::itemOfRow(int row) const
{
    return qobject_cast<QQuickItem *>(m_itemOf.call({ row }).toQObject());
}

QAccessibleInterface *AccessibleList::makeInterface() { return new AccessibleListInterface(this); }

QAccessibleInterface *AccessibleList::row(int row)
{
    if (row < 0 || row >= m_count)
        return nullptr;
    QAccessible::Id &id = m_rows[row];
    if (QAccessibleInterface *known = id ? QAccessible::accessibleInterface(id) : nullptr)
        return known;
    id = QAccessible::registerAccessibleInterface(new AccessibleRow(this, row));
    return QAccessible::accessibleInterface(id);
}

void AccessibleList::announceCurrentRow()
{
    if (m_isAnnouncing || !m_isActive || !QAccessible::isActive())
        return;
    m_isAnnouncing = true;
    QMetaObject::invokeMethod(this, &AccessibleList::reportCurrentRow, Qt::QueuedConnection);
}

void AccessibleList::reportCurrentRow()
{
    m_isAnnouncing = false;
    QAccessibleInterface *current = m_isActive ? row(m_currentRow) : nullptr;
    if (!current)
        return;
    QAccessibleEvent event(current, QAccessible::Focus);
    QAccessible::updateAccessibility(&event);
}
