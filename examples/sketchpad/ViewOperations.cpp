#include "ViewOperations.h"

#include "CommandLine.h"
#include "CommandRunner.h"
#include <CommandSystem/InputSession.h>
#include "DrawingView.h"
#include "Operations.h"

#include <CommandSystem/Action.h>
#include <CommandSystem/ActionPool.h>

namespace {

using Stage = Operations::Stage;
using Action = Talvir::Vexa::Cs::Action;

// Keeps the checkable action that issues this command (and so all its clones) in step with a
// state changed by typing the command.
void showState(SketchContext& context, const QString& script, bool on)
{
    for (Action* action : context.actions->actions()) {
        if (action->script() == script && action->isCheckable() && action->isChecked() != on)
            action->setChecked(on);
    }
    context.runner->print(QStringLiteral("%1 is %2.").arg(script, on ? QStringLiteral("on") : QStringLiteral("off")));
}

void zoom(SketchContext& context, InputSession& session, Stage stage)
{
    if (stage != Operations::Finish)
        return;
    DrawingView* view = context.view;
    const QString option = session.text(1);
    if (option == QLatin1String("i"))
        view->zoomBy(2.0);
    else if (option == QLatin1String("o"))
        view->zoomBy(0.5);
    else if (option == QLatin1String("e"))
        view->zoomExtents();
    else if (option == QLatin1String("w"))
        view->zoomWindow(session.window(2));
    else if (option == QLatin1String("p") && !view->zoomPrevious())
        context.runner->print(QStringLiteral("No previous view."), CommandLine::Error);
}

void pan(SketchContext& context, InputSession& session, Stage stage)
{
    if (stage == Operations::Finish)
        context.view->pan(session.point(1), session.point(2));
}

void regen(SketchContext& context, InputSession&, Stage stage)
{
    if (stage == Operations::Finish)
        context.view->regenerate();
}

using Setter = void (DrawingView::*)(bool);
using Getter = bool (DrawingView::*)() const;

Operations::Handler onOff(const QString& script, Setter setter)
{
    return [script, setter](SketchContext& context, InputSession& session, Stage stage) {
        if (stage != Operations::Finish)
            return;
        const bool on = session.text(1) == QLatin1String("on");
        (context.view->*setter)(on);
        showState(context, script, on);
    };
}

Operations::Handler flip(const QString& script, Getter getter, Setter setter)
{
    return [script, getter, setter](SketchContext& context, InputSession&, Stage stage) {
        if (stage != Operations::Finish)
            return;
        const bool on = !(context.view->*getter)();
        (context.view->*setter)(on);
        showState(context, script, on);
    };
}

} // namespace

void ViewOperations::registerAll(Operations& operations)
{
    operations.add(QStringLiteral("zoom"), zoom);
    operations.add(QStringLiteral("pan"), pan);
    operations.add(QStringLiteral("regen"), regen);
    operations.add(QStringLiteral("grid"), onOff(QStringLiteral("grid"), &DrawingView::setGridVisible));
    operations.add(QStringLiteral("snap"), onOff(QStringLiteral("snap"), &DrawingView::setSnap));
    operations.add(QStringLiteral("ortho"), onOff(QStringLiteral("ortho"), &DrawingView::setOrtho));
    operations.add(QStringLiteral("axes"), flip(QStringLiteral("axes"), &DrawingView::isAxesVisible,
                                                &DrawingView::setAxesVisible));
    operations.add(QStringLiteral("lwdisplay"), flip(QStringLiteral("lwdisplay"), &DrawingView::isLineWidthsVisible,
                                                     &DrawingView::setLineWidthsVisible));
    operations.add(QStringLiteral("background"), flip(QStringLiteral("background"), &DrawingView::isDarkBackground,
                                                      &DrawingView::setDarkBackground));
}
