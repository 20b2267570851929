#ifndef COMMANDSYSTEM_NAMEMATCHERIMPL_H
#define COMMANDSYSTEM_NAMEMATCHERIMPL_H

#include <CommandSystem/Impl.h>
#include <CommandSystem/NameMatcher.h>

#include <QString>

#include <vector>

CS_BEGIN_NAMESPACE

class NameMatcherImpl : public Impl<NameMatcher>
{
public:
    struct Entry {
        QString folded;
        QString name;
    };
    using Iterator = std::vector<Entry>::const_iterator;

    explicit NameMatcherImpl(NameMatcher* owner) : Impl(owner) {}

    // The entries whose folded form starts with foldedPrefix: one contiguous run of the sorted
    // list, found by binary search.
    std::pair<Iterator, Iterator> prefixRange(const QString& foldedPrefix) const;

    // Edit distance of two folded texts with swaps of neighbours, computed only in the band of
    // width 2 * bound + 1 around the diagonal; bound + 1 when it is larger than bound. The rows
    // are kept in scratch so that a search over many names allocates once.
    static int boundedDistance(const QString& a, const QString& b, int bound, std::vector<int>& scratch);

    std::vector<Entry> entries;   // sorted by folded, folded forms unique
};

CS_END_NAMESPACE

#endif
