#ifndef COMMANDSYSTEM_INPUTANSWERDATA_H
#define COMMANDSYSTEM_INPUTANSWERDATA_H

#include <CommandSystem/InputAnswer.h>

#include <QSharedData>

CS_BEGIN_NAMESPACE

class InputAnswerData : public QSharedData
{
public:
    InputAnswer::Kind kind = InputAnswer::Empty;
    int luid = 0;
    QPointF point;
    double number = 0.0;
    QString text;
    QList<int> entities;
    QRectF window;
};

CS_END_NAMESPACE

#endif
