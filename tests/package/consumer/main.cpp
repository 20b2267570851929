#include <CommandSystem/CommandSystem.h>

#include <QCoreApplication>

#include <cstdio>

using namespace Talvir::Vexa::Cs;

class Line : public Command
{
public:
    Line() : Command(QStringLiteral("line")) {}
    void execute() override { std::printf("ran %s from the installed package\n", "line"); }
};

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    CommandInvoker invoker;
    Line line;
    invoker.commandPipe(0)->postCommand(&line);
    return invoker.invoke() && line.inherits("Command") ? 0 : 1;
}
