#include "Services/PlatformErrorText.h"

#include <curl/curl.h>

#include <cerrno>

using namespace Qt::StringLiterals;

namespace PlatformErrorText {

namespace {

const QString tryAgain = u" Lütfen yeniden deneyin."_s;

/// Of the reasons for which OpenSSL refuses a certificate, those that come of the certificate.
QString certificate(long reason)
{
    const QString insecure = u"Sunucuyla güvenli bağlantı kurulamadı: "_s;
    switch (reason) {
    case 0: // nothing else is wrong
    case 1: // X509_V_ERR_UNSPECIFIED, which libcurl begins with
        return insecure + u"sunucunun sertifikası başka bir adres için verilmiş."_s;
    case 2: // X509_V_ERR_UNABLE_TO_GET_ISSUER_CERT
    case 18: // X509_V_ERR_DEPTH_ZERO_SELF_SIGNED_CERT
    case 19: // X509_V_ERR_SELF_SIGNED_CERT_IN_CHAIN
    case 20: // X509_V_ERR_UNABLE_TO_GET_ISSUER_CERT_LOCALLY
    case 21: // X509_V_ERR_UNABLE_TO_VERIFY_LEAF_SIGNATURE
        return insecure + u"sunucunun sertifikasını tanınan bir kurum vermemiş."_s;
    case 9: // X509_V_ERR_CERT_NOT_YET_VALID
        return insecure
            + u"sunucunun sertifikası henüz geçerli değil. Bilgisayarınızın tarihini denetleyin."_s;
    case 10: // X509_V_ERR_CERT_HAS_EXPIRED
        return insecure
            + u"sunucunun sertifikasının süresi dolmuş. Bilgisayarınızın tarihini denetleyin."_s;
    default:
        return insecure + u"sunucunun sertifikası geçersiz."_s;
    }
}

} // namespace

QString network(int code, long reason)
{
    switch (code) {
    case CURLE_COULDNT_RESOLVE_HOST:
        return u"Sunucu bulunamadı. İnternet bağlantınızı denetleyin."_s;
    case CURLE_COULDNT_CONNECT:
        if (reason == ECONNREFUSED)
            return u"Sunucuya bağlanılamadı: bağlantı reddedildi."_s + tryAgain;
        return u"Ağ bağlantısı kurulamadı. İnternet bağlantınızı denetleyin."_s;
    case CURLE_COULDNT_RESOLVE_PROXY:
    case CURLE_PROXY:
        return u"Vekil sunucuya (proxy) bağlanılamadı. Ağ ayarlarınızı denetleyin."_s;
    case CURLE_OPERATION_TIMEDOUT:
        return u"Sunucu yanıt vermedi, istek zaman aşımına uğradı."_s + tryAgain;
    case CURLE_PEER_FAILED_VERIFICATION:
        return certificate(reason);
    case CURLE_SSL_CONNECT_ERROR:
    case CURLE_SSL_CACERT_BADFILE:
    case CURLE_SSL_CIPHER:
        return u"Sunucuyla güvenli bağlantı kurulamadı."_s;
    case CURLE_GOT_NOTHING:
    case CURLE_HTTP2:
    case CURLE_HTTP2_STREAM:
    case CURLE_PARTIAL_FILE:
    case CURLE_RECV_ERROR:
    case CURLE_SEND_ERROR:
        return u"Sunucu bağlantıyı geçerli bir yanıt vermeden kapattı."_s + tryAgain;
    case CURLE_BAD_CONTENT_ENCODING:
    case CURLE_UNSUPPORTED_PROTOCOL: // the answer is of another protocol
    case CURLE_WEIRD_SERVER_REPLY:
        return u"Sunucudan geçersiz bir yanıt alındı."_s;
    case CURLE_FILESIZE_EXCEEDED:
    case CURLE_OUT_OF_MEMORY: // a line beyond libcurl's own limits,
    case 100: // which libcurl calls CURLE_TOO_LARGE from 8.6 on
        return tooLarge();
    default:
        return u"İstek tamamlanamadı."_s + tryAgain;
    }
}

QString totalTimeout()
{
    return u"Yanıt zamanında tamamlanmadı, istek zaman aşımına uğradı."_s + tryAgain;
}

QString tooLarge() { return u"Sunucunun yanıtı kabul edilemeyecek kadar büyük."_s; }

QString proxyUnknown()
{
    return u"Kullanılacak vekil sunucu (proxy) öğrenilemedi. Ağ ayarlarınızı denetleyin."_s;
}

QString applicationQuits() { return u"Uygulama kapanıyor, istek tamamlanmadı."_s; }

QString unexpected() { return u"Beklenmeyen bir sorun oluştu."_s + tryAgain; }

QString notJson() { return u"Sunucunun yanıtı okunamadı."_s + tryAgain; }

QString final(const QString &text)
{
    QString problem = text;
    return problem.remove(tryAgain) + u" Lütfen uygulamayı yeniden başlatın."_s;
}

} // namespace PlatformErrorText
