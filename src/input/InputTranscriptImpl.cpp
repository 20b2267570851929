#include "input/InputTranscriptImpl.h"
#include "input/TextFile.h"

#include <CommandSystem/InputGrammar.h>

CS_BEGIN_NAMESPACE

namespace {

bool readPoint(const QString& text, QPointF* point)
{
    const QStringList parts = text.split(QLatin1Char(','));
    double x = 0.0;
    double y = 0.0;
    if (parts.size() != 2 || !InputGrammar::readNumber(parts[0], &x) || !InputGrammar::readNumber(parts[1], &y))
        return false;
    *point = QPointF(x, y);
    return true;
}

// Undoes the escapes of the writer; false on a backslash that escapes nothing it knows.
bool unescape(const QString& text, QString* result)
{
    result->clear();
    for (int i = 0; i < text.size(); ++i) {
        if (text.at(i) != QLatin1Char('\\')) {
            result->append(text.at(i));
            continue;
        }
        const QChar next = i + 1 < text.size() ? text.at(++i) : QChar();
        switch (next.unicode()) {
        case '\\': result->append(QLatin1Char('\\')); break;
        case 'n': result->append(QLatin1Char('\n')); break;
        case 'r': result->append(QLatin1Char('\r')); break;
        case 't': result->append(QLatin1Char('\t')); break;
        default: return false;
        }
    }
    return true;
}

QString readValue(const QString& kind, const QString& value, InputAnswer* step)
{
    if (kind == QLatin1String("point")) {
        QPointF point;
        if (!readPoint(value, &point))
            return QStringLiteral("\"%1\" is not a point X,Y").arg(value);
        *step = InputAnswer::fromPoint(point);
    } else if (kind == QLatin1String("number")) {
        double number = 0.0;
        if (!InputGrammar::readNumber(value, &number))
            return QStringLiteral("\"%1\" is not a number").arg(value);
        *step = InputAnswer::fromNumber(number);
    } else if (kind == QLatin1String("text") || kind == QLatin1String("option")) {
        QString text;
        if (!unescape(value, &text))
            return QStringLiteral("\"%1\" has a backslash that is not \\\\, \\n, \\r or \\t").arg(value);
        if (kind == QLatin1String("option") && text.isEmpty())
            return QStringLiteral("option needs a key");
        *step = kind == QLatin1String("text") ? InputAnswer::fromText(text) : InputAnswer::fromOption(text);
    } else if (kind == QLatin1String("entities")) {
        QList<int> entities;
        for (const QString& id : value.split(QLatin1Char(' '), Qt::SkipEmptyParts)) {
            bool ok = false;
            entities.append(id.toInt(&ok));
            if (!ok)
                return QStringLiteral("\"%1\" is not an entity identifier").arg(id);
        }
        *step = InputAnswer::fromEntities(entities);
    } else if (kind == QLatin1String("window")) {
        QPointF first;
        QPointF second;
        const QStringList corners = value.split(QLatin1Char(' '), Qt::SkipEmptyParts);
        if (corners.size() != 2 || !readPoint(corners[0], &first) || !readPoint(corners[1], &second))
            return QStringLiteral("\"%1\" is not a window X1,Y1 X2,Y2").arg(value);
        *step = InputAnswer::fromWindow(QRectF(first, second));
    } else if (kind == QLatin1String("enter")) {
        if (!value.trimmed().isEmpty())
            return QStringLiteral("enter takes no value");
        *step = InputAnswer::fromEmpty();
    } else {
        return QStringLiteral("unknown step \"%1\"; expected point, number, text, option, entities, window or enter").arg(kind);
    }
    return QString();
}

} // namespace

bool InputTranscriptImpl::read(const QString& text, const QString& fileName)
{
    const QStringList lines = TextFile::lines(text);
    const int errorsBefore = errors.size();
    for (int i = 0; i < lines.size(); ++i) {
        const QString& line = lines[i];
        const QString trimmed = line.trimmed();
        if (trimmed.isEmpty() || trimmed.startsWith(QLatin1Char('#')))
            continue;
        QString problem;
        if (trimmed == QLatin1String("run") || trimmed.startsWith(QLatin1String("run "))) {
            closeUnended(fileName);
            problem = readRun(trimmed.mid(4).trimmed(), i + 1);
        } else if (trimmed == QLatin1String("done") || trimmed == QLatin1String("cancelled")) {
            problem = readEnd(trimmed == QLatin1String("done"));
        } else {
            problem = readStep(line.mid(line.indexOf(trimmed.at(0))));
        }
        if (!problem.isEmpty())
            errors.append(QStringLiteral("%1:%2: %3").arg(fileName).arg(i + 1).arg(problem));
    }
    closeUnended(fileName);
    return errors.size() == errorsBefore;
}

QString InputTranscriptImpl::readRun(const QString& name, int line)
{
    if (name.isEmpty())
        return QStringLiteral("run needs a command name");
    m_open = true;
    m_entry = InputTranscript::Entry();
    m_entry.command = name;
    m_entry.line = line;
    return QString();
}

QString InputTranscriptImpl::readEnd(bool completed)
{
    if (!m_open)
        return QStringLiteral("%1 without a run before it").arg(completed ? QStringLiteral("done") : QStringLiteral("cancelled"));
    m_entry.completed = completed;
    entries.append(m_entry);
    m_open = false;
    return QString();
}

// A step line is "LUID KIND VALUE"; the value is the rest of the line after one blank, so that
// texts keep their blanks.
QString InputTranscriptImpl::readStep(const QString& line)
{
    if (!m_open)
        return QStringLiteral("a step without a run before it");
    const int firstBlank = line.indexOf(QLatin1Char(' '));
    bool ok = false;
    const int luid = line.left(firstBlank).toInt(&ok);
    if (firstBlank < 0 || !ok)
        return QStringLiteral("\"%1\" is not a step: expected LUID KIND VALUE").arg(line);
    const int secondBlank = line.indexOf(QLatin1Char(' '), firstBlank + 1);
    const QString kind = line.mid(firstBlank + 1, secondBlank < 0 ? -1 : secondBlank - firstBlank - 1);
    const QString value = secondBlank < 0 ? QString() : line.mid(secondBlank + 1);
    InputAnswer step;
    const QString problem = readValue(kind, value, &step);
    if (!problem.isEmpty())
        return problem;
    step.setLuid(luid);
    m_entry.steps.append(step);
    return QString();
}

void InputTranscriptImpl::closeUnended(const QString& fileName)
{
    if (!m_open)
        return;
    errors.append(QStringLiteral("%1:%2: run \"%3\" has no done or cancelled; it is left out")
                      .arg(fileName).arg(m_entry.line).arg(m_entry.command));
    m_open = false;
}

CS_END_NAMESPACE
