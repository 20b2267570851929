#ifndef CSTOOL_TSMESSAGE_H
#define CSTOOL_TSMESSAGE_H

#include <QList>
#include <QString>

namespace CsTool {

// One message of a Qt Linguist translation file: a source text of a context, where it occurs,
// and its translation with the translation's state ("" finished, "unfinished", "vanished",
// "obsolete").
struct TsMessage
{
    struct Location {
        QString file;
        qint64 line;
    };

    QString source;
    QString translation;
    QString type;
    QList<Location> locations;
    // Found in the files of this run; messages only read from the old file are not.
    bool extracted = false;
};

} // namespace CsTool

#endif
