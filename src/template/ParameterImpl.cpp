#include "template/ParameterImpl.h"

#include "template/ElementReader.h"
#include "template/ReaderErrors.h"

#include <QCoreApplication>
#include <QVariant>
#include <QXmlStreamReader>

CS_BEGIN_NAMESPACE

const char* const ParameterImpl::typeWords[typeCount] = {
    "null", "string", "number", "distance", "angle", "point", "entity",
    "option", "continue", "form", "window", "command", "pin"};

void ParameterImpl::loadAttributes(QXmlStreamReader& reader)
{
    const QXmlStreamAttributes attributes = reader.attributes();
    for (const QXmlStreamAttribute& attribute : attributes) {
        const auto name = attribute.name();
        const auto value = attribute.value();
        if (name == QLatin1String("luid"))
            luid = value.toInt();
        else if (name == QLatin1String("type"))
            setType(value);
        else if (name == QLatin1String("description"))
            description = translated(value.toUtf8()).toStdString();
        else if (name == QLatin1String("trigger"))
            trigger = value == QLatin1String("true");
        else if (name == QLatin1String("checker"))
            checker = value == QLatin1String("true");
        else
            ReaderErrors::unexpectedAttribute(reader, name);
    }
}

void ParameterImpl::loadProperty(QXmlStreamReader& reader)
{
    const QByteArray name = ElementReader::propertyName(reader);
    QByteArray value;
    const bool complete = ElementReader::readText(reader, value, [&](QByteArray& text) {
        if (reader.name() != QLatin1String("string") || name != "dim") {
            ReaderErrors::unexpectedElement(reader);
            return false;
        }
        ElementReader::appendDimItem(text, readString(reader));
        return true;
    });
    if (complete && !name.isEmpty() && !value.isEmpty())
        storeProperty(name, value);
}

QByteArray ParameterImpl::readString(QXmlStreamReader& reader)
{
    QByteArray text;
    ElementReader::readText(reader, text, [&reader](QByteArray&) {
        ReaderErrors::unexpectedElement(reader);
        return false;
    });
    return text;
}

void ParameterImpl::storeProperty(const QByteArray& name, const QByteArray& value)
{
    QVariant stored;
    if (name == "list" || name == "next" || name == "disable_hi")
        stored = value.toInt();   // so "true" stores 0 for disable_hi, as files expect
    else if (value == "true")
        stored = true;
    else if (value == "false")
        stored = false;
    else if (name == "prompt" || name == "format")
        stored = translated(value);
    else
        stored = value;
    owner->setProperty(name.constData(), stored);
}

// The template's name is the translation context, so that each command's texts can be
// translated on their own; a parameter outside a template uses the empty context.
QByteArray ParameterImpl::translated(const QByteArray& source) const
{
    const QObject* parent = owner->parent();
    const QByteArray context = parent ? parent->objectName().toUtf8() : QByteArray("");
    return QCoreApplication::translate(context.constData(), source.constData()).toUtf8();
}

CS_END_NAMESPACE
