#ifndef SKETCHPAD_VIEWOPERATIONS_H
#define SKETCHPAD_VIEWOPERATIONS_H

class Operations;

// The commands that change only the view and the drawing aids: zoom, pan, regen, grid, snap,
// ortho, axes, line width display and background.
class ViewOperations
{
public:
    static void registerAll(Operations& operations);
};

#endif
