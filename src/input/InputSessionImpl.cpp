#include "input/InputSessionImpl.h"

#include <CommandSystem/InputGrammar.h>
#include <CommandSystem/InputPicker.h>
#include <CommandSystem/Parameter.h>
#include <CommandSystem/Template.h>

#include <QLineF>
#include <QtMath>

#include <cmath>

CS_BEGIN_NAMESPACE

namespace {

bool isNumeric(Parameter::Type type)
{
    return type == Parameter::TypeNumber || type == Parameter::TypeDistance || type == Parameter::TypeAngle;
}

// The kinds of answer each parameter type takes once input is read; entities and windows come
// from picks and corners, options from the parameter's own list.
bool takesKind(Parameter::Type type, InputAnswer::Kind kind)
{
    switch (kind) {
    case InputAnswer::Point: return type == Parameter::TypePoint || type == Parameter::TypePin;
    case InputAnswer::Number: return isNumeric(type);
    case InputAnswer::Text: return type == Parameter::TypeString || type == Parameter::TypeCommand;
    case InputAnswer::Entities: return type == Parameter::TypeEntity;
    case InputAnswer::Window: return type == Parameter::TypeWindow;
    case InputAnswer::Option:
    case InputAnswer::Empty: return true;
    }
    return false;
}

} // namespace

const Parameter* InputSessionImpl::current() const
{
    const auto& parameters = commandTemplate->parameters();
    return index >= 0 && index < int(parameters.size()) ? parameters[size_t(index)] : nullptr;
}

QString InputSessionImpl::property(const char* name) const
{
    const Parameter* parameter = current();
    return parameter ? QString::fromLocal8Bit(parameter->textProperty(name)) : QString();
}

std::optional<QPointF> InputSessionImpl::lastPoint() const
{
    for (int i = answers.size() - 1; i >= 0; --i) {
        if (answers[i].kind() == InputAnswer::Point)
            return answers[i].point();
    }
    return std::nullopt;
}

int InputSessionImpl::indexOf(int luid) const
{
    const auto& parameters = commandTemplate->parameters();
    for (int i = 0; i < int(parameters.size()); ++i) {
        if (parameters[size_t(i)]->luid() == luid)
            return i;
    }
    return -1;
}

bool InputSessionImpl::hasOption(const QString& key) const
{
    for (const InputGrammar::Option& option : InputGrammar::options(*current())) {
        if (option.key == key)
            return true;
    }
    return false;
}

QString InputSessionImpl::labelOf(const QString& key) const
{
    for (const InputGrammar::Option& option : InputGrammar::options(*current())) {
        if (option.key == key)
            return option.label;
    }
    return key;
}

void InputSessionImpl::enter(int from)
{
    const auto& parameters = commandTemplate->parameters();
    for (int i = from; i < int(parameters.size()); ++i) {
        const Parameter* parameter = parameters[size_t(i)];
        const QString selected = QString::fromLocal8Bit(parameter->textProperty("selected"));
        if (!selected.isEmpty() && selected != lastOption)
            continue;
        const QString prompt = QString::fromLocal8Bit(parameter->textProperty("prompt"));
        if (parameter->type() == Parameter::TypeNull) {
            emit owner->echoed(prompt);
            continue;
        }
        if (parameter->type() == Parameter::TypeForm) {
            emit owner->echoed(prompt);
            emit owner->formRequested(parameter);
            if (finished)
                return;
            continue;
        }
        index = i;
        selection.clear();
        firstCorner.reset();
        showPrompt();
        return;
    }
    finish(true);
}

void InputSessionImpl::advance()
{
    const int next = current()->inteProperty("next");
    const int target = next != 0 ? indexOf(next) : -1;
    enter(target >= 0 ? target : index + 1);
}

void InputSessionImpl::finish(bool done)
{
    if (finished)
        return;
    finished = true;
    completed = done;
    index = -1;
    emit owner->finished(done);
}

