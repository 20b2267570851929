#include <CommandSystem/NameMatcher.h>

#include <QtTest>

#include <algorithm>

using namespace Talvir::Vexa::Cs;

Q_DECLARE_METATYPE(NameMatcher::MatchKind)

namespace {

const QStringList& commandNames()
{
    static const QStringList names{QStringLiteral("line"), QStringLiteral("list"), QStringLiteral("layer"),
                                   QStringLiteral("LINETYPE"), QStringLiteral("l"), QStringLiteral("zoom"),
                                   QStringLiteral("z"), QStringLiteral("ltscale")};
    return names;
}

const QStringList& drawingNames()
{
    static const QStringList names{QStringLiteral("line"), QStringLiteral("circle"), QStringLiteral("arc"),
                                   QStringLiteral("polyline"), QStringLiteral("rectangle"), QStringLiteral("erase"),
                                   QStringLiteral("move"), QStringLiteral("copy"), QStringLiteral("rotate"),
                                   QStringLiteral("zoom"), QStringLiteral("lines"), QStringLiteral("lane"),
                                   QStringLiteral("fine")};
    return names;
}

} // namespace

class tst_NameMatcher : public QObject
{
    Q_OBJECT

private slots:
    void match_data();
    void match();
    void matchKindsAreOrderedByQuality();
    void rankingIsStableForTies();
    void distance_data();
    void distance();
    void namesAreSortedFoldedAndUnique();
    void find_data();
    void find();
    void complete_data();
    void complete();
    void completeAgreesWithFilter();
    void commonPrefix_data();
    void commonPrefix();
    void suggest_data();
    void suggest();
    void emptyIndex();
    void copiesAreIndependent();
};

void tst_NameMatcher::match_data()
{
    QTest::addColumn<QString>("query");
    QTest::addColumn<QString>("text");
    QTest::addColumn<NameMatcher::MatchKind>("kind");
    QTest::addColumn<int>("penalty");

    QTest::newRow("exact") << "line" << "line" << NameMatcher::Exact << 0;
    QTest::newRow("exact, other case") << "LINE" << "line" << NameMatcher::Exact << 0;
    QTest::newRow("exact, non-ASCII") << QString::fromUtf8("ÄRGER") << QString::fromUtf8("ärger")
                                      << NameMatcher::Exact << 0;
    QTest::newRow("empty query, empty text") << "" << "" << NameMatcher::Exact << 0;
    QTest::newRow("empty query") << "" << "line" << NameMatcher::Prefix << 4;
    QTest::newRow("prefix") << "li" << "line" << NameMatcher::Prefix << 2;
    QTest::newRow("prefix, mixed case") << "Li" << "LINE" << NameMatcher::Prefix << 2;
    QTest::newRow("prefix across camel case") << "ZoomW" << "zoomWindow" << NameMatcher::Prefix << 5;
    QTest::newRow("later word") << "win" << "zoom window" << NameMatcher::WordStart << 5;
    QTest::newRow("later camel-case word") << "window" << "zoomWindow" << NameMatcher::WordStart << 4;
    QTest::newRow("later word after underscore") << "rect" << "draw_rectangle" << NameMatcher::WordStart << 5;
    QTest::newRow("initials") << "zw" << "zoom window" << NameMatcher::WordStart << 4;
    QTest::newRow("word prefixes") << "zowi" << "zoom window" << NameMatcher::WordStart << 3;
    QTest::newRow("camel-case initials") << "dl" << "DimLinear" << NameMatcher::WordStart << 2;
    QTest::newRow("camel-case word") << "lin" << "DimLinear" << NameMatcher::WordStart << 3;
    QTest::newRow("initials need words") << "dl" << "dimlinear" << NameMatcher::Subsequence << 2;
    QTest::newRow("subsequence, best start") << "ce" << "circle" << NameMatcher::Subsequence << 4;
    QTest::newRow("subsequence") << "crl" << "circle" << NameMatcher::Subsequence << 2;
    QTest::newRow("subsequence, closer later") << "ow" << "zoomWindow" << NameMatcher::Subsequence << 3;
    QTest::newRow("digit is not a word start") << "2p" << "circle2p" << NameMatcher::Subsequence << 6;
    QTest::newRow("missing letter") << "xyz" << "line" << NameMatcher::NoMatch << 0;
    QTest::newRow("longer than text") << "lines" << "line" << NameMatcher::NoMatch << 0;
    QTest::newRow("wrong order") << "enil" << "line" << NameMatcher::NoMatch << 0;
    QTest::newRow("separator not in text") << "zoom_w" << "zoom window" << NameMatcher::NoMatch << 0;
}

