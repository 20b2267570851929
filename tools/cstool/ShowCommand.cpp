#include "ShowCommand.h"

#include "Console.h"
#include "PropertyValue.h"
#include "TcmdVocabulary.h"
#include "TemplateCatalog.h"
#include "TextTable.h"

#include <CommandSystem/Parameter.h>
#include <CommandSystem/Template.h>

#include <QCommandLineParser>
#include <QJsonArray>
#include <QJsonDocument>

using namespace Talvir::Vexa::Cs;

namespace CsTool {

namespace {

QString typeWord(Parameter::Type type)
{
    const QStringList& words = TcmdVocabulary::typeWords();
    const int index = int(type);
    return index >= 0 && index < words.size() ? words.at(index) : QString::number(index);
}

QString yesNo(bool value)
{
    return value ? QStringLiteral("yes") : QStringLiteral("no");
}

bool isNamedColumn(const QByteArray& name)
{
    return PropertyValue::isTranslated(name) || name == "options";
}

// The properties that have no column of their own, as "name=value; ...".
QString otherProperties(const Parameter& parameter)
{
    QStringList items;
    const QList<QByteArray> names = PropertyValue::names(&parameter);
    for (const QByteArray& name : names) {
        if (!isNamedColumn(name))
            items.append(QString::fromUtf8(name) + QLatin1Char('=')
                         + PropertyValue::text(parameter.property(name), false));
    }
    return items.join(QStringLiteral("; "));
}

QString propertyText(const QObject& object, const char* name)
{
    return PropertyValue::text(object.property(name), PropertyValue::isTranslated(name));
}

} // namespace

QString ShowCommand::name() const
{
    return QStringLiteral("show");
}

QString ShowCommand::summary() const
{
    return QStringLiteral("Show one template's properties and parameters.");
}

QString ShowCommand::details() const
{
    return QStringLiteral(
        "The template is looked up by NAME in the template directories DIR... through a\n"
        "template pool. Texts that the library translates (description, prompt, format) are\n"
        "shown as the pool returns them, that is translated when a translation is installed.\n\n"
        "Exit status: 0 success, 1 no such template, 2 usage error.");
}

void ShowCommand::configure(QCommandLineParser& parser)
{
    parser.addOption(QCommandLineOption(QStringLiteral("json"), QStringLiteral("Print JSON.")));
    parser.addPositionalArgument(QStringLiteral("dir"), QStringLiteral("Template directories."),
                                 QStringLiteral("DIR..."));
    parser.addPositionalArgument(QStringLiteral("name"), QStringLiteral("The template's name."),
                                 QStringLiteral("NAME"));
}

int ShowCommand::run(const QCommandLineParser& parser)
{
    QStringList arguments = parser.positionalArguments();
    if (arguments.size() < 2)
        return usageError(QStringLiteral("DIR and NAME are required"));
    const QString templateName = arguments.takeLast();
    TemplateCatalog catalog;
    for (const QString& directory : arguments) {
        if (!catalog.addDirectory(directory))
            return usageError(QStringLiteral("%1: not a directory").arg(directory));
    }
    catalog.scan();
    const Template* temp = catalog.find(templateName);
    if (!temp) {
        report(QStringLiteral("no template named '%1'").arg(templateName));
        return Failure;
    }
    const QString file = catalog.fileOf(templateName);
    if (parser.isSet(QStringLiteral("json")))
        Console::out(QString::fromUtf8(QJsonDocument(templateJson(*temp, file)).toJson()).trimmed());
    else
        printText(*temp, file);
    return Success;
}

void ShowCommand::printText(const Template& temp, const QString& file)
{
    Console::out(QStringLiteral("Template: ") + QString::fromUtf8(temp.name()));
    Console::out(QStringLiteral("File: ") + file);
    printProperties(temp);
    printParameters(temp);
}

void ShowCommand::printProperties(const Template& temp)
{
    Console::out(QStringLiteral("Properties:"));
    TextTable properties;
    const QList<QByteArray> names = PropertyValue::names(&temp);
    for (const QByteArray& name : names)
        properties.addRow({QString::fromUtf8(name), PropertyValue::text(temp.property(name), false)});
    for (const QString& line : properties.lines(QStringLiteral("  ")))
        Console::out(line);
}

void ShowCommand::printParameters(const Template& temp)
{
    Console::out(QStringLiteral("Parameters:"));
    TextTable parameters({QStringLiteral("luid"), QStringLiteral("type"), QStringLiteral("trigger"),
                          QStringLiteral("checker"), QStringLiteral("description"),
                          QStringLiteral("prompt"), QStringLiteral("format"),
                          QStringLiteral("options"), QStringLiteral("other")});
    for (const Parameter* parameter : temp.parameters())
        parameters.addRow(parameterRow(*parameter));
    for (const QString& line : parameters.lines(QStringLiteral("  ")))
        Console::out(line);
}

QStringList ShowCommand::parameterRow(const Parameter& parameter)
{
    return {QString::number(parameter.luid()),
            typeWord(parameter.type()),
            yesNo(parameter.isTrigger()),
            yesNo(parameter.isChecker()),
            QString::fromLocal8Bit(parameter.description()),
            propertyText(parameter, "prompt"),
            propertyText(parameter, "format"),
            propertyText(parameter, "options"),
            otherProperties(parameter)};
}

QJsonObject ShowCommand::templateJson(const Template& temp, const QString& file)
{
    QJsonObject properties;
    const QList<QByteArray> names = PropertyValue::names(&temp);
    for (const QByteArray& name : names)
        properties.insert(QString::fromUtf8(name), PropertyValue::json(temp.property(name), false));
    QJsonArray parameters;
    for (const Parameter* parameter : temp.parameters())
        parameters.append(parameterJson(*parameter));
    QJsonObject result;
    result.insert(QStringLiteral("name"), QString::fromUtf8(temp.name()));
    result.insert(QStringLiteral("file"), file);
    result.insert(QStringLiteral("properties"), properties);
    result.insert(QStringLiteral("parameters"), parameters);
    return result;
}

QJsonObject ShowCommand::parameterJson(const Parameter& parameter)
{
    QJsonObject result;
    result.insert(QStringLiteral("luid"), parameter.luid());
    result.insert(QStringLiteral("type"), typeWord(parameter.type()));
    result.insert(QStringLiteral("trigger"), parameter.isTrigger());
    result.insert(QStringLiteral("checker"), parameter.isChecker());
    result.insert(QStringLiteral("description"), QString::fromLocal8Bit(parameter.description()));
    result.insert(QStringLiteral("prompt"), propertyText(parameter, "prompt"));
    result.insert(QStringLiteral("format"), propertyText(parameter, "format"));
    result.insert(QStringLiteral("options"), propertyText(parameter, "options"));
    QJsonObject others;
    const QList<QByteArray> names = PropertyValue::names(&parameter);
    for (const QByteArray& name : names) {
        if (!isNamedColumn(name))
            others.insert(QString::fromUtf8(name), PropertyValue::json(parameter.property(name), false));
    }
    result.insert(QStringLiteral("properties"), others);
    return result;
}

} // namespace CsTool

