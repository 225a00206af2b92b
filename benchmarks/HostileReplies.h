#pragma once

#include "support/ScriptedServer.h"

#include <functional>

/// A reply that is made to hurt, within every limit.
struct HostileReply
{
    QString what;
    QString tool; ///< that is answered with it
    std::function<ScriptedAnswer()> answer;
};

QList<HostileReply> hostileReplies();
