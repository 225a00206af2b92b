#include "sample_server/QuitSignals.h"
#include "sample_server/SampleServer.h"

#include <QCoreApplication>
#include <QJsonDocument>
#include <QStringList>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

constexpr int exitFailure = 1;
constexpr int exitBadArguments = 2;

struct Options
{
    quint16 port = 0;
    int delay = 0;
    int jitter = 0;
    bool log = false;
    bool help = false;
    QString complaint; ///< empty when the arguments are good
};

void print(FILE *stream, const QString &text)
{
    std::fputs(qUtf8Printable(text + u'\n'), stream);
    std::fflush(stream);
}

QString usage()
{
    return u"Kullanım: vantora-sample-server [--port N] [--delay MS] [--jitter MS] [--log]\n"
           "\n"
           "Vantora'nın MCP sunucusunun yerini tutan örnek sunucu. Yalnızca 127.0.0.1 adresini\n"
           "dinler; bütün veriler uydurmadır.\n"
           "\n"
           "  --port N     dinlenecek kapı, 0-65535 (0: boş bir kapı seçilir; varsayılan)\n"
           "  --delay MS   her yanıtın bekletileceği süre, 0-60000 milisaniye\n"
           "  --jitter MS  yanıta göre değişen ek bekleme, 0-60000 milisaniye\n"
           "  --log        gelen araç çağrılarını standart hata çıktısına yazar\n"
           "  --help       bu açıklama"_s;
}

Options parse(const QStringList &arguments)
{
    Options options;
    for (int i = 1; i < arguments.size(); ++i) {
        const QString &name = arguments.at(i);
        if (name == "--help"_L1 || name == "-h"_L1) {
            options.help = true;
            return options;
        }
        if (name == "--log"_L1) {
            options.log = true;
            continue;
        }
        const bool isPort = name == "--port"_L1;
        if (!isPort && name != "--delay"_L1 && name != "--jitter"_L1) {
            options.complaint = u"Bilinmeyen seçenek: %1"_s.arg(name);
            return options;
        }
        if (++i == arguments.size()) {
            options.complaint = u"%1 seçeneğinin değeri eksik."_s.arg(name);
            return options;
        }
        const int largest = isPort ? 65535 : 60000;
        bool isNumber = false;
        const int value = arguments.at(i).toInt(&isNumber);
        if (!isNumber || value < 0 || value > largest) {
            options.complaint =
                u"%1 için 0 ile %2 arasında bir sayı gerekir, \"%3\" verildi."_s.arg(name)
                    .arg(largest)
                    .arg(arguments.at(i));
            return options;
        }
        if (isPort)
            options.port = quint16(value);
        else
            (name == "--delay"_L1 ? options.delay : options.jitter) = value;
    }
    return options;
}

void logCall(const QString &name, const QJsonObject &arguments)
{
    const QByteArray json = QJsonDocument(arguments).toJson(QJsonDocument::Compact);
    print(stderr, name + u' ' + QString::fromUtf8(json));
}

} // namespace

int main(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    const Options options = parse(QCoreApplication::arguments());
    if (options.help) {
        print(stdout, usage());
        return 0;
    }
    if (!options.complaint.isEmpty()) {
        print(stderr, options.complaint + u'\n' + usage());
        return exitBadArguments;
    }

    Sample::quitOnSignals();
    SampleServer server;
    server.setAnswerDelay(std::chrono::milliseconds(options.delay),
                          std::chrono::milliseconds(options.jitter));
    if (options.log)
        QObject::connect(&server, &SampleServer::toolCalled, &server, &logCall);
    const std::optional<quint16> port = server.listen(options.port);
    if (!port) {
        print(stderr,
              u"127.0.0.1:%1 dinlenemiyor: kapı kullanımda olabilir ya da izin yok (%2)."_s
                  .arg(options.port)
                  .arg(server.errorString()));
        return exitFailure;
    }
    print(stdout, u"listening %1"_s.arg(*port));
    return QCoreApplication::exec();
}
