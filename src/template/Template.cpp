#include <CommandSystem/Template.h>

#include "template/ElementReader.h"
#include "template/ReaderErrors.h"
#include "template/TemplateImpl.h"

#include <CommandSystem/Parameter.h>

#include <QVariant>
#include <QXmlStreamReader>

#include <algorithm>

CS_BEGIN_NAMESPACE

Template::Template()
    : d(new TemplateImpl(this))
{
    setProperty("last_tpl", true);
}

Template::Template(const char* name)
    : Template()
{
    d->setName(QByteArray(name ? name : ""));
}

Template::~Template()
{
    delete d;
}

void Template::load(QXmlStreamReader& reader)
{
    // Attributes first: the name is the parameters' translation context.
    d->loadAttributes(reader);
    ElementReader::readChildren(reader, [&] {
        if (reader.name() == QLatin1String("property"))
            d->loadProperty(reader);
        else if (reader.name() == QLatin1String("parameters"))
            d->loadParameters(reader);
        else
            ReaderErrors::unexpectedElement(reader);
        return true;
    });
}

const char* Template::name() const
{
    return d->name.c_str();
}

const std::vector<Parameter*>& Template::parameters() const
{
    return d->parameters;
}

bool Template::appendParameter(Parameter* parameter)
{
    if (!parameter)
        return false;
    if (std::find(d->parameters.begin(), d->parameters.end(), parameter) != d->parameters.end())
        return false;
    parameter->setParent(this);
    d->parameters.push_back(parameter);
    return true;
}

// The parameter stays a child object: removal from the list is not a transfer of ownership.
bool Template::removeParameter(Parameter* parameter)
{
    const auto found = std::find(d->parameters.begin(), d->parameters.end(), parameter);
    if (!parameter || found == d->parameters.end())
        return false;
    d->parameters.erase(found);
    return true;
}

const char* Template::textProperty(const char* name) const
{
    return d->textCache.text(this, name);
}

int Template::inteProperty(const char* name) const
{
    return PropertyTextCache::integer(this, name);
}

CS_END_NAMESPACE
