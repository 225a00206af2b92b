#pragma once

class QWindow;

/// Asks the window manager for the dark variant of the window's frame, where it has one to give.
void requestDarkFrame(QWindow *window);
