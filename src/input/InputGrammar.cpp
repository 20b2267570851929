#include <CommandSystem/InputGrammar.h>

#include <CommandSystem/Parameter.h>

#include <QRegularExpression>
#include <QStringList>
#include <QtMath>

#include <cmath>

CS_BEGIN_NAMESPACE

namespace {

const char* const kPointForms = "x,y, @dx,dy, dist<angle or @dist<angle";

QString textOf(const Parameter& parameter, const char* name)
{
    return QString::fromLocal8Bit(parameter.textProperty(name));
}

InputGrammar::Reading refusal(const QString& error)
{
    InputGrammar::Reading reading;
    reading.error = error;
    return reading;
}

InputGrammar::Reading accepted(const InputAnswer& answer)
{
    InputGrammar::Reading reading;
    reading.answer = answer;
    return reading;
}

// Cosine and sine of an angle in degrees, exact on the axes so that @10<90 is 0,10 and not
// 6e-16,10.
QPointF direction(double degrees)
{
    const double turned = std::fmod(degrees, 360.0);
    const double quarter = turned / 90.0;
    if (quarter == std::floor(quarter)) {
        switch ((int(quarter) % 4 + 4) % 4) {
        case 0: return QPointF(1, 0);
        case 1: return QPointF(0, 1);
        case 2: return QPointF(-1, 0);
        default: return QPointF(0, -1);
        }
    }
    const double radians = qDegreesToRadians(turned);
    return QPointF(std::cos(radians), std::sin(radians));
}

bool readPair(const QString& text, QChar separator, double* first, double* second)
{
    const QStringList parts = text.split(separator);
    return parts.size() == 2 && InputGrammar::readNumber(parts[0], first)
        && InputGrammar::readNumber(parts[1], second);
}

QString optionList(const QList<InputGrammar::Option>& options)
{
    QStringList names;
    for (const InputGrammar::Option& option : options)
        names.append(QStringLiteral("%1 (%2)").arg(option.label, option.key));
    return names.join(QStringLiteral(", "));
}

QString valueExpected(const Parameter& parameter)
{
    double low = 0.0;
    double high = 0.0;
    const bool bounded = InputGrammar::range(parameter, &low, &high);
    const QString bounds = bounded ? QStringLiteral(" from %1 to %2").arg(InputGrammar::formatNumber(low),
                                                                         InputGrammar::formatNumber(high))
                                   : QString();
    const QString positive = parameter.isChecker() ? QStringLiteral("positive ") : QString();
    switch (parameter.type()) {
    case Parameter::TypePoint:
    case Parameter::TypePin:
        return QStringLiteral("a point (%1)").arg(QLatin1String(kPointForms));
    case Parameter::TypeWindow:
        return QStringLiteral("a corner (%1)").arg(QLatin1String(kPointForms));
    case Parameter::TypeEntity:
        return QStringLiteral("an entity at a point (x,y)");
    case Parameter::TypeNumber:
        return QStringLiteral("a %1number%2").arg(positive, bounds);
    case Parameter::TypeDistance:
        return QStringLiteral("a %1distance%2").arg(positive, bounds);
    case Parameter::TypeAngle:
        return (parameter.isChecker() ? QStringLiteral("a positive angle in degrees%1")
                                      : QStringLiteral("an angle in degrees%1")).arg(bounds);
    case Parameter::TypeString:
        return QStringLiteral("a text");
    case Parameter::TypeCommand:
        return QStringLiteral("a command name");
    case Parameter::TypeContinue:
        return QStringLiteral("Enter");
    default:
        return QString();
    }
}

// The options that text names: the one whose key or label it is, else every option whose label
// it starts, all compared case-insensitively.
QList<InputGrammar::Option> optionsNamed(const QString& text, const QList<InputGrammar::Option>& choices)
{
    for (const InputGrammar::Option& option : choices) {
        if (text.compare(option.key, Qt::CaseInsensitive) == 0)
            return {option};
    }
    for (const InputGrammar::Option& option : choices) {
        if (text.compare(option.label, Qt::CaseInsensitive) == 0)
            return {option};
    }
    QList<InputGrammar::Option> prefixed;
    for (const InputGrammar::Option& option : choices) {
        if (!text.isEmpty() && option.label.startsWith(text, Qt::CaseInsensitive))
            prefixed.append(option);
    }
    return prefixed;
}

QString ambiguity(const QString& text, const QList<InputGrammar::Option>& named)
{
    QStringList labels;
    for (const InputGrammar::Option& option : named)
        labels.append(option.label);
    const QString last = labels.takeLast();
    return QStringLiteral("\"%1\" could be %2 or %3.").arg(text, labels.join(QStringLiteral(", ")), last);
}

InputGrammar::Reading readValue(const QString& text, const Parameter& parameter,
                                const std::optional<QPointF>& lastPoint)
{
    const QString expected = QStringLiteral(" Expected %1.").arg(InputGrammar::expected(parameter));
    switch (parameter.type()) {
    case Parameter::TypePoint:
    case Parameter::TypePin:
    case Parameter::TypeWindow:
    case Parameter::TypeEntity: {
        InputGrammar::Reading reading = InputGrammar::readPoint(text, lastPoint);
        if (!reading.isValid())
            reading.error += expected;
        return reading;
    }
    case Parameter::TypeNumber:
    case Parameter::TypeDistance:
    case Parameter::TypeAngle: {
        double value = 0.0;
        if (!InputGrammar::readNumber(text, &value))
            return refusal(QStringLiteral("\"%1\" is not a number.").arg(text) + expected);
        const QString problem = InputGrammar::checkNumber(value, parameter);
        return problem.isEmpty() ? accepted(InputAnswer::fromNumber(value)) : refusal(problem);
    }
    case Parameter::TypeString:
    case Parameter::TypeCommand:
        return accepted(InputAnswer::fromText(text));
    default:
        return refusal(QStringLiteral("\"%1\" is not an answer here.").arg(text) + expected);
    }
}

} // namespace

