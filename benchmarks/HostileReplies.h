#pragma once

#include "sample_server/HttpServer.h"

#include <QString>

#include <functional>

/// A reply that is made to hurt, within every limit.
struct HostileReply
{
    QString what;
    QString tool; ///< that is answered with it
    std::function<Sample::HttpAnswer()> answer;
};

QList<HostileReply> hostileReplies();
