#ifndef COMMANDSYSTEM_TEMPLATEIMPL_H
#define COMMANDSYSTEM_TEMPLATEIMPL_H

#include <CommandSystem/Impl.h>
#include <CommandSystem/Template.h>

#include "template/PropertyTextCache.h"

#include <QByteArray>

#include <string>
#include <vector>

CS_BEGIN_NAMESPACE

class Parameter;

class TemplateImpl : public Impl<Template>
{
public:
    explicit TemplateImpl(Template* owner) : Impl(owner) {}

    void setName(const QByteArray& bytes);
    void loadAttributes(QXmlStreamReader& reader);
    void loadParameters(QXmlStreamReader& reader);
    void loadProperty(QXmlStreamReader& reader);
    void storeProperty(const QByteArray& name, const QByteArray& value);

    std::string name;
    std::vector<Parameter*> parameters;
    PropertyTextCache textCache;
};

CS_END_NAMESPACE

#endif
