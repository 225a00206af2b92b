#include "Controls/Accessibility/SpokenList.h"

#include "Controls/Accessibility/SpokenItem.h"
#include "Controls/Accessibility/TopLayer.h"
#include "Controls/Look/ShownText.h"

#include <QPointer>
#include <QQuickWindow>

namespace {

class SpokenRow : public SpokenLeaf, public QAccessibleActionInterface
{
public:
    SpokenRow(SpokenList *rows, int row)
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
        return item ? Spoken::screenRect(item) : QRect();
    }

    QAccessible::State state() const override
    {
        QAccessible::State state;
        if (!isValid()) {
            state.invalid = true;
            return state;
        }
        state = Spoken::baseState(m_rows);
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
        if (!isValid() || !m_rows->isEnabled() || !TopLayer::holds(m_rows))
            return;
        if (action == pressAction())
            Q_EMIT m_rows->rowPressed(m_row);
        else if (action == setFocusAction())
            Q_EMIT m_rows->rowFocused(m_row);
    }

    QStringList keyBindingsForAction(const QString &) const override { return {}; }

private:
    QPointer<SpokenList> m_rows;
    int m_row;
};

} // namespace

SpokenList::~SpokenList()
{
    for (const QAccessible::Id id : std::as_const(m_rows))
        QAccessible::deleteAccessibleInterface(id);
}

void SpokenList::setCurrentRow(int row)
{
    if (m_currentRow == row)
        return;
    m_currentRow = row;
    Q_EMIT currentRowChanged();
    sayCurrentRow();
}

void SpokenList::setActive(bool isActive)
{
    if (m_isActive == isActive)
        return;
    m_isActive = isActive;
    Q_EMIT isActiveChanged();
    sayCurrentRow();
}

QString SpokenList::textOfRow(int row) const { return m_textOf.call({ row }).toString(); }

QQuickItem *SpokenList::itemOfRow(int row) const
{
    return qobject_cast<QQuickItem *>(m_itemOf.call({ row }).toQObject());
}

int SpokenList::rowOf(const QAccessibleInterface *node)
{
    const auto *spokenRow = dynamic_cast<const SpokenRow *>(node);
    return spokenRow ? spokenRow->row() : -1;
}

QAccessibleInterface *SpokenList::row(int row)
{
    if (row < 0 || row >= m_count)
        return nullptr;
    QAccessible::Id &id = m_rows[row];
    if (QAccessibleInterface *known = id ? QAccessible::accessibleInterface(id) : nullptr)
        return known;
    id = QAccessible::registerAccessibleInterface(new SpokenRow(this, row));
    return QAccessible::accessibleInterface(id);
}

void SpokenList::sayCurrentRow()
{
    if (m_isSaying || !m_isActive || !QAccessible::isActive())
        return;
    m_isSaying = true;
    QMetaObject::invokeMethod(this, &SpokenList::reportCurrentRow, Qt::QueuedConnection);
}

void SpokenList::reportCurrentRow()
{
    m_isSaying = false;
    QAccessibleInterface *current = m_isActive ? row(m_currentRow) : nullptr;
    if (!current)
        return;
    QAccessibleEvent event(current, QAccessible::Focus);
    QAccessible::updateAccessibility(&event);
}
