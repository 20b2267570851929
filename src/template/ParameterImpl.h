#ifndef COMMANDSYSTEM_PARAMETERIMPL_H
#define COMMANDSYSTEM_PARAMETERIMPL_H

#include <CommandSystem/Impl.h>
#include <CommandSystem/Parameter.h>

#include "template/PropertyTextCache.h"

#include <QByteArray>
#include <QLatin1String>

#include <string>

CS_BEGIN_NAMESPACE

class ParameterImpl : public Impl<Parameter>
{
public:
    explicit ParameterImpl(Parameter* owner) : Impl(owner) {}

    // Index of a type word ("null" .. "pin"), or -1 for any other word. Shared with the
    // validator, whose option checkers use the same numbers.
    template <typename Word>
    static int typeIndex(const Word& word)
    {
        for (int index = 0; index < typeCount; ++index) {
            if (word == QLatin1String(typeWords[index]))
                return index;
        }
        return -1;
    }

    template <typename Word>
    void setType(const Word& word)
    {
        const int index = typeIndex(word);
        type = index < 0 ? Parameter::TypeNull : Parameter::Type(index);
    }

    void loadAttributes(QXmlStreamReader& reader);
    void loadProperty(QXmlStreamReader& reader);
    static QByteArray readString(QXmlStreamReader& reader);
    void storeProperty(const QByteArray& name, const QByteArray& value);
    QByteArray translated(const QByteArray& source) const;

    static constexpr int typeCount = 13;
    static const char* const typeWords[typeCount];

    int luid = 1;
    Parameter::Type type = Parameter::TypeNull;
    bool checker = false;
    bool trigger = false;
    std::string description;
    PropertyTextCache textCache;
};

CS_END_NAMESPACE

#endif
