#ifndef COMMANDSYSTEM_PARAMETER_H
#define COMMANDSYSTEM_PARAMETER_H

#include <CommandSystem/Global.h>

#include <QObject>

QT_BEGIN_NAMESPACE
class QXmlStreamReader;
QT_END_NAMESPACE

CS_BEGIN_NAMESPACE

class ParameterImpl;

// One value that a command template asks the user for. Named properties ("prompt", "format",
// "options", ...) are dynamic properties of the object.
class COMMANDSYSTEM_EXPORT Parameter : public QObject
{
    Q_OBJECT

public:
    enum Type {
        TypeNull = 0,
        TypeString = 1,
        TypeNumber = 2,
        TypeDistance = 3,
        TypeAngle = 4,
        TypePoint = 5,
        TypeEntity = 6,
        TypeOption = 7,
        TypeContinue = 8,
        TypeForm = 9,
        TypeWindow = 10,
        TypeCommand = 11,
        TypePin = 12
    };

    Parameter();
    Parameter(const char* luid, const char* type, const char* description, const char* trigger);
    ~Parameter() override;

    // Reads one "parameter" element; problems are raised on the reader.
    void load(QXmlStreamReader& reader);

    const char* description() const;
    int luid() const;
    Type type() const;
    bool isChecker() const;
    bool isTrigger() const;

    // Never null: "" when the property is absent.
    const char* textProperty(const char* name) const;
    // 0 when the property is absent or not a number.
    int inteProperty(const char* name) const;

private:
    ParameterImpl* d;
};

CS_END_NAMESPACE

#endif
