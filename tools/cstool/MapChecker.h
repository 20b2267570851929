#ifndef CSTOOL_MAPCHECKER_H
#define CSTOOL_MAPCHECKER_H

#include "Findings.h"

#include <QList>
#include <QString>

QT_BEGIN_NAMESPACE
class QXmlStreamAttribute;
QT_END_NAMESPACE

namespace CsTool {

class XmlSource;

// The check of a template map file (".map"): what TemplateTools::loadMap refuses or silently
// stops at is an error, and so is a map that is not current, that is, one whose entries differ
// from what "cstool map" would write for its directory now.
class MapChecker
{
public:
    MapChecker(XmlSource& source, Findings& findings, const QString& filePath);

    void check();

private:
    struct Entry {
        QString key;
        QString value;
        SourcePosition where;
        SourcePosition valueWhere;
    };

    void checkMaps();
    void checkEntry();
    void checkCurrent();
    void checkCurrentEntry(const Entry& entry, const QString& expectedFile);
    void stale(const SourcePosition& where, const QString& message);

    XmlSource& source;
    Findings& findings;
    QString filePath;
    SourcePosition rootWhere;
    QList<Entry> entries;
};

} // namespace CsTool

#endif
