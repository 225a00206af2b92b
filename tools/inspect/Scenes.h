#pragma once

#include "inspect/Stage.h"

#include <QList>

#include <functional>

/// One thing to look at: how a user gets there.
struct Scene
{
    QString name;
    QString description;
    /// Acts until the scene is there; false when it was not reached. The first search, which the
    /// window starts by itself, has ended before.
    std::function<bool(Stage &)> play;
    /// Something in the scene moves for as long as it is shown.
    bool isRestless = false;
};

const QList<Scene> &allScenes();
