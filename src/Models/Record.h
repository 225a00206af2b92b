#pragma once

#include <QJsonObject>
#include <QMetaObject>
#include <QObject>

#include <concepts>

/// A value with properties, such as QML reads.
template<typename T>
concept Gadget = requires
{
    T::staticMetaObject;
}
&&!std::derived_from<T, QObject>;

QJsonObject propertiesOf(const QMetaObject &type, const void *gadget);

/// The properties under their names. An absent text is an empty one, another absent value null.
template<Gadget T>
QJsonObject propertiesOf(const T &record)
{
    return propertiesOf(T::staticMetaObject, &record);
}

template<Gadget T>
size_t qHash(const T &record, size_t seed = 0)
{
    return qHash(propertiesOf(record), seed);
}
