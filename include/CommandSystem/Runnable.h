#ifndef COMMANDSYSTEM_RUNNABLE_H
#define COMMANDSYSTEM_RUNNABLE_H

#include <CommandSystem/Global.h>

#include <QMetaType>
#include <QMutex>
#include <QWaitCondition>

#include <boost/function.hpp>

CS_BEGIN_NAMESPACE

// A piece of work handed between threads by CommandInvoker. autoDelete is the hand-over token
// that decides which side deletes the runnable.
struct Runnable {
    boost::function<int()> function;
    QMutex mutex;
    QWaitCondition condition;
    int result = 0;
    bool autoDelete = false;
};

CS_END_NAMESPACE

Q_DECLARE_METATYPE(Talvir::Vexa::Cs::Runnable*)

#endif
