#pragma once

#include <QObject>
#include <QPointer>
#include <QScopeGuard>

#include <utility>

/// Base of the state objects: an observer of objectWillChange() still sees the state as it was, and
/// the property's own signal, to which QML listens, follows when the change is made.
class ObservableObject : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

Q_SIGNALS:
    void objectWillChange();

protected:
    /// Stores `value` in `field` and tells both kinds of observer, unless nothing changes.
    template<typename T, typename Object>
    void publish(T &field, T value, void (Object::*changed)())
    {
        if (field == value)
            return;
        Q_EMIT objectWillChange();
        field = std::move(value);
        Q_EMIT(static_cast<Object *>(this)->*changed)();
    }
    /// Sets a flag until the end of the scope. The object may go before.
    template<typename Object>
    auto raise(bool &flag, void (Object::*changed)())
    {
        publish(flag, true, changed);
        return qScopeGuard([self = QPointer(this), &flag, changed] {
            if (self)
                self->publish(flag, false, changed);
        });
    }
};
