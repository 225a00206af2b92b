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

QString network(QNetworkReply::NetworkError error, const QString &certificateError)
{
    switch (error) {
    case QNetworkReply::ConnectionRefusedError:
        return u"Sunucuya bağlanılamadı: bağlantı reddedildi. Lütfen daha sonra yeniden deneyin."_s;
    case QNetworkReply::RemoteHostClosedError:
    case QNetworkReply::ContentReSendError:
        // Qt reports a missing, a cut and an unreadable answer alike.
        return u"Sunucu bağlantıyı geçerli bir yanıt vermeden kapattı. Lütfen yeniden deneyin."_s;
    case QNetworkReply::HostNotFoundError:
        return u"Sunucu bulunamadı. İnternet bağlantınızı denetleyin."_s;
    case QNetworkReply::TimeoutError:
        return idleTimeout();
    case QNetworkReply::SslHandshakeFailedError:
        return tls(certificateError);
    case QNetworkReply::OperationCanceledError:
        return u"İstek iptal edildi."_s;
    case QNetworkReply::TemporaryNetworkFailureError:
    case QNetworkReply::NetworkSessionFailedError:
    case QNetworkReply::UnknownNetworkError:
        return u"Ağ bağlantısı kurulamadı. İnternet bağlantınızı denetleyin."_s;
    case QNetworkReply::ProxyConnectionRefusedError:
    case QNetworkReply::ProxyConnectionClosedError:
    case QNetworkReply::ProxyNotFoundError:
    case QNetworkReply::ProxyTimeoutError:
    case QNetworkReply::ProxyAuthenticationRequiredError:
    case QNetworkReply::UnknownProxyError:
        return u"Vekil sunucuya (proxy) bağlanılamadı. Ağ ayarlarınızı denetleyin."_s;
    case QNetworkReply::ProtocolFailure:
    case QNetworkReply::ProtocolUnknownError:
    case QNetworkReply::ProtocolInvalidOperationError:
    case QNetworkReply::UnknownContentError:
    case QNetworkReply::UnknownServerError:
        return badServerResponse();
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

QString json(const QJsonParseError &error)
{
    return u"Sunucunun yanıtı okunamadı: "_s + error.errorString();
}

} // namespace PlatformErrorText