InputGrammar::Reading InputGrammar::read(const QString& typed, const Parameter& parameter,
                                         const std::optional<QPointF>& lastPoint)
{
    const QString text = typed.trimmed();
    const QList<Option> named = optionsNamed(text, options(parameter));
    Reading reading;
    if (named.size() == 1)
        reading = accepted(InputAnswer::fromOption(named.first().key));
    else if (named.size() > 1)
        reading = refusal(ambiguity(text, named) + QStringLiteral(" Expected %1.").arg(expected(parameter)));
    else if (parameter.type() == Parameter::TypeOption)
        reading = refusal(QStringLiteral("\"%1\" is not an option. Expected %2.").arg(text, expected(parameter)));
    else
        reading = readValue(text, parameter, lastPoint);
    reading.answer.setLuid(parameter.luid());
    return reading;
}

InputGrammar::Reading InputGrammar::readPoint(const QString& typed, const std::optional<QPointF>& lastPoint)
{
    QString text = typed.trimmed();
    const bool relative = text.startsWith(QLatin1Char('@'));
    const QPointF origin = relative ? lastPoint.value_or(QPointF()) : QPointF();
    if (relative)
        text = text.mid(1).trimmed();
    if (relative && text.isEmpty())
        return accepted(InputAnswer::fromPoint(origin));
    double first = 0.0;
    double second = 0.0;
    if (text.contains(QLatin1Char('<'))) {
        if (!readPair(text, QLatin1Char('<'), &first, &second))
            return refusal(QStringLiteral("\"%1\" is not a polar point: dist<angle needs two numbers.").arg(typed.trimmed()));
        return accepted(InputAnswer::fromPoint(origin + direction(second) * first));
    }
    if (text.count(QLatin1Char(',')) > 1)
        return refusal(QStringLiteral("\"%1\" has more than two coordinates.").arg(typed.trimmed()));
    if (!readPair(text, QLatin1Char(','), &first, &second))
        return refusal(QStringLiteral("\"%1\" is not a point.").arg(typed.trimmed()));
    return accepted(InputAnswer::fromPoint(origin + QPointF(first, second)));
}

bool InputGrammar::readNumber(const QString& text, double* value)
{
    static const QRegularExpression decimal(
        QStringLiteral("^[+-]?(\\d+\\.?\\d*|\\.\\d+)([eE][+-]?\\d+)?$"));
    const QString trimmed = text.trimmed();
    if (!decimal.match(trimmed).hasMatch())
        return false;
    bool ok = false;
    const double number = trimmed.toDouble(&ok);
    if (!ok || !std::isfinite(number))
        return false;
    *value = number;
    return true;
}

