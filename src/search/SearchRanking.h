#ifndef COMMANDSYSTEM_SEARCHRANKING_H
#define COMMANDSYSTEM_SEARCHRANKING_H

#include "search/SearchEntry.h"

#include <CommandSystem/NameMatcher.h>

#include <vector>

CS_BEGIN_NAMESPACE

// How one entry matched a query: its best text, by NameMatcher's kinds.
struct RankedEntry {
    int entry = 0;
    NameMatcher::Match match;
    bool primary = true;
};

// The entries that match a query, best first: by kind of match (exact, prefix, word start,
// subsequence), then primary texts before secondary ones, then by NameMatcher's penalty;
// ties keep the entries' order. An empty query gives every entry in order.
std::vector<RankedEntry> rankEntries(const std::vector<SearchEntry>& entries, const QString& query);

CS_END_NAMESPACE

#endif
