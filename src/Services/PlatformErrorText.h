#pragma once

#include <QAbstractSocket>
#include <QJsonParseError>
#include <QString>

/// Turkish texts for what goes wrong below the protocol, whatever the system's language.
namespace PlatformErrorText {

/// Installs Qt's own Turkish catalogue, from which the details of TLS and JSON errors come. Call it
/// once, after the application object is made.
void installTurkishCatalogue();

/// `certificateError` is Qt's text for what is wrong with the server's certificate; it may be
/// empty. Qt's text for the network error itself is never shown: much of it comes untranslated from
/// the system and from OpenSSL.
QString network(QAbstractSocket::SocketError error, const QString &certificateError);
QString idleTimeout();
QString totalTimeout();
QString tooLarge();
/// The answer is no HTTP answer.
QString badServerResponse();
QString applicationQuits();
/// The program itself failed, from want of memory for instance.
QString unexpected();
QString json(const QJsonParseError &error);

} // namespace PlatformErrorText
