#pragma once

#include <QByteArray>
#include <QStringList>

/// What holds for each reader, whatever the reply. A violation ends the program with a message; so
/// does a fault that a sanitizer finds.
namespace ReaderChecks {

/// reply, calendar, flights, status, promotions, guide, records.
QStringList readers();
/// Lets one of them read. For all but the first `bytes` is a JSON object, or a data file that
/// has it as "reply"; what is neither is ignored.
void check(const QString &reader, const QByteArray &bytes);

} // namespace ReaderChecks
