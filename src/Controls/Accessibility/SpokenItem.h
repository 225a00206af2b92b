#pragma once

#include <QAccessibleObject>
#include <QQuickItem>

/// Questions about items that assistive technology asks in one way or another.
namespace Spoken {

/// A property that QML has set under the name `Accessible`; invalid where it has not.
QVariant attached(const QQuickItem *item, const char *property);
/// What QML has set as `Accessible.role`.
QAccessible::Role role(const QQuickItem *item);
QRect screenRect(const QQuickItem *item);
/// What every item tells of itself by being there or not.
QAccessible::State baseState(const QQuickItem *item);
QAccessibleInterface *parentOf(const QQuickItem *item);
/// The interfaces of all that is seen and told below the item, nearest first.
QList<QAccessibleInterface *> childrenOf(const QQuickItem *item);

} // namespace Spoken

/// What is told of an item: as it stands, of one without parts.
class SpokenItem : public QAccessibleObject
{
public:
    SpokenItem(QQuickItem *item, QAccessible::Role role)
        : QAccessibleObject(item)
        , m_role(role)
    { }

    QWindow *window() const override { return item()->window(); }
    QAccessibleInterface *parent() const override { return Spoken::parentOf(item()); }
    QAccessibleInterface *child(int index) const override { return children().value(index); }
    int childCount() const override { return int(children().size()); }
    int indexOfChild(const QAccessibleInterface *child) const override
    {
        return int(children().indexOf(const_cast<QAccessibleInterface *>(child)));
    }
    QString text(QAccessible::Text kind) const override;
    QRect rect() const override { return Spoken::screenRect(item()); }
    QAccessible::Role role() const override { return m_role; }
    QAccessible::State state() const override { return Spoken::baseState(item()); }

protected:
    QQuickItem *item() const { return static_cast<QQuickItem *>(object()); }
    virtual QList<QAccessibleInterface *> children() const { return {}; }

private:
    QAccessible::Role m_role;
};
