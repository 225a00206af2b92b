#include "Controls/Accessibility/SpokenList.h"

#include "Controls/Accessibility/SpokenItem.h"
#include "Controls/Accessibility/SpokenLeaf.h"
#include "Controls/Accessibility/TopLayer.h"
#include "Controls/Look/ShownText.h"

#include <QPointer>
#include <QQmlInfo>
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

class SpokenListInterface : public QAccessibleObject
{
public:
    using QAccessibleObject::QAccessibleObject;

    SpokenList *rows() const { return static_cast<SpokenList *>(object()); }

    QWindow *window() const override { return rows()->window(); }
    QAccessibleInterface *parent() const override { return Spoken::parentOf(rows()); }
    QAccessibleInterface *child(int index) const override { return rows()->row(index); }
    int childCount() const override { return rows()->count(); }
    int indexOfChild(const QAccessibleInterface *child) const override
    {
        const auto *row = dynamic_cast<const SpokenRow *>(child);
        return row ? row->row() : -1;
    }
    QRect rect() const override { return Spoken::screenRect(rows()); }
    QAccessible::Role role() const override { return QAccessible::List; }
    QAccessible::State state() const override { return Spoken::baseState(rows()); }
    QString text(QAccessible::Text kind) const override
    {
        return kind == QAccessible::Name ? Spoken::attached(rows(), "name").toString() : QString();
    }
};

} // namespace

QAccessibleInterface *makeSpokenList(SpokenList *list) { return new SpokenListInterface(list); }

SpokenList::~SpokenList()
{
    for (const QAccessible::Id id : std::as_const(m_rows))
        QAccessible::deleteAccessibleInterface(id);
}

void SpokenList::componentComplete()
{
    QQuickItem::componentComplete();
    for (const char *function : { "textOf(int)", "itemOf(int)" }) {
        if (metaObject()->indexOfMethod(function) < 0)
            qmlWarning(this) << "A SpokenList needs the function " << function << '.';
    }
}

void SpokenList::setCount(int count)
{
    if (m_count == count)
        return;
    m_count = count;
    Q_EMIT countChanged();
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

QString SpokenList::textOfRow(int row) const
{
    QString text;
    QMetaObject::invokeMethod(const_cast<SpokenList *>(this), "textOf", Q_RETURN_ARG(QString, text),
                              Q_ARG(int, row));
    return text;
}

QQuickItem *SpokenList::itemOfRow(int row) const
{
    QQuickItem *item = nullptr;
    QMetaObject::invokeMethod(const_cast<SpokenList *>(this), "itemOf",
                              Q_RETURN_ARG(QQuickItem *, item), Q_ARG(int, row));
    return item;
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
    QMetaObject::invokeMethod(this, &SpokenList::tellCurrentRow, Qt::QueuedConnection);
}

void SpokenList::tellCurrentRow()
{
    m_isSaying = false;
    QAccessibleInterface *current = m_isActive ? row(m_currentRow) : nullptr;
    if (!current)
        return;
    QAccessibleEvent event(current, QAccessible::Focus);
    QAccessible::updateAccessibility(&event);
}
