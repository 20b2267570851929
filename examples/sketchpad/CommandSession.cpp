#include "CommandSession.h"

#include "Drawing.h"
#include "DrawingView.h"

#include <CommandSystem/Template.h>

#include <QLineF>
#include <QtMath>

#include <cmath>

namespace {

using Parameter = Talvir::Vexa::Cs::Parameter;

QString textOf(const Parameter* parameter, const char* name)
{
    return QString::fromLocal8Bit(parameter->textProperty(name));
}

bool parseNumber(const QString& text, double& value)
{
    bool ok = false;
    value = text.trimmed().toDouble(&ok);
    return ok && std::isfinite(value);
}

} // namespace

CommandSession::CommandSession(Template* commandTemplate, DrawingView* view, QObject* parent)
    : QObject(parent)
    , m_template(commandTemplate)
    , m_view(view)
{
}

QString CommandSession::name() const
{
    return m_template->objectName();
}

CommandSession::Template* CommandSession::commandTemplate() const
{
    return m_template;
}

const CommandSession::Parameter* CommandSession::current() const
{
    const auto& parameters = m_template->parameters();
    return m_index >= 0 && m_index < int(parameters.size()) ? parameters[m_index] : nullptr;
}

bool CommandSession::isFinished() const
{
    return m_finished;
}

bool CommandSession::isCompleted() const
{
    return m_completed;
}

void CommandSession::start(const QStringList& answers)
{
    enter(0);
    for (const QString& answer : answers) {
        if (m_finished)
            break;
        feedText(answer);
    }
}

void CommandSession::feedText(const QString& text)
{
    if (m_finished || !current())
        return;
    if (text.isEmpty()) {
        if (!takeEmpty()) {
            emit echoed(QStringLiteral("*Cancel*"));
            finish(false);
        }
        return;
    }
    if (takeOption(text))
        return;
    takeValue(text);
}

void CommandSession::feedPoint(const QPointF& raw)
{
    const Parameter* parameter = current();
    if (m_finished || !parameter)
        return;
    const QString echo = Entity::formatPoint(raw);
    switch (parameter->type()) {
    case Parameter::TypePoint:
        takePoint(raw, echo);
        return;
    case Parameter::TypePin: {
        const QPointF pinned = m_view->pinned(raw);
        takePoint(pinned, Entity::formatPoint(pinned));
        return;
    }
    case Parameter::TypeEntity: {
        const int id = m_view->entityAt(raw);
        if (id == 0) {
            emit rejected(QStringLiteral("Nothing found at %1.").arg(echo));
            return;
        }
        takeEntities({id}, QStringLiteral("%1 (#%2)").arg(echo).arg(id));
        return;
    }
    case Parameter::TypeWindow:
        takeCorner(raw, echo);
        return;
    case Parameter::TypeDistance:
    case Parameter::TypeAngle:
        if (lastPoint()) {
            const QLineF line(*lastPoint(), raw);
            const double value = parameter->type() == Parameter::TypeDistance ? line.length() : line.angle();
            takeValue(Entity::formatNumber(value));
            return;
        }
        break;
    default:
        break;
    }
    emit rejected(QStringLiteral("Type the answer: %1").arg(expected()));
}

void CommandSession::cancel()
{
    if (!m_finished) {
        emit echoed(QStringLiteral("*Cancel*"));
        finish(false);
    }
}

bool CommandSession::has(int luid) const
{
    for (const Answer& answer : m_answers) {
        if (answer.luid == luid)
            return true;
    }
    return false;
}

QPointF CommandSession::point(int luid) const
{
    const QList<QPointF> all = points(luid);
    return all.isEmpty() ? QPointF() : all.last();
}

QList<QPointF> CommandSession::points(int luid) const
{
    QList<QPointF> result;
    for (const Answer& answer : m_answers) {
        if (answer.luid == luid)
            result.append(answer.point);
    }
    return result;
}

QList<QPointF> CommandSession::allPoints() const
{
    QList<QPointF> result;
    for (const Answer& answer : m_answers) {
        const Parameter* parameter = m_template->parameters()[indexOf(answer.luid)];
        if (parameter->type() == Parameter::TypePoint || parameter->type() == Parameter::TypePin)
            result.append(answer.point);
    }
    return result;
}

double CommandSession::number(int luid) const
{
    for (int i = m_answers.size() - 1; i >= 0; --i) {
        if (m_answers[i].luid == luid)
            return m_answers[i].number;
    }
    return 0.0;
}

QString CommandSession::text(int luid) const
{
    for (int i = m_answers.size() - 1; i >= 0; --i) {
        if (m_answers[i].luid == luid)
            return m_answers[i].text;
    }
    return QString();
}

