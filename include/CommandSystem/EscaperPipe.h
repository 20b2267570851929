#ifndef COMMANDSYSTEM_ESCAPERPIPE_H
#define COMMANDSYSTEM_ESCAPERPIPE_H

#include <CommandSystem/Global.h>

#include <QObject>

CS_BEGIN_NAMESPACE

class Escaper;
class EscaperPipeImpl;

/**
 * The escapers posted for a level; the latest one posted is in force.
 *
 * There is no way to take an escaper out again, and the pipe never deletes one. Note that
 * CommandInvoker::invoke() consults escaper pipe 0 for every level; the other four escaper
 * pipes exist but are never asked.
 */
class COMMANDSYSTEM_EXPORT EscaperPipe : public QObject
{
    Q_OBJECT

public:
    /** Makes an empty escaper pipe without a parent. */
    EscaperPipe();
    /** Destroys the pipe; the escapers are not deleted. */
    ~EscaperPipe() override;

    /** Appends \a escaper, which is in force from now on; false for null. Not owned. */
    bool postEscaper(Escaper* escaper);
    /** The escaper posted last, or null when none was posted. */
    Escaper* escaper() const;

private:
    EscaperPipeImpl* d;
};

CS_END_NAMESPACE

#endif
