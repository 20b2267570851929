#include "TcmdChecker.h"

#include "MapLineScanner.h"
#include "TcmdVocabulary.h"
#include "XmlSource.h"

#include <QFileInfo>
#include <QSet>
#include <QXmlStreamReader>

namespace CsTool {

namespace {

QString joined(const QStringList& words)
{
    return words.join(QStringLiteral(", "));
}

// The column of a line's first character that is not white space, as the scanner trims.
qint64 firstColumn(const QByteArray& line)
{
    const QByteArray trimmed = line.trimmed();
    return trimmed.isEmpty() ? 1 : line.indexOf(trimmed) + 1;
}

} // namespace

TcmdChecker::TcmdChecker(XmlSource& source, Findings& findings, const QString& filePath)
    : source(source), findings(findings), filePath(filePath)
{
}

void TcmdChecker::check()
{
    source.readDocument(findings, QStringLiteral("templates"), QStringLiteral("template file"),
                        [this] { checkTemplates(); });
    checkLineRule();
}

// The readers pass over text between elements.
bool TcmdChecker::nextChildElement(const QString& parent)
{
    return source.nextChildElement([&](const SourcePosition& where) {
        findings.warning(where, QStringLiteral("text in <%1> is ignored").arg(parent));
    });
}

void TcmdChecker::unexpectedChild(const QString& parent, const QString& allowed)
{
    source.unexpectedElement(findings, parent, allowed);
}

void TcmdChecker::unexpectedAttribute(const QXmlStreamAttribute& attribute, const QString& element,
                                      const QString& allowed)
{
    source.unexpectedAttribute(findings, attribute, element, allowed);
}

void TcmdChecker::badValue(const QXmlStreamAttribute& attribute, const QString& element,
                           const QString& expected)
{
    const QString name = attribute.qualifiedName().toString();
    findings.error(source.attributePosition(name),
                   QStringLiteral("attribute \"%1\" of <%2> has the value %3; expected %4")
                       .arg(name, element, Findings::quoted(attribute.value().toString()), expected));
}

void TcmdChecker::ignoredAttributes(const QString& element)
{
    const QXmlStreamAttributes attributes = source.reader().attributes();
    for (const QXmlStreamAttribute& attribute : attributes) {
        const QString name = attribute.qualifiedName().toString();
        findings.warning(source.attributePosition(name),
                         QStringLiteral("attribute \"%1\" of <%2> is ignored").arg(name, element));
    }
}

void TcmdChecker::checkTemplates()
{
    QXmlStreamReader& reader = source.reader();
    while (nextChildElement(QStringLiteral("templates"))) {
        if (reader.name() == QLatin1String("template"))
            checkTemplate();
        else
            unexpectedChild(QStringLiteral("templates"), QStringLiteral("only <template> belongs here"));
    }
}

void TcmdChecker::checkTemplate()
{
    QXmlStreamReader& reader = source.reader();
    const SourcePosition where = source.tokenPosition();
    TemplateScope scope;
    bool named = false;
    const QXmlStreamAttributes attributes = reader.attributes();
    for (const QXmlStreamAttribute& attribute : attributes) {
        if (!named && attribute.name() == QLatin1String("name")) {
            named = true;
            scope.name = attribute.value().toString();
            if (scope.name.isEmpty())
                findings.warning(source.attributePosition(attribute.qualifiedName().toString()),
                                 QStringLiteral("empty template name"));
        } else {
            unexpectedAttribute(attribute, QStringLiteral("template"),
                                QStringLiteral("a template has only the attribute \"name\""));
        }
    }
    if (named) {
        for (const TemplateElement& earlier : std::as_const(templateElements)) {
            if (earlier.name == scope.name)
                findings.warning(where, QStringLiteral("template \"%1\" is defined twice in this "
                                                       "file (first at %2)")
                                            .arg(scope.name, findings.location(earlier.where)));
        }
        templateElements.append(TemplateElement{scope.name, where});
    } else {
        findings.error(where, QStringLiteral("<template> without the attribute \"name\""));
    }
    while (nextChildElement(QStringLiteral("template"))) {
        if (reader.name() == QLatin1String("property"))
            checkTemplateProperty(scope);
        else if (reader.name() == QLatin1String("parameters"))
            checkParameters(scope);
        else
            unexpectedChild(QStringLiteral("template"), QStringLiteral("allowed: <property>, <parameters>"));
    }
    checkNexts(scope);
}

// A property's one attribute "name", checked as the validator wants it: exactly that one.
TcmdChecker::PropertyElement TcmdChecker::readPropertyStart()
{
    PropertyElement property;
    property.where = source.tokenPosition();
    property.valueWhere = property.where;
    const QXmlStreamAttributes attributes = source.reader().attributes();
    for (const QXmlStreamAttribute& attribute : attributes) {
        if (!property.named && attribute.name() == QLatin1String("name")) {
            property.named = true;
            property.name = attribute.value().toString();
            property.nameWhere = source.attributePosition(attribute.qualifiedName().toString());
        } else {
            unexpectedAttribute(attribute, QStringLiteral("property"),
                                QStringLiteral("a property has only the attribute \"name\""));
        }
    }
    if (!property.named)
        findings.error(property.where, QStringLiteral("<property> without the attribute \"name\""));
    return property;
}

// The element's text as the readers take it: the last piece that is not only white space.
template <typename OnChild>
QString TcmdChecker::readValue(SourcePosition& where, OnChild onChild)
{
    QXmlStreamReader& reader = source.reader();
    QString value;
    while (source.next()) {
        if (reader.isEndElement())
            break;
        if (reader.isStartElement()) {
            onChild(value);
        } else if (reader.isCharacters() && !reader.isWhitespace()) {
            value = reader.text().toString();
            where = source.textPosition();
        }
    }
    return value;
}

void TcmdChecker::checkTemplateProperty(TemplateScope& scope)
{
    PropertyElement property = readPropertyStart();
    property.value = readValue(property.valueWhere, [this](QString&) {
        unexpectedChild(QStringLiteral("property"), QStringLiteral("a template property holds only text"));
    });
    if (!property.named)
        return;
    checkGivenOnce(scope.properties, property, QStringLiteral("template"));
    checkProperty(property, TcmdVocabulary::templateRule(property.name),
                  TcmdVocabulary::templateProperties(), QStringLiteral("template"));
}

void TcmdChecker::checkProperty(const PropertyElement& property, int rule, const QStringList& known,
                                const QString& kind)
{
    if (property.name.isEmpty())
        findings.error(property.nameWhere, QStringLiteral("property with an empty name"));
    else if (rule == TcmdVocabulary::Unknown)
        findings.error(property.nameWhere, QStringLiteral("unknown %1 property \"%2\"; known: %3")
                                               .arg(kind, property.name, joined(known)));
    if (property.value.isEmpty()) {
        findings.error(property.where, QStringLiteral("property \"%1\" has no value").arg(property.name));
        return;
    }
    const auto valueRule = TcmdVocabulary::Rule(rule);
    if (TcmdVocabulary::accepts(valueRule, property.value))
        return;
    const QString blanks = TcmdVocabulary::accepts(valueRule, property.value.trimmed())
                               ? QStringLiteral(" (without the white space around it)")
                               : QString();
    findings.error(property.valueWhere, QStringLiteral("property \"%1\" has the value %2; expected %3%4")
                                            .arg(property.name, Findings::quoted(property.value),
                                                 TcmdVocabulary::expectation(valueRule), blanks));
}

void TcmdChecker::checkGivenOnce(QHash<QString, SourcePosition>& given,
                                 const PropertyElement& property, const QString& owner)
{
    const auto first = given.constFind(property.name);
    if (first == given.constEnd()) {
        given.insert(property.name, property.where);
        return;
    }
    findings.warning(property.where, QStringLiteral("property \"%1\" is given twice in this %2 "
                                                    "(first at %3); the later value wins")
                                         .arg(property.name, owner, findings.location(*first)));
}

void TcmdChecker::checkParameters(TemplateScope& scope)
{
    ignoredAttributes(QStringLiteral("parameters"));
    QXmlStreamReader& reader = source.reader();
    while (nextChildElement(QStringLiteral("parameters"))) {
        if (reader.name() == QLatin1String("parameter"))
            checkParameter(scope);
        else
            unexpectedChild(QStringLiteral("parameters"), QStringLiteral("only <parameter> belongs here"));
    }
}

void TcmdChecker::checkParameter(TemplateScope& scope)
{
    SourcePosition luidWhere = source.tokenPosition();
    bool luidGiven = false;
    const int luid = checkParameterAttributes(luidWhere, luidGiven);
    const auto first = scope.luids.constFind(luid);
    if (first != scope.luids.constEnd()) {
        const QString implicit = luidGiven ? QString()
                                           : QStringLiteral("; a parameter without \"luid\" has luid 1");
        findings.warning(luidWhere, QStringLiteral("luid %1 is used twice in template \"%2\" (first at %3)%4")
                                        .arg(luid).arg(scope.name, findings.location(*first), implicit));
    } else {
        scope.luids.insert(luid, luidWhere);
    }
    QHash<QString, SourcePosition> given;
    QXmlStreamReader& reader = source.reader();
    while (nextChildElement(QStringLiteral("parameter"))) {
        if (reader.name() == QLatin1String("property"))
            checkParameterProperty(scope, given);
        else
            unexpectedChild(QStringLiteral("parameter"), QStringLiteral("only <property> belongs here"));
    }
}

int TcmdChecker::checkParameterAttributes(SourcePosition& where, bool& given)
{
    static const QStringList flags = {QStringLiteral("true"), QStringLiteral("false")};
    const QString element = QStringLiteral("parameter");
    int luid = 1;
    const QXmlStreamAttributes attributes = source.reader().attributes();
    for (const QXmlStreamAttribute& attribute : attributes) {
        const auto name = attribute.name();
        const QString value = attribute.value().toString();
        if (name == QLatin1String("luid")) {
            bool ok = false;
            luid = value.toInt(&ok, 10);
            if (!ok)
                badValue(attribute, element, TcmdVocabulary::expectation(TcmdVocabulary::DecimalInt));
            where = source.attributePosition(attribute.qualifiedName().toString());
            given = true;
        } else if (name == QLatin1String("type")) {
            if (!TcmdVocabulary::typeWords().contains(value))
                badValue(attribute, element,
                         QStringLiteral("one of: ") + joined(TcmdVocabulary::typeWords()));
        } else if (name == QLatin1String("trigger") || name == QLatin1String("checker")) {
            if (!flags.contains(value))
                badValue(attribute, element, TcmdVocabulary::expectation(TcmdVocabulary::TrueFalse));
        } else if (name != QLatin1String("description")) {
            unexpectedAttribute(attribute, element,
                                QStringLiteral("allowed: luid, type, description, trigger, checker"));
        }
    }
    return luid;
}

void TcmdChecker::checkParameterProperty(TemplateScope& scope, QHash<QString, SourcePosition>& given)
{
    QXmlStreamReader& reader = source.reader();
    PropertyElement property = readPropertyStart();
    bool emptyItem = false;
    property.value = readValue(property.valueWhere, [&](QString& value) {
        if (reader.name() != QLatin1String("string") || property.name != QLatin1String("dim")) {
            unexpectedChild(QStringLiteral("property"),
                            QStringLiteral("a parameter property holds only text, and \"dim\" its <string> items"));
            return;
        }
        const QString item = readDimItem(emptyItem);
        value = value.isEmpty() ? item : value + QLatin1Char('@') + item;
    });
    // A "dim" of empty items was reported at its items.
    if (!property.named || (emptyItem && property.value.isEmpty()))
        return;
    checkGivenOnce(given, property, QStringLiteral("parameter"));
    checkProperty(property, TcmdVocabulary::parameterRule(property.name),
                  TcmdVocabulary::parameterProperties(), QStringLiteral("parameter"));
    bool isNumber = false;
    const int next = property.value.toUtf8().toInt(&isNumber, 10);
    if (property.name == QLatin1String("next") && isNumber)
        scope.nexts.append(qMakePair(next, property.valueWhere));
}

// The validator stops at an empty item and accepts the file; the loader joins it as it is.
QString TcmdChecker::readDimItem(bool& empty)
{
    const SourcePosition where = source.tokenPosition();
    ignoredAttributes(QStringLiteral("string"));
    SourcePosition textWhere;
    const QString item = readValue(textWhere, [this](QString&) {
        unexpectedChild(QStringLiteral("string"), QStringLiteral("a <string> item holds only text"));
    });
    if (item.isEmpty()) {
        empty = true;
        findings.warning(where, QStringLiteral("empty <string> item in property \"dim\"; "
                                               "TemplateTools::validateTemplate stops checking "
                                               "the file here"));
    }
    return item;
}

void TcmdChecker::checkNexts(const TemplateScope& scope)
{
    for (const auto& next : scope.nexts) {
        if (!scope.luids.contains(next.first))
            findings.warning(next.second, QStringLiteral("\"next\" names luid %1, which no parameter "
                                                         "of template \"%2\" has")
                                              .arg(next.first).arg(scope.name));
    }
}

// The pool finds a template through the map, which the scanner builds from declaring lines,
// or else by the file name.
void TcmdChecker::checkLineRule()
{
    const QByteArray content = source.content();
    const MapLineScanner scanner(content);
    const QList<MapLineScanner::Declaration> declarations = scanner.declarations();
    QSet<QString> scanned;
    for (const MapLineScanner::Declaration& declaration : declarations)
        scanned.insert(declaration.name);
    const QString baseName = QFileInfo(filePath).completeBaseName();
    const QList<QByteArray> lines = content.split('\n');
    // Only a document read to its end without a wrong element tells which templates it defines.
    const bool complete = !source.reader().hasError() && findings.errorCount() == 0;
    QSet<QString> defined;
    for (const TemplateElement& element : std::as_const(templateElements)) {
        defined.insert(element.name);
        if (scanned.contains(element.name) || element.name == baseName)
            continue;
        findings.error(element.where,
                       QStringLiteral("template \"%1\" cannot be found by the template pool: %2; "
                                      "begin a line with <template name=\"%1\">")
                           .arg(element.name, notFoundReason(element, scanner, lines)));
    }
    if (source.reader().hasError())
        return;
    for (const MapLineScanner::Declaration& declaration : declarations) {
        const SourcePosition where{declaration.line, declaration.column};
        if (declaration.line == scanner.stopLine())
            findings.warning(where, QStringLiteral("the map scanner stops reading the file at this "
                                                   "line (%1)")
                                        .arg(scanner.stopReason()));
        else if (complete && !defined.contains(declaration.name))
            findings.warning(where, QStringLiteral("the map scanner reads template \"%1\" from this "
                                                   "line, but this file defines no template of that name")
                                        .arg(declaration.name));
    }
}

QString TcmdChecker::notFoundReason(const TemplateElement& element, const MapLineScanner& scanner,
                                    const QList<QByteArray>& lines)
{
    const qint64 line = element.where.line;
    if (scanner.stopLine() != 0 && scanner.stopLine() < line)
        return QStringLiteral("the map scanner stopped reading this file at line %1 (%2)")
            .arg(scanner.stopLine()).arg(scanner.stopReason());
    if (element.where.column != firstColumn(lines.value(int(line - 1))))
        return QStringLiteral("its tag does not begin its line, and the map scanner reads only "
                              "lines that begin with \"<template \"");
    if (!scanner.isDeclarationLine(line))
        return QStringLiteral("the map scanner reads only lines that begin with \"<template \" "
                              "(with a blank after the word), and this one does not");
    if (scanner.stopLine() == line)
        return QStringLiteral("the map scanner finds no name in double quotes on this line and "
                              "stops reading the file (%1)").arg(scanner.stopReason());
    const QList<MapLineScanner::Declaration> declarations = scanner.declarations();
    for (const MapLineScanner::Declaration& declaration : declarations) {
        if (declaration.line == line)
            return QStringLiteral("the map scanner reads the name \"%1\" from this line (the first "
                                  "value in double quotes after \"<template \")")
                .arg(declaration.name);
    }
    return QString();
}

} // namespace CsTool
