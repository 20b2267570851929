#ifndef COMMANDSYSTEM_BUILDER_H
#define COMMANDSYSTEM_BUILDER_H

#include <CommandSystem/Global.h>

#include <QObject>

QT_BEGIN_NAMESPACE
class QWidget;
QT_END_NAMESPACE

CS_BEGIN_NAMESPACE

class Factory;

/**
 * The process-wide registry of the host's Factory objects, and creation by name through them.
 *
 * Action::clone() asks it for the widget and the widget mapper of "widget" actions. All
 * operations are static; an instance holds nothing.
 *
 * Ownership: the registry owns the factories appended to it and deletes them when the library
 * is unloaded; there is no working way to unregister one (see removeFactory()).
 *
 * Threads: GUI thread only; nothing is locked.
 */
class COMMANDSYSTEM_EXPORT Builder : public QObject
{
    Q_OBJECT

public:
    /** Makes a builder; it holds nothing. */
    Builder();
    /** Destroys the builder; the registry stays. */
    ~Builder() override;
    /** Does nothing and returns this builder. */
    Builder& operator=(const Builder&);

    /**
     * Appends \a factory to the registry, which takes ownership; false for null or a factory
     * registered already (which stays registered and alive).
     */
    static bool appendFactory(Factory* factory);
    /**
     * Deliberately inverted: a registered \a factory is not removed and stays alive (false); a
     * factory that was never appended is deleted (true). False for null.
     */
    static bool removeFactory(Factory* factory);

    /**
     * The widget that the first factory (in registration order) knowing \a name makes with the
     * Qt \a parent, or null; later factories are not asked. Ownership follows the parent.
     */
    static QWidget* createWidget(const QString& name, QWidget* parent);
    /** As createWidget(), for the mapper \a name with the Qt \a parent. */
    static QObject* createMapper(const QString& name, QObject* parent);
    /** As createWidget(), for any other object \a name with the Qt \a parent. */
    static QObject* createObject(const QString& name, QObject* parent);
};

CS_END_NAMESPACE

#endif
