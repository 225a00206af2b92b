#include "inspect/Stage.h"

#include <QAccessible>
#include <QCoreApplication>
#include <QCursor>
#include <QKeyEvent>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace {

constexpr int pollInterval = 20; // milliseconds
constexpr int stillness = 350; // milliseconds without a frame

QQuickItem *findVisible(QQuickItem *root, const QString &objectName)
{
    if (!root->isVisible())
        return nullptr;
    if (root->objectName() == objectName)
        return root;
    const auto children = root->childItems();
    for (QQuickItem *child : children) {
        if (QQuickItem *found = findVisible(child, objectName))
            return found;
    }
    return nullptr;
}

} // namespace

Stage::Stage(QQuickWindow *window, std::chrono::milliseconds timeout)
    : m_window(window)
    , m_viewModel(window->property("viewModel").value<FlightSearchViewModel *>())
    , m_timeout(timeout.count())
{
    // A pointer that happens to rest over the window would show its hover states.
    QCursor::setPos(0, 0);
    // Without a window manager nobody else gives it the keyboard.
    m_window->requestActivate();
    m_clock.start();
    m_lastFrame.start();
    QObject::connect(
        window, &QQuickWindow::frameSwapped, window, [this] { m_lastFrame.restart(); },
        Qt::QueuedConnection);
}

bool Stage::waitUntil(const std::function<bool()> &condition)
{
    // Without this nothing might wake the event loop that the conditions are asked from.
    QTimer poll;
    poll.start(pollInterval);
    while (!condition()) {
        if (m_clock.elapsed() > m_timeout)
            return false;
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    return true;
}

bool Stage::waitUntilStill()
{
    m_lastFrame.restart();
    return waitUntil([this] { return m_lastFrame.elapsed() > stillness; });
}

bool Stage::waitForSearch()
{
    return waitUntil([this] {
        return m_viewModel->hasSearched() && !m_viewModel->isLoading()
            && !m_viewModel->isSearchingFlightsOnly();
    });
}

QQuickItem *Stage::item(const QString &objectName) const
{
    return findVisible(m_window->contentItem(), objectName);
}

bool Stage::press(const QString &objectName)
{
    QAccessibleInterface *accessible = QAccessible::queryAccessibleInterface(item(objectName));
    if (!accessible || !accessible->actionInterface())
        return false;
    accessible->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    return true;
}

bool Stage::scrollTo(const QString &objectName)
{
    QQuickItem *page = item(u"page"_s);
    QQuickItem *wanted = item(objectName);
    if (!page || !wanted)
        return false;
    const qreal distance = wanted->mapToItem(page, QPointF()).y();
    return QMetaObject::invokeMethod(page, "scrollBy", Q_ARG(double, distance));
}

void Stage::pressKey(Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    QKeyEvent press(QEvent::KeyPress, key, modifiers);
    QCoreApplication::sendEvent(m_window, &press);
    QKeyEvent release(QEvent::KeyRelease, key, modifiers);
    QCoreApplication::sendEvent(m_window, &release);
}

void Stage::type(const QString &text)
{
    for (const QChar character : text) {
        QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, character);
        QCoreApplication::sendEvent(m_window, &press);
        QKeyEvent release(QEvent::KeyRelease, 0, Qt::NoModifier, character);
        QCoreApplication::sendEvent(m_window, &release);
    }
}
