#include "inspect/WindowDriver.h"

#include "Controls/Accessibility/AccessibleTree.h"

#include <QTest>

bool isText(QQuickItem *item)
{
    return (item->inherits("QQuickText") || item->inherits("QQuickTextInput"))
        && !item->property("font").value<QFont>().family().contains(QLatin1String("Icons"));
}

QString drawnText(QQuickItem *item)
{
    if (!isText(item))
        return {};
    // The `text` of a PlainText hides that of the Text that it is.
    const QVariant shown = item->property("shownText");
    return (shown.isValid() ? shown : item->property("text")).toString();
}

QString accessibleName(QQuickItem *item)
{
    QAccessibleInterface *node = accessible(item);
    return node ? node->text(QAccessible::Name) : QString();
}

bool pressAccessibly(QQuickItem *item) { return pressAccessibly(accessible(item)); }

bool pressAccessibly(QAccessibleInterface *node)
{
    if (!node || !node->actionInterface())
        return false;
    node->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    return true;
}

FlightSearchViewModel *WindowDriver::viewModel() const
{
    return m_window->property("viewModel").value<FlightSearchViewModel *>();
}

bool WindowDriver::waitForSearch(std::chrono::milliseconds time) const
{
    const auto hasEnded = [this] { return viewModel()->hasSearched() && !isSearching(); };
    return QTest::qWaitFor(hasEnded, static_cast<int>(time.count()));
}

QList<QQuickItem *> WindowDriver::itemsIn(QQuickItem *root, const Condition &isWanted)
{
    QList<QQuickItem *> found;
    if (!root->isVisible())
        return found;
    if (isWanted(root))
        found.append(root);
    const auto children = root->childItems();
    for (QQuickItem *child : children)
        found += itemsIn(child, isWanted);
    return found;
}

QQuickItem *WindowDriver::named(const QString &objectName) const
{
    return itemsIn(m_window->contentItem(),
                   [&objectName](QQuickItem *item) { return item->objectName() == objectName; })
        .value(0);
}

QQuickItem *WindowDriver::called(const QString &name) const
{
    return itemsIn(m_window->contentItem(),
                   [&name](QQuickItem *item) { return accessibleName(item) == name; })
        .value(0);
}

QQuickItem *WindowDriver::saying(const QString &text) const
{
    const auto says = [&text](QQuickItem *item) { return isText(item) && drawnText(item) == text; };
    return itemsIn(AccessibleTree::top(m_window), says).value(0);
}

void WindowDriver::click(QQuickItem *item) const
{
    const QPointF centre = item->mapToScene(QPointF(item->width() / 2, item->height() / 2));
    QTest::mouseClick(m_window, Qt::LeftButton, Qt::NoModifier, centre.toPoint());
}

void WindowDriver::key(Qt::Key key, Qt::KeyboardModifiers modifiers) const
{
    QTest::keyClick(m_window, key, modifiers);
}

void WindowDriver::type(const QString &text) const
{
    for (const QChar character : text)
        QTest::sendKeyEvent(QTest::Click, m_window, Qt::Key_unknown, character, Qt::NoModifier);
}
