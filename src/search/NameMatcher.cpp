#include <CommandSystem/NameMatcher.h>

#include "search/NameMatcherImpl.h"

#include <algorithm>
#include <limits>

CS_BEGIN_NAMESPACE

namespace {

const int kUnreachable = std::numeric_limits<int>::max() / 2;

// Word starts of text, as positions: the first character, a letter or digit after any other
// character, and an upper-case letter after a lower-case one. The camel-case rule needs the
// text's own case, so it is read from the text before folding.
std::vector<int> wordStarts(const QString& text)
{
    std::vector<int> starts;
    for (int i = 0; i < text.size(); ++i) {
        const QChar c = text.at(i);
        if (!c.isLetterOrNumber())
            continue;
        const bool first = i == 0;
        const bool afterSeparator = !first && !text.at(i - 1).isLetterOrNumber();
        const bool camel = !first && c.isUpper() && text.at(i - 1).isLower();
        if (first || afterSeparator || camel)
            starts.push_back(i);
    }
    return starts;
}

// Fewest characters passed over when the query is split into pieces that each start at a word
// start, in order. best[qi * (n + 1) + pos] memoises "the rest of the query from qi, with the
// text used up to pos".
class WordStartSearch
{
public:
    WordStartSearch(const QString& query, const QString& text, std::vector<int> starts)
        : m_query(query), m_text(text), m_starts(std::move(starts))
        , m_best(size_t(query.size() + 1) * size_t(text.size() + 1), -1)
    {
    }

    int penalty() { return rest(0, 0); }

private:
    int rest(int qi, int pos)
    {
        if (qi == m_query.size())
            return 0;
        int& memo = m_best[size_t(qi) * size_t(m_text.size() + 1) + size_t(pos)];
        if (memo >= 0)
            return memo;
        int best = kUnreachable;
        for (int start : m_starts) {
            if (start < pos)
                continue;
            for (int k = 0; qi + k < m_query.size() && start + k < m_text.size()
                            && m_query.at(qi + k) == m_text.at(start + k); ++k) {
                const int after = rest(qi + k + 1, start + k + 1);
                if (after < kUnreachable)
                    best = std::min(best, (start - pos) + after);
            }
        }
        memo = best;
        return best;
    }

    const QString& m_query;
    const QString& m_text;
    std::vector<int> m_starts;
    std::vector<int> m_best;
};

// The smallest count of characters before and between the matched ones over every start of a
// greedy in-order match.
int subsequencePenalty(const QString& query, const QString& text)
{
    int best = kUnreachable;
    for (int start = 0; start < text.size(); ++start) {
        if (text.at(start) != query.at(0))
            continue;
        int qi = 1;
        int ti = start + 1;
        for (; qi < query.size() && ti < text.size(); ++ti) {
            if (text.at(ti) == query.at(qi))
                ++qi;
        }
        if (qi < query.size())
            break;   // a later start cannot find what this one did not
        const int skipped = (ti - start) - int(query.size());
        best = std::min(best, start + skipped);
    }
    return best;
}

// The bound that suggest() allows for a name of this length.
int suggestionBound(int length)
{
    return length <= 4 ? 1 : length <= 8 ? 2 : 3;
}

} // namespace

std::pair<NameMatcherImpl::Iterator, NameMatcherImpl::Iterator>
NameMatcherImpl::prefixRange(const QString& foldedPrefix) const
{
    const auto first = std::lower_bound(entries.begin(), entries.end(), foldedPrefix,
                                        [](const Entry& entry, const QString& key) { return entry.folded < key; });
    const auto last = std::partition_point(first, entries.end(), [&foldedPrefix](const Entry& entry) {
        return entry.folded.startsWith(foldedPrefix);
    });
    return {first, last};
}

int NameMatcherImpl::boundedDistance(const QString& a, const QString& b, int bound, std::vector<int>& scratch)
{
    const int na = a.size();
    const int nb = b.size();
    if (bound < 0)
        bound = std::max(na, nb);
    if (std::abs(na - nb) > bound)
        return bound + 1;
    const int far = bound + 1;
    const size_t width = size_t(nb) + 1;
    scratch.assign(3 * width, far);
    int* older = scratch.data();          // row i - 2
    int* previous = older + width;        // row i - 1
    int* current = previous + width;      // row i
    for (int j = 0; j <= std::min(nb, bound); ++j)
        previous[j] = j;
    const QChar* ca = a.constData();
    const QChar* cb = b.constData();
    for (int i = 1; i <= na; ++i) {
        const int low = std::max(1, i - bound);
        const int high = std::min(nb, i + bound);
        std::fill(current, current + width, far);
        current[0] = i <= bound ? i : far;
        int rowBest = current[0];
        for (int j = low; j <= high; ++j) {
            const int substitution = previous[j - 1] + (ca[i - 1] == cb[j - 1] ? 0 : 1);
            int value = std::min({previous[j] + 1, current[j - 1] + 1, substitution});
            if (i > 1 && j > 1 && ca[i - 1] == cb[j - 2] && ca[i - 2] == cb[j - 1])
                value = std::min(value, older[j - 2] + 1);
            current[j] = std::min(value, far);
            rowBest = std::min(rowBest, current[j]);
        }
        if (rowBest > bound)
            return far;
        std::swap(older, previous);
        std::swap(previous, current);
    }
    return std::min(previous[nb], far);
}

