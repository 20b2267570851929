#include "generators/TemplateCorpus.h"

#include "generators/Sequence.h"

#include <QDir>
#include <QFile>

namespace CsBench {

namespace {

const char* const commandWords[] = {
    "line", "polyline", "circle", "arc", "ellipse", "spline", "offset", "trim", "extend",
    "fillet", "chamfer", "mirror", "rotate", "scale", "stretch", "array", "hatch", "dim_linear",
    "dim_angular", "dim_radius", "text", "block_insert", "layer_set", "measure", "divide"};
const char* const parameterTypes[] = {
    "point", "point", "distance", "angle", "entity", "entity", "option", "number", "string",
    "continue", "window", "pin"};
const char* const prompts[] = {
    "Specify the first point", "Specify the next point", "Select objects",
    "Enter the radius", "Specify the rotation angle", "Select the entity to trim",
    "Enter an option", "Specify the base point", "Pick the opposite corner",
    "Enter the number of items"};
const char* const descriptions[] = {
    "Start point", "End point", "Radius", "Angle", "Object selection", "Option", "Count",
    "Base point", "Corner", "Text string"};
const char* const options[] = {
    "Undo|Close|Length", "Radius|Trim|Multiple", "Yes|No", "Left|Center|Right",
    "Copy|Move|Undo|Exit"};

QByteArray property(const char* indent, const QByteArray& name, const QByteArray& value)
{
    return QByteArray(indent) + "<property name=\"" + name + "\">" + value + "</property>\n";
}

void writeFile(const QString& path, const QByteArray& body)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate))
        qFatal("Cannot write %s", qPrintable(path));
    file.write("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<templates>\n");
    file.write(body);
    file.write("</templates>\n");
}

} // namespace

TemplateCorpus::TemplateCorpus(std::uint64_t start) : start(start) {}

QByteArray TemplateCorpus::nextName()
{
    Sequence sequence(start + produced);
    return QByteArray(sequence.pick(commandWords)) + '_' + QByteArray::number(qulonglong(++produced));
}

QByteArray TemplateCorpus::parameterElement(int luid, bool last)
{
    Sequence sequence(start * 31 + produced * 7 + std::uint64_t(luid));
    const QByteArray type = sequence.pick(parameterTypes);
    QByteArray text = "      <parameter luid=\"" + QByteArray::number(luid) + "\" type=\"" + type
        + "\" description=\"" + sequence.pick(descriptions) + "\" trigger=\""
        + (last ? "true" : "false") + "\" checker=\"false\">\n";
    const char indent[] = "        ";
    text += property(indent, "prompt", sequence.pick(prompts));
    if (sequence.chance(50))
        text += property(indent, "format", "%.4f");
    if (!last)
        text += property(indent, "next", QByteArray::number(luid + 1));
    if (type == "option" || sequence.chance(20))
        text += property(indent, "options", sequence.pick(options));
    if (type == "distance" || type == "number")
        text += QByteArray(indent) + "<property name=\"dim\"><string>"
            + QByteArray::number(sequence.below(100)) + "</string><string>"
            + QByteArray::number(100 + sequence.below(900)) + "</string></property>\n";
    if (type == "entity")
        text += property(indent, "mod_entity", sequence.chance(50) ? "true" : "false");
    return text + "      </parameter>\n";
}

QByteArray TemplateCorpus::templateElement(const QByteArray& name, int parameters)
{
    Sequence sequence(start ^ (produced * 0x9e37));
    const char indent[] = "    ";
    QByteArray text = "  <template name=\"" + name + "\">\n";
    text += property(indent, "form_id", QByteArray::number(1000 + sequence.below(9000)));
    text += property(indent, "icon_id", QByteArray::number(sequence.below(500)));
    text += property(indent, "echo", "Command: " + name);
    text += property(indent, "repeatable", sequence.chance(70) ? "true" : "false");
    if (sequence.chance(40))
        text += property(indent, "auto_repeat", sequence.chance(50) ? "on" : "off");
    text += property(indent, "init", name + "_init");
    text += property(indent, "term", name + "_term");
    if (sequence.chance(30))
        text += property(indent, "level", QByteArray::number(sequence.below(5)));
    text += "    <parameters>\n";
    for (int luid = 1; luid <= parameters; ++luid)
        text += parameterElement(luid, luid == parameters);
    return text + "    </parameters>\n  </template>\n";
}

QStringList TemplateCorpus::writeLargeFile(const QString& path, qint64 bytes)
{
    QStringList names;
    QByteArray body;
    Sequence sequence(start);
    while (body.size() < bytes) {
        const QByteArray name = nextName();
        body += templateElement(name, 2 + sequence.below(6));
        names.append(QString::fromUtf8(name));
    }
    writeFile(path, body);
    return names;
}

QStringList TemplateCorpus::writeUniformFile(const QString& path, int count, int parameters)
{
    QStringList names;
    QByteArray body;
    for (int index = 0; index < count; ++index) {
        const QByteArray name = nextName();
        body += templateElement(name, parameters);
        names.append(QString::fromUtf8(name));
    }
    writeFile(path, body);
    return names;
}

QStringList TemplateCorpus::writeDirectory(const QString& directory, int fileCount)
{
    QStringList alone;
    Sequence sequence(start + 1);
    const QDir dir(directory);
    for (int index = 0; index < fileCount; ++index) {
        const int templates = sequence.chance(10) ? 2 + sequence.below(4) : 1;
        QByteArray body;
        QByteArray firstName;
        for (int count = 0; count < templates; ++count) {
            const QByteArray name = nextName();
            firstName = count == 0 ? name : firstName;
            body += templateElement(name, 2 + sequence.below(6));
        }
        const QByteArray fileName = templates == 1 ? firstName : "group_" + QByteArray::number(index);
        if (templates == 1)
            alone.append(QString::fromUtf8(firstName));
        writeFile(dir.filePath(QString::fromUtf8(fileName) + QStringLiteral(".tcmd")), body);
    }
    return alone;
}

} // namespace CsBench
