#ifndef COMMANDSYSTEM_ELEMENTREADER_H
#define COMMANDSYSTEM_ELEMENTREADER_H

#include <CommandSystem/Global.h>

#include "template/ReaderErrors.h"

#include <QByteArray>
#include <QXmlStreamReader>

CS_BEGIN_NAMESPACE

// The reading steps that the template loaders and the validator share; they differ only in
// what they make of each child element.
class ElementReader
{
public:
    // Reads up to the end of the element the reader is in, handing each child element to
    // onChild, which returns false to stop. True when the element's end was reached without an
    // error. Text and other tokens are passed over.
    template <typename OnChild>
    static bool readChildren(QXmlStreamReader& reader, OnChild onChild)
    {
        while (!reader.hasError()) {
            switch (reader.readNext()) {
            case QXmlStreamReader::StartElement:
                if (!onChild())
                    return false;
                break;
            case QXmlStreamReader::EndElement:
                return true;
            default:
                break;
            }
        }
        return false;
    }

    // Reads a template file: its top-level elements must be "templates" and theirs "template";
    // anything else raises "Unexpected element: " and ends the reading. Each "template" element
    // goes to onTemplate, which returns false to stop.
    template <typename OnTemplate>
    static void readTemplateFile(QXmlStreamReader& reader, OnTemplate onTemplate)
    {
        const auto onChild = [&reader, &onTemplate] {
            if (reader.name() != QLatin1String("template")) {
                ReaderErrors::unexpectedTopElement(reader);
                return false;
            }
            return onTemplate();
        };
        while (!reader.atEnd()) {
            if (reader.readNext() != QXmlStreamReader::StartElement)
                continue;
            if (reader.name() != QLatin1String("templates")) {
                ReaderErrors::unexpectedTopElement(reader);
                return;
            }
            if (!readChildren(reader, onChild))
                return;
        }
    }

    // The loaders' reading of a "property" element's attributes: "name" (the last one wins);
    // any other attribute raises "Unexpected attribute: ".
    static QByteArray propertyName(QXmlStreamReader& reader)
    {
        QByteArray name;
        const QXmlStreamAttributes attributes = reader.attributes();
        for (const QXmlStreamAttribute& attribute : attributes) {
            if (attribute.name() == QLatin1String("name"))
                name = attribute.value().toUtf8();
            else
                ReaderErrors::unexpectedAttribute(reader, attribute.name());
        }
        return name;
    }

    // The character content of a "property" or "string" element: text that is not only white
    // space replaces what came before (the last piece wins, untrimmed).
    // Reads up to the end of the element the reader is in. A child element goes to onChild,
    // which returns false to stop. True when the element's end was reached without an error.
    template <typename OnChild>
    static bool readText(QXmlStreamReader& reader, QByteArray& text, OnChild onChild)
    {
        while (!reader.hasError()) {
            switch (reader.readNext()) {
            case QXmlStreamReader::StartElement:
                if (!onChild(text))
                    return false;
                break;
            case QXmlStreamReader::EndElement:
                return true;
            case QXmlStreamReader::Characters:
                if (!reader.isWhitespace())
                    text = reader.text().toUtf8();
                break;
            default:
                break;
            }
        }
        return false;
    }

    // The "dim" property joins its "string" items with '@'.
    static void appendDimItem(QByteArray& value, const QByteArray& item)
    {
        value = value.isEmpty() ? item : value + '@' + item;
    }
};

CS_END_NAMESPACE

#endif
