#ifndef CSTOOL_TCMDVOCABULARY_H
#define CSTOOL_TCMDVOCABULARY_H

#include <QString>
#include <QStringList>

namespace CsTool {

// The words of template files: the parameter type words and the property names with the rule
// their values follow, as TemplateTools::validateTemplate knows them.
class TcmdVocabulary
{
public:
    enum Rule { AnyText, DecimalInt, TrueFalse, OnOff, Options, Unknown };

    // The thirteen type words, indexed by Parameter::Type.
    static const QStringList& typeWords();
    static const QStringList& templateProperties();
    static const QStringList& parameterProperties();
    static Rule templateRule(const QString& property);
    static Rule parameterRule(const QString& property);
    // True when the value follows the rule; "options" and any text always do.
    static bool accepts(Rule rule, const QString& value);
    // What the rule expects, for a message: "a decimal integer", "true or false".
    static QString expectation(Rule rule);
};

} // namespace CsTool

#endif
