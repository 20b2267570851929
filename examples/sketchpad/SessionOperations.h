#ifndef SKETCHPAD_SESSIONOPERATIONS_H
#define SKETCHPAD_SESSIONOPERATIONS_H

class Operations;

// The commands about the drawing as a whole and the command flow: new, save, export, quit,
// undo, redo, cancel and repeat.
class SessionOperations
{
public:
    static void registerAll(Operations& operations);
};

#endif
