#ifndef COMMANDSYSTEM_KEYMAPIMPL_H
#define COMMANDSYSTEM_KEYMAPIMPL_H

#include <CommandSystem/Keymap.h>

#include <map>

CS_BEGIN_NAMESPACE

class KeymapImpl
{
public:
    struct Entry {
        QKeySequence shortcut;   // empty: explicitly none
        SourceLocation location;
    };
    using Entries = std::map<QString, Entry>;

    Entries entries;
    // Of the last load or save; save is const to its callers, so these are mutable.
    mutable SourceLocation errorLocation;
    mutable QString error;

    void setError(const SourceLocation& where, const QString& message) const
    {
        errorLocation = where;
        error = where.toString() + QLatin1String(": ") + message;
    }
    void clearError() const
    {
        errorLocation = SourceLocation();
        error.clear();
    }
};

CS_END_NAMESPACE

#endif
