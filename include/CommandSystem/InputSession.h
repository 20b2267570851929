#ifndef COMMANDSYSTEM_INPUTSESSION_H
#define COMMANDSYSTEM_INPUTSESSION_H

#include <CommandSystem/Global.h>
#include <CommandSystem/InputAnswer.h>

#include <QList>
#include <QObject>
#include <QPointF>
#include <QRectF>
#include <QStringList>

#include <optional>

CS_BEGIN_NAMESPACE

class InputPicker;
class InputSessionImpl;
class Parameter;
class Template;

/**
 * \brief One run of a command's input: walks the parameters of a Template in order, shows each
 * prompt, and takes typed answers, picks from the host's view and replayed answers, without
 * any widget.
 *
 * The host connects to the signals, calls start(), then hands on what the user does: typed
 * lines to feed() (an empty line is Enter), clicks in the drawing to pick(), Esc to cancel().
 * Typed text is read by InputGrammar. When the session ends it emits finished(); the host then
 * reads the answers by luid (point(), number(), text(), entities(), window(), lastOption()).
 *
 * Walking rules, read from the parameters' types, flags and properties:
 * - Parameters are asked in order. After an answer, "next" names the luid of the parameter to
 *   ask next; a parameter whose "next" is its own luid is asked again until Enter, which ends
 *   the session as completed.
 * - "selected" holds an option key: the parameter is asked only when the last option chosen in
 *   the session has that key, and skipped otherwise.
 * - "options" lists `key:Label` pairs. On an "option" parameter the chosen key is the answer.
 *   On an "entity" parameter an option selects the entities that the picker's
 *   InputPicker::optionEntities() gives for its key. On any other parameter the option with the
 *   undo key (undoKey(), "u" unless set) takes back the parameter's last answer and emits
 *   undone(); any other option is the parameter's answer, becomes the last option, and the walk
 *   goes on with the parameter after it in order ("next" is not followed).
 * - "dim" holds the range of a number, distance or angle, as two items low\@high.
 * - A checker parameter wants a usable value: a positive number, a point that differs from the
 *   last point, a non-empty text; on an entity list, Enter with nothing selected cancels.
 * - A trigger parameter emits triggered() after each of its answers.
 * - "null" parameters are not asked: their prompt is echoed. "form" parameters are not asked
 *   either: their prompt is echoed and formRequested() asks the host to show the form named by
 *   their "callback".
 * - "continue" parameters accept Enter alone.
 * - "window" parameters take two opposite corners, typed or picked.
 * - "entity" parameters take entities found by InputPicker::entityAt() at a picked or typed
 *   position; with "list" set they collect entities until Enter, otherwise the first one found
 *   is the answer.
 * - "point" parameters take points; "pin" parameters take points that a pick catches through
 *   InputPicker::pinnedPoint(). A pick at a "distance" or "angle" parameter measures from the
 *   last point to the picked one.
 * - A prompt ending in `<value>` gives a default that Enter takes; otherwise Enter at a
 *   parameter without a rule of its own cancels the session.
 *
 * Every input that the session refuses emits rejected() with a text that says what was wrong and
 * what was expected, and leaves the session as it was. Input after the session has finished is
 * ignored.
 *
 * Every input step the session took (every answer, option, pick of entities, undo and Enter,
 * already resolved to its meaning) is kept in steps(); apply() takes such steps again, so an
 * InputTranscript can replay a session to the same answers.
 *
 * The session reads its template and does not own it; the template must outlive the session.
 * It does not own its picker either. Use it on the thread that owns it. Signals are emitted
 * synchronously from the call that caused them; a slot may call cancel().
 */
class COMMANDSYSTEM_EXPORT InputSession : public QObject
{
    Q_OBJECT

public:
    /**
     * \brief Creates a session over \a commandTemplate. The session starts with start().
     * \param commandTemplate The template whose parameters are asked; not owned, not null.
     * \param picker The host's view, for picks; not owned, may be null.
     * \param parent The parent object.
     */
    explicit InputSession(const Template* commandTemplate, InputPicker* picker = nullptr,
                          QObject* parent = nullptr);
    /** \brief Destroys the session; emits nothing. */
    ~InputSession() override;

    /** \brief The template walked. \return The template given to the constructor. */
    const Template* commandTemplate() const;
    /** \brief The command's name. \return The template's object name. */
    QString name() const;
    /** \brief The host's view. \return The picker, or null. */
    InputPicker* picker() const;
    /** \brief Sets the host's view. \param picker The picker; not owned, may be null. */
    void setPicker(InputPicker* picker);
    /** \brief The key of the undo option. \return "u" unless set otherwise. */
    QString undoKey() const;
    /** \brief Sets the key of the undo option. \param key The key; empty turns undo off. */
    void setUndoKey(const QString& key);

