#pragma once

#include <QString>

/// Whether this system gives its user graphics hardware to draw with, as far as one can tell: only
/// Linux is asked. `devices` is the folder of its device files.
bool hasGraphicsHardware(const QString &devices = QStringLiteral("/dev"));

/// Draws on the software scene graph where there is no such hardware, unless the environment says
/// what to draw with. To be called before the first window.
void chooseDrawing();
