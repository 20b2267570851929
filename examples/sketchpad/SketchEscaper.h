#ifndef SKETCHPAD_SKETCHESCAPER_H
#define SKETCHPAD_SKETCHESCAPER_H

#include <CommandSystem/Escaper.h>

#include <QSet>

class CommandRunner;

// The program's policy for waiting commands, asked by the invoker for the front command of each
// pipe. While a command collects input: the same command again is dropped (a repeated click),
// a drawing command (level 2 and below in priority) is held and runs once the input is done,
// and view and setting commands (levels 0 and 1) run at once on top of it.
class SketchEscaper : public Talvir::Vexa::Cs::Escaper
{
    Q_OBJECT

public:
    explicit SketchEscaper(CommandRunner* runner, QObject* parent = nullptr);

    int escape(int level, Talvir::Vexa::Cs::Command* command) override;

private:
    CommandRunner* m_runner;
    QSet<Talvir::Vexa::Cs::Command*> m_held;
};

#endif
