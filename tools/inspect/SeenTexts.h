#pragma once

#include <QQuickWindow>
#include <QStringList>

/// Every text that a person sees in the window now, in the order of the items: what lies outside
/// of the view or behind a sheet or a menu is not among them, nor are symbols.
QStringList seenTexts(QQuickWindow *window);

/// Writes the texts that are seen, as one line of JSON, for each line that comes on the standard
/// input; ends the program when the input ends.
void answerWithSeenTexts(QQuickWindow *window);