    /**
     * \brief Starts the walk at the first parameter, then feeds \a answers as if typed one after
     * the other (answers given with the command, as in "circle 0,0 5").
     * \param answers Typed answers to take first; the rest are left out once the session ends.
     */
    void start(const QStringList& answers = QStringList());
    /**
     * \brief Takes a line typed at the prompt; an empty (or blank) line is Enter.
     * \param text The line.
     * \return true when the line was taken, false when it was refused (rejected() says why) or
     * the session is not waiting for input.
     */
    bool feed(const QString& text);
    /**
     * \brief Takes a pick in the host's view at \a point.
     * \param point The picked position in drawing coordinates.
     * \return true when the pick was taken, false when it was refused or the session is not
     * waiting for input.
     */
    bool pick(const QPointF& point);
    /**
     * \brief Takes a step given at the level of its meaning, as steps() lists them: answers
     * are checked against the parameter as typed ones are, but not read again and not defaulted.
     * \param step The step; its luid must be the current parameter's, or 0 for it.
     * \return true when the step was taken, false when it was refused.
     */
    bool apply(const InputAnswer& step);
    /** \brief Cancels the session (Esc): echoes "*Cancel*" and emits finished(false). */
    void cancel();

    /** \brief The parameter asked now. \return It, or null before start() and after the end. */
    const Parameter* current() const;
    /**
     * \brief The prompt to show now: the current parameter's prompt, or "Specify opposite
     * corner:" while a window waits for its second corner.
     * \return The prompt, empty when nothing is asked.
     */
    QString prompt() const;
    /** \brief The current parameter's "format" text. \return It, empty when none. */
    QString format() const;
    /** \brief What the current parameter accepts. \return InputGrammar::expected() of it. */
    QString expected() const;
    /** \brief The current parameter's default. \return The default, or a null QString. */
    QString defaultAnswer() const;
    /** \brief Whether the session has ended. \return true after finished() was emitted. */
    bool isFinished() const;
    /** \brief Whether the session ended with every answer given. \return true when completed. */
    bool isCompleted() const;

    /** \brief The answers taken, in order, without those taken back. \return The answers. */
    QList<InputAnswer> answers() const;
    /** \brief Every step taken, in order, for replaying with apply(). \return The steps. */
    QList<InputAnswer> steps() const;
    /** \brief Whether a parameter was answered. \param luid The luid. \return true if so. */
    bool has(int luid) const;
    /**
     * \brief The last answer to a parameter.
     * \param luid The parameter's luid.
     * \return The answer, or an Empty answer with luid 0 when there is none.
     */
    InputAnswer answer(int luid) const;
    /** \brief The last point answered. \param luid The luid. \return It, or (0,0). */
    QPointF point(int luid) const;
    /** \brief The last number answered. \param luid The luid. \return It, or 0. */
    double number(int luid) const;
    /**
     * \brief The last text or option key answered.
     * \param luid The luid.
     * \return It, or an empty text.
     */
    QString text(int luid) const;
    /** \brief The entities answered. \param luid The luid. \return Them, or an empty list. */
    QList<int> entities(int luid) const;
    /** \brief The window answered. \param luid The luid. \return It, or a null rectangle. */
    QRectF window(int luid) const;
    /** \brief Every point answered, in order. \return The points. */
    QList<QPointF> points() const;
    /** \brief The last point answered, for relative input. \return It, or nothing. */
    std::optional<QPointF> lastPoint() const;
    /** \brief The key of the last option chosen. \return It, or an empty text. */
    QString lastOption() const;
    /** \brief The entities collected so far at the current parameter. \return Them. */
    QList<int> selection() const;
    /** \brief The first corner of a window being given. \return It, or nothing. */
    std::optional<QPointF> firstCorner() const;

signals:
    /**
     * \brief The prompt to show has changed.
     * \param prompt The prompt (see prompt()).
     * \param format The parameter's "format" text.
     */
    void promptChanged(const QString& prompt, const QString& format);
    /** \brief A line for the host's history: a prompt and its answer. \param text The line. */
    void echoed(const QString& text);
    /** \brief Input was refused. \param reason What was wrong and what was expected. */
    void rejected(const QString& reason);
    /** \brief The answers have changed: an answer was taken or taken back. */
    void answersChanged();
    /** \brief A trigger parameter was answered. \param parameter The parameter. */
    void triggered(const Parameter* parameter);
    /** \brief The last answer of a parameter was taken back. \param parameter The parameter. */
    void undone(const Parameter* parameter);
    /** \brief A form parameter was reached. \param parameter The parameter. */
    void formRequested(const Parameter* parameter);
    /** \brief The entities collected at the current parameter changed. \param entities Them. */
    void selectionChanged(const QList<int>& entities);
    /** \brief The session has ended. \param completed false when it was cancelled. */
    void finished(bool completed);

private:
    friend class InputSessionImpl;
    InputSessionImpl* d;
};

CS_END_NAMESPACE

#endif
