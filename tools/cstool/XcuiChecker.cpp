#include "XcuiChecker.h"

#include "IconResolver.h"
#include "XmlSource.h"

#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>
#include <QXmlStreamReader>

namespace CsTool {

namespace {

// xsi:noNamespaceSchemaLocation and friends let editors find the schema; they are no content.
bool isSchemaInstance(const QXmlStreamAttribute& attribute)
{
    return attribute.namespaceUri() == QLatin1String("http://www.w3.org/2001/XMLSchema-instance");
}

QStringList words(const char* text)
{
    return QString::fromLatin1(text).split(QLatin1Char(' '));
}

const QStringList& actionElements()
{
    static const QStringList elements = words(
        "Form Text Icon Hint Help MenuIcon Desc Script Widget Mapper Checked Options MinWinVer");
    return elements;
}

const QStringList& textElements()
{
    static const QStringList elements = words("Ribbon Menu");
    return elements;
}

// "plain" names what any other word means too: a command button.
const QStringList& typeWords()
{
    static const QStringList types = words("plain widget toggle check_box");
    return types;
}

QString tagList(const QStringList& elements)
{
    return QLatin1Char('<') + elements.join(QStringLiteral(">, <")) + QLatin1Char('>');
}

} // namespace

XcuiChecker::XcuiChecker(const QStringList& iconDirectories)
    : iconDirectories(iconDirectories)
{
}

void XcuiChecker::check(XmlSource& file, Findings& found)
{
    source = &file;
    findings = &found;
    fileIconDirectories = iconDirectories;
    if (fileIconDirectories.isEmpty())
        fileIconDirectories.append(QFileInfo(found.file()).dir().filePath(QStringLiteral("icons")));
    source->readDocument(found, QStringLiteral("Actions"), QStringLiteral("UI definition file"),
                         [this] { checkActions(); });
}

void XcuiChecker::checkActions()
{
    QXmlStreamReader& reader = source->reader();
    const QXmlStreamAttributes attributes = reader.attributes();
    for (const QXmlStreamAttribute& attribute : attributes) {
        const QString name = attribute.qualifiedName().toString();
        if (!isSchemaInstance(attribute) && name != QLatin1String("name") && name != QLatin1String("version"))
            unexpectedAttribute(attribute, QStringLiteral("Actions"), QStringLiteral("allowed: name, version"));
    }
    while (nextChildElement(QStringLiteral("Actions"))) {
        if (reader.name() == QLatin1String("Action"))
            checkAction();
        else
            unexpectedChild(QStringLiteral("Actions"), QStringList(QStringLiteral("Action")));
    }
}

void XcuiChecker::checkAction()
{
    const SourcePosition where = source->tokenPosition();
    QString name;
    QString type;
    checkActionAttributes(name, type);
    QHash<QString, Leaf> values;
    readChildren(QStringLiteral("Action"), actionElements(), values);
    if (!source->reader().hasError())
        checkValues(name, type, values, where);
}

void XcuiChecker::checkActionAttributes(QString& name, QString& type)
{
    const SourcePosition where = source->tokenPosition();
    bool named = false;
    const QXmlStreamAttributes attributes = source->reader().attributes();
    for (const QXmlStreamAttribute& attribute : attributes) {
        const QString attributeName = attribute.qualifiedName().toString();
        if (attributeName == QLatin1String("name")) {
            named = true;
            name = attribute.value().toString();
        } else if (attributeName == QLatin1String("type")) {
            type = attribute.value().toString();
            if (!type.isEmpty() && !typeWords().contains(type))
                findings->warning(source->attributePosition(attributeName),
                                  QStringLiteral("attribute \"type\" of <Action> has the value %1, "
                                                 "which is none of the known words (%2); the action "
                                                 "is a plain command")
                                      .arg(Findings::quoted(type), typeWords().join(QStringLiteral(", "))));
        } else if (!isSchemaInstance(attribute)) {
            unexpectedAttribute(attribute, QStringLiteral("Action"), QStringLiteral("allowed: name, type"));
        }
    }
    checkActionName(name, named, named ? source->attributePosition(QStringLiteral("name")) : where);
}

void XcuiChecker::checkActionName(const QString& name, bool given, const SourcePosition& where)
{
    if (!given || name.isEmpty()) {
        findings->error(where, given ? QStringLiteral("<Action> with an empty \"name\"")
                                     : QStringLiteral("<Action> without the attribute \"name\""));
        return;
    }
    const QString first = definitions.value(name);
    if (!first.isEmpty()) {
        findings->error(where, QStringLiteral("action \"%1\" is defined twice (first at %2)").arg(name, first));
        return;
    }
    definitions.insert(name, findings->location(where));
}

// Reads the child elements of "Action" or "Text"; the leaf texts land in values, "Text" is
// read recursively with its own vocabulary.
void XcuiChecker::readChildren(const QString& parent, const QStringList& allowed,
                               QHash<QString, Leaf>& values)
{
    QXmlStreamReader& reader = source->reader();
    QHash<QString, SourcePosition> seen;
    while (nextChildElement(parent)) {
        const QString element = reader.name().toString();
        if (!allowed.contains(element)) {
            unexpectedChild(parent, allowed);
            continue;
        }
        const auto first = seen.constFind(element);
        if (first != seen.constEnd())
            findings->error(source->tokenPosition(), QStringLiteral("<%1> is given twice in this <%2> "
                                                                    "(first at %3); the later one wins")
                                                         .arg(element, parent, findings->location(*first)));
        seen.insert(element, source->tokenPosition());
        checkNoAttributes(element);
        if (element == QLatin1String("Text"))
            readChildren(element, textElements(), values);
        else
            values.insert(element, readLeaf(element));
    }
}

XcuiChecker::Leaf XcuiChecker::readLeaf(const QString& element)
{
    QXmlStreamReader& reader = source->reader();
    Leaf leaf{QString(), source->tokenPosition()};
    while (source->next()) {
        if (reader.isCharacters()) {
            leaf.text += reader.text();
        } else if (reader.isStartElement()) {
            unexpectedChild(element, QStringList());
        } else if (reader.isEndElement()) {
            break;
        }
    }
    return leaf;
}

bool XcuiChecker::nextChildElement(const QString& parent)
{
    return source->nextChildElement([&](const SourcePosition& where) {
        findings->error(where, QStringLiteral("unexpected text in <%1>: %2")
                                   .arg(parent, source->reader().text().toString().trimmed()));
    });
}

void XcuiChecker::unexpectedChild(const QString& parent, const QStringList& allowed)
{
    source->unexpectedElement(*findings, parent, allowed.isEmpty() ? QStringLiteral("it holds only text")
                                                                   : QStringLiteral("allowed: ") + tagList(allowed));
}

void XcuiChecker::unexpectedAttribute(const QXmlStreamAttribute& attribute, const QString& element,
                                      const QString& allowed)
{
    source->unexpectedAttribute(*findings, attribute, element, allowed);
}

void XcuiChecker::checkValues(const QString& name, const QString& type,
                              const QHash<QString, Leaf>& values, const SourcePosition& where)
{
    const auto checked = values.constFind(QStringLiteral("Checked"));
    if (checked != values.constEnd() && checked->text != QLatin1String("true")
        && checked->text != QLatin1String("false"))
        findings->error(checked->where, QStringLiteral("<Checked> has the value %1; expected one "
                                                       "of: true, false").arg(Findings::quoted(checked->text)));
    if (type == QLatin1String("widget")) {
        for (const char* element : {"Widget", "Mapper"}) {
            if (values.value(QLatin1String(element)).text.isEmpty())
                findings->error(where, QStringLiteral("widget action \"%1\" without <%2>")
                                           .arg(name, QLatin1String(element)));
        }
    }
    const auto icon = values.constFind(QStringLiteral("Icon"));
    if (icon != values.constEnd() && !icon->text.isEmpty())
        checkIcon(*icon);
    static const QRegularExpression version(QStringLiteral("^[0-9]+(\\.[0-9]+)*$"));
    const auto minimum = values.constFind(QStringLiteral("MinWinVer"));
    if (minimum != values.constEnd() && !version.match(minimum->text).hasMatch())
        findings->error(minimum->where, QStringLiteral("<MinWinVer> has the value %1; expected a "
                                                       "version number such as 6.1").arg(Findings::quoted(minimum->text)));
}

void XcuiChecker::checkIcon(const Leaf& icon)
{
    if (!IconResolver(fileIconDirectories).resolve(icon.text).isEmpty())
        return;
    findings->error(icon.where, QStringLiteral("icon \"%1\" not found (looked up in %2)")
                                    .arg(icon.text, fileIconDirectories.join(QStringLiteral(", "))));
}

void XcuiChecker::checkNoAttributes(const QString& element)
{
    const QXmlStreamAttributes attributes = source->reader().attributes();
    for (const QXmlStreamAttribute& attribute : attributes) {
        if (!isSchemaInstance(attribute))
            unexpectedAttribute(attribute, element, QStringLiteral("it takes no attributes"));
    }
}

} // namespace CsTool
