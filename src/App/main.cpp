#include "App/Application.h"

#include <QGuiApplication>

int main(int argc, char *argv[])
{
    QGuiApplication application(argc, argv);
    return runApplication(QStringLiteral("Vantora"));
}
