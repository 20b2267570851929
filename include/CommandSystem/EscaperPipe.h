#ifndef COMMANDSYSTEM_ESCAPERPIPE_H
#define COMMANDSYSTEM_ESCAPERPIPE_H

#include <CommandSystem/Global.h>

#include <QObject>

CS_BEGIN_NAMESPACE

class Escaper;
class EscaperPipeImpl;

// The escapers posted for a level; the latest one is in force.
class COMMANDSYSTEM_EXPORT EscaperPipe : public QObject
{
    Q_OBJECT

public:
    EscaperPipe();
    ~EscaperPipe() override;

    bool postEscaper(Escaper* escaper);
    Escaper* escaper() const;

private:
    EscaperPipeImpl* d;
};

CS_END_NAMESPACE

#endif
