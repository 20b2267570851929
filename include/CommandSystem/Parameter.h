#ifndef COMMANDSYSTEM_PARAMETER_H
#define COMMANDSYSTEM_PARAMETER_H

#include <CommandSystem/Global.h>

#include <QObject>

QT_BEGIN_NAMESPACE
class QXmlStreamReader;
QT_END_NAMESPACE

CS_BEGIN_NAMESPACE

class ParameterImpl;

/**
 * One value that a command Template asks the user for: a local identifier (luid()), a kind
 * (type()), a description, two flags and an open set of named properties ("prompt", "format",
 * "options", "next", ...), which are dynamic properties of the object holding an int, a bool or
 * bytes (see textProperty() and inteProperty()).
 *
 * Ownership: inside a template a parameter is a child object of its Template and dies with it.
 * Threads: use it on the thread of its object tree.
 *
 * The writing of template files is described in the guide "Writing command templates".
 */
class COMMANDSYSTEM_EXPORT Parameter : public QObject
{
    Q_OBJECT

public:
    /** The kind of value asked for; the numbers and their type words are fixed. */
    enum Type {
        TypeNull = 0,       ///< "null", also any unknown type word
        TypeString = 1,     ///< "string"
        TypeNumber = 2,     ///< "number"
        TypeDistance = 3,   ///< "distance"
        TypeAngle = 4,      ///< "angle"
        TypePoint = 5,      ///< "point"
        TypeEntity = 6,     ///< "entity"
        TypeOption = 7,     ///< "option"
        TypeContinue = 8,   ///< "continue"
        TypeForm = 9,       ///< "form"
        TypeWindow = 10,    ///< "window"
        TypeCommand = 11,   ///< "command"
        TypePin = 12        ///< "pin"
    };

    /** Makes a parameter without a parent: luid 1 (not 0), TypeNull, no flags, no description. */
    Parameter();
    /**
     * Makes a parameter from texts, as a host builds one in code. None may be null.
     * \param luid converted like atoi(): "12abc" gives 12, "x" gives 0
     * \param type a type word, compared case-sensitively; any other word gives TypeNull
     * \param description stored as it is, not translated
     * \param trigger isTrigger() is true exactly for "true"
     */
    Parameter(const char* luid, const char* type, const char* description, const char* trigger);
    /** Destroys the parameter. Remove it from its template first (Template::removeParameter()). */
    ~Parameter() override;

    /**
     * Reads one "parameter" element; \a reader must be on its start element and is left on its
     * end element. Nothing is returned and nothing is thrown: a problem is raised on the reader
     * ("Unexpected attribute: ...", "Unexpected element: ...") and what was read before stays.
     * The parameter should already have its Template as parent: the template's name is the
     * translation context of "description", "prompt" and "format".
     */
    void load(QXmlStreamReader& reader);

    /** The description bytes (translated, local 8-bit); valid while the parameter lives. */
    const char* description() const;
    /** The local identifier; 1 unless given. */
    int luid() const;
    /** The kind of value asked for. */
    Type type() const;
    /** Whether the parameter is a checker ("checker" attribute exactly "true"). */
    bool isChecker() const;
    /** Whether the parameter is a trigger ("trigger" attribute exactly "true"). */
    bool isTrigger() const;

    /**
     * The value of the property \a name as text; never null, "" when the property is absent.
     * The pointer stays valid until the property is set again or the parameter is destroyed.
     * Names are case-sensitive.
     */
    const char* textProperty(const char* name) const;
    /**
     * The value of the property \a name as an int (a bool gives 1 or 0, text its decimal
     * value); 0 when the property is absent or not a number. The name keeps its historical
     * spelling.
     */
    int inteProperty(const char* name) const;

private:
    ParameterImpl* d;
};

CS_END_NAMESPACE

#endif
