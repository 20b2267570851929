#ifndef SKETCHPAD_ARRAYWORK_H
#define SKETCHPAD_ARRAYWORK_H

#include "Entity.h"
#include "SketchContext.h"

#include <QList>

#include <atomic>

// The long part of the array command. The copies are computed on a pool thread through
// CommandInvoker::runOnWorkThread; every batch is handed back with runOnMainThread, which adds it
// to the drawing and moves the progress bar, so the window repaints while the work goes on.
class ArrayWork
{
public:
    ArrayWork(SketchContext& context, const QList<Entity>& sources, int rows, int columns,
              double rowDistance, double columnDistance);

    void run();

private:
    int computeOnWorkThread();
    void handOver(const QList<Entity>& batch, int done);
    void addOnMainThread(const QList<Entity>& batch, int done);

    SketchContext& m_context;
    QList<Entity> m_sources;
    int m_rows;
    int m_columns;
    double m_rowDistance;
    double m_columnDistance;
    int m_total;
    QList<Entity> m_added;
    int m_batches = 0;
    int m_batchesOnMainThread = 0;
    int m_lastQuarter = 0;
    std::atomic<bool> m_workOnOtherThread{false};
};

#endif
