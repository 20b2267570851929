#ifndef COMMANDSYSTEM_NAMEMATCHER_H
#define COMMANDSYSTEM_NAMEMATCHER_H

#include <CommandSystem/Global.h>

#include <QString>
#include <QStringList>

CS_BEGIN_NAMESPACE

class NameMatcherImpl;

/**
 * \brief The library's one place of name matching: ranking a query against a text, and an
 * index over a set of names (commands and aliases) for completion and "did you mean".
 *
 * Every comparison is case-insensitive: texts are compared in their case-folded form
 * (QString::toCaseFolded()), so "LINE", "Line" and "line" are one name.
 *
 * The static function match() ranks how well a query fits one text, for searching lists of
 * commands. An instance of NameMatcher is an index: setNames() keeps the names sorted by their
 * folded form, complete() finds every name that starts with a prefix by binary search, and
 * suggest() finds the names within a small edit distance of a name that was not found.
 *
 * NameMatcher is a value: copies are independent. It is not a QObject and has no signals. The
 * const functions may be called from several threads at once; setNames() and assignment must not
 * run at the same time as any other call on the same object.
 */
class COMMANDSYSTEM_EXPORT NameMatcher
{
public:
    /**
     * \brief How a query matches a text, from worst to best. The numeric order is the quality
     * order, so kinds may be compared with < and >.
     */
    enum MatchKind {
        NoMatch = 0,     ///< Some character of the query is not found in order in the text.
        Subsequence = 1, ///< The query's characters appear in the text in order, with gaps.
        WordStart = 2,   ///< The query is made of prefixes of the text's words, in order: a later
                         ///< word's start ("win" in "zoom window") or initials ("zw", "dimL").
        Prefix = 3,      ///< The text starts with the query and is longer.
        Exact = 4        ///< The text equals the query.
    };

    /**
     * \brief The result of match(): the kind and, among matches of one kind, a penalty.
     *
     * The penalty counts the text's characters that the match passes over, lower is better:
     * for Exact it is 0; for Prefix the characters after the query; for WordStart and
     * Subsequence the characters before the first matched one plus those skipped between the
     * first and the last matched one (the smallest such count over all ways the query fits).
     * For NoMatch it is 0.
     */
    struct Match {
        MatchKind kind = NoMatch; ///< How the query matched.
        int penalty = 0;          ///< Characters passed over; lower is better within one kind.

        /** \brief Whether the query matched at all. \return true unless kind is NoMatch. */
        bool isMatch() const { return kind != NoMatch; }
        /**
         * \brief Whether this match ranks before \a other.
         * \param other The match to compare with.
         * \return true for a better kind, or the same kind with a lower penalty. Equal matches
         * are not better than each other, so a stable sort with this order keeps ties in their
         * original order.
         */
        bool isBetterThan(const Match& other) const
        {
            return kind != other.kind ? kind > other.kind : penalty < other.penalty;
        }
    };

    /**
     * \brief Ranks how \a query matches \a text, case-insensitively.
     * \param query What the user typed.
     * \param text The name to rank.
     * \return The kind of match and its penalty.
     *
     * Words of \a text start at its first character, after any character that is not a letter
     * or digit (blank, "_", "-", "." ...), and at an upper-case letter that follows a lower-case
     * one ("zoomWindow" has the words zoom and Window). An empty query matches every text as a
     * Prefix (Exact for an empty text), with the text's length as penalty.
     */
    static Match match(const QString& query, const QString& text);

    /**
     * \brief The edit distance between \a a and \a b, case-insensitively: the fewest single
     * character insertions, deletions, substitutions and swaps of two neighbouring characters
     * that turn one into the other, where a swapped pair is not edited again (so "ca" is 3
     * edits from "abc"). When the distance exceeds \a bound, returns \a bound + 1 without
     * computing it further; a negative bound means no bound.
     * \param a One text.
     * \param b The other text.
     * \param bound The largest distance of interest, or a negative number for any.
     * \return The distance, or \a bound + 1 when it is larger than \a bound.
     */
    static int distance(const QString& a, const QString& b, int bound = -1);

    /** \brief Creates an empty index. */
    NameMatcher();
    /** \brief Creates an index over \a names, as setNames() does. \param names The names. */
    explicit NameMatcher(const QStringList& names);
    /** \brief Copies the index of \a other. \param other The index to copy. */
    NameMatcher(const NameMatcher& other);
    /**
     * \brief Replaces this index by a copy of \a other's.
     * \param other The index to copy.
     * \return This index.
     */
    NameMatcher& operator=(const NameMatcher& other);
    /** \brief Destroys the index. */
    ~NameMatcher();

    /**
     * \brief Replaces the indexed names by \a names.
     *
     * Empty names are left out. Names that are equal case-insensitively are kept once, as the
     * first of them in \a names is spelt. The names are sorted by their folded form, compared
     * by UTF-16 code units.
     * \param names The names to index, in any order.
     */
    void setNames(const QStringList& names);
    /** \brief The indexed names. \return The names in their sorted order, spelt as given. */
    QStringList names() const;
    /** \brief The size of the index. \return The number of indexed names. */
    int count() const;

    /**
     * \brief Whether \a name is indexed, case-insensitively.
     * \param name The name to look up.
     * \return true when it is indexed.
     */
    bool contains(const QString& name) const;
    /**
     * \brief Looks up \a name case-insensitively.
     * \param name The name to look up.
     * \return The indexed spelling of \a name, or a null QString when it is not indexed.
     */
    QString find(const QString& name) const;

    /**
     * \brief Completes \a prefix. Costs a binary search plus the names returned.
     * \param prefix What was typed; an empty prefix gives every name.
     * \param limit The most names to return, or a negative number for all.
     * \return The indexed names that start with \a prefix, case-insensitively, in sorted order.
     */
    QStringList complete(const QString& prefix, int limit = -1) const;
    /**
     * \brief Counts the completions of \a prefix by two binary searches.
     * \param prefix What was typed.
     * \return The number of indexed names that start with \a prefix, case-insensitively.
     */
    int completionCount(const QString& prefix) const;
    /**
     * \brief How far Tab can extend \a prefix without choosing between names.
     * \param prefix What was typed.
     * \return The longest text that every completion of \a prefix starts with
     * (case-insensitively), spelt as the first completion spells it, or a null QString when
     * nothing completes \a prefix.
     */
    QString commonPrefix(const QString& prefix) const;

    /**
     * \brief "Did you mean" suggestions for \a name: the indexed names within a small edit
     * distance of it, best first.
     *
     * The distance allowed grows with the length of \a name: 1 up to four characters, 2 up to
     * eight, 3 beyond. Names closer to \a name come first; names at the same distance keep their
     * sorted order. At most \a limit names are returned. An indexed name equal to \a name
     * (distance 0) is among them.
     * \param name The name that was not found.
     * \param limit The most names to return.
     * \return The suggestions, best first.
     */
    QStringList suggest(const QString& name, int limit = 5) const;

private:
    NameMatcherImpl* d;
};

CS_END_NAMESPACE

#endif
