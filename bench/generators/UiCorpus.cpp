#include "generators/UiCorpus.h"

#include "generators/Sequence.h"

#include <QColor>
#include <QDir>
#include <QFile>
#include <QImage>
#include <QPainter>

namespace CsBench {

namespace {

const char* const words[] = {
    "Line", "Circle", "Arc", "Offset", "Trim", "Extend", "Fillet", "Chamfer", "Mirror", "Rotate",
    "Scale", "Hatch", "Measure", "Layer", "Block", "Grid", "Snap", "Ortho", "Zoom", "Pan"};
const char* const forms[] = {"Draw", "Modify", "Annotate", "View", "Tools"};
const char* const hints[] = {
    "Draws the selected shape", "Changes the selected objects", "Toggles a drawing aid",
    "Shows or hides a panel", "Opens the settings of the tool"};

QColor color(Sequence& sequence)
{
    return QColor(sequence.below(256), sequence.below(256), sequence.below(256));
}

QString actionElement(Sequence& sequence, int index, int iconCount)
{
    const QString word = QString::fromLatin1(sequence.pick(words));
    const QString number = QString::number(index);
    const QString name = QStringLiteral("ID_%1_%2").arg(word.toUpper(), number);
    const int kind = sequence.below(100);
    const QString type = kind < 80 ? QStringLiteral("command")
        : kind < 90 ? QStringLiteral("toggle")
        : kind < 97 ? QStringLiteral("check_box") : QStringLiteral("widget");
    QString text = QStringLiteral("  <Action name=\"%1\" type=\"%2\">\n").arg(name, type);
    text += QStringLiteral("    <Form>%1</Form>\n").arg(QString::fromLatin1(sequence.pick(forms)));
    text += QStringLiteral("    <Text>\n      <Ribbon>%1 %2</Ribbon>\n      <Menu>&amp;%1 %2...</Menu>\n"
                           "    </Text>\n").arg(word, number);
    text += QStringLiteral("    <Icon>%1</Icon>\n").arg(UiCorpus::iconName(index % iconCount));
    text += QStringLiteral("    <Hint>%1</Hint>\n").arg(QString::fromLatin1(sequence.pick(hints)));
    text += QStringLiteral("    <Help>help/%1.html</Help>\n").arg(word.toLower());
    text += QStringLiteral("    <Desc>%1: %2</Desc>\n").arg(word, QString::fromLatin1(sequence.pick(hints)));
    text += QStringLiteral("    <Script>%1_%2</Script>\n").arg(word.toLower(), number);
    if (type == QLatin1String("toggle"))
        text += QStringLiteral("    <Checked>%1</Checked>\n    <Options>On|Off</Options>\n")
                    .arg(sequence.chance(50) ? QStringLiteral("true") : QStringLiteral("false"));
    if (type == QLatin1String("widget"))
        text += QStringLiteral("    <Widget>LayerCombo</Widget>\n    <Mapper>ComboMapper</Mapper>\n");
    return text + QStringLiteral("  </Action>\n");
}

} // namespace

UiCorpus::UiCorpus(std::uint64_t start) : start(start) {}

QString UiCorpus::iconName(int index)
{
    return QStringLiteral("icon_%1").arg(index, 3, 10, QLatin1Char('0'));
}

QStringList UiCorpus::writeIcons(const QString& directory, int count, int size)
{
    QStringList paths;
    for (int index = 0; index < count; ++index) {
        Sequence sequence(start + std::uint64_t(index));
        QImage image(size, size, QImage::Format_ARGB32);
        image.fill(Qt::transparent);
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setBrush(color(sequence));
        painter.setPen(QPen(color(sequence), 2));
        painter.drawRoundedRect(2, 2, size - 4, size - 4, 5, 5);
        painter.setBrush(color(sequence));
        painter.drawEllipse(QPoint(4 + sequence.below(size - 8), 4 + sequence.below(size - 8)),
                            3 + sequence.below(size / 4), 3 + sequence.below(size / 4));
        painter.drawLine(sequence.below(size), 0, sequence.below(size), size);
        painter.end();
        const QString path = QDir(directory).filePath(iconName(index) + QStringLiteral(".png"));
        if (!image.save(path, "PNG"))
            qFatal("Cannot write %s", qPrintable(path));
        paths.append(path);
    }
    return paths;
}

QStringList UiCorpus::writeUiFile(const QString& path, int actionCount, int iconCount)
{
    Sequence sequence(start);
    QString text = QStringLiteral("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                                  "<Actions name=\"Vexa\" version=\"1700\">\n");
    QStringList names;
    for (int index = 0; index < actionCount; ++index) {
        const QString element = actionElement(sequence, index, iconCount);
        names.append(element.section(QLatin1Char('"'), 1, 1));
        text += element;
    }
    text += QStringLiteral("</Actions>\n");
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate))
        qFatal("Cannot write %s", qPrintable(path));
    file.write(text.toUtf8());
    return names;
}

} // namespace CsBench
