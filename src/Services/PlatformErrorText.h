#pragma once

#include <QString>

/// Turkish texts for what goes wrong below the protocol, whatever the system's language.
namespace PlatformErrorText {

/// What a CURLcode comes to. `reason` tells more of a refused certificate, by OpenSSL's number, or
/// of a refused connection, by the system's; 0 is a certificate for another host, or
/// unknown.
QString network(int code, long reason = 0);
QString totalTimeout();
QString tooLarge();
/// The system does not tell in time which proxy it wants.
QString proxyUnknown();
QString applicationQuits();
/// The program itself failed, for example out of memory.
QString unexpected();
/// The answer is no JSON document.
QString notJson();
/// The same, with the advice for a failure after which nothing more is tried.
QString final(const QString &text);

} // namespace PlatformErrorText
