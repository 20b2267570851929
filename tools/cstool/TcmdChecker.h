#ifndef CSTOOL_TCMDCHECKER_H
#define CSTOOL_TCMDCHECKER_H

#include "Findings.h"

#include <QHash>
#include <QList>
#include <QString>

QT_BEGIN_NAMESPACE
class QXmlStreamAttribute;
QT_END_NAMESPACE

namespace CsTool {

class MapLineScanner;
class XmlSource;

// The full check of one template file. It knows what TemplateTools::validateTemplate checks,
// but goes on after a problem to report all of them, each at the element or attribute that is
// wrong and naming the offending value. Beyond the validator it reports, as errors, templates
// that the template pool would not find because the map scanner does not read their line, and
// warns of what loads but is likely a mistake: a luid used twice in one template, a "next"
// that names no luid of its template, a property given twice, ignored attributes and text.
class TcmdChecker
{
public:
    TcmdChecker(XmlSource& source, Findings& findings, const QString& filePath);

    void check();

private:
    struct TemplateScope {
        QString name;
        QHash<int, SourcePosition> luids;
        QList<QPair<int, SourcePosition>> nexts;
        QHash<QString, SourcePosition> properties;
    };
    struct TemplateElement {
        QString name;
        SourcePosition where;
    };
    struct PropertyElement {
        QString name;
        bool named = false;
        SourcePosition where;
        SourcePosition nameWhere;
        QString value;
        SourcePosition valueWhere;
    };

    void checkTemplates();
    void checkTemplate();
    void checkTemplateProperty(TemplateScope& scope);
    void checkParameters(TemplateScope& scope);
    void checkParameter(TemplateScope& scope);
    // The parameter's luid as the loader takes it (1 when not given), and where it is given.
    int checkParameterAttributes(SourcePosition& where, bool& given);
    void checkParameterProperty(TemplateScope& scope, QHash<QString, SourcePosition>& given);
    QString readDimItem(bool& empty);
    void checkProperty(const PropertyElement& property, int rule, const QStringList& known,
                       const QString& kind);
    void checkNexts(const TemplateScope& scope);
    void checkLineRule();
    static QString notFoundReason(const TemplateElement& element, const MapLineScanner& scanner,
                                  const QList<QByteArray>& lines);

    PropertyElement readPropertyStart();
    template <typename OnChild>
    QString readValue(SourcePosition& where, OnChild onChild);
    bool nextChildElement(const QString& parent);
    void unexpectedChild(const QString& parent, const QString& allowed);
    void unexpectedAttribute(const QXmlStreamAttribute& attribute, const QString& element,
                             const QString& allowed);
    void badValue(const QXmlStreamAttribute& attribute, const QString& element,
                  const QString& expected);
    void ignoredAttributes(const QString& element);
    void checkGivenOnce(QHash<QString, SourcePosition>& given, const PropertyElement& property,
                        const QString& owner);

    XmlSource& source;
    Findings& findings;
    QString filePath;
    QList<TemplateElement> templateElements;
};

} // namespace CsTool

#endif
