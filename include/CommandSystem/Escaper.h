#ifndef COMMANDSYSTEM_ESCAPER_H
#define COMMANDSYSTEM_ESCAPER_H

#include <CommandSystem/Global.h>

#include <QObject>

CS_BEGIN_NAMESPACE

class Command;

// The policy that decides what happens to the command at the front of a pipe.
class COMMANDSYSTEM_EXPORT Escaper : public QObject
{
    Q_OBJECT

public:
    // The verdicts of escape(); any other value leaves the command waiting.
    enum Verdict { Drop = 0, Run = 1, Hold = 2 };

    explicit Escaper(QObject* parent = nullptr);
    ~Escaper() override;

    virtual int escape(int level, Command* command) = 0;
};

CS_END_NAMESPACE

#endif
