#ifndef COMMANDSYSTEM_ACTIONPOOLIMPL_H
#define COMMANDSYSTEM_ACTIONPOOLIMPL_H

#include <CommandSystem/ActionPool.h>
#include <CommandSystem/Impl.h>

#include <QList>
#include <QString>

#include <map>

QT_BEGIN_NAMESPACE
class QXmlStreamReader;
class QXmlStreamWriter;
QT_END_NAMESPACE

CS_BEGIN_NAMESPACE

class ActionPoolImpl : public Impl<ActionPool>
{
public:
    using Impl::Impl;

    // The texts of one "Action" element, applied once the element has been read.
    struct ActionValues {
        QString form, ribbon, menu, icon, hint, help, menuIcon, desc, script;
        QString widget, mapper, checked, options;
    };

    void readActions(QXmlStreamReader& reader);
    static void writeAction(QXmlStreamWriter& writer, const Action& action);

    std::map<QString, Action*> actions;
    QList<QAction*> qActions;

private:
    void readAction(QXmlStreamReader& reader);
    static void readChild(QXmlStreamReader& reader, Action& action, ActionValues& values);
    static void readText(QXmlStreamReader& reader, const QByteArray& context,
                         ActionValues& values);
    static void apply(Action& action, const ActionValues& values);
};

CS_END_NAMESPACE

#endif
