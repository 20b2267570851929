#include "TcmdVocabulary.h"

#include <QHash>

namespace CsTool {

namespace {

QStringList words(const char* text)
{
    return QString::fromLatin1(text).split(QLatin1Char(' '));
}

void add(QHash<QString, TcmdVocabulary::Rule>& rules, QStringList& names, const char* text,
         TcmdVocabulary::Rule rule)
{
    for (const QString& word : words(text)) {
        if (!rules.contains(word))
            names.append(word);
        rules.insert(word, rule);
    }
}

struct PropertyRules {
    QHash<QString, TcmdVocabulary::Rule> rules;
    QStringList names;
};

// "level" is an integer, "no_ftr" and "scope" too, whatever their names suggest.
const PropertyRules& templateRules()
{
    static const PropertyRules table = [] {
        PropertyRules result;
        add(result.rules, result.names, "echo echo_obj function validate init_after term custom "
            "init multi_cmd partial_echo_obj", TcmdVocabulary::AnyText);
        add(result.rules, result.names, "form_id icon_id parent_echo parent_form ref_id level "
            "scope no_ftr", TcmdVocabulary::DecimalInt);
        add(result.rules, result.names, "repeatable last_tpl child shade_echo show_tol "
            "mod_entity lookup rt_echo", TcmdVocabulary::TrueFalse);
        add(result.rules, result.names, "auto_repeat", TcmdVocabulary::OnOff);
        return result;
    }();
    return table;
}

const PropertyRules& parameterRules()
{
    static const PropertyRules table = [] {
        PropertyRules result;
        add(result.rules, result.names, "list next cif comp", TcmdVocabulary::DecimalInt);
        add(result.rules, result.names, "mod_entity disable_hi", TcmdVocabulary::TrueFalse);
        add(result.rules, result.names, "dim prompt format callback template append modify "
            "unpick selected", TcmdVocabulary::AnyText);
        add(result.rules, result.names, "options", TcmdVocabulary::Options);
        return result;
    }();
    return table;
}

} // namespace

const QStringList& TcmdVocabulary::typeWords()
{
    static const QStringList list = words(
        "null string number distance angle point entity option continue form window command pin");
    return list;
}

const QStringList& TcmdVocabulary::templateProperties()
{
    return templateRules().names;
}

const QStringList& TcmdVocabulary::parameterProperties()
{
    return parameterRules().names;
}

TcmdVocabulary::Rule TcmdVocabulary::templateRule(const QString& property)
{
    return templateRules().rules.value(property, Unknown);
}

TcmdVocabulary::Rule TcmdVocabulary::parameterRule(const QString& property)
{
    return parameterRules().rules.value(property, Unknown);
}

// Values are compared as the library compares them: UTF-8 bytes, integers through
// QByteArray::toInt in base 10.
bool TcmdVocabulary::accepts(Rule rule, const QString& value)
{
    switch (rule) {
    case DecimalInt: {
        bool ok = false;
        static_cast<void>(value.toUtf8().toInt(&ok, 10));
        return ok;
    }
    case TrueFalse:
        return value == QLatin1String("true") || value == QLatin1String("false");
    case OnOff:
        return value == QLatin1String("on") || value == QLatin1String("off");
    case AnyText:
    case Options:
    case Unknown:
        break;
    }
    return true;
}

QString TcmdVocabulary::expectation(Rule rule)
{
    switch (rule) {
    case DecimalInt:
        return QStringLiteral("a decimal integer");
    case TrueFalse:
        return QStringLiteral("one of: true, false");
    case OnOff:
        return QStringLiteral("one of: on, off");
    case AnyText:
    case Options:
    case Unknown:
        break;
    }
    return QStringLiteral("any text");
}

} // namespace CsTool
