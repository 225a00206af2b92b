#pragma once

#include <QObject>
#include <QQmlEngine>

/// What one copies to paste it elsewhere.
class Clipboard : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

public:
    using QObject::QObject;

    Q_INVOKABLE void copy(const QString &text) const;
};
