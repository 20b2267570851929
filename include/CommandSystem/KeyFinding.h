#ifndef COMMANDSYSTEM_KEYFINDING_H
#define COMMANDSYSTEM_KEYFINDING_H

#include <CommandSystem/Global.h>
#include <CommandSystem/SourceLocation.h>

#include <QString>
#include <QStringList>

CS_BEGIN_NAMESPACE

/**
 * \brief One problem that KeyConflicts found: what kind, how bad, where, and which actions.
 *
 * A plain value.
 */
struct COMMANDSYSTEM_EXPORT KeyFinding {
    /** How bad a finding is. */
    enum Severity {
        Warning, /**< works, but users may trip over it */
        Error    /**< something that users cannot reach or type */
    };

    /** What was found. */
    enum Kind {
        /** Two enabled actions have the same key sequence; Qt fires neither. */
        SameShortcut,
        /** An enabled action's sequence begins with another enabled action's whole sequence,
         *  so it may never be reached. */
        ShortcutPrefix,
        /** A single key without modifiers other than Shift is a shortcut, so it may take the
         *  first letter of a command or alias that a user types. */
        TypedLetter,
        /** An alias has the name of a command other than its own. */
        AliasNamesCommand,
        /** Two options of one parameter's "options" have the same key. */
        SameOptionKey,
        /** A keymap gives a shortcut to an action that the UI definitions do not define. */
        UnknownAction,
        /** A file could not be read or is not well-formed. */
        FileProblem
    };

    /** Error or warning. */
    Severity severity = Error;
    /** What was found. */
    Kind kind = FileProblem;
    /** Where: the entry that the finding is about; empty for objects read from no file. */
    SourceLocation location;
    /** The finding in words, without location and severity. */
    QString message;
    /** The actions the finding concerns, by name; empty when it concerns none. */
    QStringList actions;

    /**
     * \brief The finding as compilers write theirs: "FILE:LINE:COLUMN: error: message", or
     *        "warning"; the location part is left out when it is unknown.
     */
    QString toString() const;
};

CS_END_NAMESPACE

#endif