InputGrammar::Reading InputGrammar::readOption(const QString& typed, const QList<Option>& choices)
{
    const QString text = typed.trimmed();
    const QList<Option> named = optionsNamed(text, choices);
    if (named.size() == 1)
        return accepted(InputAnswer::fromOption(named.first().key));
    return refusal(named.isEmpty() ? QStringLiteral("\"%1\" is not an option.").arg(text) : ambiguity(text, named));
}

QList<InputGrammar::Option> InputGrammar::options(const QString& text)
{
    QList<Option> result;
    for (const QString& entry : text.split(QLatin1Char(';'), Qt::SkipEmptyParts)) {
        const int colon = entry.indexOf(QLatin1Char(':'));
        const QString key = entry.left(colon).trimmed();
        if (colon > 0 && !key.isEmpty())
            result.append(Option{key, entry.mid(colon + 1).trimmed()});
    }
    return result;
}

QList<InputGrammar::Option> InputGrammar::options(const Parameter& parameter)
{
    return options(textOf(parameter, "options"));
}

QString InputGrammar::checkNumber(double value, const Parameter& parameter)
{
    const QString expectation = QStringLiteral(" Expected %1.").arg(expected(parameter));
    if (parameter.isChecker() && value <= 0)
        return QStringLiteral("%1 is not positive.").arg(formatNumber(value)) + expectation;
    double low = 0.0;
    double high = 0.0;
    if (range(parameter, &low, &high) && (value < low || value > high))
        return QStringLiteral("%1 is out of range.").arg(formatNumber(value)) + expectation;
    return QString();
}

bool InputGrammar::range(const Parameter& parameter, double* low, double* high)
{
    double first = 0.0;
    double second = 0.0;
    if (!readPair(textOf(parameter, "dim"), QLatin1Char('@'), &first, &second))
        return false;
    *low = std::min(first, second);
    *high = std::max(first, second);
    return true;
}

namespace {

const QRegularExpression& trailingDefault()
{
    static const QRegularExpression pattern(QStringLiteral("\\s*<([^<>]*)>(\\s*:?\\s*)$"));
    return pattern;
}

} // namespace

QString InputGrammar::defaultOf(const QString& prompt)
{
    const QRegularExpressionMatch match = trailingDefault().match(prompt);
    return match.hasMatch() ? match.captured(1).trimmed() : QString();
}

QString InputGrammar::withDefault(const QString& prompt, const QString& value)
{
    const QString shown = QStringLiteral(" <%1>").arg(value);
    const QRegularExpressionMatch match = trailingDefault().match(prompt);
    if (match.hasMatch())
        return prompt.left(match.capturedStart(0)) + shown + match.captured(2);
    static const QRegularExpression colon(QStringLiteral("(\\s*:\\s*)$"));
    const QRegularExpressionMatch end = colon.match(prompt);
    if (end.hasMatch())
        return prompt.left(end.capturedStart(0)) + shown + end.captured(1);
    return prompt + shown;
}

QString InputGrammar::expected(const Parameter& parameter)
{
    const QString value = valueExpected(parameter);
    const QList<Option> choices = options(parameter);
    if (choices.isEmpty())
        return value.isEmpty() ? QStringLiteral("nothing to type") : value;
    if (parameter.type() == Parameter::TypeOption || value.isEmpty())
        return QStringLiteral("one of %1").arg(optionList(choices));
    return QStringLiteral("%1 or an option: %2").arg(value, optionList(choices));
}

QString InputGrammar::formatNumber(double value)
{
    QString text = QString::number(value, 'f', 4);
    while (text.endsWith(QLatin1Char('0')))
        text.chop(1);
    if (text.endsWith(QLatin1Char('.')))
        text.chop(1);
    return text == QLatin1String("-0") ? QStringLiteral("0") : text;
}

QString InputGrammar::formatPoint(const QPointF& point)
{
    return formatNumber(point.x()) + QLatin1Char(',') + formatNumber(point.y());
}

CS_END_NAMESPACE
