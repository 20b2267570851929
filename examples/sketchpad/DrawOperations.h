#ifndef SKETCHPAD_DRAWOPERATIONS_H
#define SKETCHPAD_DRAWOPERATIONS_H

class Operations;

// The commands that create entities: line, polyline, rectangle, polygon, point, circle,
// circle2p, arc, ellipse, spline, text and the dimensions.
class DrawOperations
{
public:
    static void registerAll(Operations& operations);
};

#endif
