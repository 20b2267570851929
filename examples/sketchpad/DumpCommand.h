#ifndef SKETCHPAD_DUMPCOMMAND_H
#define SKETCHPAD_DUMPCOMMAND_H

#include <CommandSystem/Command.h>

class Drawing;
class CommandRunner;

// "dump": a command of the program itself, registered with the command manager rather than made
// from a template. Prints every entity on one line each, for scripts and tests.
class DumpCommand : public Talvir::Vexa::Cs::Command
{
    Q_OBJECT

public:
    DumpCommand(Drawing* drawing, CommandRunner* runner);

    void execute() override;

private:
    Drawing* m_drawing;
    CommandRunner* m_runner;
};

#endif
