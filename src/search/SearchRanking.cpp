#include "search/SearchRanking.h"

#include <algorithm>

CS_BEGIN_NAMESPACE

namespace {

// Every kind of match needs the query's characters in order in the text; most texts fail
// this cheaply, and NameMatcher is asked only about the rest.
bool mayMatch(const QString& foldedQuery, quint64 queryBits, const SearchText& text)
{
    if ((queryBits & ~text.characters) != 0)
        return false;
    const QChar* query = foldedQuery.constData();
    const QChar* const queryEnd = query + foldedQuery.size();
    for (const QChar c : text.folded) {
        if (c == *query && ++query == queryEnd)
            return true;
    }
    return false;
}

bool ranksBefore(const RankedEntry& a, const RankedEntry& b)
{
    if (a.match.kind != b.match.kind)
        return a.match.kind > b.match.kind;
    if (a.primary != b.primary)
        return a.primary;
    return a.match.penalty < b.match.penalty;
}

// The best answer NameMatcher can give for a text, from the kinds as it defines them: Exact
// needs the folded texts equal, Prefix a text that starts with the query (its penalty is the
// rest of the text), WordStart the query's first character at the start of a word, and any
// match passes over at least the characters before the query's first character. A text whose
// best cannot count or cannot beat the entry's best so far need not be asked about: one query
// over a large pool asks NameMatcher about a fraction of its texts.
RankedEntry bestCase(const QString& foldedQuery, const SearchText& text)
{
    RankedEntry bound;
    bound.primary = text.primary;
    if (text.folded == foldedQuery) {
        bound.match = NameMatcher::Match{NameMatcher::Exact, 0};
    } else if (text.folded.startsWith(foldedQuery)) {
        bound.match = NameMatcher::Match{NameMatcher::Prefix, int(text.folded.size() - foldedQuery.size())};
    } else {
        const bool atWordStart = (text.wordStarts & SearchEntry::characterBit(foldedQuery.at(0))) != 0;
        bound.match = NameMatcher::Match{atWordStart ? NameMatcher::WordStart : NameMatcher::Subsequence,
                                         int(text.folded.indexOf(foldedQuery.at(0)))};
    }
    return bound;
}

bool worthAsking(const QString& foldedQuery, const SearchText& text, const RankedEntry& best)
{
    const RankedEntry bound = bestCase(foldedQuery, text);
    if (!text.primary && bound.match.kind < NameMatcher::WordStart)
        return false;
    return !best.match.isMatch() || ranksBefore(bound, best);
}

// The entry's best text, or a result without match.
RankedEntry bestText(const SearchEntry& entry, const QString& query, const QString& folded, quint64 bits)
{
    RankedEntry best;
    for (const SearchText& text : entry.texts) {
        if (!mayMatch(folded, bits, text) || !worthAsking(folded, text, best))
            continue;
        RankedEntry candidate;
        candidate.match = NameMatcher::match(query, text.text);
        candidate.primary = text.primary;
        // Long secondary texts hold most letters somewhere; only their words count.
        if (!text.primary && candidate.match.kind < NameMatcher::WordStart)
            continue;
        if (candidate.match.isMatch() && (!best.match.isMatch() || ranksBefore(candidate, best)))
            best = candidate;
    }
    return best;
}

} // namespace

std::vector<RankedEntry> rankEntries(const std::vector<SearchEntry>& entries, const QString& query)
{
    std::vector<RankedEntry> ranked;
    ranked.reserve(entries.size());
    if (query.isEmpty()) {
        for (int i = 0; i < int(entries.size()); ++i)
            ranked.push_back(RankedEntry{i, NameMatcher::Match{NameMatcher::Prefix, 0}, true});
        return ranked;
    }
    const QString folded = query.toCaseFolded();
    const quint64 bits = SearchEntry::characterBits(folded);
    for (int i = 0; i < int(entries.size()); ++i) {
        RankedEntry best = bestText(entries[size_t(i)], query, folded, bits);
        if (!best.match.isMatch())
            continue;
        best.entry = i;
        ranked.push_back(best);
    }
    std::stable_sort(ranked.begin(), ranked.end(), ranksBefore);
    return ranked;
}

CS_END_NAMESPACE
