#include "XcuiChecker.h"

#include <QFile>
#include <QList>
#include <QRegularExpression>
#include <QXmlStreamReader>

#include <algorithm>

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

} // namespace

XcuiChecker::XcuiChecker(const QStringList& iconDirectories)
    : icons(iconDirectories)
{
}

QStringList XcuiChecker::check(const QString& filePath)
{
    file = filePath;
    problems.clear();
    QFile device(filePath);
    if (!device.open(QIODevice::ReadOnly)) {
        problems.append(QStringLiteral("%1: cannot read: %2").arg(file, device.errorString()));
        return problems;
    }
    const QByteArray content = device.readAll();
    lineStarts = {0};
    const QString text = QString::fromUtf8(content);
    for (int at = text.indexOf(QLatin1Char('\n')); at >= 0; at = text.indexOf(QLatin1Char('\n'), at + 1))
        lineStarts.append(at + 1);
    QXmlStreamReader reader(content);
    checkDocument(reader);
    if (reader.hasError())
        problemAt(positionAt(reader.characterOffset()), reader.errorString());
    return problems;
}

// Tokens follow each other without gaps, so a token starts where the previous one ended; the
// reader itself only tells where a token ends. Text ends where a "<" follows, which the reader
// has then already consumed.
void XcuiChecker::next(QXmlStreamReader& reader)
{
    const qint64 lookahead = reader.isCharacters() ? 1 : 0;
    tokenStart = positionAt(reader.characterOffset() - lookahead);
    reader.readNext();
}

// Lines and columns counted from 1 for a character offset of the document.
XcuiChecker::Position XcuiChecker::positionAt(qint64 offset) const
{
    const auto after = std::upper_bound(lineStarts.constBegin(), lineStarts.constEnd(), offset);
    const qint64 line = after - lineStarts.constBegin();
    return Position{line, offset - lineStarts.at(int(line - 1)) + 1};
}

void XcuiChecker::checkDocument(QXmlStreamReader& reader)
{
    while (!reader.atEnd() && !reader.isStartElement())
        next(reader);
    if (!reader.isStartElement())
        return;
    if (reader.name() != QLatin1String("Actions")) {
        problem(QStringLiteral("Unexpected element: ") + reader.name().toString());
        return;
    }
    checkRootAttributes(reader);
    checkActions(reader);
}

void XcuiChecker::checkRootAttributes(QXmlStreamReader& reader)
{
    const QXmlStreamAttributes attributes = reader.attributes();
    for (const QXmlStreamAttribute& attribute : attributes) {
        const QString name = attribute.qualifiedName().toString();
        if (!isSchemaInstance(attribute) && name != QLatin1String("name")
            && name != QLatin1String("version"))
            problem(QStringLiteral("Unexpected attribute: ") + name);
    }
}

void XcuiChecker::checkActions(QXmlStreamReader& reader)
{
    while (nextChildElement(reader)) {
        if (reader.name() == QLatin1String("Action")) {
            checkAction(reader);
        } else {
            problem(QStringLiteral("Unexpected element: ") + reader.name().toString());
            reader.skipCurrentElement();
        }
    }
}

void XcuiChecker::checkAction(QXmlStreamReader& reader)
{
    const Position where = tokenStart;
    QString type;
    bool named = false;
    QString name;
    const QXmlStreamAttributes attributes = reader.attributes();
    for (const QXmlStreamAttribute& attribute : attributes) {
        const QString attributeName = attribute.qualifiedName().toString();
        if (attributeName == QLatin1String("name")) {
            named = true;
            name = attribute.value().toString();
        } else if (attributeName == QLatin1String("type")) {
            type = attribute.value().toString();
        } else if (!isSchemaInstance(attribute)) {
            problem(QStringLiteral("Unexpected attribute: ") + attributeName);
        }
    }
    checkActionName(name, named, where);
    QHash<QString, QString> values;
    readChildren(reader, actionElements(), values);
    if (!reader.hasError())
        checkValues(type, values, where);
}

