#pragma once

#include <QQmlEngine>
#include <QQuickItem>

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
