#include "SessionOperations.h"

#include "CommandLine.h"
#include "CommandRunner.h"
#include <CommandSystem/InputSession.h>
#include "Drawing.h"
#include "DrawingView.h"
#include "Operations.h"

#include <QFile>
#include <QGraphicsScene>
#include <QImage>
#include <QMainWindow>
#include <QPainter>
#include <QSaveFile>
#include <QTextStream>
#include <QUndoStack>

namespace {

using Stage = Operations::Stage;

void clearDrawing(SketchContext& context, InputSession&, Stage stage)
{
    if (stage != Operations::Finish)
        return;
    context.undoStack->clear();
    context.drawing->clear();
    context.runner->print(QStringLiteral("New drawing."));
}

void save(SketchContext& context, InputSession& session, Stage stage)
{
    if (stage != Operations::Finish)
        return;
    const QString path = session.text(1);
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Text)) {
        context.runner->print(QStringLiteral("Cannot write %1: %2").arg(path, file.errorString()), CommandLine::Error);
        return;
    }
    QTextStream out(&file);
    for (const Entity& entity : context.drawing->entities())
        out << entity.describe() << '\n';
    out.flush();
    if (!file.commit()) {
        context.runner->print(QStringLiteral("Cannot write %1: %2").arg(path, file.errorString()), CommandLine::Error);
        return;
    }
    context.runner->print(QStringLiteral("Saved %1 entities to %2.").arg(context.drawing->entities().size()).arg(path));
}

void exportImage(SketchContext& context, InputSession& session, Stage stage)
{
    if (stage != Operations::Finish)
        return;
    const QString path = session.text(1);
    QRectF box = context.drawing->bounds();
    if (box.isNull()) {
        context.runner->print(QStringLiteral("The drawing is empty."), CommandLine::Error);
        return;
    }
    const double margin = qMax(box.width(), box.height()) * 0.05 + 1.0;
    box.adjust(-margin, -margin, margin, margin);
    const double scale = 1600.0 / qMax(box.width(), box.height());
    QImage image(QSize(int(box.width() * scale), int(box.height() * scale)), QImage::Format_ARGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    // Drawing units point up; the image's rows go down.
    painter.setTransform(QTransform::fromScale(scale, -scale) * QTransform::fromTranslate(0, image.height()));
    painter.translate(-box.left(), -box.top());
    context.view->scene()->render(&painter, box, box);
    painter.end();
    if (!image.save(path, "PNG")) {
        context.runner->print(QStringLiteral("Cannot write %1.").arg(path), CommandLine::Error);
        return;
    }
    context.runner->print(QStringLiteral("Exported %1.").arg(path));
}

void quit(SketchContext& context, InputSession&, Stage stage)
{
    if (stage == Operations::Finish)
        context.window->close();
}

void undo(SketchContext& context, InputSession&, Stage stage)
{
    if (stage != Operations::Finish)
        return;
    if (!context.undoStack->canUndo()) {
        context.runner->print(QStringLiteral("Nothing to undo."), CommandLine::Error);
        return;
    }
    context.runner->print(QStringLiteral("Undo %1").arg(context.undoStack->undoText()));
    context.undoStack->undo();
}

void redo(SketchContext& context, InputSession&, Stage stage)
{
    if (stage != Operations::Finish)
        return;
    if (!context.undoStack->canRedo()) {
        context.runner->print(QStringLiteral("Nothing to redo."), CommandLine::Error);
        return;
    }
    context.runner->print(QStringLiteral("Redo %1").arg(context.undoStack->redoText()));
    context.undoStack->redo();
}

void cancel(SketchContext& context, InputSession&, Stage stage)
{
    if (stage == Operations::Finish)
        context.runner->cancelActive();
}

void repeat(SketchContext& context, InputSession&, Stage stage)
{
    if (stage != Operations::Finish)
        return;
    if (context.runner->lastCommand().isEmpty())
        context.runner->print(QStringLiteral("No command to repeat."), CommandLine::Error);
    else
        context.runner->post(context.runner->lastCommand());
}

} // namespace

void SessionOperations::registerAll(Operations& operations)
{
    operations.add(QStringLiteral("new"), clearDrawing);
    operations.add(QStringLiteral("save"), save);
    operations.add(QStringLiteral("export"), exportImage);
    operations.add(QStringLiteral("quit"), quit);
    operations.add(QStringLiteral("undo"), undo);
    operations.add(QStringLiteral("redo"), redo);
    operations.add(QStringLiteral("cancel"), cancel);
    operations.add(QStringLiteral("repeat"), repeat);
}