void XcuiChecker::checkActionName(const QString& name, bool given, const Position& where)
{
    if (!given || name.isEmpty()) {
        problemAt(where, QStringLiteral("Action without a name"));
        return;
    }
    const QString first = definitions.value(name);
    if (!first.isEmpty()) {
        problemAt(where, QStringLiteral("Action name defined twice: %1 (first defined at %2)")
                             .arg(name, first));
        return;
    }
    definitions.insert(name, location(where));
}

// Reads the child elements of "Action" or "Text"; the leaf texts land in values, "Text" is
// read recursively with its own vocabulary.
void XcuiChecker::readChildren(QXmlStreamReader& reader, const QStringList& allowed,
                               QHash<QString, QString>& values)
{
    QStringList seen;
    while (nextChildElement(reader)) {
        const QString element = reader.name().toString();
        if (!allowed.contains(element)) {
            problem(QStringLiteral("Unexpected element: ") + element);
            reader.skipCurrentElement();
            continue;
        }
        if (seen.contains(element))
            problem(QStringLiteral("Duplicate element: %1 (the later one wins)").arg(element));
        seen.append(element);
        checkNoAttributes(reader);
        if (element == QLatin1String("Text"))
            readChildren(reader, textElements(), values);
        else
            values.insert(element, readLeaf(reader));
    }
}

QString XcuiChecker::readLeaf(QXmlStreamReader& reader)
{
    QString text;
    while (!reader.atEnd()) {
        next(reader);
        if (reader.isCharacters()) {
            text += reader.text();
        } else if (reader.isStartElement()) {
            problem(QStringLiteral("Unexpected element: ") + reader.name().toString());
            reader.skipCurrentElement();
        } else if (reader.isEndElement()) {
            break;
        }
    }
    return text;
}

// Like QXmlStreamReader::readNextStartElement, but text between the elements is reported.
bool XcuiChecker::nextChildElement(QXmlStreamReader& reader)
{
    while (!reader.atEnd()) {
        next(reader);
        if (reader.isStartElement())
            return true;
        if (reader.isEndElement())
            return false;
        if (reader.isCharacters() && !reader.isWhitespace())
            problem(QStringLiteral("Unexpected text: ") + reader.text().toString().trimmed());
    }
    return false;
}

void XcuiChecker::checkValues(const QString& type, const QHash<QString, QString>& values,
                              const Position& where)
{
    const auto checked = values.constFind(QStringLiteral("Checked"));
    if (checked != values.constEnd() && *checked != QLatin1String("true")
        && *checked != QLatin1String("false"))
        problemAt(where, QStringLiteral("\"Checked\" is neither \"true\" nor \"false\": ") + *checked);
    if (type == QLatin1String("widget")) {
        if (values.value(QStringLiteral("Widget")).isEmpty())
            problemAt(where, QStringLiteral("widget action without \"Widget\""));
        if (values.value(QStringLiteral("Mapper")).isEmpty())
            problemAt(where, QStringLiteral("widget action without \"Mapper\""));
    }
    const QString icon = values.value(QStringLiteral("Icon"));
    if (!icon.isEmpty() && icons.resolve(icon).isEmpty())
        problemAt(where, QStringLiteral("icon not found: ") + icon);
    static const QRegularExpression version(QStringLiteral("^[0-9]+(\\.[0-9]+)*$"));
    const auto minimum = values.constFind(QStringLiteral("MinWinVer"));
    if (minimum != values.constEnd() && !version.match(*minimum).hasMatch())
        problemAt(where, QStringLiteral("\"MinWinVer\" is not a version number: ") + *minimum);
}

void XcuiChecker::checkNoAttributes(QXmlStreamReader& reader)
{
    const QXmlStreamAttributes attributes = reader.attributes();
    for (const QXmlStreamAttribute& attribute : attributes) {
        if (!isSchemaInstance(attribute))
            problem(QStringLiteral("Unexpected attribute: ")
                                + attribute.qualifiedName().toString());
    }
}

void XcuiChecker::problem(const QString& message)
{
    problemAt(tokenStart, message);
}

void XcuiChecker::problemAt(const Position& where, const QString& message)
{
    problems.append(location(where) + QStringLiteral(": ") + message);
}

QString XcuiChecker::location(const Position& where) const
{
    return QStringLiteral("%1:%2:%3").arg(file).arg(where.line).arg(where.column);
}

} // namespace CsTool
