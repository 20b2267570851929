#ifndef COMMANDSYSTEM_SOURCELOCATION_H
#define COMMANDSYSTEM_SOURCELOCATION_H

#include <CommandSystem/Global.h>

#include <QString>

CS_BEGIN_NAMESPACE

/**
 * \brief A place in a file that a message refers to, as compilers name it.
 *
 * A plain value. Lines and columns count from 1; 0 means unknown, for instance for a shortcut
 * that a host set in code rather than read from a file.
 */
struct COMMANDSYSTEM_EXPORT SourceLocation {
    /** The file as the caller named it; empty when the place is in no file. */
    QString file;
    /** The line, from 1; 0 when unknown. */
    int line = 0;
    /** The column, from 1; 0 when unknown. */
    int column = 0;

    /**
     * \brief The place as "FILE:LINE:COLUMN", leaving out the parts that are unknown.
     *
     * Gives "FILE:LINE" without a column, "FILE" without a line, and an empty text without a
     * file.
     */
    QString toString() const;

    /** True when both name the same file, line and column. */
    bool operator==(const SourceLocation& other) const;
    /** True when the two differ in file, line or column. */
    bool operator!=(const SourceLocation& other) const;
};

CS_END_NAMESPACE

#endif
