// A minimal host: registers commands and a factory, posts commands on several levels under an
// escaper, drives the invoker from idle processing, and bridges work to a pool thread and back.

#include <CommandSystem/CommandSystem.h>

#include <QCoreApplication>
#include <QThread>
#include <QTimer>

#include <cstdio>

using namespace Talvir::Vexa::Cs;

namespace {

void say(const QString& line)
{
    std::printf("%s\n", qPrintable(line));
    std::fflush(stdout);
}

class PrintCommand : public Command
{
public:
    explicit PrintCommand(const QString& name) : Command(name) {}
    bool deletable() const override { return true; }
    void execute() override { say(QStringLiteral("run   %1").arg(objectName())); }
};

// Makes a command for any name that starts with "draw".
class DrawFactory : public CommandFactory
{
public:
    Command* createCommand(const QString& name) override
    {
        return name.startsWith(QLatin1String("draw")) ? new PrintCommand(name) : nullptr;
    }
};

// Drops a repeated command, holds "regen" until something else ran, runs the rest.
class DemoEscaper : public Escaper
{
public:
    int escape(int level, Command* command) override
    {
        const QString name = command->objectName();
        if (name == lastSeen) {
            say(QStringLiteral("drop  %1 (level %2, repeated)").arg(name).arg(level));
            return Drop;
        }
        lastSeen = name;
        if (name == QLatin1String("regen") && !heldOnce) {
            heldOnce = true;
            say(QStringLiteral("hold  %1 (level %2)").arg(name).arg(level));
            return Hold;
        }
        return Run;
    }

private:
    QString lastSeen;
    bool heldOnce = false;
};

class ArrayCommand : public Command
{
public:
    explicit ArrayCommand(CommandInvoker* invoker) : Command(QStringLiteral("array")), invoker(invoker) {}
    void execute() override
    {
        auto* work = new Runnable;
        work->autoDelete = true;
        work->function = [this] {
            int copies = 0;
            for (int batch = 1; batch <= 3; ++batch) {
                copies += 1000;
                auto* progress = new Runnable;
                progress->function = [copies] {
                    const bool onMain = QThread::currentThread() == QCoreApplication::instance()->thread();
                    say(QStringLiteral("      array progress %1 copies (on main thread: %2)")
                            .arg(copies).arg(onMain ? QStringLiteral("yes") : QStringLiteral("no")));
                    return copies;
                };
                invoker->runOnMainThread(progress);
            }
            return copies;
        };
        const int copies = invoker->runOnWorkThread(work);
        say(QStringLiteral("run   array: %1 copies made on a pool thread").arg(copies));
    }

private:
    CommandInvoker* invoker;
};

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);

    CommandManager manager;
    DrawFactory factory;
    manager.attachCommandFactory(&factory);
    CommandInvoker invoker;
    ArrayCommand array(&invoker);
    manager.attachCommand(&array);
    DemoEscaper escaper;
    invoker.escaperPipe(0)->postEscaper(&escaper);

    const struct { const char* name; int level; } posts[] = {
        {"regen", 2}, {"drawLine", 1}, {"drawLine", 1}, {"drawCircle", 3}, {"zoom", 0}, {"array", 4}};
    for (const auto& post : posts) {
        Command* command = manager.command(QString::fromLatin1(post.name));
        if (!command)
            command = new PrintCommand(QString::fromLatin1(post.name));
        invoker.commandPipe(post.level)->postCommand(command);
        say(QStringLiteral("post  %1 on level %2").arg(command->objectName()).arg(post.level));
    }

    // Idle processing: one invoke() per turn of the event loop until nothing more runs.
    QTimer idle;
    idle.setInterval(0);
    int idleTurns = 0;
    QObject::connect(&idle, &QTimer::timeout, [&] {
        if (invoker.invoke())
            return;
        if (++idleTurns == 2)   // one more turn lets a held command run
            application.quit();
    });
    idle.start();
    return application.exec();
}
