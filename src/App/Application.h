#pragma once

#include <QQmlApplicationEngine>
#include <QString>

/// What every program that shows the window does before it shows it: names the application, embeds
/// fonts and Turkish texts. Call it once, after the application object is made.
void prepareApplication();

/// Loads the window with this title. Returns false, after a message on the
/// console, when it does not load.
bool loadMainWindow(QQmlApplicationEngine &engine, const QString &title);

/// Shows the window and runs until it closes. Returns the exit status.
int runApplication(const QString &title);
