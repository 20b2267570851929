#include "template/ParameterImpl.h"

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
    QByteArray name;
    const QXmlStreamAttributes attributes = reader.attributes();
    for (const QXmlStreamAttribute& attribute : attributes) {
        if (attribute.name() == QLatin1String("name"))
            name = attribute.value().toUtf8();
        else
            ReaderErrors::unexpectedAttribute(reader, attribute.name());
    }
    QByteArray value;
    bool inProperty = true;
    while (inProperty && !reader.hasError()) {
        switch (reader.readNext()) {
        case QXmlStreamReader::StartElement:
            if (reader.name() == QLatin1String("string") && name == "dim") {
                const QByteArray item = readString(reader);
                value = value.isEmpty() ? item : value + '@' + item;
            } else {
                ReaderErrors::unexpectedElement(reader);
            }
            break;
        case QXmlStreamReader::EndElement:
            inProperty = false;
            break;
        case QXmlStreamReader::Characters:
            if (!reader.isWhitespace())
                value = reader.text().toUtf8();
            break;
        default:
            break;
        }
    }
    if (!reader.hasError() && !name.isEmpty() && !value.isEmpty())
        storeProperty(name, value);
}

QByteArray ParameterImpl::readString(QXmlStreamReader& reader)
{
    QByteArray text;
    while (!reader.hasError()) {
        switch (reader.readNext()) {
        case QXmlStreamReader::StartElement:
            ReaderErrors::unexpectedElement(reader);
            break;
        case QXmlStreamReader::EndElement:
            return text;
        case QXmlStreamReader::Characters:
            if (!reader.isWhitespace())
                text = reader.text().toUtf8();
            break;
        default:
            break;
        }
    }
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
