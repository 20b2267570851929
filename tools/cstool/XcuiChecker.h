#ifndef CSTOOL_XCUICHECKER_H
#define CSTOOL_XCUICHECKER_H

#include "Findings.h"

#include <QHash>
#include <QString>
#include <QStringList>

QT_BEGIN_NAMESPACE
class QXmlStreamAttribute;
QT_END_NAMESPACE

namespace CsTool {

class XmlSource;

// The strict check of UI definition files. The library's reader passes over what it does not
// know; this check reports as errors every element and attribute outside the format, actions
// without a name or defined twice (across all files given to one checker), an element given
// twice, "Checked" values other than "true"/"false", "widget" actions without "Widget" or
// "Mapper", "MinWinVer" values that are no version number and icons that resolve to no file;
// and warns of a "type" that is none of the known words (such an action is a plain command).
class XcuiChecker
{
public:
    // iconDirectories: where icons are looked up; when empty, the "icons" folder beside each
    // checked file.
    explicit XcuiChecker(const QStringList& iconDirectories);

    // Adds the problems of one file, already opened in source, to findings.
    void check(XmlSource& source, Findings& findings);

private:
    struct Leaf {
        QString text;
        SourcePosition where;
    };

    void checkActions();
    void checkAction();
    void checkActionAttributes(QString& name, QString& type);
    void checkActionName(const QString& name, bool given, const SourcePosition& where);
    void readChildren(const QString& parent, const QStringList& allowed, QHash<QString, Leaf>& values);
    Leaf readLeaf(const QString& element);
    bool nextChildElement(const QString& parent);
    void unexpectedChild(const QString& parent, const QStringList& allowed);
    void unexpectedAttribute(const QXmlStreamAttribute& attribute, const QString& element,
                             const QString& allowed);
    void checkValues(const QString& name, const QString& type, const QHash<QString, Leaf>& values,
                     const SourcePosition& where);
    void checkIcon(const Leaf& icon);
    void checkNoAttributes(const QString& element);

    QStringList iconDirectories;
    QStringList fileIconDirectories;
    XmlSource* source = nullptr;
    Findings* findings = nullptr;
    QHash<QString, QString> definitions;
};

} // namespace CsTool

#endif
