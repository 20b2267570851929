#include "template/TemplateToolsImpl.h"

#include "template/ParameterImpl.h"
#include "template/ElementReader.h"
#include "template/ReaderErrors.h"

#include <CommandSystem/Template.h>

#include <QXmlStreamReader>

#include <initializer_list>

CS_BEGIN_NAMESPACE

namespace {

bool isOneOf(const QByteArray& word, std::initializer_list<const char*> words)
{
    for (const char* candidate : words) {
        if (word == candidate)
            return true;
    }
    return false;
}

bool isDecimalInt(const QByteArray& text)
{
    bool ok = false;
    static_cast<void>(text.toInt(&ok, 10));
    return ok;
}

bool isFlagWord(const QByteArray& text)
{
    return text == "true" || text == "false";
}

template <typename Text>
bool isFlagWordView(const Text& text)
{
    return text == QLatin1String("true") || text == QLatin1String("false");
}

bool fail(QXmlStreamReader& reader, const char* text)
{
    reader.raiseError(QLatin1String(text));
    return false;
}

bool fail(QXmlStreamReader& reader, const char* text, const QByteArray& detail)
{
    ReaderErrors::raise(reader, text, QString::fromUtf8(detail));
    return false;
}

bool failUnexpectedElement(QXmlStreamReader& reader)
{
    ReaderErrors::unexpectedElement(reader);
    return false;
}

} // namespace

TemplateToolsImpl::TemplateToolsImpl(TemplateTools* owner)
    : Impl(owner)
{
    for (TemplateTools::ParseFunction& function : parseFunctions)
        function = defaultParseFunction;
}

bool TemplateToolsImpl::defaultParseFunction(const char*)
{
    return true;
}

// The template whose element is broken is not handed out; those before it are.
bool TemplateToolsImpl::readTemplate(QXmlStreamReader& reader, QList<Template*>& templates)
{
    Template* temp = new Template;
    temp->load(reader);
    if (reader.hasError()) {
        delete temp;
        return false;
    }
    templates.append(temp);
    return true;
}

void TemplateToolsImpl::validateDocument(QXmlStreamReader& reader)
{
    ElementReader::readTemplateFile(reader, [&] { return checkTemplate(reader); });
}

bool TemplateToolsImpl::checkTemplate(QXmlStreamReader& reader)
{
    QByteArray name;
    if (!checkNameAttribute(reader, name))
        return false;
    return ElementReader::readChildren(reader, [&] {
        if (reader.name() == QLatin1String("property"))
            return checkTemplateProperty(reader);
        if (reader.name() == QLatin1String("parameters"))
            return checkParameters(reader);
        return failUnexpectedElement(reader);
    });
}

bool TemplateToolsImpl::checkNameAttribute(QXmlStreamReader& reader, QByteArray& name)
{
    const QXmlStreamAttributes attributes = reader.attributes();
    if (attributes.size() != 1)
        return fail(reader, "Attributes size error");
    if (attributes.first().name() != QLatin1String("name")) {
        ReaderErrors::unexpectedAttribute(reader, attributes.first().name());
        return false;
    }
    name = attributes.first().value().toUtf8();
    return true;
}

bool TemplateToolsImpl::checkValuePresent(QXmlStreamReader& reader, const QByteArray& name,
                                          const QByteArray& value)
{
    if (name.isEmpty())
        return fail(reader, "empty property");
    if (value.isEmpty())
        return fail(reader, "empty value for property: ", name);
    return true;
}

bool TemplateToolsImpl::checkTemplateProperty(QXmlStreamReader& reader)
{
    QByteArray name;
    if (!checkNameAttribute(reader, name))
        return false;
    QByteArray value;
    const auto noChild = [&reader](QByteArray&) { return failUnexpectedElement(reader); };
    return ElementReader::readText(reader, value, noChild)
        && checkValuePresent(reader, name, value) && checkTemplateValue(reader, name, value);
}