NameMatcher::Match NameMatcher::match(const QString& query, const QString& text)
{
    const QString q = query.toCaseFolded();
    const QString t = text.toCaseFolded();
    Match result;
    if (q == t) {
        result.kind = Exact;
        return result;
    }
    if (t.startsWith(q)) {
        result.kind = Prefix;
        result.penalty = int(t.size() - q.size());
        return result;
    }
    // Folding keeps the length of every text Qt folds; should it ever not, word starts are
    // taken from the folded text, which loses only the camel-case rule.
    const int wordPenalty = WordStartSearch(q, t, wordStarts(t.size() == text.size() ? text : t)).penalty();
    if (wordPenalty < kUnreachable) {
        result.kind = WordStart;
        result.penalty = wordPenalty;
        return result;
    }
    const int gapPenalty = subsequencePenalty(q, t);
    if (gapPenalty < kUnreachable) {
        result.kind = Subsequence;
        result.penalty = gapPenalty;
    }
    return result;
}

int NameMatcher::distance(const QString& a, const QString& b, int bound)
{
    std::vector<int> scratch;
    return NameMatcherImpl::boundedDistance(a.toCaseFolded(), b.toCaseFolded(), bound, scratch);
}

NameMatcher::NameMatcher()
    : d(new NameMatcherImpl(this))
{
}

NameMatcher::NameMatcher(const QStringList& names)
    : NameMatcher()
{
    setNames(names);
}

NameMatcher::NameMatcher(const NameMatcher& other)
    : NameMatcher()
{
    d->entries = other.d->entries;
}

NameMatcher& NameMatcher::operator=(const NameMatcher& other)
{
    d->entries = other.d->entries;
    return *this;
}

NameMatcher::~NameMatcher()
{
    delete d;
}

void NameMatcher::setNames(const QStringList& names)
{
    std::vector<NameMatcherImpl::Entry> entries;
    entries.reserve(size_t(names.size()));
    for (const QString& name : names) {
        if (!name.isEmpty())
            entries.push_back({name.toCaseFolded(), name});
    }
    // A stable sort keeps the first spelling of each folded form in front of its later ones.
    std::stable_sort(entries.begin(), entries.end(),
                     [](const NameMatcherImpl::Entry& a, const NameMatcherImpl::Entry& b) { return a.folded < b.folded; });
    entries.erase(std::unique(entries.begin(), entries.end(),
                              [](const NameMatcherImpl::Entry& a, const NameMatcherImpl::Entry& b) {
                                  return a.folded == b.folded;
                              }),
                  entries.end());
    d->entries = std::move(entries);
}

QStringList NameMatcher::names() const
{
    QStringList result;
    result.reserve(int(d->entries.size()));
    for (const NameMatcherImpl::Entry& entry : d->entries)
        result.append(entry.name);
    return result;
}

int NameMatcher::count() const
{
    return int(d->entries.size());
}

bool NameMatcher::contains(const QString& name) const
{
    return !find(name).isNull();
}

QString NameMatcher::find(const QString& name) const
{
    const QString folded = name.toCaseFolded();
    const auto range = d->prefixRange(folded);
    if (range.first != range.second && range.first->folded == folded)
        return range.first->name;
    return QString();
}

QStringList NameMatcher::complete(const QString& prefix, int limit) const
{
    const auto range = d->prefixRange(prefix.toCaseFolded());
    QStringList result;
    for (auto it = range.first; it != range.second && (limit < 0 || result.size() < limit); ++it)
        result.append(it->name);
    return result;
}

int NameMatcher::completionCount(const QString& prefix) const
{
    const auto range = d->prefixRange(prefix.toCaseFolded());
    return int(range.second - range.first);
}

QString NameMatcher::commonPrefix(const QString& prefix) const
{
    const auto range = d->prefixRange(prefix.toCaseFolded());
    if (range.first == range.second)
        return QString();
    // In sorted order, what the first and the last completion share, all of them share.
    const QString& first = range.first->folded;
    const QString& last = (range.second - 1)->folded;
    int length = 0;
    while (length < first.size() && length < last.size() && first.at(length) == last.at(length))
        ++length;
    return range.first->name.left(length);
}

QStringList NameMatcher::suggest(const QString& name, int limit) const
{
    const QString folded = name.toCaseFolded();
    const int bound = suggestionBound(folded.size());
    // One list per distance keeps the sorted order inside each distance without sorting.
    std::vector<std::vector<const NameMatcherImpl::Entry*>> byDistance(size_t(bound) + 1);
    std::vector<int> scratch;
    for (const NameMatcherImpl::Entry& entry : d->entries) {
        const int distance = NameMatcherImpl::boundedDistance(folded, entry.folded, bound, scratch);
        if (distance <= bound)
            byDistance[size_t(distance)].push_back(&entry);
    }
    QStringList result;
    for (const auto& entries : byDistance) {
        for (const NameMatcherImpl::Entry* entry : entries) {
            if (result.size() >= limit)
                return result;
            result.append(entry->name);
        }
    }
    return result;
}

CS_END_NAMESPACE
