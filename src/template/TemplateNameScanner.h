#ifndef COMMANDSYSTEM_TEMPLATENAMESCANNER_H
#define COMMANDSYSTEM_TEMPLATENAMESCANNER_H

#include <CommandSystem/Global.h>

#include <QByteArray>
#include <QStringList>

CS_BEGIN_NAMESPACE

// Finds the template names of a template file without parsing it as XML: a line that starts
// with "<template " declares one, named by its first quoted text. Mapping a directory scans
// every file, so this works on the raw bytes and allocates only for the names it finds.
class TemplateNameScanner
{
public:
    explicit TemplateNameScanner(const QByteArray& content);

    QStringList names();

private:
    bool nextLine(const char*& begin, const char*& end);
    QString nameOf(const char* begin, const char* end);
    void giveUp(const char* message);

    const char* position;
    const char* contentEnd;
    bool reading = true;
};

CS_END_NAMESPACE

#endif
