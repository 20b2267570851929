#ifndef SKETCHPAD_SKETCHCONTEXT_H
#define SKETCHPAD_SKETCHCONTEXT_H

namespace Talvir { namespace Vexa { namespace Cs { class ActionPool; class CommandLineModel; class TemplatePool; } } }
class CommandLine;
class CommandRunner;
class Drawing;
class DrawingView;
class QMainWindow;
class QProgressBar;
class QUndoStack;

// The parts of the program that command operations work on. Filled by MainWindow; nothing here
// is owned by the context.
struct SketchContext {
    Drawing* drawing = nullptr;
    DrawingView* view = nullptr;
    CommandLine* commandLine = nullptr;
    Talvir::Vexa::Cs::CommandLineModel* commandLineModel = nullptr;
    QUndoStack* undoStack = nullptr;
    CommandRunner* runner = nullptr;
    Talvir::Vexa::Cs::TemplatePool* templates = nullptr;
    Talvir::Vexa::Cs::ActionPool* actions = nullptr;
    QMainWindow* window = nullptr;
    QProgressBar* progress = nullptr;
};

#endif
