#ifndef SKETCHPAD_SKETCHCOMMANDFACTORY_H
#define SKETCHPAD_SKETCHCOMMANDFACTORY_H

#include <CommandSystem/CommandFactory.h>

namespace Talvir { namespace Vexa { namespace Cs { class TemplatePool; } } }
class CommandRunner;

// Makes a TemplateCommand for every name the template pool knows.
class SketchCommandFactory : public Talvir::Vexa::Cs::CommandFactory
{
    Q_OBJECT

public:
    SketchCommandFactory(Talvir::Vexa::Cs::TemplatePool* templates, CommandRunner* runner);

    Talvir::Vexa::Cs::Command* createCommand(const QString& name) override;

private:
    Talvir::Vexa::Cs::TemplatePool* m_templates;
    CommandRunner* m_runner;
};

#endif
