#ifndef SKETCHPAD_MODIFYOPERATIONS_H
#define SKETCHPAD_MODIFYOPERATIONS_H

class Operations;

// The commands that change existing entities: move, copy, rotate, scale, mirror, erase, offset,
// explode, stretch, and the rectangular array, whose copies are computed on a pool thread.
class ModifyOperations
{
public:
    static void registerAll(Operations& operations);
};

#endif
