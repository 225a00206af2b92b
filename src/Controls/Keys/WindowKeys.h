#pragma once

#include <QPointer>
#include <QQmlEngine>
#include <QQuickWindow>

class QKeyEvent;

/// The rules for the keys of a window. A held key acts once, in every control and as a shortcut;
/// keys that move go on repeating, and so does what is typed into a text field. Tab goes on from a
/// control that was disabled while it had the keyboard, as a button that starts something is: Qt
/// gives the keyboard to the scope around it, and Tab would begin anew.
///
/// On X11 a repeat is a release and a press of the same moment, and Qt cannot always tell them from
/// others: a release may not be the last. So a key acts when it goes down: what Qt's controls do
/// when Space is pressed and released happens then, for Return and Enter as well, and the release
/// goes nowhere.
class WindowKeys : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    /// Set once. An event filter is installed on it.
    Q_PROPERTY(QQuickWindow *window READ window WRITE setWindow NOTIFY windowChanged REQUIRED)
    /// Menus show their access keys.
    Q_PROPERTY(bool isAltHeld READ isAltHeld NOTIFY isAltHeldChanged)

public:
    using QObject::QObject;

    QQuickWindow *window() const { return m_window; }
    void setWindow(QQuickWindow *window);
    bool isAltHeld() const { return m_isAltHeld; }

Q_SIGNALS:
    void windowChanged();
    void isAltHeldChanged();
    /// The user did something else than move the pointer: pressed a key or a button, turned the
    /// wheel, or went to another window.
    void acted();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    bool handleKey(QKeyEvent &key);
    bool handlePress(const QKeyEvent &press);
    bool moveFromDisabledControl(int key);
    void setAltHeld(bool isHeld);
    bool isRepeat(const QKeyEvent &press) const;
    bool isTyping() const;
    /// Whether the key acts on what has the keyboard now; otherwise it moves or types.
    bool acts(const QKeyEvent &key) const;

    QPointer<QQuickWindow> m_window;
    /// The key whose last press acted, until another one goes down; 0 for none.
    int m_actingKey = 0;
    /// The last release: which key, and when, in milliseconds.
    quint32 m_releasedKey = 0;
    quint64 m_releasedAt = 0;
    bool m_isPressing = false;
    bool m_isAltHeld = false;
};