// "no_ftr" and "scope" are integers and "auto_repeat" takes on/off: that is how the host reads
// them, however their names sound.
bool TemplateToolsImpl::checkTemplateValue(QXmlStreamReader& reader, const QByteArray& name,
                                           const QByteArray& value)
{
    if (isOneOf(name, {"echo", "echo_obj", "function", "validate", "init_after", "term",
                       "custom", "init", "multi_cmd", "partial_echo_obj"}))
        return true;
    if (isOneOf(name, {"form_id", "icon_id", "parent_echo", "parent_form", "ref_id", "level",
                       "scope", "no_ftr"}))
        return isDecimalInt(value) || fail(reader, "property value error: ", value);
    if (isOneOf(name, {"repeatable", "last_tpl", "child", "shade_echo", "show_tol",
                       "mod_entity", "lookup", "rt_echo"}))
        return isFlagWord(value) || fail(reader, "property value error: ", value);
    if (name == "auto_repeat")
        return value == "on" || value == "off" || fail(reader, "property value error: ", value);
    return fail(reader, "Unknown template property: ", name);
}

bool TemplateToolsImpl::checkParameters(QXmlStreamReader& reader)
{
    return ElementReader::readChildren(reader, [&] {
        if (reader.name() != QLatin1String("parameter"))
            return failUnexpectedElement(reader);
        return checkParameter(reader);
    });
}

// A bad attribute value names the element, not the value.
bool TemplateToolsImpl::checkParameterAttributes(QXmlStreamReader& reader)
{
    const QXmlStreamAttributes attributes = reader.attributes();
    for (const QXmlStreamAttribute& attribute : attributes) {
        const auto name = attribute.name();
        const auto value = attribute.value();
        bool good = true;
        if (name == QLatin1String("luid")) {
            static_cast<void>(value.toInt(&good, 10));
        } else if (name == QLatin1String("type")) {
            currentType = ParameterImpl::typeIndex(value);
            good = currentType >= 0;
        } else if (name == QLatin1String("trigger") || name == QLatin1String("checker")) {
            good = isFlagWordView(value);
        } else if (name != QLatin1String("description")) {
            ReaderErrors::unexpectedAttribute(reader, name);
            return false;
        }
        if (!good) {
            ReaderErrors::raise(reader, "property value error: ", reader.name());
            return false;
        }
    }
    return true;
}

bool TemplateToolsImpl::checkParameter(QXmlStreamReader& reader)
{
    currentType = 0;
    if (!checkParameterAttributes(reader))
        return false;
    return ElementReader::readChildren(reader, [&] {
        if (reader.name() != QLatin1String("property"))
            return failUnexpectedElement(reader);
        return checkParameterProperty(reader);
    });
}

bool TemplateToolsImpl::checkParameterProperty(QXmlStreamReader& reader)
{
    QByteArray name;
    if (!checkNameAttribute(reader, name))
        return false;
    QByteArray value;
    const auto dimItem = [&](QByteArray& text) {
        if (reader.name() != QLatin1String("string") || name != "dim")
            return failUnexpectedElement(reader);
        QByteArray item;
        // An empty item ends the file's validation without a message.
        if (!checkString(reader, item))
            return false;
        ElementReader::appendDimItem(text, item);
        return true;
    };
    return ElementReader::readText(reader, value, dimItem)
        && checkValuePresent(reader, name, value) && checkParameterValue(reader, name, value);
}

bool TemplateToolsImpl::checkString(QXmlStreamReader& reader, QByteArray& item)
{
    const auto noChild = [&reader](QByteArray&) { return failUnexpectedElement(reader); };
    return ElementReader::readText(reader, item, noChild) && !item.isEmpty();
}

bool TemplateToolsImpl::checkParameterValue(QXmlStreamReader& reader, const QByteArray& name,
                                            const QByteArray& value)
{
    if (isOneOf(name, {"list", "next", "cif", "comp"}))
        return isDecimalInt(value) || fail(reader, "property value error: ", value);
    if (isOneOf(name, {"mod_entity", "disable_hi"}))
        return isFlagWord(value) || fail(reader, "property value error: ", value);
    if (isOneOf(name, {"dim", "prompt", "format", "callback", "template", "append", "modify",
                       "unpick", "selected"}))
        return true;
    if (name == "options")
        return parseFunctions[currentType](value.constData())
            || fail(reader, "options parsing error");
    return fail(reader, "Unknown parameter property: ", name);
}

CS_END_NAMESPACE
