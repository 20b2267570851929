#include <CommandSystem/InputSession.h>

#include "input/InputSessionImpl.h"

#include <CommandSystem/InputGrammar.h>
#include <CommandSystem/InputPicker.h>
#include <CommandSystem/Parameter.h>
#include <CommandSystem/Template.h>

CS_BEGIN_NAMESPACE

namespace {

// How a replayed step is echoed: as it would have been typed.
QString describe(const InputAnswer& step)
{
    switch (step.kind()) {
    case InputAnswer::Point: return InputGrammar::formatPoint(step.point());
    case InputAnswer::Number: return InputGrammar::formatNumber(step.number());
    case InputAnswer::Text:
    case InputAnswer::Option: return step.text();
    case InputAnswer::Window:
        return InputGrammar::formatPoint(step.window().topLeft()) + QLatin1Char(' ')
            + InputGrammar::formatPoint(step.window().bottomRight());
    case InputAnswer::Entities: {
        QStringList ids;
        for (int entity : step.entities())
            ids.append(QStringLiteral("#%1").arg(entity));
        return ids.join(QLatin1Char(' '));
    }
    case InputAnswer::Empty: break;
    }
    return QString();
}

} // namespace

InputSession::InputSession(const Template* commandTemplate, InputPicker* picker, QObject* parent)
    : QObject(parent)
    , d(new InputSessionImpl(this, commandTemplate, picker))
{
}

InputSession::~InputSession()
{
    delete d;
}

const Template* InputSession::commandTemplate() const
{
    return d->commandTemplate;
}

QString InputSession::name() const
{
    return d->commandTemplate->objectName();
}

InputPicker* InputSession::picker() const
{
    return d->picker;
}

void InputSession::setPicker(InputPicker* picker)
{
    d->picker = picker;
}

QString InputSession::undoKey() const
{
    return d->undoKey;
}

void InputSession::setUndoKey(const QString& key)
{
    d->undoKey = key;
}

void InputSession::start(const QStringList& answers)
{
    if (d->started)
        return;
    d->started = true;
    d->enter(0);
    for (const QString& answer : answers) {
        if (!d->isWaiting())
            break;
        feed(answer);
    }
}

bool InputSession::feed(const QString& line)
{
    if (!d->isWaiting())
        return false;
    const QString text = line.trimmed();
    if (text.isEmpty()) {
        const QString fallback = defaultAnswer();
        return fallback.isEmpty() ? d->take(InputAnswer::fromEmpty(), QString()) : feed(fallback);
    }
    const Parameter* parameter = d->current();
    const InputGrammar::Reading reading = InputGrammar::read(text, *parameter, d->lastPoint());
    if (!reading.isValid())
        return d->reject(reading.error);
    const InputAnswer& answer = reading.answer;
    if (answer.kind() == InputAnswer::Option)
        return d->take(answer, d->labelOf(answer.text()));
    if (answer.kind() == InputAnswer::Point && parameter->type() == Parameter::TypeWindow)
        return d->takeCorner(answer.point(), text);
    if (answer.kind() == InputAnswer::Point && parameter->type() == Parameter::TypeEntity)
        return d->takeEntityAt(answer.point(), text);
    return d->take(answer, text);
}

bool InputSession::pick(const QPointF& point)
{
    if (!d->isWaiting())
        return false;
    const QString echo = InputGrammar::formatPoint(point);
    switch (d->current()->type()) {
    case Parameter::TypePoint:
        return d->take(InputAnswer::fromPoint(point), echo);
    case Parameter::TypePin: {
        const QPointF caught = d->picker ? d->picker->pinnedPoint(point) : point;
        return d->take(InputAnswer::fromPoint(caught), InputGrammar::formatPoint(caught));
    }
    case Parameter::TypeEntity:
        return d->takeEntityAt(point, echo);
    case Parameter::TypeWindow:
        return d->takeCorner(point, echo);
    case Parameter::TypeDistance:
    case Parameter::TypeAngle:
        return d->takeMeasure(point);
    default:
        return d->reject(QStringLiteral("A pick is no answer here. Expected %1.").arg(expected()));
    }
}

bool InputSession::apply(const InputAnswer& step)
{
    if (!d->isWaiting())
        return false;
    const int luid = d->current()->luid();
    if (step.luid() != 0 && step.luid() != luid) {
        return d->reject(QStringLiteral("The answer is for parameter %1, but parameter %2 is asked. Expected %3.")
                             .arg(step.luid()).arg(luid).arg(expected()));
    }
    const QString echo = step.kind() == InputAnswer::Option ? d->labelOf(step.text()) : describe(step);
    return d->take(step, echo);
}

void InputSession::cancel()
{
    d->cancel();
}

const Parameter* InputSession::current() const
{
    return d->current();
}

QString InputSession::prompt() const
{
    if (d->firstCorner)
        return QStringLiteral("Specify opposite corner:");
    return d->property("prompt");
}

QString InputSession::format() const
{
    return d->property("format");
}

QString InputSession::expected() const
{
    const Parameter* parameter = d->current();
    return parameter ? InputGrammar::expected(*parameter) : QString();
}

QString InputSession::defaultAnswer() const
{
    return d->current() && !d->firstCorner ? InputGrammar::defaultOf(d->property("prompt")) : QString();
}

bool InputSession::isFinished() const
{
    return d->finished;
}

bool InputSession::isCompleted() const
{
    return d->completed;
}

QList<InputAnswer> InputSession::answers() const
{
    return d->answers;
}

QList<InputAnswer> InputSession::steps() const
{
    return d->steps;
}

bool InputSession::has(int luid) const
{
    for (const InputAnswer& answer : d->answers) {
        if (answer.luid() == luid)
            return true;
    }
    return false;
}

InputAnswer InputSession::answer(int luid) const
{
    for (int i = d->answers.size() - 1; i >= 0; --i) {
        if (d->answers[i].luid() == luid)
            return d->answers[i];
    }
    return InputAnswer();
}

QPointF InputSession::point(int luid) const
{
    return answer(luid).point();
}

double InputSession::number(int luid) const
{
    return answer(luid).number();
}

QString InputSession::text(int luid) const
{
    return answer(luid).text();
}

QList<int> InputSession::entities(int luid) const
{
    return answer(luid).entities();
}

QRectF InputSession::window(int luid) const
{
    return answer(luid).window();
}

QList<QPointF> InputSession::points() const
{
    QList<QPointF> result;
    for (const InputAnswer& answer : d->answers) {
        if (answer.kind() == InputAnswer::Point)
            result.append(answer.point());
    }
    return result;
}

std::optional<QPointF> InputSession::lastPoint() const
{
    return d->lastPoint();
}

QString InputSession::lastOption() const
{
    return d->lastOption;
}

QList<int> InputSession::selection() const
{
    return d->selection;
}

std::optional<QPointF> InputSession::firstCorner() const
{
    return d->firstCorner;
}

CS_END_NAMESPACE
