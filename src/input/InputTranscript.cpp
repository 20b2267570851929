#include <CommandSystem/InputTranscript.h>

#include "input/InputTranscriptImpl.h"
#include "input/TextFile.h"

#include <CommandSystem/InputSession.h>

#include <QLocale>
#include <QSaveFile>

#include <cmath>

CS_BEGIN_NAMESPACE

namespace {

// The shortest text that reads back to the same double, the sign of zero included.
QString number(double value)
{
    if (value == 0.0)
        return std::signbit(value) ? QStringLiteral("-0") : QStringLiteral("0");
    return QString::number(value, 'g', QLocale::FloatingPointShortest);
}

QString point(const QPointF& value)
{
    return number(value.x()) + QLatin1Char(',') + number(value.y());
}

QString escaped(const QString& text)
{
    QString result;
    for (const QChar c : text) {
        switch (c.unicode()) {
        case '\\': result += QLatin1String("\\\\"); break;
        case '\n': result += QLatin1String("\\n"); break;
        case '\r': result += QLatin1String("\\r"); break;
        case '\t': result += QLatin1String("\\t"); break;
        default: result += c; break;
        }
    }
    return result;
}

QString stepLine(const InputAnswer& step)
{
    const QString luid = QString::number(step.luid());
    switch (step.kind()) {
    case InputAnswer::Point: return luid + QLatin1String(" point ") + point(step.point());
    case InputAnswer::Number: return luid + QLatin1String(" number ") + number(step.number());
    case InputAnswer::Text: return luid + QLatin1String(" text ") + escaped(step.text());
    case InputAnswer::Option: return luid + QLatin1String(" option ") + escaped(step.text());
    case InputAnswer::Entities: {
        QString line = luid + QLatin1String(" entities");
        for (int entity : step.entities())
            line += QLatin1Char(' ') + QString::number(entity);
        return line;
    }
    case InputAnswer::Window:
        return luid + QLatin1String(" window ") + point(step.window().topLeft()) + QLatin1Char(' ')
            + point(step.window().bottomRight());
    case InputAnswer::Empty: break;
    }
    return luid + QLatin1String(" enter");
}

} // namespace

InputTranscript::InputTranscript()
    : d(new InputTranscriptImpl(this))
{
}

InputTranscript::InputTranscript(const InputTranscript& other)
    : InputTranscript()
{
    *this = other;
}

InputTranscript& InputTranscript::operator=(const InputTranscript& other)
{
    d->entries = other.d->entries;
    d->errors = other.d->errors;
    return *this;
}

InputTranscript::~InputTranscript()
{
    delete d;
}

void InputTranscript::append(const Entry& entry)
{
    d->entries.append(entry);
}

void InputTranscript::append(const InputSession& session)
{
    Entry entry;
    entry.command = session.name();
    entry.steps = session.steps();
    entry.completed = session.isCompleted();
    d->entries.append(entry);
}

QList<InputTranscript::Entry> InputTranscript::entries() const
{
    return d->entries;
}

int InputTranscript::count() const
{
    return int(d->entries.size());
}

void InputTranscript::clear()
{
    d->entries.clear();
    d->errors.clear();
}

QString InputTranscript::toText() const
{
    QStringList lines{header()};
    for (const Entry& entry : d->entries) {
        lines.append(QLatin1String("run ") + entry.command);
        for (const InputAnswer& step : entry.steps)
            lines.append(stepLine(step));
        lines.append(entry.completed ? QStringLiteral("done") : QStringLiteral("cancelled"));
    }
    return lines.join(QLatin1Char('\n')) + QLatin1Char('\n');
}

bool InputTranscript::save(const QString& filePath, QString* error) const
{
    QSaveFile file(filePath);
    const QByteArray bytes = toText().toUtf8();
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.commit()) {
        if (error)
            *error = QStringLiteral("%1: cannot write the file: %2").arg(filePath, file.errorString());
        return false;
    }
    return true;
}

bool InputTranscript::load(const QString& filePath)
{
    QString text;
    QString error;
    if (!TextFile::read(filePath, &text, &error)) {
        d->errors.append(error);
        return false;
    }
    return loadText(text, filePath);
}

bool InputTranscript::loadText(const QString& text, const QString& fileName)
{
    return d->read(text, fileName);
}

QStringList InputTranscript::errors() const
{
    return d->errors;
}

QString InputTranscript::header()
{
    return QStringLiteral("# input transcript, version 1");
}

bool InputTranscript::isTranscript(const QString& text)
{
    const QString first = text.section(QLatin1Char('\n'), 0, 0).trimmed();
    return first == header() || first == QChar(0xFEFF) + header();
}

CS_END_NAMESPACE
