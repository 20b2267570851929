#include "action/ActionPoolImpl.h"

#include "platform/SystemVersion.h"

#include <CommandSystem/Action.h>

#include <QCoreApplication>
#include <QXmlStreamReader>
#include <QXmlStreamWriter>

CS_BEGIN_NAMESPACE

namespace {

using Values = ActionPoolImpl::ActionValues;

// The child elements of "Action" that hold one text each; "Text" and "MinWinVer" are special.
struct TextElement {
    const char* name;
    QString Values::*value;
    bool translated;
};

const TextElement textElements[] = {
    {"Form", &Values::form, false},        {"Icon", &Values::icon, false},
    {"Hint", &Values::hint, true},         {"Help", &Values::help, false},
    {"MenuIcon", &Values::menuIcon, false}, {"Desc", &Values::desc, true},
    {"Script", &Values::script, false},    {"Widget", &Values::widget, false},
    {"Mapper", &Values::mapper, false},    {"Checked", &Values::checked, false},
    {"Options", &Values::options, false},
};

// Translators key the texts of a file by the action's name.
QString readTranslated(QXmlStreamReader& reader, const QByteArray& context)
{
    const QByteArray source = reader.readElementText().toUtf8();
    return QCoreApplication::translate(context.constData(), source.constData());
}

void raiseUnexpected(QXmlStreamReader& reader)
{
    reader.raiseError(QLatin1String("Unexpected element: ") + reader.name().toString());
}

// Lexicographic on purpose: this is how the files in the field have always been read.
void checkSystemVersion(QXmlStreamReader& reader, Action& action)
{
    if (cachedSystemVersion().compare(reader.readElementText()) < 0)
        action.setEnabled(false);
}

} // namespace

void ActionPoolImpl::readActions(QXmlStreamReader& reader)
{
    while (!reader.hasError()) {
        reader.readNext();
        if (reader.isEndElement())
            return;
        if (!reader.isStartElement())
            continue;
        if (reader.name() == QLatin1String("Action"))
            readAction(reader);
        else
            raiseUnexpected(reader);
    }
}

void ActionPoolImpl::readAction(QXmlStreamReader& reader)
{
    const QXmlStreamAttributes attributes = reader.attributes();
    auto* action = new Action(owner);
    action->setName(attributes.value(QLatin1String("name")).toString());
    action->setType(attributes.value(QLatin1String("type")).toString());
    ActionValues values;
    while (reader.readNextStartElement())
        readChild(reader, *action, values);
    // An error inside the element still finishes the action with what was read.
    apply(*action, values);
    if (action->isEnabled())
        owner->insertAction(action);
}

void ActionPoolImpl::readChild(QXmlStreamReader& reader, Action& action, ActionValues& values)
{
    const QByteArray context = action.name().toLocal8Bit();
    for (const TextElement& element : textElements) {
        if (reader.name() != QLatin1String(element.name))
            continue;
        values.*element.value = element.translated ? readTranslated(reader, context)
                                                   : reader.readElementText();
        return;
    }
    if (reader.name() == QLatin1String("Text"))
        readText(reader, context, values);
    else if (reader.name() == QLatin1String("MinWinVer"))
        checkSystemVersion(reader, action);
    else
        reader.skipCurrentElement();
}

void ActionPoolImpl::readText(QXmlStreamReader& reader, const QByteArray& context,
                              ActionValues& values)
{
    while (reader.readNextStartElement()) {
        if (reader.name() == QLatin1String("Ribbon"))
            values.ribbon = readTranslated(reader, context);
        else if (reader.name() == QLatin1String("Menu"))
            values.menu = readTranslated(reader, context);
        else
            reader.skipCurrentElement();
    }
}

void ActionPoolImpl::apply(Action& action, const ActionValues& values)
{
    action.setRibbonText(values.ribbon);
    action.setMenuText(values.menu);
    action.setIcon(values.icon);
    action.setHelp(values.help);
    action.setDesc(values.desc);
    action.setHint(values.hint);
    action.setmenuIcon(values.menuIcon);
    action.setForm(values.form);
    action.setScript(values.script);
    const QString type = action.type();
    if (type == QLatin1String("widget")) {
        action.setWidget(values.widget);
        action.setMapper(values.mapper);
    } else if (type == QLatin1String("toggle")) {
        action.setCheckable(true);
        action.setChecked(values.checked == QLatin1String("true"));
        action.setOptions(values.options);
    } else if (type == QLatin1String("check_box")) {
        action.setCheckable(true);
    }
}

void ActionPoolImpl::writeAction(QXmlStreamWriter& writer, const Action& action)
{
    writer.writeStartElement(QStringLiteral("Action"));
    writer.writeAttribute(QStringLiteral("name"), action.name());
    writer.writeAttribute(QStringLiteral("type"), action.type());
    writer.writeTextElement(QStringLiteral("Form"), action.form());
    writer.writeStartElement(QStringLiteral("Text"));
    writer.writeTextElement(QStringLiteral("Ribbon"), action.ribbonText());
    writer.writeTextElement(QStringLiteral("Menu"), action.menuText());
    writer.writeEndElement();
    writer.writeTextElement(QStringLiteral("Icon"), action.iconName());
    writer.writeTextElement(QStringLiteral("Hint"), action.hint());
    writer.writeTextElement(QStringLiteral("Help"), action.help());
    writer.writeTextElement(QStringLiteral("Desc"), action.desc());
    writer.writeTextElement(QStringLiteral("Script"), action.script());
    if (action.type() == QLatin1String("widget")) {
        writer.writeTextElement(QStringLiteral("Widget"), action.widget());
        writer.writeTextElement(QStringLiteral("Mapper"), action.mapper());
    } else if (action.type() == QLatin1String("toggle")) {
        writer.writeTextElement(QStringLiteral("Checked"),
                                action.isChecked() ? QStringLiteral("true")
                                                   : QStringLiteral("false"));
        writer.writeTextElement(QStringLiteral("Options"), action.options());
    }
    writer.writeEndElement();
}

CS_END_NAMESPACE
