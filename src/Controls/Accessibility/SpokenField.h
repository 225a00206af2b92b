#pragma once

#include "Controls/Accessibility/SpokenControl.h"

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
