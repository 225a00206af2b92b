#pragma once

#include "support/WindowTesting.h"

#include <QAccessible>
#include <QJsonDocument>

#include <algorithm>

/// Answers the tools of the sheets with `answers` by tool name, and searches with empty results.
inline void serve(ScriptedServer &server, const QHash<QString, ScriptedAnswer> &answers)
{
    server.onToolCall = [answers](const ReceivedRequest &request) {
        return answers.value(request.tool(), ScriptedAnswer::content());
    };
}

inline ScriptedAnswer refusal(const QString &message)
{
    using namespace Qt::StringLiterals;
    const QJsonObject error { { u"message"_s, message } };
    return ScriptedAnswer::text(QJsonDocument(QJsonObject { { u"error"_s, error } }).toJson());
}

/// The item of the window that has the flags of the sheets.
inline QObject *mainView(const QQuickWindow *window)
{
    const auto items = window->findChildren<QQuickItem *>();
    const auto view = std::find_if(items.begin(), items.end(), [](const QQuickItem *item) {
        return item->property("showCityGuideSheet").isValid();
    });
    return view == items.end() ? nullptr : *view;
}

/// The window with its header buttons, and the sheet that is open in it.
class SheetWindow : public TestWindow
{
public:
    explicit SheetWindow(ScriptedServer &server)
        : TestWindow(server)
    {
        m_isReady = window() && waitForSearch();
        if (m_isReady) {
            window()->requestActivate();
            m_isReady = QTest::qWaitForWindowActive(window());
        }
    }

    bool isReady() const { return m_isReady; }

    QObject *sheet(const QString &name) const { return window()->findChild<QObject *>(name); }
    bool isOpen(const QString &name) const
    {
        return sheet(name) && sheet(name)->property("opened").toBool();
    }
    bool isGone(const QString &name) const
    {
        return !sheet(name) || !sheet(name)->property("visible").toBool();
    }

    void key(Qt::Key key) const { QTest::keyClick(window(), key); }
    void type(const QString &text) const
    {
        for (const QChar character : text)
            QTest::sendKeyEvent(QTest::Click, window(), Qt::Key_unknown, QString(character),
                                Qt::NoModifier);
    }
    /// Puts every item in its place, as the next frame would.
    void settle() const { window()->grabWindow(); }
    QQuickItem *focused() const { return window()->activeFocusItem(); }

    /// Every text that is seen below the item, in tree order.
    static QStringList textsIn(QQuickItem *root)
    {
        QStringList texts;
        visit(root, [&](QQuickItem *item) {
            const bool isSymbol = item->property("font").value<QFont>().family().contains(u"Icons");
            if (item->inherits("QQuickText") && !isSymbol)
                texts.append(item->property("text").toString());
        });
        return texts;
    }

private:
    bool m_isReady = false;
};

/// A test class in which each test has a server of its own.
class SheetTest : public QObject
{
    Q_OBJECT

protected Q_SLOTS:
    void initTestCase()
    {
        QAccessible::setActive(true);
        prepareApplication();
    }
    void init() { m_server = std::make_unique<ScriptedServer>(); }

protected:
    std::unique_ptr<ScriptedServer> m_server;
};

/// The state object behind the sheet that is open, under its property `name`.
template<typename State>
State *stateOf(const QQuickWindow *window, const QString &sheet, const char *name)
{
    const auto *body = window->findChild<QObject *>(sheet)->property("body").value<QQuickItem *>();
    return body ? body->property(name).value<State *>() : nullptr;
}

inline QAccessibleInterface *accessible(QQuickItem *item)
{
    return QAccessible::queryAccessibleInterface(item);
}

/// What assistive technology would miss in the controls below `root`.
inline QStringList accessibilityFaults(QQuickItem *root)
{
    using namespace Qt::StringLiterals;
    QStringList faults;
    SheetWindow::visit(root, [&](QQuickItem *item) {
        if (!item->activeFocusOnTab())
            return;
        QAccessibleInterface *node = accessible(item);
        const QString type = QString::fromLatin1(item->metaObject()->className());
        if (!node || node->role() == QAccessible::NoRole)
            faults.append(u"no role: "_s + type);
        else if (node->text(QAccessible::Name).isEmpty())
            faults.append(u"no name: "_s + type);
        else if (!node->state().focusable)
            faults.append(u"not focusable: "_s + type);
        const bool isPressed = node
            && (node->role() == QAccessible::Button || node->role() == QAccessible::RadioButton);
        if (isPressed
            && !node->actionInterface()->actionNames().contains(
                QAccessibleActionInterface::pressAction()))
            faults.append(u"no press action: "_s + type);
    });
    return faults;
}

inline void pressAccessibly(QQuickItem *item)
{
    accessible(item)->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
}
