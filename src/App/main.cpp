#include "App/Application.h"

#include <QGuiApplication>

#include <algorithm>
#include <cstdio>
#include <string_view>

namespace {

constexpr const char *help = R"(Kullanım: vantora [seçenekler]
Vantora'nın en uygun fiyatlı uçuşlarını bulur.

Seçenekler:
  -h, --help     Bu yardımı gösterir.
  -v, --version  Sürümü gösterir.
)";

} // namespace

int main(int argc, char *argv[])
{
    const auto isGiven = [argc, argv](std::string_view letter, std::string_view name) {
        return std::any_of(argv + 1, argv + argc, [=](std::string_view argument) {
            return argument == letter || argument == name;
        });
    };
    // These are answered without a display, too.
    if (isGiven("-h", "--help")) {
        std::fputs(help, stdout);
        return 0;
    }
    if (isGiven("-v", "--version")) {
        std::puts("vantora " VANTORA_VERSION);
        return 0;
    }

    // Qt takes its own arguments out of the list.
    QGuiApplication application(argc, argv);
    if (argc > 1) {
        std::fprintf(stderr, "vantora: Bilinmeyen seçenek: “%s”. Yardım için: vantora --help\n",
                     argv[1]);
        return 2;
    }
    return runApplication(QStringLiteral("Vantora"));
}
