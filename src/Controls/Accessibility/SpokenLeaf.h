#pragma once

#include <QAccessible>

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
