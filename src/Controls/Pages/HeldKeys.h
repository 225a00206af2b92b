#pragma once

#include "Controls/Pages/WindowWatcher.h"

class QKeyEvent;

/// Lets a held key act once. Keys that act, such as Return, reach the window's items when they go
/// down; their repeats and releases do not, wherever the keyboard has gone meanwhile. Keys that
/// move go on repeating, and so does what is typed into a text field.
///
/// On X11 a repeat is a release and a press of the same moment, and Qt cannot always tell them from
/// others. So items act on the press: a release may not be the last.
class HeldKeys : public WindowWatcher
{
    Q_OBJECT
    QML_ELEMENT

public:
    using WindowWatcher::WindowWatcher;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    bool isRepeat(const QKeyEvent &press) const;
    /// Whether the key acts on what has the keyboard now; otherwise it moves or types.
    bool acts(const QKeyEvent &key) const;

    /// The key whose last press acted, until another one goes down; 0 for none.
    int m_actingKey = 0;
    /// The last release: which key, and when, in milliseconds.
    quint32 m_releasedKey = 0;
    quint64 m_releasedAt = 0;
};
