#ifndef COMMANDSYSTEM_INPUTPICKER_H
#define COMMANDSYSTEM_INPUTPICKER_H

#include <CommandSystem/Global.h>

#include <QList>
#include <QPointF>
#include <QString>

CS_BEGIN_NAMESPACE

/**
 * \brief What an InputSession asks the host's view when a pick or an entity option needs
 * knowledge of the drawing. The host implements it; the library knows no drawing.
 *
 * The session calls these functions on the thread it runs on, while it handles a pick or a
 * typed answer; they must not destroy the session. A session without a picker treats every
 * position as empty of entities, pins nothing and selects nothing by option.
 */
class COMMANDSYSTEM_EXPORT InputPicker
{
public:
    /** \brief Destroys the picker. */
    virtual ~InputPicker();

    /**
     * \brief The entity at a position, for "entity" parameters.
     * \param point A position in drawing coordinates, clicked or typed.
     * \return The host's identifier of the entity found there, or 0 when there is none.
     */
    virtual int entityAt(const QPointF& point) = 0;
    /**
     * \brief The point that a pick at \a point catches, for "pin" parameters: typically the
     * nearest end or vertex of an entity. The default returns \a point itself.
     * \param point The picked position in drawing coordinates.
     * \return The caught point.
     */
    virtual QPointF pinnedPoint(const QPointF& point);
    /**
     * \brief The entities that an option of an "entity" parameter selects ("All", "Last", ...).
     * The default selects nothing.
     * \param key The option's key, as the template writes it.
     * \return The host's identifiers of the entities, in order.
     */
    virtual QList<int> optionEntities(const QString& key);
};

CS_END_NAMESPACE

#endif
