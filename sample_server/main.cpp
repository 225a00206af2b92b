#include "sample_server/SampleServer.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QJsonDocument>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

void print(FILE *stream, const QString &text)
{
    std::fputs(qUtf8Printable(text + u'\n'), stream);
    std::fflush(stream);
}

/// Ends the program with this message and the exit status of a wrong call.
[[noreturn]] void refuse(const QString &message)
{
    print(stderr, u"vantora-sample-server: "_s + message);
    std::exit(2);
}

int number(const QCommandLineParser &parser, const QString &option, int largest)
{
    bool isNumber = false;
    const int number = parser.value(option).toInt(&isNumber);
    if (!isNumber || number < 0 || number > largest)
        refuse(u"--%1 takes a number from 0 to %2."_s.arg(option).arg(largest));
    return number;
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
    QCommandLineParser parser;
    parser.setApplicationDescription(
        u"Stands in for the airline's MCP server. It listens on 127.0.0.1 only, and all its data "
        "is invented."_s);
    parser.addHelpOption();
    parser.addOptions({
        { u"port"_s, u"Port to listen on; 0 takes a free one."_s, u"N"_s, u"0"_s },
        { u"delay"_s, u"Holds back every answer, up to 60000 ms."_s, u"MS"_s, u"0"_s },
        { u"jitter"_s, u"A further delay that differs from answer to answer."_s, u"MS"_s, u"0"_s },
        { u"log"_s, u"Writes each tool call to standard error."_s },
    });
    if (!parser.parse(QCoreApplication::arguments()))
        refuse(parser.errorText());
    if (parser.isSet(u"help"_s)) {
        print(stdout, parser.helpText());
        return 0;
    }
    if (!parser.positionalArguments().isEmpty())
        refuse(u"Unexpected argument \"%1\"."_s.arg(parser.positionalArguments().first()));

    SampleServer server;
    server.setAnswerDelay(std::chrono::milliseconds(number(parser, u"delay"_s, 60000)),
                          std::chrono::milliseconds(number(parser, u"jitter"_s, 60000)));
    if (parser.isSet(u"log"_s))
        QObject::connect(&server, &SampleServer::toolCalled, &server, &logCall);
    const int wanted = number(parser, u"port"_s, 65535);
    const std::optional<quint16> port = server.listen(quint16(wanted));
    if (!port) {
        const QString reason = qt_error_string();
        print(stderr, u"vantora-sample-server: 127.0.0.1:%1: %2."_s.arg(wanted).arg(reason));
        return 1;
    }
    print(stdout, u"listening %1"_s.arg(*port));
    return QCoreApplication::exec();
}
