#ifndef COMMANDSYSTEM_TEMPLATE_H
#define COMMANDSYSTEM_TEMPLATE_H

#include <CommandSystem/Global.h>

#include <QObject>

#include <vector>

QT_BEGIN_NAMESPACE
class QXmlStreamReader;
QT_END_NAMESPACE

CS_BEGIN_NAMESPACE

class Parameter;
class TemplateImpl;

// One command of the host: its name, its named properties (dynamic properties of the object)
// and the ordered parameters it asks for, which are its child objects.
class COMMANDSYSTEM_EXPORT Template : public QObject
{
    Q_OBJECT

public:
    Template();
    explicit Template(const char* name);
    ~Template() override;

    // Reads one "template" element; problems are raised on the reader.
    void load(QXmlStreamReader& reader);

    const char* name() const;
    const std::vector<Parameter*>& parameters() const;
    bool appendParameter(Parameter* parameter);
    bool removeParameter(Parameter* parameter);

    const char* textProperty(const char* name) const;
    int inteProperty(const char* name) const;

private:
    TemplateImpl* d;
};

CS_END_NAMESPACE

#endif
