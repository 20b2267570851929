#ifndef COMMANDSYSTEM_INPUTSESSIONIMPL_H
#define COMMANDSYSTEM_INPUTSESSIONIMPL_H

#include <CommandSystem/Impl.h>
#include <CommandSystem/InputAnswer.h>
#include <CommandSystem/InputSession.h>

#include <QList>
#include <QPointF>
#include <QString>

#include <optional>

CS_BEGIN_NAMESPACE

class InputPicker;
class Parameter;
class Template;

class InputSessionImpl : public Impl<InputSession>
{
public:
    InputSessionImpl(InputSession* owner, const Template* commandTemplate, InputPicker* picker)
        : Impl(owner), commandTemplate(commandTemplate), picker(picker)
    {
    }

    const Parameter* current() const;
    bool isWaiting() const { return started && !finished && current(); }
    QString property(const char* name) const;
    std::optional<QPointF> lastPoint() const;
    int indexOf(int luid) const;
    bool hasOption(const QString& key) const;
    QString labelOf(const QString& key) const;

    // The walk.
    void enter(int index);
    void advance();
    void finish(bool completed);
    void cancel();

    // Input already read: refused with a reason, or recorded as a step and performed.
    bool take(const InputAnswer& step, const QString& echo);
    bool takeCorner(const QPointF& point, const QString& echo);
    bool takeEntityAt(const QPointF& point, const QString& echo);
    bool takeOptionEntities(const QString& key);
    bool takeMeasure(const QPointF& point);
    bool reject(const QString& reason);

    QString refusal(const InputAnswer& step) const;
    QString kindRefusal(InputAnswer::Kind kind) const;
    void perform(const InputAnswer& step, const QString& echo);
    void performEnter();
    void performOption(const QString& key, const QString& echo);
    void performSelect(const QList<int>& entities, const QString& echo);
    void undoLast(const QString& echo);
    void accept(const InputAnswer& answer, const QString& echo);
    void echo(const QString& answerText);
    void showPrompt();
    bool canUndo() const;

    const Template* commandTemplate;
    InputPicker* picker;
    QString undoKey = QStringLiteral("u");
    int index = -1;
    bool started = false;
    bool finished = false;
    bool completed = false;
    QList<InputAnswer> answers;
    QList<InputAnswer> steps;
    QString lastOption;
    QList<int> selection;
    std::optional<QPointF> firstCorner;
};

CS_END_NAMESPACE

#endif
