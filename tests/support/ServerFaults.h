#pragma once

#include "Services/HttpTransport.h"
#include "support/ScriptedServer.h"

/// What a server may do wrong, as the tables of docs/reliability.md have it.
namespace ServerFaults {

inline const QString closed =
    QStringLiteral("Sunucu bağlantıyı geçerli bir yanıt vermeden kapattı. Lütfen yeniden deneyin.");
inline const QString idle =
    QStringLiteral("Sunucu yanıt vermedi, istek zaman aşımına uğradı. Lütfen yeniden deneyin.");
inline const QString invalid = QStringLiteral("Sunucudan geçersiz bir yanıt alındı.");
inline const QString tooLarge = QStringLiteral("Sunucunun yanıtı kabul edilemeyecek kadar büyük.");
/// Advice for what is not tried again.
inline const QString restart = QStringLiteral(" Lütfen uygulamayı yeniden başlatın.");
inline const QString closedAtStart =
    QStringLiteral("Sunucu bağlantıyı geçerli bir yanıt vermeden kapattı.") + restart;

struct Fault
{
    const char *what;
    std::function<ScriptedAnswer(ScriptedAnswer)> change; ///< of the good answer
    HttpLimits limits = {};
};

/// With the first `bytes` of what a program (gzip, brotli, zstd) makes of the body.
ScriptedAnswer packed(const ScriptedAnswer &answer, const QString &program, qsizetype bytes = -1);

/// What it does with a good answer to a call.
const QList<Fault> &inCalls();
/// The same with "initialize".
const QList<Fault> &inOpening();

} // namespace ServerFaults
