#ifndef CSBENCH_TEMPLATECORPUS_H
#define CSBENCH_TEMPLATECORPUS_H

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <cstdint>

namespace CsBench {

// Synthetic but realistic template files (.tcmd): CAD commands with their template properties
// and 2 to 7 parameters each (points, distances, entities, options ...), made from a fixed
// start value so that every run reads the same bytes.
class TemplateCorpus
{
public:
    explicit TemplateCorpus(std::uint64_t start);

    // One file of at least `bytes` bytes; returns the template names in file order.
    QStringList writeLargeFile(const QString& path, qint64 bytes);

    // One file of `count` templates that have exactly `parameters` parameters each.
    QStringList writeUniformFile(const QString& path, int count, int parameters);

    // `fileCount` files in `directory`: most define one template named after the file, about one
    // in ten defines several (those are the ones a map records). Returns the names of the
    // templates that are alone in a file named after them.
    QStringList writeDirectory(const QString& directory, int fileCount);

private:
    QByteArray templateElement(const QByteArray& name, int parameters);
    QByteArray parameterElement(int luid, bool last);
    QByteArray nextName();

    std::uint64_t start;
    std::uint64_t produced = 0;
};

} // namespace CsBench

#endif
