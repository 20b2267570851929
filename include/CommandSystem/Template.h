#ifndef COMMANDSYSTEM_TEMPLATE_H
#define COMMANDSYSTEM_TEMPLATE_H

#include <CommandSystem/Global.h>

#include <QObject>

#include <vector>

QT_BEGIN_NAMESPACE
class QXmlStreamReader;
QT_END_NAMESPACE

CS_BEGIN_NAMESPACE

class Parameter;
class TemplateImpl;

/**
 * One command of the host: its name, its named properties (dynamic properties of the object,
 * such as "form_id", "echo" or "last_tpl") and the ordered Parameter objects it asks for.
 *
 * The object name always equals name(); TemplatePool matches requests against it and it is
 * the translation context of the parameters' texts.
 *
 * Ownership: the parameters are child objects of the template and die with it; a template in
 * a TemplatePool is a child of the pool. Threads: use it on the thread of its object tree.
 */
class COMMANDSYSTEM_EXPORT Template : public QObject
{
    Q_OBJECT

public:
    /** Makes an empty template without a parent; "last_tpl" is true. */
    Template();
    /** Makes an empty template named \a name (UTF-8 bytes); "last_tpl" is true. */
    explicit Template(const char* name);
    /** Destroys the template and, through the object tree, its parameters. */
    ~Template() override;

    /**
     * Reads one "template" element; \a reader must be on its start element. Nothing is returned
     * and nothing is thrown: a problem is raised on the reader and what was read before stays.
     * Loading does not validate; TemplateTools::validateTemplate() does.
     */
    void load(QXmlStreamReader& reader);

    /** The name bytes; valid until the name changes or the template is destroyed. */
    const char* name() const;
    /** The parameters in order. */
    const std::vector<Parameter*>& parameters() const;
    /**
     * Appends \a parameter and makes the template its parent; false for null or a parameter
     * already in the list.
     */
    bool appendParameter(Parameter* parameter);
    /**
     * Takes \a parameter out of the list and returns true; false for null or one not in it. The
     * parameter is not deleted and stays a child of the template unless the caller re-parents
     * it.
     */
    bool removeParameter(Parameter* parameter);

    /** As Parameter::textProperty(): the value of \a name as text, "" when absent, never null. */
    const char* textProperty(const char* name) const;
    /** As Parameter::inteProperty(): the value of \a name as an int, 0 when absent. */
    int inteProperty(const char* name) const;

private:
    TemplateImpl* d;
};

CS_END_NAMESPACE

#endif
