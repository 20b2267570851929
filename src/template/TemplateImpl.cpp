#include "template/TemplateImpl.h"

#include "template/ElementReader.h"
#include "template/ReaderErrors.h"

#include <CommandSystem/Parameter.h>

#include <QVariant>
#include <QXmlStreamReader>

CS_BEGIN_NAMESPACE

// The object name is what the pool matches requests against and the translation context of
// the parameters, so it always follows the stored bytes.
void TemplateImpl::setName(const QByteArray& bytes)
{
    name.assign(bytes.constData(), size_t(bytes.size()));
    owner->setObjectName(QString::fromUtf8(bytes));
}

void TemplateImpl::loadAttributes(QXmlStreamReader& reader)
{
    const QXmlStreamAttributes attributes = reader.attributes();
    for (const QXmlStreamAttribute& attribute : attributes) {
        if (attribute.name() == QLatin1String("name"))
            setName(attribute.value().toUtf8());
        else
            ReaderErrors::unexpectedAttribute(reader, attribute.name());
    }
}

void TemplateImpl::loadParameters(QXmlStreamReader& reader)
{
    ElementReader::readChildren(reader, [&] {
        if (reader.name() != QLatin1String("parameter")) {
            ReaderErrors::unexpectedElement(reader);
            return false;
        }
        // Kept even when its load fails: the error ends the whole read anyway.
        Parameter* parameter = new Parameter;
        parameter->setParent(owner);
        parameter->load(reader);
        parameters.push_back(parameter);
        return true;
    });
}

// Template properties have no child elements.
void TemplateImpl::loadProperty(QXmlStreamReader& reader)
{
    const QByteArray propertyName = ElementReader::propertyName(reader);
    QByteArray value;
    const bool complete = ElementReader::readText(reader, value, [&reader](QByteArray&) {
        ReaderErrors::unexpectedElement(reader);
        return false;
    });
    if (complete && !propertyName.isEmpty() && !value.isEmpty())
        storeProperty(propertyName, value);
}

void TemplateImpl::storeProperty(const QByteArray& propertyName, const QByteArray& value)
{
    if (propertyName == "form_id" || propertyName == "icon_id"
        || propertyName == "parent_echo" || propertyName == "scope") {
        owner->setProperty(propertyName.constData(), value.toInt());
    } else if (propertyName == "repeatable") {
        // Folded into "last_tpl": anything but an explicit "false" keeps repeating allowed.
        owner->setProperty("last_tpl", value != "false");
    } else if (value == "true" || value == "on") {
        owner->setProperty(propertyName.constData(), true);
    } else if (value == "false" || value == "off") {
        owner->setProperty(propertyName.constData(), false);
    } else {
        owner->setProperty(propertyName.constData(), value);
    }
}

CS_END_NAMESPACE