void tst_NameMatcher::match()
{
    QFETCH(QString, query);
    QFETCH(QString, text);
    QFETCH(NameMatcher::MatchKind, kind);
    QFETCH(int, penalty);
    const NameMatcher::Match result = NameMatcher::match(query, text);
    QCOMPARE(result.kind, kind);
    QCOMPARE(result.penalty, penalty);
    QCOMPARE(result.isMatch(), kind != NameMatcher::NoMatch);
}

void tst_NameMatcher::matchKindsAreOrderedByQuality()
{
    QVERIFY(NameMatcher::NoMatch < NameMatcher::Subsequence);
    QVERIFY(NameMatcher::Subsequence < NameMatcher::WordStart);
    QVERIFY(NameMatcher::WordStart < NameMatcher::Prefix);
    QVERIFY(NameMatcher::Prefix < NameMatcher::Exact);
    const NameMatcher::Match prefix{NameMatcher::Prefix, 9};
    const NameMatcher::Match word{NameMatcher::WordStart, 0};
    const NameMatcher::Match shortPrefix{NameMatcher::Prefix, 1};
    QVERIFY(prefix.isBetterThan(word));
    QVERIFY(!word.isBetterThan(prefix));
    QVERIFY(shortPrefix.isBetterThan(prefix));
    QVERIFY(!prefix.isBetterThan(prefix));
}

void tst_NameMatcher::rankingIsStableForTies()
{
    QStringList texts{QStringLiteral("polyline"), QStringLiteral("list"), QStringLiteral("xyz"),
                      QStringLiteral("line"), QStringLiteral("li"), QStringLiteral("dimlinear"),
                      QStringLiteral("DimLinear"), QStringLiteral("slice")};
    const QString query = QStringLiteral("LI");
    texts.erase(std::remove_if(texts.begin(), texts.end(),
                               [&](const QString& text) { return !NameMatcher::match(query, text).isMatch(); }),
                texts.end());
    std::stable_sort(texts.begin(), texts.end(), [&](const QString& a, const QString& b) {
        return NameMatcher::match(query, a).isBetterThan(NameMatcher::match(query, b));
    });
    QCOMPARE(texts, (QStringList{QStringLiteral("li"), QStringLiteral("list"), QStringLiteral("line"),
                                 QStringLiteral("DimLinear"), QStringLiteral("slice"), QStringLiteral("dimlinear"),
                                 QStringLiteral("polyline")}));
}

void tst_NameMatcher::distance_data()
{
    QTest::addColumn<QString>("a");
    QTest::addColumn<QString>("b");
    QTest::addColumn<int>("bound");
    QTest::addColumn<int>("expected");

    QTest::newRow("equal") << "line" << "line" << -1 << 0;
    QTest::newRow("case only") << "line" << "LINE" << -1 << 0;
    QTest::newRow("swap") << "lnie" << "line" << -1 << 1;
    QTest::newRow("swap at end") << "circel" << "circle" << -1 << 1;
    QTest::newRow("deletion") << "cirle" << "circle" << -1 << 1;
    QTest::newRow("insertion") << "circlle" << "circle" << -1 << 1;
    QTest::newRow("substitution") << "cirkle" << "circle" << -1 << 1;
    QTest::newRow("classic") << "kitten" << "sitting" << -1 << 3;
    QTest::newRow("from empty") << "" << "abc" << -1 << 3;
    QTest::newRow("to empty") << "abc" << "" << -1 << 3;
    QTest::newRow("swapped pair not edited again") << "ca" << "abc" << -1 << 3;
    QTest::newRow("within bound") << "kitten" << "sitting" << 3 << 3;
    QTest::newRow("beyond bound") << "kitten" << "sitting" << 2 << 3;
    QTest::newRow("lengths beyond bound") << "a" << "abcdef" << 2 << 3;
    QTest::newRow("zero bound, equal") << "Zoom" << "zoom" << 0 << 0;
    QTest::newRow("zero bound, different") << "zoom" << "zoon" << 0 << 1;
}

