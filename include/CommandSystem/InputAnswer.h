#ifndef COMMANDSYSTEM_INPUTANSWER_H
#define COMMANDSYSTEM_INPUTANSWER_H

#include <CommandSystem/Global.h>

#include <QList>
#include <QMetaType>
#include <QPointF>
#include <QRectF>
#include <QSharedDataPointer>
#include <QString>

CS_BEGIN_NAMESPACE

class InputAnswerData;

/**
 * \brief One answer to one parameter of a command template, at the level of its meaning: a
 * point, a number, a text, an option key, entities or a window, never the keys that were typed.
 *
 * An InputSession produces answers from typed text and picks, keeps the answers of the
 * parameters it walked (InputSession::answers()) and every step it took, in order
 * (InputSession::steps()); an InputTranscript writes steps to a file and reads them back, and
 * InputSession::apply() replays them.
 *
 * Each answer has a kind and the value of that kind; the accessors of the other kinds return
 * their empty values. The luid says which parameter the answer belongs to (0 until set).
 *
 * InputAnswer is an implicitly shared value, cheap to copy, usable from any thread.
 */
class COMMANDSYSTEM_EXPORT InputAnswer
{
public:
    /** \brief What an answer holds. */
    enum Kind {
        Empty,    ///< Enter alone: confirms a "continue" parameter, ends a list or a repetition.
        Point,    ///< A point in the host's drawing coordinates.
        Number,   ///< A number, distance or angle (degrees).
        Text,     ///< A string or a command name.
        Option,   ///< The key of one of the parameter's options.
        Entities, ///< Entities by the host's identifiers.
        Window    ///< A rectangle given by two opposite corners.
    };

    /** \brief Creates an Empty answer with luid 0. */
    InputAnswer();
    /** \brief Copies \a other. \param other The answer to copy. */
    InputAnswer(const InputAnswer& other);
    /**
     * \brief Makes this answer a copy of \a other.
     * \param other The answer to copy.
     * \return This answer.
     */
    InputAnswer& operator=(const InputAnswer& other);
    /** \brief Destroys the answer. */
    ~InputAnswer();

    /**
     * \brief A Point answer.
     * \param point The point.
     * \param luid The parameter's luid.
     * \return The answer.
     */
    static InputAnswer fromPoint(const QPointF& point, int luid = 0);
    /**
     * \brief A Number answer.
     * \param number The number.
     * \param luid The parameter's luid.
     * \return The answer.
     */
    static InputAnswer fromNumber(double number, int luid = 0);
    /**
     * \brief A Text answer.
     * \param text The text.
     * \param luid The parameter's luid.
     * \return The answer.
     */
    static InputAnswer fromText(const QString& text, int luid = 0);
    /**
     * \brief An Option answer.
     * \param key The option's key, as the template writes it.
     * \param luid The parameter's luid.
     * \return The answer.
     */
    static InputAnswer fromOption(const QString& key, int luid = 0);
    /**
     * \brief An Entities answer.
     * \param entities The host's identifiers of the entities, in the order chosen.
     * \param luid The parameter's luid.
     * \return The answer.
     */
    static InputAnswer fromEntities(const QList<int>& entities, int luid = 0);
    /**
     * \brief A Window answer.
     * \param window The rectangle; it is stored normalized (positive width and height).
     * \param luid The parameter's luid.
     * \return The answer.
     */
    static InputAnswer fromWindow(const QRectF& window, int luid = 0);
    /**
     * \brief An Empty answer.
     * \param luid The parameter's luid.
     * \return The answer.
     */
    static InputAnswer fromEmpty(int luid = 0);

    /** \brief The kind of value held. \return The kind. */
    Kind kind() const;
    /** \brief The parameter this answer belongs to. \return Its luid, 0 when not set. */
    int luid() const;
    /** \brief Sets the parameter this answer belongs to. \param luid The parameter's luid. */
    void setLuid(int luid);

    /** \brief The point of a Point answer. \return The point, or (0,0) for other kinds. */
    QPointF point() const;
    /** \brief The number of a Number answer. \return The number, or 0 for other kinds. */
    double number() const;
    /**
     * \brief The text of a Text answer or the key of an Option answer.
     * \return The text or key, or an empty text for other kinds.
     */
    QString text() const;
    /**
     * \brief The entities of an Entities answer.
     * \return The identifiers, or an empty list for other kinds.
     */
    QList<int> entities() const;
    /** \brief The rectangle of a Window answer. \return The rectangle, or a null one. */
    QRectF window() const;

    /**
     * \brief Whether two answers are equal: same luid, kind and value.
     * \param other The answer to compare with.
     * \return true when equal.
     */
    bool operator==(const InputAnswer& other) const;
    /**
     * \brief Whether two answers differ.
     * \param other The answer to compare with.
     * \return true when not equal.
     */
    bool operator!=(const InputAnswer& other) const { return !(*this == other); }

private:
    explicit InputAnswer(Kind kind, int luid);

    QSharedDataPointer<InputAnswerData> d;
};

CS_END_NAMESPACE

Q_DECLARE_METATYPE(Talvir::Vexa::Cs::InputAnswer)

#endif
