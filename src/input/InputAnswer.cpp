#include <CommandSystem/InputAnswer.h>

#include "input/InputAnswerData.h"

CS_BEGIN_NAMESPACE

InputAnswer::InputAnswer()
    : d(new InputAnswerData)
{
}

InputAnswer::InputAnswer(Kind kind, int luid)
    : d(new InputAnswerData)
{
    d->kind = kind;
    d->luid = luid;
}

InputAnswer::InputAnswer(const InputAnswer& other) = default;
InputAnswer& InputAnswer::operator=(const InputAnswer& other) = default;
InputAnswer::~InputAnswer() = default;

InputAnswer InputAnswer::fromPoint(const QPointF& point, int luid)
{
    InputAnswer answer(Point, luid);
    answer.d->point = point;
    return answer;
}

InputAnswer InputAnswer::fromNumber(double number, int luid)
{
    InputAnswer answer(Number, luid);
    answer.d->number = number;
    return answer;
}

InputAnswer InputAnswer::fromText(const QString& text, int luid)
{
    InputAnswer answer(Text, luid);
    answer.d->text = text;
    return answer;
}

InputAnswer InputAnswer::fromOption(const QString& key, int luid)
{
    InputAnswer answer(Option, luid);
    answer.d->text = key;
    return answer;
}

InputAnswer InputAnswer::fromEntities(const QList<int>& entities, int luid)
{
    InputAnswer answer(Entities, luid);
    answer.d->entities = entities;
    return answer;
}

InputAnswer InputAnswer::fromWindow(const QRectF& window, int luid)
{
    InputAnswer answer(Window, luid);
    answer.d->window = window.normalized();
    return answer;
}

InputAnswer InputAnswer::fromEmpty(int luid)
{
    return InputAnswer(Empty, luid);
}

InputAnswer::Kind InputAnswer::kind() const
{
    return d->kind;
}

int InputAnswer::luid() const
{
    return d->luid;
}

void InputAnswer::setLuid(int luid)
{
    d->luid = luid;
}

QPointF InputAnswer::point() const
{
    return d->point;
}

double InputAnswer::number() const
{
    return d->number;
}

QString InputAnswer::text() const
{
    return d->text;
}

QList<int> InputAnswer::entities() const
{
    return d->entities;
}

QRectF InputAnswer::window() const
{
    return d->window;
}

bool InputAnswer::operator==(const InputAnswer& other) const
{
    return d == other.d
        || (d->kind == other.d->kind && d->luid == other.d->luid && d->point == other.d->point
            && d->number == other.d->number && d->text == other.d->text
            && d->entities == other.d->entities && d->window == other.d->window);
}

CS_END_NAMESPACE