void InputSessionImpl::cancel()
{
    if (finished)
        return;
    emit owner->echoed(QStringLiteral("*Cancel*"));
    finish(false);
}

bool InputSessionImpl::take(const InputAnswer& step, const QString& echoText)
{
    const Parameter* parameter = current();
    if (step.kind() == InputAnswer::Option && parameter->type() == Parameter::TypeEntity && hasOption(step.text()))
        return takeOptionEntities(step.text());
    const QString reason = refusal(step);
    if (!reason.isEmpty())
        return reject(reason);
    InputAnswer recorded = step;
    recorded.setLuid(parameter->luid());
    steps.append(recorded);
    perform(recorded, echoText);
    return true;
}

bool InputSessionImpl::takeCorner(const QPointF& point, const QString& echoText)
{
    if (!firstCorner) {
        echo(echoText);
        firstCorner = point;
        showPrompt();
        return true;
    }
    return take(InputAnswer::fromWindow(QRectF(*firstCorner, point)), echoText);
}

bool InputSessionImpl::takeEntityAt(const QPointF& point, const QString& echoText)
{
    const int entity = picker ? picker->entityAt(point) : 0;
    if (entity == 0) {
        return reject(QStringLiteral("Nothing found at %1. Expected %2.")
                          .arg(InputGrammar::formatPoint(point), InputGrammar::expected(*current())));
    }
    return take(InputAnswer::fromEntities({entity}), QStringLiteral("%1 (#%2)").arg(echoText).arg(entity));
}

bool InputSessionImpl::takeOptionEntities(const QString& key)
{
    const QList<int> entities = picker ? picker->optionEntities(key) : QList<int>();
    return take(InputAnswer::fromEntities(entities), labelOf(key));
}

// A pick at a distance or angle parameter measures from the last point.
bool InputSessionImpl::takeMeasure(const QPointF& point)
{
    const std::optional<QPointF> from = lastPoint();
    if (!from) {
        return reject(QStringLiteral("A pick needs an earlier point to measure from. Expected %1.")
                          .arg(InputGrammar::expected(*current())));
    }
    const QPointF d = point - *from;
    double value = std::hypot(d.x(), d.y());
    if (current()->type() == Parameter::TypeAngle) {
        value = qRadiansToDegrees(std::atan2(d.y(), d.x()));
        if (value < 0)
            value += 360.0;
    }
    return take(InputAnswer::fromNumber(value), InputGrammar::formatNumber(value));
}

bool InputSessionImpl::reject(const QString& reason)
{
    emit owner->rejected(reason);
    return false;
}

QString InputSessionImpl::refusal(const InputAnswer& step) const
{
    const Parameter& parameter = *current();
    const QString expected = QStringLiteral(" Expected %1.").arg(InputGrammar::expected(parameter));
    if (!takesKind(parameter.type(), step.kind()))
        return kindRefusal(step.kind()) + expected;
    switch (step.kind()) {
    case InputAnswer::Option:
        if (!hasOption(step.text()))
            return QStringLiteral("\"%1\" is not an option.").arg(step.text()) + expected;
        if (step.text() == undoKey && parameter.type() != Parameter::TypeOption && !canUndo())
            return QStringLiteral("Nothing to undo.") + expected;
        return QString();
    case InputAnswer::Point:
        if (parameter.isChecker() && lastPoint() && QLineF(*lastPoint(), step.point()).length() < 1e-9)
            return QStringLiteral("The point must differ from the previous one.") + expected;
        return QString();
    case InputAnswer::Number:
        return InputGrammar::checkNumber(step.number(), parameter);
    case InputAnswer::Text:
        if (parameter.isChecker() && step.text().trimmed().isEmpty())
            return QStringLiteral("The text is empty.") + expected;
        return QString();
    case InputAnswer::Window:
        if (step.window().width() == 0 || step.window().height() == 0)
            return QStringLiteral("The window has no area: its corners must differ in x and in y.") + expected;
        return QString();
    default:
        return QString();
    }
}

