#pragma once

#include <QAccessibleObject>
#include <QQuickItem>
#include <QQuickWindow>

/// Questions about items that assistive technology asks in one way or another.
namespace Spoken {

/// A property that QML has set under the name `Accessible`; invalid where it has not.
QVariant attached(const QQuickItem *item, const char *property);
QRect screenRect(const QQuickItem *item);
/// What every item says of itself by being there or not.
QAccessible::State baseState(const QQuickItem *item);
/// The interfaces of all that is seen and not ignored below the item, nearest first.
QList<QAccessibleInterface *> childrenOf(const QQuickItem *item);

} // namespace Spoken

/// The interface of an item without children. Its name and description are those that QML has set,
/// and so is its role, if none is given.
class SpokenItem : public QAccessibleObject
{
public:
    explicit SpokenItem(QQuickItem *item, QAccessible::Role role = QAccessible::NoRole)
        : QAccessibleObject(item)
        , m_role(role)
    { }

    QWindow *window() const override { return item()->window(); }
    QAccessibleInterface *parent() const override;
    QAccessibleInterface *child(int index) const override { return children().value(index); }
    int childCount() const override { return int(children().size()); }
    int indexOfChild(const QAccessibleInterface *child) const override
    {
        return int(children().indexOf(const_cast<QAccessibleInterface *>(child)));
    }
    QString text(QAccessible::Text kind) const override;
    QRect rect() const override { return Spoken::screenRect(item()); }
    QAccessible::Role role() const override;
    QAccessible::State state() const override { return Spoken::baseState(item()); }

protected:
    QQuickItem *item() const { return static_cast<QQuickItem *>(object()); }
    virtual QList<QAccessibleInterface *> children() const { return {}; }

private:
    QAccessible::Role m_role;
};

/// The base of what has an interface and is no item: it has no children.
class SpokenLeaf : public QAccessibleInterface
{
public:
    QObject *object() const override { return nullptr; }
    QAccessibleInterface *child(int) const override { return nullptr; }
    QAccessibleInterface *childAt(int, int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface *) const override { return -1; }
    void setText(QAccessible::Text, const QString &) override { }
};
