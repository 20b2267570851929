#include <CommandSystem/Parameter.h>

#include "template/ParameterImpl.h"
#include "template/ElementReader.h"
#include "template/ReaderErrors.h"

#include <QXmlStreamReader>

#include <cstdlib>
#include <cstring>

CS_BEGIN_NAMESPACE

namespace {

// Null texts are read as empty ones rather than crashing the host.
const char* orEmpty(const char* text)
{
    return text ? text : "";
}

} // namespace

Parameter::Parameter()
    : d(new ParameterImpl(this))
{
}

Parameter::Parameter(const char* luid, const char* type, const char* description,
                     const char* trigger)
    : d(new ParameterImpl(this))
{
    d->luid = std::atoi(orEmpty(luid));
    d->setType(QLatin1String(orEmpty(type)));
    d->description = orEmpty(description);
    d->trigger = std::strcmp(orEmpty(trigger), "true") == 0;
}

Parameter::~Parameter()
{
    delete d;
}

void Parameter::load(QXmlStreamReader& reader)
{
    d->loadAttributes(reader);
    ElementReader::readChildren(reader, [&] {
        if (reader.name() != QLatin1String("property")) {
            ReaderErrors::unexpectedElement(reader);
            return false;
        }
        d->loadProperty(reader);
        return true;
    });
}

const char* Parameter::description() const
{
    return d->description.c_str();
}

int Parameter::luid() const
{
    return d->luid;
}

Parameter::Type Parameter::type() const
{
    return d->type;
}

bool Parameter::isChecker() const
{
    return d->checker;
}

bool Parameter::isTrigger() const
{
    return d->trigger;
}

const char* Parameter::textProperty(const char* name) const
{
    return d->textCache.text(this, name);
}

int Parameter::inteProperty(const char* name) const
{
    return PropertyTextCache::integer(this, name);
}

CS_END_NAMESPACE
