#pragma once

#include "support/ScriptedServer.h"

#include <functional>

/// One reply, within every limit of size.
struct HostileReply
{
    QString what;
    QString tool; ///< that is answered with it
    std::function<ScriptedAnswer()> answer;
};

const QList<HostileReply> &hostileReplies();
