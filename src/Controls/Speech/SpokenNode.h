#pragma once

#include <QAccessibleObject>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickWindow>

/// A focus scope that is told as a modal dialog, under its `Accessible.name`.
class SpokenDialog : public QQuickItem
{
    Q_OBJECT
    QML_ELEMENT

public:
    explicit SpokenDialog(QQuickItem *parent = nullptr)
        : QQuickItem(parent)
    {
        setFlag(ItemIsFocusScope);
    }
};

/// An item that is told as one text, its `Accessible.name`; what lies in it is not told by itself.
class SpokenWhole : public QQuickItem
{
    Q_OBJECT
    QML_ELEMENT

public:
    using QQuickItem::QQuickItem;
};

/// Questions about items that assistive technology asks in one way or another.
namespace Spoken {

/// A property that QML has set under the name `Accessible`; invalid where it has not.
QVariant attached(const QQuickItem *item, const char *property);
QRect screenRect(const QQuickItem *item);
/// What every item tells of itself by being there or not.
QAccessible::State baseState(const QQuickItem *item);
QAccessibleInterface *parentOf(const QQuickItem *item);
/// The interfaces of all that is seen and told below the item, nearest first.
QList<QAccessibleInterface *> childrenOf(const QQuickItem *item);

} // namespace Spoken

/// Something that is told and is no item: it has no parts, and its texts are not set from outside.
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

/// What is told of a SpokenDialog.
class SpokenBox : public SpokenItem
{
public:
    explicit SpokenBox(QQuickItem *item)
        : SpokenItem(item, QAccessible::Dialog)
    { }

    QAccessible::State state() const override
    {
        QAccessible::State state = SpokenItem::state();
        state.modal = true;
        return state;
    }

protected:
    QList<QAccessibleInterface *> children() const override { return Spoken::childrenOf(item()); }
};

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

/// A line of text that is typed.
class SpokenField : public SpokenControl, public QAccessibleTextInterface
{
public:
    explicit SpokenField(QQuickItem *item)
        : SpokenControl(item, QAccessible::EditableText)
    { }

    void *interface_cast(QAccessible::InterfaceType type) override;
    QString text(QAccessible::Text kind) const override;
    void setText(QAccessible::Text kind, const QString &text) override;
    QAccessible::State state() const override;
    QStringList actionNames() const override { return { setFocusAction() }; }

    void selection(int index, int *start, int *end) const override;
    int selectionCount() const override;
    void addSelection(int start, int end) override;
    void removeSelection(int index) override;
    void setSelection(int, int start, int end) override { addSelection(start, end); }
    int cursorPosition() const override;
    void setCursorPosition(int position) override;
    QString text(int start, int end) const override;
    int characterCount() const override;
    QRect characterRect(int offset) const override;
    int offsetAtPoint(const QPoint &) const override { return -1; }
    void scrollToSubstring(int, int) override { }
    QString attributes(int offset, int *start, int *end) const override;
};
