#include "Services/PlatformErrorText.h"

#include <QCoreApplication>
#include <QTranslator>

using namespace Qt::StringLiterals;

namespace PlatformErrorText {

namespace {

QString tls(const QString &certificateError)
{
    if (certificateError.isEmpty())
        return u"Sunucuyla güvenli bağlantı kurulamadı."_s;
    return u"Sunucuyla güvenli bağlantı kurulamadı: "_s + certificateError;
}

} // namespace

void installTurkishCatalogue()
{
    auto *catalogue = new QTranslator(QCoreApplication::instance());
    if (catalogue->load(u":/translations/qtbase_tr.qm"_s))
        QCoreApplication::installTranslator(catalogue);
    else
        qWarning("The embedded Turkish catalogue cannot be read.");
}

QString network(QAbstractSocket::SocketError error, const QString &certificateError)
{
    switch (error) {
    case QAbstractSocket::ConnectionRefusedError:
        return u"Sunucuya bağlanılamadı: bağlantı reddedildi. Lütfen daha sonra yeniden deneyin."_s;
    case QAbstractSocket::RemoteHostClosedError:
        return u"Sunucu bağlantıyı geçerli bir yanıt vermeden kapattı. Lütfen yeniden deneyin."_s;
    case QAbstractSocket::HostNotFoundError:
        return u"Sunucu bulunamadı. İnternet bağlantınızı denetleyin."_s;
    case QAbstractSocket::SocketTimeoutError:
        return idleTimeout();
    case QAbstractSocket::SslHandshakeFailedError:
    case QAbstractSocket::SslInternalError:
    case QAbstractSocket::SslInvalidUserDataError:
        return tls(certificateError);
    case QAbstractSocket::NetworkError:
    case QAbstractSocket::SocketAccessError:
    case QAbstractSocket::SocketResourceError:
        return u"Ağ bağlantısı kurulamadı. İnternet bağlantınızı denetleyin."_s;
    case QAbstractSocket::ProxyAuthenticationRequiredError:
    case QAbstractSocket::ProxyConnectionRefusedError:
    case QAbstractSocket::ProxyConnectionClosedError:
    case QAbstractSocket::ProxyConnectionTimeoutError:
    case QAbstractSocket::ProxyNotFoundError:
    case QAbstractSocket::ProxyProtocolError:
        return u"Vekil sunucuya (proxy) bağlanılamadı. Ağ ayarlarınızı denetleyin."_s;
    default:
        return u"İstek tamamlanamadı. Lütfen yeniden deneyin."_s;
    }
}

QString idleTimeout()
{
    return u"Sunucu yanıt vermedi, istek zaman aşımına uğradı. Lütfen yeniden deneyin."_s;
}

QString totalTimeout()
{
    return u"Yanıt zamanında tamamlanmadı, istek zaman aşımına uğradı. Lütfen yeniden deneyin."_s;
}

QString tooLarge() { return u"Sunucunun yanıtı kabul edilemeyecek kadar büyük."_s; }

QString badServerResponse() { return u"Sunucudan geçersiz bir yanıt alındı."_s; }

QString applicationQuits() { return u"Uygulama kapanıyor, istek tamamlanmadı."_s; }

QString unexpected() { return u"Beklenmeyen bir sorun oluştu. Lütfen yeniden deneyin."_s; }

QString json(const QJsonParseError &error)
{
    return u"Sunucunun yanıtı okunamadı: "_s + error.errorString();
}

} // namespace PlatformErrorText
