#ifndef COMMANDSYSTEM_TEMPLATETOOLS_H
#define COMMANDSYSTEM_TEMPLATETOOLS_H

#include <CommandSystem/Global.h>

#include <QHash>
#include <QList>
#include <QObject>
#include <QString>

CS_BEGIN_NAMESPACE

class Template;
class TemplateToolsImpl;

/**
 * Reads and strictly validates template files (*.tcmd), and builds, reads and writes the
 * name-to-file map of a template directory (the file ".map" in it).
 *
 * Each operation reports on a fixed channel, and the texts are fixed: the validator and the
 * map builder and writer print to standard output (printf, with a line end), the loader and
 * the map reader to Qt's debug channel (qDebug). A reading error is one summary line, "An
 * error has occurred while loading FILE at line L, column C: TEXT". For every problem of a
 * file with its position, use "cstool validate".
 *
 * The map builder reads template files as lines, not as XML: a template is mapped only when
 * its line begins (after blanks) with "<template " and its name is the first value in double
 * quotes on that line. Write each `<template name="...">` tag at the start of its own line.
 *
 * Threads: any thread, one object per thread; the objects are cheap.
 */
class COMMANDSYSTEM_EXPORT TemplateTools : public QObject
{
    Q_OBJECT

public:
    /** A checker of the "options" text of a parameter; true accepts it. */
    typedef bool (*ParseFunction)(const char* options);

    /** Makes tools whose "options" checkers accept everything. */
    TemplateTools();
    /** Destroys the tools. */
    ~TemplateTools() override;

    /**
     * Reads the templates of the file \a filePath and appends them to \a templates; they belong
     * to the caller, also those read before an error. Returns true when the file was read to
     * its end without an error; otherwise prints one line on the debug channel.
     */
    bool loadTemplate(const QString& filePath, QList<Template*>& templates);
    /**
     * Checks the file \a filePath strictly against the template vocabulary, builds nothing, and
     * prints the first problem as one line on standard output. True when the file could be
     * opened and no problem was found.
     *
     * Deliberate irregularity: an empty "string" item of a "dim" property ends the check of the
     * file silently, and the file counts as valid.
     */
    bool validateTemplate(const QString& filePath);
    /**
     * validateTemplate() for each .tcmd file of \a directory (listed through the platform
     * hooks); every file prints its own problems. Always returns true.
     */
    bool validateTemplates(const QString& directory);
    /**
     * Installs \a function as the checker of "options" properties of parameters whose type is
     * \a type (a Parameter::Type value, 0 to 12; other values are ignored). Null restores the
     * accept-all checker. Used by validateTemplate() only, never by loading.
     */
    void setParseFunction(int type, ParseFunction function);

    /** The absolute path of the map file of \a directory, or "" when it is no directory. */
    static QString mapFile(const QString& directory);
    /** Whether \a directory has a map file. The name keeps its historical spelling. */
    static bool isMapExist(const QString& directory);
    /**
     * Adds to \a map (name to absolute file path) the templates declared in the .tcmd files of
     * \a directory, read as lines (see the class description). A file that declares just the
     * template it is named after adds nothing, since the pool finds it by its file name. A name
     * declared twice belongs to the later file, after a warning on standard output. False when
     * a file cannot be read. \a map is not cleared first.
     */
    bool buildMap(const QString& directory, QHash<QString, QString>& map);
    /**
     * Adds the entries of the map file \a mapFilePath to \a map, with absolute paths; false on a
     * read or XML error (one line on the debug channel). Deliberate irregularity: an entry
     * without key or value ends the reading silently, with true and the entries read so far.
     */
    bool loadMap(const QString& mapFilePath, QHash<QString, QString>& map);
    /**
     * Writes \a map to the map file \a mapFilePath, entries sorted by name, values as bare file
     * names. The write is atomic: on failure the earlier file stays as it was and false is
     * returned, with a line on standard output.
     */
    bool saveMap(const QString& mapFilePath, const QHash<QString, QString>& map);

private:
    TemplateToolsImpl* d;
};

CS_END_NAMESPACE

#endif