QString InputSessionImpl::kindRefusal(InputAnswer::Kind kind) const
{
    switch (kind) {
    case InputAnswer::Point: return QStringLiteral("A point is no answer here.");
    case InputAnswer::Number: return QStringLiteral("A number is no answer here.");
    case InputAnswer::Text: return QStringLiteral("A text is no answer here.");
    case InputAnswer::Entities: return QStringLiteral("Entities are no answer here.");
    case InputAnswer::Window: return QStringLiteral("A window is no answer here.");
    default: return QStringLiteral("This is no answer here.");
    }
}

void InputSessionImpl::perform(const InputAnswer& step, const QString& echoText)
{
    switch (step.kind()) {
    case InputAnswer::Empty:
        performEnter();
        return;
    case InputAnswer::Option:
        performOption(step.text(), echoText);
        return;
    case InputAnswer::Entities:
        performSelect(step.entities(), echoText);
        return;
    default:
        accept(step, echoText);
        return;
    }
}

void InputSessionImpl::performEnter()
{
    const Parameter* parameter = current();
    if (parameter->type() == Parameter::TypeContinue) {
        accept(InputAnswer::fromEmpty(parameter->luid()), QString());
    } else if (parameter->type() == Parameter::TypeEntity && parameter->inteProperty("list") != 0) {
        if (selection.isEmpty() && parameter->isChecker())
            cancel();
        else
            accept(InputAnswer::fromEntities(selection, parameter->luid()),
                   QStringLiteral("%1 selected").arg(selection.size()));
    } else if (parameter->inteProperty("next") == parameter->luid()) {
        echo(QString());
        finish(true);
    } else {
        cancel();
    }
}

void InputSessionImpl::performOption(const QString& key, const QString& echoText)
{
    const Parameter* parameter = current();
    if (parameter->type() != Parameter::TypeOption && key == undoKey) {
        undoLast(echoText);
        return;
    }
    lastOption = key;
    if (parameter->type() == Parameter::TypeOption) {
        accept(InputAnswer::fromOption(key, parameter->luid()), echoText);
        return;
    }
    // An option at a value parameter leaves it: the walk goes on in order, where the
    // parameters "selected" by this option are.
    answers.append(InputAnswer::fromOption(key, parameter->luid()));
    echo(echoText);
    emit owner->answersChanged();
    if (!finished)
        enter(index + 1);
}

void InputSessionImpl::performSelect(const QList<int>& entities, const QString& echoText)
{
    const Parameter* parameter = current();
    for (int entity : entities) {
        if (!selection.contains(entity))
            selection.append(entity);
    }
    emit owner->selectionChanged(selection);
    if (parameter->inteProperty("list") != 0) {
        echo(QStringLiteral("%1, %2 selected").arg(echoText).arg(selection.size()));
        return;
    }
    accept(InputAnswer::fromEntities(selection, parameter->luid()), echoText);
}

void InputSessionImpl::undoLast(const QString& echoText)
{
    const Parameter* parameter = current();
    echo(echoText);
    answers.removeLast();
    emit owner->answersChanged();
    emit owner->undone(parameter);
    if (!finished)
        showPrompt();
}

void InputSessionImpl::accept(const InputAnswer& answer, const QString& echoText)
{
    const Parameter* parameter = current();
    answers.append(answer);
    echo(echoText);
    emit owner->answersChanged();
    if (parameter->isTrigger() && !finished)
        emit owner->triggered(parameter);
    if (!finished)
        advance();
}

void InputSessionImpl::echo(const QString& answerText)
{
    const QString prompt = owner->prompt();
    emit owner->echoed(answerText.isEmpty() ? prompt : prompt + QLatin1Char(' ') + answerText);
}

void InputSessionImpl::showPrompt()
{
    emit owner->promptChanged(owner->prompt(), property("format"));
}

bool InputSessionImpl::canUndo() const
{
    return !answers.isEmpty() && answers.last().luid() == current()->luid();
}

CS_END_NAMESPACE
