#include "Controls/Messages/Clipboard.h"

#include <QClipboard>
#include <QGuiApplication>

void Clipboard::copy(const QString &text) const { QGuiApplication::clipboard()->setText(text); }
