#ifndef SKETCHPAD_TOOLOPERATIONS_H
#define SKETCHPAD_TOOLOPERATIONS_H

class Operations;

// The commands that set the properties of new entities (layer, clayer, lweight, textsize),
// measure (dist, id, list, area) and explain (help, about).
class ToolOperations
{
public:
    static void registerAll(Operations& operations);
};

#endif