QList<int> CommandSession::entities(int luid) const
{
    for (int i = m_answers.size() - 1; i >= 0; --i) {
        if (m_answers[i].luid == luid)
            return m_answers[i].entities;
    }
    return {};
}

QRectF CommandSession::window(int luid) const
{
    for (int i = m_answers.size() - 1; i >= 0; --i) {
        if (m_answers[i].luid == luid)
            return m_answers[i].window;
    }
    return QRectF();
}

QString CommandSession::lastOption() const
{
    return m_lastOption;
}

std::optional<QPointF> CommandSession::lastPoint() const
{
    const QList<QPointF> all = allPoints();
    if (all.isEmpty())
        return std::nullopt;
    return all.last();
}

QList<int> CommandSession::pendingSelection() const
{
    return m_selection;
}

void CommandSession::enter(int index)
{
    const auto& parameters = m_template->parameters();
    for (; index < int(parameters.size()); ++index) {
        const Parameter* parameter = parameters[index];
        const QString selected = textOf(parameter, "selected");
        if (!selected.isEmpty() && selected != m_lastOption)
            continue;
        if (parameter->type() == Parameter::TypeNull) {
            emit echoed(textOf(parameter, "prompt"));
            continue;
        }
        if (parameter->type() == Parameter::TypeForm) {
            emit echoed(textOf(parameter, "prompt"));
            emit formRequested(parameter);
            continue;
        }
        m_index = index;
        m_selection.clear();
        m_firstCorner.reset();
        prompt();
        return;
    }
    finish(true);
}

void CommandSession::advance()
{
    const Parameter* parameter = current();
    const int next = parameter->inteProperty("next");
    enter(next != 0 && indexOf(next) >= 0 ? indexOf(next) : m_index + 1);
}

void CommandSession::finish(bool completed)
{
    if (m_finished)
        return;
    m_finished = true;
    m_completed = completed;
    m_index = -1;
    emit finished(completed);
}

void CommandSession::accept(const Answer& answer, const QString& echo)
{
    const Parameter* parameter = current();
    m_answers.append(answer);
    emit echoed(textOf(parameter, "prompt") + QLatin1Char(' ') + echo);
    if (parameter->isTrigger())
        emit triggered(parameter);
    if (!m_finished)
        advance();
}

bool CommandSession::takeOption(const QString& text)
{
    const Parameter* parameter = current();
    for (const Option& option : options()) {
        if (text.compare(option.first, Qt::CaseInsensitive) != 0
            && text.compare(option.second, Qt::CaseInsensitive) != 0)
            continue;
        const QString& key = option.first;
        if (parameter->type() == Parameter::TypeEntity) {
            Drawing* drawing = m_view->drawing();
            QList<int> ids;
            if (key == QLatin1String("a")) {
                for (const Entity& entity : drawing->entities())
                    ids.append(entity.id);
            } else if (drawing->lastId() != 0) {
                ids.append(drawing->lastId());
            }
            takeEntities(ids, option.second);
            return true;
        }
        emit echoed(textOf(parameter, "prompt") + QLatin1Char(' ') + option.second);
        if (key == QLatin1String("u")) {
            if (m_answers.isEmpty() || m_answers.last().luid != parameter->luid()) {
                emit rejected(QStringLiteral("Nothing to undo."));
                return true;
            }
            m_answers.removeLast();
            emit undoRequested(parameter);
            prompt();
            return true;
        }
        m_lastOption = key;
        if (parameter->type() != Parameter::TypeOption) {
            finish(true);
            return true;
        }
        Answer answer;
        answer.luid = parameter->luid();
        answer.text = key;
        m_answers.append(answer);
        if (parameter->isTrigger())
            emit triggered(parameter);
        advance();
        return true;
    }
    return false;
}

bool CommandSession::takeEmpty()
{
    const Parameter* parameter = current();
    if (parameter->type() == Parameter::TypeContinue) {
        Answer answer;
        answer.luid = parameter->luid();
        accept(answer, QString());
        return true;
    }
    if (parameter->type() == Parameter::TypeEntity && parameter->inteProperty("list") != 0) {
        if (m_selection.isEmpty() && parameter->isChecker())
            return false;
        Answer answer;
        answer.luid = parameter->luid();
        answer.entities = m_selection;
        accept(answer, QStringLiteral("%1 selected").arg(m_selection.size()));
        return true;
    }
    if (parameter->inteProperty("next") == parameter->luid()) {
        emit echoed(textOf(parameter, "prompt"));
        finish(true);
        return true;
    }
    return false;
}