void tst_NameMatcher::distance()
{
    QFETCH(QString, a);
    QFETCH(QString, b);
    QFETCH(int, bound);
    QFETCH(int, expected);
    QCOMPARE(NameMatcher::distance(a, b, bound), expected);
    QCOMPARE(NameMatcher::distance(b, a, bound), expected);
}

void tst_NameMatcher::namesAreSortedFoldedAndUnique()
{
    const NameMatcher matcher({QStringLiteral("Zoom"), QStringLiteral("line"), QStringLiteral("LINE"),
                               QStringLiteral("arc"), QString(), QStringLiteral("Line2")});
    QCOMPARE(matcher.names(), (QStringList{QStringLiteral("arc"), QStringLiteral("line"), QStringLiteral("Line2"),
                                           QStringLiteral("Zoom")}));
    QCOMPARE(matcher.count(), 4);
}

void tst_NameMatcher::find_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("found");
    QTest::newRow("as indexed") << "line" << "line";
    QTest::newRow("other case") << "LiNe" << "line";
    QTest::newRow("indexed in capitals") << "linetype" << "LINETYPE";
    QTest::newRow("single letter") << "L" << "l";
    QTest::newRow("prefix only") << "lin" << QString();
    QTest::newRow("longer") << "lines" << QString();
    QTest::newRow("empty") << "" << QString();
}

void tst_NameMatcher::find()
{
    QFETCH(QString, name);
    QFETCH(QString, found);
    const NameMatcher matcher(commandNames());
    QCOMPARE(matcher.find(name), found);
    QCOMPARE(matcher.find(name).isNull(), found.isNull());
    QCOMPARE(matcher.contains(name), !found.isNull());
}

void tst_NameMatcher::complete_data()
{
    QTest::addColumn<QString>("prefix");
    QTest::addColumn<int>("limit");
    QTest::addColumn<QStringList>("expected");
    QTest::newRow("l") << "l" << -1
                       << QStringList{"l", "layer", "line", "LINETYPE", "list", "ltscale"};
    QTest::newRow("LI") << "LI" << -1 << QStringList{"line", "LINETYPE", "list"};
    QTest::newRow("limit") << "li" << 2 << QStringList{"line", "LINETYPE"};
    QTest::newRow("zero limit") << "li" << 0 << QStringList{};
    QTest::newRow("whole name") << "zoom" << -1 << QStringList{"zoom"};
    QTest::newRow("nothing") << "q" << -1 << QStringList{};
    QTest::newRow("past the end") << "zz" << -1 << QStringList{};
    QTest::newRow("before the start") << "a" << -1 << QStringList{};
    QTest::newRow("empty") << "" << -1
                           << QStringList{"l", "layer", "line", "LINETYPE", "list", "ltscale", "z", "zoom"};
}

void tst_NameMatcher::complete()
{
    QFETCH(QString, prefix);
    QFETCH(int, limit);
    QFETCH(QStringList, expected);
    const NameMatcher matcher(commandNames());
    QCOMPARE(matcher.complete(prefix, limit), expected);
    if (limit < 0)
        QCOMPARE(matcher.completionCount(prefix), int(expected.size()));
}

