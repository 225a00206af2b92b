#include "Controls/Accessibility/SpokenField.h"

#include "Controls/Accessibility/TopLayer.h"

void *SpokenField::interface_cast(QAccessible::InterfaceType type)
{
    return type == QAccessible::TextInterface ? static_cast<QAccessibleTextInterface *>(this)
                                              : SpokenControl::interface_cast(type);
}

QString SpokenField::text(QAccessible::Text kind) const
{
    return kind == QAccessible::Value ? item()->property("text").toString()
                                      : SpokenControl::text(kind);
}

void SpokenField::setText(QAccessible::Text kind, const QString &text)
{
    if (kind == QAccessible::Value && TopLayer::holds(item()))
        item()->setProperty("text", text);
}

QAccessible::State SpokenField::state() const
{
    QAccessible::State state = SpokenControl::state();
    state.editable = state.selectableText = true;
    return state;
}

void SpokenField::selection(int, int *start, int *end) const
{
    *start = item()->property("selectionStart").toInt();
    *end = item()->property("selectionEnd").toInt();
}

int SpokenField::selectionCount() const
{
    return item()->property("selectedText").toString().isEmpty() ? 0 : 1;
}

void SpokenField::addSelection(int start, int end)
{
    QMetaObject::invokeMethod(item(), "select", Q_ARG(int, start), Q_ARG(int, end));
}

void SpokenField::removeSelection(int) { QMetaObject::invokeMethod(item(), "deselect"); }

int SpokenField::cursorPosition() const { return item()->property("cursorPosition").toInt(); }

void SpokenField::setCursorPosition(int position)
{
    item()->setProperty("cursorPosition", position);
}

QString SpokenField::text(int start, int end) const
{
    return text(QAccessible::Value).mid(start, end - start);
}

int SpokenField::characterCount() const { return int(text(QAccessible::Value).size()); }

QRect SpokenField::characterRect(int offset) const
{
    QRectF place;
    QMetaObject::invokeMethod(item(), "positionToRectangle", Q_RETURN_ARG(QRectF, place),
                              Q_ARG(int, offset));
    return place.translated(rect().topLeft()).toRect();
}

QString SpokenField::attributes(int, int *start, int *end) const
{
    *start = 0;
    *end = characterCount();
    return {};
}
