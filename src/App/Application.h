#pragma once

#include <QQmlApplicationEngine>
#include <QString>

class QQuickWindow;

/// What every program does before it loads the window: names the application, embeds the fonts and
/// chooses what draws. Call it once, after the application object is made.
void prepareApplication();

/// Loads the window with this title and shows it. Returns null, after a message on the console,
/// when it does not load. The window is the engine's.
QQuickWindow *loadMainWindow(QQmlApplicationEngine &engine, const QString &title);

/// Shows the window and runs until it closes. Returns the exit status.
int runApplication(const QString &title);