// Binary search against the plain scan it replaces, over many names with shared prefixes.
void tst_NameMatcher::completeAgreesWithFilter()
{
    QStringList names;
    const QString letters = QStringLiteral("abcXyz");
    for (int i = 0; i < 1500; ++i) {
        QString name;
        for (int n = i; name.size() < 2 + i % 5; n = n / letters.size() + 7)
            name.append(letters.at(n % letters.size()));
        names.append(name);
    }
    const NameMatcher matcher(names);
    for (const QString& prefix : {QStringLiteral("a"), QStringLiteral("X"), QStringLiteral("bY"),
                                  QStringLiteral("zza"), QStringLiteral("cab"), QStringLiteral("q")}) {
        QStringList expected;
        for (const QString& name : matcher.names()) {
            if (name.startsWith(prefix, Qt::CaseInsensitive))
                expected.append(name);
        }
        QCOMPARE(matcher.complete(prefix), expected);
    }
}

void tst_NameMatcher::commonPrefix_data()
{
    QTest::addColumn<QString>("prefix");
    QTest::addColumn<QString>("expected");
    QTest::newRow("shared by three") << "li" << "li";
    QTest::newRow("extends") << "lin" << "line";
    QTest::newRow("one completion, its spelling") << "LINET" << "LINETYPE";
    QTest::newRow("name and longer name") << "z" << "z";
    QTest::newRow("nothing") << "q" << QString();
}

void tst_NameMatcher::commonPrefix()
{
    QFETCH(QString, prefix);
    QFETCH(QString, expected);
    const NameMatcher matcher(commandNames());
    QCOMPARE(matcher.commonPrefix(prefix), expected);
    QCOMPARE(matcher.commonPrefix(prefix).isNull(), expected.isNull());
}

void tst_NameMatcher::suggest_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("limit");
    QTest::addColumn<QStringList>("expected");
    QTest::newRow("missing letter") << "cirle" << 5 << QStringList{"circle"};
    QTest::newRow("swapped letters") << "lnie" << 5 << QStringList{"line"};
    QTest::newRow("capitals") << "CIRCEL" << 5 << QStringList{"circle"};
    QTest::newRow("long name, one off") << "rectangel" << 5 << QStringList{"rectangle"};
    QTest::newRow("swap, eight letters") << "polylien" << 5 << QStringList{"polyline"};
    QTest::newRow("short name, swap") << "mvoe" << 5 << QStringList{"move"};
    QTest::newRow("nothing near") << "xyzzy" << 5 << QStringList{};
    QTest::newRow("known name first, then sorted") << "line" << 5 << QStringList{"line", "fine", "lane", "lines"};
    QTest::newRow("limit") << "line" << 2 << QStringList{"line", "fine"};
    QTest::newRow("two off beyond a short bound") << "cpoi" << 5 << QStringList{};
}

void tst_NameMatcher::suggest()
{
    QFETCH(QString, name);
    QFETCH(int, limit);
    QFETCH(QStringList, expected);
    const NameMatcher matcher(drawingNames());
    QCOMPARE(matcher.suggest(name, limit), expected);
}

void tst_NameMatcher::emptyIndex()
{
    const NameMatcher matcher;
    QCOMPARE(matcher.count(), 0);
    QVERIFY(matcher.names().isEmpty());
    QVERIFY(matcher.complete(QString()).isEmpty());
    QVERIFY(matcher.commonPrefix(QString()).isNull());
    QVERIFY(matcher.suggest(QStringLiteral("line")).isEmpty());
    QVERIFY(!matcher.contains(QStringLiteral("line")));
}

void tst_NameMatcher::copiesAreIndependent()
{
    NameMatcher original({QStringLiteral("line"), QStringLiteral("arc")});
    NameMatcher copy(original);
    NameMatcher assigned;
    assigned = original;
    original.setNames({QStringLiteral("zoom")});
    QCOMPARE(copy.names(), (QStringList{QStringLiteral("arc"), QStringLiteral("line")}));
    QCOMPARE(assigned.names(), (QStringList{QStringLiteral("arc"), QStringLiteral("line")}));
    QCOMPARE(original.names(), QStringList{QStringLiteral("zoom")});
}

QTEST_APPLESS_MAIN(tst_NameMatcher)
#include "tst_namematcher.moc"
