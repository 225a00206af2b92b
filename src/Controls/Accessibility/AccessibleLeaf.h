#pragma once

#include <QAccessible>

/// The base of accessible objects without a QObject and without children: rows, announcements.
class AccessibleLeaf : public QAccessibleInterface
{
public:
    QObject *object() const override { return nullptr; }
    QAccessibleInterface *child(int) const override { return nullptr; }
    QAccessibleInterface *childAt(int, int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface *) const override { return -1; }
    void setText(QAccessible::Text, const QString &) override { }
};
