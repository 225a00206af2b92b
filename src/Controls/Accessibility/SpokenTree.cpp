#include "Controls/Accessibility/SpokenTree.h"

#include "Controls/Accessibility/QtInternals.h"
#include "Controls/Accessibility/SpokenDialog.h"
#include "Controls/Accessibility/SpokenField.h"
#include "Controls/Accessibility/SpokenList.h"
#include "Controls/Accessibility/SpokenWhole.h"
#include "Controls/Accessibility/TopLayer.h"

#include <QAccessibleObject>
#include <QGuiApplication>
#include <QQuickWindow>

// Which interface assistive technology gets for which object. Qt asks with the name of each class
// of an object, from its own to QObject.

namespace {

/// What is told of the window: the top layer of it. Sheets and menus put everything else out of
/// reach, and so out of the tree.
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

/// A SpokenDialog.
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

/// Qt asks with the name of each class of an object, from its own to QObject.
QAccessibleInterface *makeInterface(const QString &className, QObject *object)
{
    auto *item = qobject_cast<QQuickItem *>(object);
    if (className == QLatin1StringView(SpokenList::staticMetaObject.className()))
        return makeSpokenList(static_cast<SpokenList *>(object));
    if (className == QLatin1StringView(SpokenDialog::staticMetaObject.className()))
        return new SpokenBox(item);
    if (className == QLatin1StringView(SpokenWhole::staticMetaObject.className()))
        return new SpokenItem(item, QAccessible::StaticText);
    switch (QtInternals::kindOf(className)) {
    case QtInternals::Kind::Window:
        return new SpokenWindow(object);
    case QtInternals::Kind::PopupItem:
        // Qt takes it for a dialog; the dialog, where there is one, lies in it.
        return new SpokenItem(item, QAccessible::Grouping);
    case QtInternals::Kind::Text:
        // Qt says that it has a text to be read piece by piece, an empty one, and takes the
        // keyboard.
        return new SpokenItem(item, Spoken::role(item));
    case QtInternals::Kind::TextField:
        return new SpokenField(item);
    case QtInternals::Kind::Button:
        return new SpokenControl(item, QAccessible::Button);
    case QtInternals::Kind::RadioButton:
        return new SpokenControl(item, QAccessible::RadioButton);
    case QtInternals::Kind::MenuItem:
        return new SpokenControl(item, QAccessible::MenuItem);
    case QtInternals::Kind::ComboBox:
        return new SpokenControl(item, QAccessible::ComboBox);
    case QtInternals::Kind::Other:
        break;
    }
    return nullptr;
}

} // namespace

void installSpokenTree() { QAccessible::installFactory(makeInterface); }
