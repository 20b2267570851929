#include "TemplateCommand.h"

#include "CommandRunner.h"

TemplateCommand::TemplateCommand(const QString& name, CommandRunner* runner)
    : Command(name)
    , m_runner(runner)
{
}

void TemplateCommand::setAnswers(const QStringList& answers)
{
    m_answers = answers;
}

QStringList TemplateCommand::answers() const
{
    return m_answers;
}

bool TemplateCommand::deletable() const
{
    return true;
}

void TemplateCommand::execute()
{
    m_runner->start(objectName(), m_answers);
}
