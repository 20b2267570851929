#ifndef COMMANDSYSTEM_TEMPLATEPOOL_H
#define COMMANDSYSTEM_TEMPLATEPOOL_H

#include <CommandSystem/Global.h>

#include <QList>
#include <QObject>
#include <QStringList>

CS_BEGIN_NAMESPACE

class Template;
class TemplatePoolImpl;

/**
 * The host's catalogue of command templates.
 *
 * The host appends its template directories and calls load(), which maps each directory by
 * template name (its ".map" file, or a scan of its files' lines; see TemplateTools). A template
 * file is read only when one of its templates is first requested with getTemplate(); all the
 * templates of that file then join the pool. Names are compared exactly and case-sensitively;
 * a template that no map entry names is looked for in a file named after it.
 *
 * Ownership: the pool owns the templates it holds (they are its child objects). Threads: use
 * it on the thread it lives in; nothing is locked. Nothing is printed by the pool itself.
 */
class COMMANDSYSTEM_EXPORT TemplatePool : public QObject
{
    Q_OBJECT

public:
    /** Makes an empty pool without a parent. */
    TemplatePool();
    /** Destroys the pool and the templates it holds. */
    ~TemplatePool() override;

    /**
     * Appends \a directory (stored as an absolute path); false when it does not exist. A text
     * already in the list gives true and changes nothing; note that the test compares the text
     * as given, so the same directory written differently is appended again.
     */
    bool appendDirectory(const QString& directory);
    /** appendDirectory() for each of \a directories, ignoring the results. */
    void appendDirectoryList(const QStringList& directories);
    /**
     * Takes \a directory out of the list (and out of the mapped ones) and returns true; false
     * when it is not in the list. Its map entries and the templates read from it stay.
     */
    bool removeDirectory(const QString& directory);
    /** removeDirectory() for each of \a directories, ignoring the results. */
    void removeDirectoryList(const QStringList& directories);

    /** Maps every directory of the pool; true when at least one load(directory) returned true. */
    bool load();
    /**
     * Maps \a directory, appending it when needed: reads its ".map" file when there is one,
     * else scans its template files. Returns that result. A directory is mapped once: a second
     * call returns false, also when the first one failed.
     */
    bool load(const QString& directory);
    /**
     * Reads the template file \a filePath into \a templates (appended) without changing the
     * pool; see TemplateTools::loadTemplate(). The templates belong to the caller.
     */
    bool load(const QString& filePath, QList<Template*>& templates);

    /**
     * The template called \a name, reading its file on first use; null when there is none or
     * the file cannot be read. The pointer stays valid until a template of the same name
     * replaces it or the pool is destroyed.
     */
    Template* getTemplate(const QString& name);
    /**
     * Puts \a temp into the pool, which becomes its parent; a template of the same name is
     * replaced and deleted. False for null.
     */
    bool insertTemplate(Template* temp);
    /**
     * Takes the template stored under the name of \a temp out of the pool (whichever it is) and
     * returns true; false for null or an unknown name. It is not deleted and stays a child of
     * the pool; getTemplate() may read its file again.
     */
    bool removeTemplate(Template* temp);

private:
    TemplatePoolImpl* d;
};

CS_END_NAMESPACE

#endif
