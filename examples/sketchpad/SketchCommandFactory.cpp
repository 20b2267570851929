#include "SketchCommandFactory.h"

#include "TemplateCommand.h"

#include <CommandSystem/TemplatePool.h>

SketchCommandFactory::SketchCommandFactory(Talvir::Vexa::Cs::TemplatePool* templates,
                                           CommandRunner* runner)
    : m_templates(templates)
    , m_runner(runner)
{
}

Talvir::Vexa::Cs::Command* SketchCommandFactory::createCommand(const QString& name)
{
    if (!m_templates->getTemplate(name))
        return nullptr;
    return new TemplateCommand(name, m_runner);
}
