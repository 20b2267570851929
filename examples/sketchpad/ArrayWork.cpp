#include "ArrayWork.h"

#include "CommandRunner.h"
#include "Drawing.h"
#include "DrawingUndoCommand.h"
#include "DrawingView.h"

#include <CommandSystem/CommandInvoker.h>
#include <CommandSystem/Runnable.h>

#include <QCoreApplication>
#include <QProgressBar>
#include <QThread>
#include <QTransform>
#include <QUndoStack>

namespace {

const int kBatchSize = 200;

} // namespace

ArrayWork::ArrayWork(SketchContext& context, const QList<Entity>& sources, int rows, int columns,
                     double rowDistance, double columnDistance)
    : m_context(context)
    , m_sources(sources)
    , m_rows(rows)
    , m_columns(columns)
    , m_rowDistance(rowDistance)
    , m_columnDistance(columnDistance)
    , m_total((rows * columns - 1) * int(sources.size()))
{
}

void ArrayWork::run()
{
    if (m_total <= 0) {
        m_context.runner->print(QStringLiteral("Nothing to copy."));
        return;
    }
    m_context.runner->trace(QStringLiteral("array start %1 copies").arg(m_total));
    m_context.runner->setBusy(true);
    m_context.progress->setRange(0, m_total);
    m_context.progress->setValue(0);
    m_context.progress->show();

    auto* work = new Talvir::Vexa::Cs::Runnable;
    work->function = [this]() { return computeOnWorkThread(); };
    work->autoDelete = true;
    const int copies = m_context.runner->invoker()->runOnWorkThread(work);

    m_context.progress->hide();
    m_context.undoStack->push(new DrawingUndoCommand(m_context.drawing, QStringLiteral("Array"), {},
                                                     m_added, true));
    m_context.runner->trace(QStringLiteral("array done %1 copies, %2 of %3 batches on the main thread, "
                                           "work on a pool thread: %4")
                                .arg(copies).arg(m_batchesOnMainThread).arg(m_batches)
                                .arg(m_workOnOtherThread ? QStringLiteral("yes") : QStringLiteral("no")));
    m_context.runner->print(QStringLiteral("%1 copies made.").arg(copies));
    m_context.runner->setBusy(false);
}

int ArrayWork::computeOnWorkThread()
{
    m_workOnOtherThread = QThread::currentThread() != QCoreApplication::instance()->thread();
    QList<Entity> batch;
    int done = 0;
    for (int row = 0; row < m_rows; ++row) {
        for (int column = 0; column < m_columns; ++column) {
            if (row == 0 && column == 0)
                continue;
            const QTransform shift = QTransform::fromTranslate(column * m_columnDistance, row * m_rowDistance);
            for (const Entity& source : m_sources) {
                batch.append(source.transformed(shift));
                if (++done % kBatchSize == 0) {
                    handOver(batch, done);
                    batch.clear();
                }
            }
        }
    }
    if (!batch.isEmpty())
        handOver(batch, done);
    return done;
}

void ArrayWork::handOver(const QList<Entity>& batch, int done)
{
    auto* piece = new Talvir::Vexa::Cs::Runnable;
    piece->function = [this, batch, done]() {
        addOnMainThread(batch, done);
        return 0;
    };
    m_context.runner->invoker()->runOnMainThread(piece);
}

void ArrayWork::addOnMainThread(const QList<Entity>& batch, int done)
{
    const bool onMainThread = QThread::currentThread() == QCoreApplication::instance()->thread();
    ++m_batches;
    if (onMainThread)
        ++m_batchesOnMainThread;
    for (Entity entity : batch) {
        entity.id = m_context.drawing->allocateId();
        m_context.drawing->insert(entity);
        m_added.append(entity);
    }
    m_context.progress->setValue(done);
    const int quarter = done * 4 / m_total;
    if (quarter > m_lastQuarter) {
        m_lastQuarter = quarter;
        m_context.runner->trace(QStringLiteral("array progress %1% on the main thread: %2")
                                    .arg(quarter * 25)
                                    .arg(onMainThread ? QStringLiteral("yes") : QStringLiteral("no")));
    }
}
