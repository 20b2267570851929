#ifndef COMMANDSYSTEM_READERERRORS_H
#define COMMANDSYSTEM_READERERRORS_H

#include <CommandSystem/Global.h>

#include <QString>
#include <QXmlStreamReader>

CS_BEGIN_NAMESPACE

// The fixed error texts that the template readers raise on the stream reader. Element and
// attribute names come as QStringRef (Qt 5) or QStringView (Qt 6), hence the templates.
class ReaderErrors
{
public:
    template <typename Name>
    static void raise(QXmlStreamReader& reader, const char* text, const Name& name)
    {
        QString message = QLatin1String(text);
        message += name;
        reader.raiseError(message);
    }

    template <typename Name>
    static void unexpectedAttribute(QXmlStreamReader& reader, const Name& name)
    {
        raise(reader, "Unexpected attribute: ", name);
    }

    // "Unexpected element: " with the name of the start element the reader is on.
    static void unexpectedElement(QXmlStreamReader& reader)
    {
        raise(reader, "Unexpected element: ", reader.name());
    }

    // The file-level variant, without the colon.
    static void unexpectedTopElement(QXmlStreamReader& reader)
    {
        raise(reader, "Unexpected element ", reader.name());
    }
};

CS_END_NAMESPACE

#endif
