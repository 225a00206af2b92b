#pragma once

#include <QJsonParseError>
#include <QNetworkReply>
#include <QString>

/// Turkish texts for what goes wrong below the protocol, whatever the system's language.
namespace PlatformErrorText {

/// Installs Qt's own Turkish catalogue, from which the details of TLS and JSON errors come. Call it
/// once, after the application object is made.
void installTurkishCatalogue();

/// `detail` is Qt's own text, shown where the error has no text here.
QString network(QNetworkReply::NetworkError error, const QString &detail);
/// `detail` names what is wrong with the certificate or the handshake; it may be empty.
QString tls(const QString &detail);
QString idleTimeout();
QString totalTimeout();
QString tooLarge();
/// The answer is no HTTP answer.
QString badServerResponse();
QString applicationQuits();
QString json(const QJsonParseError &error);

} // namespace PlatformErrorText
