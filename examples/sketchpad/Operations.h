#ifndef SKETCHPAD_OPERATIONS_H
#define SKETCHPAD_OPERATIONS_H

#include "Entity.h"
#include "SketchContext.h"

#include <QList>

#include <QHash>
#include <QString>

#include <functional>

namespace Talvir { namespace Vexa { namespace Cs { class InputSession; } } }
using InputSession = Talvir::Vexa::Cs::InputSession;

// What the program does for a template's "function" once the answers are in (Finish), when a
// trigger parameter has been answered (Trigger), when the user undoes the last answer of a
// repeating parameter (Undo), when a form parameter asks for its form (Form), and whenever the
// answers change while the command runs (Answered), for previews.
class Operations
{
public:
    enum Stage { Finish, Trigger, Undo, Form, Answered };
    using Handler = std::function<void(SketchContext&, InputSession&, Stage)>;

    explicit Operations(SketchContext& context);

    void add(const QString& function, const Handler& handler);
    // False when the program has no handler for the session's function.
    bool run(InputSession& session, Stage stage);

    // Applies a change to the drawing as one undoable step.
    static void commit(SketchContext& context, const QString& text, const QList<Entity>& removed,
                       const QList<Entity>& added);

private:
    SketchContext& m_context;
    QHash<QString, Handler> m_handlers;
};

#endif
