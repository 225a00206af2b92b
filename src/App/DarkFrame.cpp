#include "App/DarkFrame.h"

#include <QGuiApplication>
#include <QWindow>

#ifdef VANTORA_HAS_XCB
#include <xcb/xcb.h>

#include <cstdlib>
#include <cstring>
#include <memory>

namespace {

xcb_atom_t atomNamed(xcb_connection_t *connection, const char *name)
{
    const auto length = static_cast<uint16_t>(std::strlen(name));
    const xcb_intern_atom_cookie_t cookie = xcb_intern_atom(connection, false, length, name);
    const std::unique_ptr<xcb_intern_atom_reply_t, decltype(&std::free)> reply(
        xcb_intern_atom_reply(connection, cookie, nullptr), &std::free);
    return reply ? reply->atom : xcb_atom_t(XCB_ATOM_NONE);
}

} // namespace

void requestDarkFrame(QWindow *window)
{
    auto *x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    // Platforms without windows of their own have the interface too, but no connection.
    xcb_connection_t *connection = x11 ? x11->connection() : nullptr;
    if (!connection)
        return;
    // The name is historical: window managers of several desktops read this property.
    const xcb_atom_t property = atomNamed(connection, "_GTK_THEME_VARIANT");
    const xcb_atom_t type = atomNamed(connection, "UTF8_STRING");
    constexpr char variant[] = "dark";
    xcb_change_property(connection, XCB_PROP_MODE_REPLACE,
                        static_cast<xcb_window_t>(window->winId()), property, type, 8,
                        sizeof variant - 1, variant);
    xcb_flush(connection);
}
#else
void requestDarkFrame(QWindow *) { }
#endif
