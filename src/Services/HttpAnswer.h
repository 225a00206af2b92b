#pragma once

#include <QByteArray>
#include <QList>

#include <chrono>
#include <utility>

/// Names as received.
using HttpHeaders = QList<std::pair<QByteArray, QByteArray>>;

/// Any HTTP answer, whatever its status.
struct HttpAnswer
{
    int status = 0;
    HttpHeaders headers;
    QByteArray body;
};

/// When a request is given up. The sizes bound what one answer may cost in memory: an answer with
/// 25,000 flights has about 10 MB, and a head rarely 4 KiB.
struct HttpLimits
{
    std::chrono::milliseconds idle = std::chrono::seconds(30); ///< without a byte
    std::chrono::milliseconds total = std::chrono::seconds(60);
    qint64 bodyBytes = 12 * 1024 * 1024;
    qint64 headBytes = 256 * 1024; ///< of status lines, headers and trailers, early hints included
    int headLines = 1000;
};
