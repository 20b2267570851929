#ifndef SKETCHPAD_TEMPLATECOMMAND_H
#define SKETCHPAD_TEMPLATECOMMAND_H

#include <CommandSystem/Command.h>

#include <QStringList>

class CommandRunner;

// A command made from a template of the catalogue. Running it starts an input session that walks
// the template's parameters; answers given with the command text ("zoom i") are fed first.
// The pipe deletes it after the run: the session keeps what it needs.
class TemplateCommand : public Talvir::Vexa::Cs::Command
{
    Q_OBJECT

public:
    TemplateCommand(const QString& name, CommandRunner* runner);

    void setAnswers(const QStringList& answers);
    QStringList answers() const;

    bool deletable() const override;
    void execute() override;

private:
    CommandRunner* m_runner;
    QStringList m_answers;
};

#endif
