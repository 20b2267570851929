#ifndef CSBENCH_DATADIRECTORY_H
#define CSBENCH_DATADIRECTORY_H

#include <QString>

namespace CsBench {

// A directory of generated benchmark data in the build tree, kept between runs: the data is
// deterministic, and writing ten thousand files on every run would cost more than measuring.
// A stamp file marks a directory whose generation finished.
class DataDirectory
{
public:
    // <build tree>/bench/data/<name>; an unfinished directory is emptied.
    explicit DataDirectory(const QString& name);

    QString filePath(const QString& fileName) const;
    bool isComplete() const;
    void markComplete();

private:
    QString path;
};

} // namespace CsBench

#endif