void CommandSession::takeValue(const QString& text)
{
    const Parameter* parameter = current();
    Answer answer;
    answer.luid = parameter->luid();
    QPointF point;
    double value = 0.0;
    switch (parameter->type()) {
    case Parameter::TypePoint:
    case Parameter::TypePin:
        if (parsePoint(text, point)) {
            takePoint(point, text);
            return;
        }
        break;
    case Parameter::TypeWindow:
        if (parsePoint(text, point)) {
            takeCorner(point, text);
            return;
        }
        break;
    case Parameter::TypeEntity:
        if (parsePoint(text, point)) {
            feedPoint(point);
            return;
        }
        break;
    case Parameter::TypeNumber:
    case Parameter::TypeDistance:
    case Parameter::TypeAngle:
        if (parseNumber(text, value) && inRange(value)) {
            answer.number = value;
            accept(answer, text);
            return;
        }
        break;
    case Parameter::TypeString:
    case Parameter::TypeCommand:
        answer.text = text;
        accept(answer, text);
        return;
    default:
        break;
    }
    emit rejected(QStringLiteral("Invalid input \"%1\". Expected %2.").arg(text, expected()));
}

void CommandSession::takeEntities(const QList<int>& ids, const QString& echo)
{
    const Parameter* parameter = current();
    for (int id : ids) {
        if (!m_selection.contains(id))
            m_selection.append(id);
    }
    m_view->setHighlighted(m_selection);
    if (parameter->inteProperty("list") != 0) {
        emit echoed(QStringLiteral("%1 %2, %3 selected").arg(textOf(parameter, "prompt"), echo)
                        .arg(m_selection.size()));
        return;
    }
    Answer answer;
    answer.luid = parameter->luid();
    answer.entities = m_selection;
    accept(answer, echo);
}

void CommandSession::takeCorner(const QPointF& point, const QString& echo)
{
    if (!m_firstCorner) {
        m_firstCorner = point;
        emit echoed(textOf(current(), "prompt") + QLatin1Char(' ') + echo);
        emit promptChanged(QStringLiteral("Specify opposite corner:"), textOf(current(), "format"));
        return;
    }
    Answer answer;
    answer.luid = current()->luid();
    answer.window = QRectF(*m_firstCorner, point).normalized();
    accept(answer, echo);
}

void CommandSession::takePoint(const QPointF& point, const QString& echo)
{
    const Parameter* parameter = current();
    if (parameter->isChecker() && lastPoint() && QLineF(*lastPoint(), point).length() < 1e-9) {
        emit rejected(QStringLiteral("The point must differ from the previous one."));
        return;
    }
    Answer answer;
    answer.luid = parameter->luid();
    answer.point = point;
    accept(answer, echo);
}

bool CommandSession::parsePoint(const QString& text, QPointF& point) const
{
    QString body = text.trimmed();
    const bool relative = body.startsWith(QLatin1Char('@'));
    if (relative)
        body.remove(0, 1);
    const QStringList parts = body.split(QLatin1Char(','));
    double x = 0.0;
    double y = 0.0;
    if (parts.size() != 2 || !parseNumber(parts[0], x) || !parseNumber(parts[1], y))
        return false;
    point = QPointF(x, y);
    if (relative)
        point += lastPoint().value_or(QPointF());
    return true;
}

bool CommandSession::inRange(double value) const
{
    const Parameter* parameter = current();
    if (parameter->isChecker() && value <= 0)
        return false;
    const QStringList bounds = textOf(parameter, "dim").split(QLatin1Char('@'));
    if (bounds.size() != 2)
        return true;
    return value >= bounds[0].toDouble() && value <= bounds[1].toDouble();
}

int CommandSession::indexOf(int luid) const
{
    const auto& parameters = m_template->parameters();
    for (int i = 0; i < int(parameters.size()); ++i) {
        if (parameters[i]->luid() == luid)
            return i;
    }
    return -1;
}

QList<CommandSession::Option> CommandSession::options() const
{
    QList<Option> result;
    const QStringList entries = textOf(current(), "options").split(QLatin1Char(';'), Qt::SkipEmptyParts);
    for (const QString& entry : entries) {
        const int colon = entry.indexOf(QLatin1Char(':'));
        if (colon > 0)
            result.append(qMakePair(entry.left(colon).trimmed(), entry.mid(colon + 1).trimmed()));
    }
    return result;
}

QString CommandSession::expected() const
{
    const QString format = textOf(current(), "format");
    return format.isEmpty() ? QStringLiteral("a value") : format;
}

void CommandSession::prompt()
{
    emit promptChanged(textOf(current(), "prompt"), textOf(current(), "format"));
}
