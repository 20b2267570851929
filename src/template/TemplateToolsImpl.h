#ifndef COMMANDSYSTEM_TEMPLATETOOLSIMPL_H
#define COMMANDSYSTEM_TEMPLATETOOLSIMPL_H

#include <CommandSystem/Impl.h>
#include <CommandSystem/TemplateTools.h>

#include <QByteArray>

QT_BEGIN_NAMESPACE
class QXmlStreamReader;
QT_END_NAMESPACE

CS_BEGIN_NAMESPACE

// Reading a template file into objects, and the strict validation pass over one, which builds
// nothing and reports the first problem as a reader error.
class TemplateToolsImpl : public Impl<TemplateTools>
{
public:
    explicit TemplateToolsImpl(TemplateTools* owner);

    static bool defaultParseFunction(const char* options);
    static bool readTemplate(QXmlStreamReader& reader, QList<Template*>& templates);

    void validateDocument(QXmlStreamReader& reader);
    bool checkTemplate(QXmlStreamReader& reader);
    bool checkTemplateProperty(QXmlStreamReader& reader);
    bool checkParameters(QXmlStreamReader& reader);
    bool checkParameter(QXmlStreamReader& reader);
    bool checkParameterProperty(QXmlStreamReader& reader);
    static bool checkString(QXmlStreamReader& reader, QByteArray& item);
    // The one attribute of a "template" or "property" element must be "name".
    static bool checkNameAttribute(QXmlStreamReader& reader, QByteArray& name);
    static bool checkValuePresent(QXmlStreamReader& reader, const QByteArray& name,
                                  const QByteArray& value);
    static bool checkTemplateValue(QXmlStreamReader& reader, const QByteArray& name,
                                   const QByteArray& value);
    bool checkParameterValue(QXmlStreamReader& reader, const QByteArray& name,
                             const QByteArray& value);
    bool checkParameterAttributes(QXmlStreamReader& reader);

    static constexpr int typeCount = 13;
    int currentType = 0;
    TemplateTools::ParseFunction parseFunctions[typeCount];
};

CS_END_NAMESPACE

#endif
