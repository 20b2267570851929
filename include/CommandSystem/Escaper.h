#ifndef COMMANDSYSTEM_ESCAPER_H
#define COMMANDSYSTEM_ESCAPER_H

#include <CommandSystem/Global.h>

#include <QObject>

CS_BEGIN_NAMESPACE

class Command;

/**
 * The host's policy that decides what happens to the command at the front of a pipe.
 *
 * Post it into escaper pipe 0 of the CommandInvoker (see CommandInvoker::escaperPipe()); pipes
 * never delete it.
 */
class COMMANDSYSTEM_EXPORT Escaper : public QObject
{
    Q_OBJECT

public:
    /** The verdicts of escape(); any other value leaves the command waiting. */
    enum Verdict {
        Drop = 0,   ///< Take the command out without running it (deleted when deletable).
        Run = 1,    ///< Run the command now.
        Hold = 2    ///< Move a queued command to the held list, which is served first.
    };

    /** Makes an escaper with the given Qt \a parent. */
    explicit Escaper(QObject* parent = nullptr);
    /** Destroys the escaper; take it out of use first (pipes keep plain pointers). */
    ~Escaper() override;

    /**
     * Returns the verdict (a Verdict value, or any other number to wait) for the front
     * \p command of the pipe of level \p level (0 to 4 in the invoker's pipes).
     * \param level the level of the pipe that asks
     * \param command the command at the front of that pipe; never null
     */
    virtual int escape(int level, Command* command) = 0;
};

CS_END_NAMESPACE

#endif
