#ifndef COMMANDSYSTEM_INPUTGRAMMAR_H
#define COMMANDSYSTEM_INPUTGRAMMAR_H

#include <CommandSystem/Global.h>
#include <CommandSystem/InputAnswer.h>

#include <QList>
#include <QPointF>
#include <QString>

#include <optional>

CS_BEGIN_NAMESPACE

class Parameter;

/**
 * \brief The grammar of typed answers: how the text a user types at a parameter's prompt
 * becomes an InputAnswer, and why it is refused when it does not fit.
 *
 * Points, for "point", "pin", "window" and "entity" parameters:
 * - `x,y`: absolute coordinates;
 * - `@dx,dy`: relative to the last point given in the session (to the origin when there is
 *   none); `@` alone is the last point itself;
 * - `@dist<angle`: polar, relative to the last point: \a dist along the direction \a angle
 *   degrees counter-clockwise from the positive x axis;
 * - `dist<angle`: polar from the origin.
 *
 * Numbers, for "number", "distance" and "angle" parameters (angles in degrees): decimal
 * numbers with an optional sign, decimal point and exponent ("12", "-0.5", ".5", "1e3"); never
 * "inf", "nan", hexadecimal or a decimal comma. A parameter's "dim" property written as two
 * items, low\@high, is the inclusive range a number must lie in; a checker parameter wants a
 * positive number.
 *
 * Options: a parameter's "options" property lists `key:Label` pairs separated by ";". An answer
 * names an option by its key, by its label, or by any prefix of its label that no other label
 * shares, all case-insensitively. Options are tried before the value grammar of the parameter.
 *
 * Defaults: a prompt that ends in `<value>` (before an optional ":") gives a default, which
 * Enter takes as if it had been typed.
 *
 * Blanks around the text and around the numbers of a point are ignored. Every refusal says what
 * was wrong and, after "Expected", what the parameter accepts.
 *
 * All functions are static and reentrant.
 */
class COMMANDSYSTEM_EXPORT InputGrammar
{
public:
    /** \brief One option of a parameter: its key and its label. */
    struct Option {
        QString key;   ///< What the template calls the option; an Option answer holds it.
        QString label; ///< What the user reads.
    };

    /** \brief The result of reading typed text: an answer, or why there is none. */
    struct Reading {
        InputAnswer answer; ///< The answer read; meaningful only when error is empty.
        QString error;      ///< Why the text was refused, or empty when it was read.

        /** \brief Whether the text was read. \return true when error is empty. */
        bool isValid() const { return error.isEmpty(); }
    };

    /**
     * \brief Reads \a text typed at the prompt of \a parameter.
     *
     * Tries the parameter's options first, then the grammar of its type: a Point answer for
     * point, pin, window and entity parameters (the session decides what the point picks), a
     * Number answer within the parameter's range for number, distance and angle parameters, a
     * Text answer for string and command parameters. Continue, null, form and option parameters
     * accept nothing else than their options. The answer's luid is the parameter's.
     * \param text The typed text; must not be empty after trimming (Enter is the session's).
     * \param parameter The parameter whose prompt is shown.
     * \param lastPoint The last point of the session, for relative and polar points.
     * \return The answer, or the reason for refusing the text.
     */
    static Reading read(const QString& text, const Parameter& parameter,
                        const std::optional<QPointF>& lastPoint);

    /**
     * \brief Reads a point in any of the four point forms.
     * \param text The typed text.
     * \param lastPoint The point that "@" forms are relative to; the origin when empty.
     * \return A Point answer with luid 0, or the reason for refusing the text.
     */
    static Reading readPoint(const QString& text, const std::optional<QPointF>& lastPoint);
    /**
     * \brief Reads a decimal number.
     * \param text The typed text.
     * \param value Receives the number when the text is one; left alone otherwise.
     * \return true when \a text is a finite decimal number.
     */
    static bool readNumber(const QString& text, double* value);
    /**
     * \brief Finds the option that \a text names.
     * \param text The typed text.
     * \param options The options to choose from.
     * \return An Option answer with the option's key, or the reason: no option fits, or the
     * text is a prefix of several labels.
     */
    static Reading readOption(const QString& text, const QList<Option>& options);

    /**
     * \brief The options written in an "options" property.
     * \param text The property's text, `key:Label` pairs separated by ";".
     * \return The options in order; entries without a key before ":" are left out.
     */
    static QList<Option> options(const QString& text);
    /**
     * \brief The options of \a parameter.
     * \param parameter The parameter.
     * \return The options of its "options" property.
     */
    static QList<Option> options(const Parameter& parameter);

    /**
     * \brief Checks a number against \a parameter's "dim" range and checker flag.
     * \param value The number.
     * \param parameter The parameter it answers.
     * \return Why the number does not fit, or an empty text when it does.
     */
    static QString checkNumber(double value, const Parameter& parameter);
    /**
     * \brief The range written in \a parameter's "dim" property.
     * \param parameter The parameter.
     * \param low Receives the lowest allowed number.
     * \param high Receives the highest allowed number.
     * \return false, leaving \a low and \a high alone, when "dim" is not two numbers.
     */
    static bool range(const Parameter& parameter, double* low, double* high);

    /**
     * \brief The default that a prompt shows as `<value>` at its end.
     * \param prompt The prompt text.
     * \return The text between the angle brackets, or a null QString when there is none.
     */
    static QString defaultOf(const QString& prompt);
    /**
     * \brief \a prompt showing \a value as its default.
     * \param prompt The prompt text, with or without a default of its own.
     * \param value The default to show.
     * \return The prompt with its default replaced by, or ended with, `<value>`, before the
     * prompt's closing ":" if it has one.
     */
    static QString withDefault(const QString& prompt, const QString& value);

    /**
     * \brief What \a parameter accepts, in words, for prompts and refusals.
     * \param parameter The parameter.
     * \return For example `a point (x,y, @dx,dy, dist<angle or @dist<angle) or an option:
     * Undo (u)`.
     */
    static QString expected(const Parameter& parameter);

    /**
     * \brief A number as answers echo it: at most four decimals, without trailing zeros.
     * \param value The number.
     * \return The text.
     */
    static QString formatNumber(double value);
    /**
     * \brief A point as answers echo it, "x,y" with formatNumber() coordinates.
     * \param point The point.
     * \return The text.
     */
    static QString formatPoint(const QPointF& point);
};

CS_END_NAMESPACE

#endif
