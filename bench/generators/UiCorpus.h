#ifndef CSBENCH_UICORPUS_H
#define CSBENCH_UICORPUS_H

#include <QString>
#include <QStringList>

#include <cstdint>

namespace CsBench {

// Synthetic UI definition files (.xcui) and the PNG icons they name, made from a fixed start
// value: ribbon commands, toggles, check boxes and a few widget actions with translated texts.
class UiCorpus
{
public:
    explicit UiCorpus(std::uint64_t start);

    // `count` distinct square icons of `size` pixels, named icon_000.png ...; returns the paths.
    QStringList writeIcons(const QString& directory, int count, int size);

    // `actionCount` actions whose icons are the names icon_000 ... icon_<iconCount - 1>, each
    // used about equally often; returns the action names.
    QStringList writeUiFile(const QString& path, int actionCount, int iconCount);

    static QString iconName(int index);

private:
    std::uint64_t start;
};

} // namespace CsBench

#endif
