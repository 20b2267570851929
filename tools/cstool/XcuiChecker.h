#ifndef CSTOOL_XCUICHECKER_H
#define CSTOOL_XCUICHECKER_H

#include "IconResolver.h"

#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>

QT_BEGIN_NAMESPACE
class QXmlStreamReader;
QT_END_NAMESPACE

namespace CsTool {

// The strict check of UI definition files. The library's reader passes over what it does not
// know; this check reports every element and attribute outside the format, actions without a
// name or defined twice (across all files given to one checker), "Checked" values other than
// "true"/"false", "widget" actions without "Widget" or "Mapper", and icons that resolve to no
// file. Each problem reads "FILE:LINE:COLUMN: message", the position (from 1) of the start
// of the element concerned, as compilers report it.
class XcuiChecker
{
public:
    explicit XcuiChecker(const QStringList& iconDirectories);

    // The problems of one file; empty when the file is valid.
    QStringList check(const QString& filePath);

private:
    struct Position {
        qint64 line;
        qint64 column;
    };

    void next(QXmlStreamReader& reader);
    void checkDocument(QXmlStreamReader& reader);
    void checkRootAttributes(QXmlStreamReader& reader);
    void checkActions(QXmlStreamReader& reader);
    void checkAction(QXmlStreamReader& reader);
    void checkActionName(const QString& name, bool given, const Position& where);
    void readChildren(QXmlStreamReader& reader, const QStringList& allowed,
                      QHash<QString, QString>& values);
    QString readLeaf(QXmlStreamReader& reader);
    bool nextChildElement(QXmlStreamReader& reader);
    void checkValues(const QString& type, const QHash<QString, QString>& values,
                     const Position& where);
    void checkNoAttributes(QXmlStreamReader& reader);
    // At the start of the token last read.
    void problem(const QString& message);
    void problemAt(const Position& where, const QString& message);
    QString location(const Position& where) const;
    Position positionAt(qint64 offset) const;

    Position tokenStart{1, 1};
    QList<qint64> lineStarts;
    IconResolver icons;
    QString file;
    QStringList problems;
    QHash<QString, QString> definitions;
};

} // namespace CsTool

#endif
