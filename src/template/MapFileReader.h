#ifndef COMMANDSYSTEM_MAPFILEREADER_H
#define COMMANDSYSTEM_MAPFILEREADER_H

#include <CommandSystem/Global.h>

#include <QDir>
#include <QHash>
#include <QString>

QT_BEGIN_NAMESPACE
class QXmlStreamReader;
QT_END_NAMESPACE

CS_BEGIN_NAMESPACE

// Reads the "maps" document of a template directory's map file into a name-to-path map. Each
// value is a file name inside the map file's directory and is made absolute against it.
class MapFileReader
{
public:
    MapFileReader(QXmlStreamReader& reader, const QDir& directory, QHash<QString, QString>& map);

    // Problems are raised on the reader; an entry without key or value silently ends reading.
    void read();

private:
    bool readMaps();
    bool readMap();

    QXmlStreamReader& reader;
    QDir directory;
    QHash<QString, QString>& map;
};

CS_END_NAMESPACE

#endif
