#ifndef COMMANDSYSTEM_INPUTTRANSCRIPTIMPL_H
#define COMMANDSYSTEM_INPUTTRANSCRIPTIMPL_H

#include <CommandSystem/Impl.h>
#include <CommandSystem/InputTranscript.h>

#include <QList>
#include <QStringList>

CS_BEGIN_NAMESPACE

class InputTranscriptImpl : public Impl<InputTranscript>
{
public:
    explicit InputTranscriptImpl(InputTranscript* owner) : Impl(owner) {}

    // Appends the commands of a transcript's text; false when any line was bad.
    bool read(const QString& text, const QString& fileName);

    QList<InputTranscript::Entry> entries;
    QStringList errors;

private:
    // Each returns the problem with the line, or an empty text when it was good.
    QString readRun(const QString& name, int line);
    QString readEnd(bool completed);
    QString readStep(const QString& line);
    void closeUnended(const QString& fileName);

    bool m_open = false;
    InputTranscript::Entry m_entry;
};

CS_END_NAMESPACE

#endif
