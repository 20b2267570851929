#ifndef CSTOOL_PATHCOLLECTOR_H
#define CSTOOL_PATHCOLLECTOR_H

#include <QString>
#include <QStringList>

namespace CsTool {

// Turns the PATH arguments of a sub-command into the files to work on: a file is taken as it
// is, a directory gives its files with one of the accepted suffixes, by name, and with
// setRecursive() those of its subdirectories after them (hidden ones left out). A template
// directory's map file ".map" counts as a file with the suffix "map".
// Paths keep the form the user wrote, so messages name files the way the user knows them.
class PathCollector
{
public:
    explicit PathCollector(const QStringList& suffixes);

    void setRecursive(bool recursive);
    // False when a path does not exist or names a file with another suffix; see error().
    bool collect(const QStringList& paths);
    QStringList files() const;
    QString error() const;

private:
    bool collectFile(const QString& path);
    void collectDirectory(const QString& path);

    QStringList suffixes;
    bool recursive = false;
    QStringList collected;
    QString problem;
};

} // namespace CsTool

#endif
