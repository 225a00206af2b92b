#pragma once

#include <QQuickWindow>
#include <QStringList>

/// Every text that a person sees in the window now, from top to bottom and from left to right: what
/// lies outside of the view or behind a sheet or a menu is not among them, nor are symbols.
QStringList seenTexts(const QQuickWindow *window);

/// The same texts as lines. What stands side by side is one line, with " | " between its parts; the
/// lines of such a part have " / " between them, and what stands side by side in it " · ".
QStringList seenLines(const QQuickWindow *window);

/// Writes the texts that are seen, as one line of JSON, for each line that comes on the standard
/// input; ends the program when the input ends.
void answerWithSeenTexts(QQuickWindow *window);
