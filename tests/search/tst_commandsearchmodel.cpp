#include <CommandSystem/Action.h>
#include <CommandSystem/ActionPool.h>
#include <CommandSystem/AliasTable.h>
#include <CommandSystem/CommandSearchModel.h>
#include <CommandSystem/Keymap.h>
#include <CommandSystem/NameMatcher.h>
#include <CommandSystem/TemplatePool.h>

#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>

using namespace Talvir::Vexa::Cs;

namespace {

QString catalogue(const char* path)
{
    return QStringLiteral(CATALOGUE_DIR "/") + QLatin1String(path);
}

Action* addAction(ActionPool& pool, const QString& name, const QString& ribbon, const QString& script,
                  const QString& hint = QString())
{
    Action* action = pool.insertAction(name);
    action->setRibbonText(ribbon);
    action->setScript(script);
    action->setHint(hint);
    return action;
}

QStringList namesOf(const CommandSearchModel& model)
{
    QStringList names;
    for (int row = 0; row < model.rowCount(); ++row)
        names.append(model.index(row, CommandSearchModel::NameColumn).data().toString());
    return names;
}

} // namespace

class tst_CommandSearchModel : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void passesTheModelTester();
    void catalogueRanking_data();
    void catalogueRanking();
    void rankingEqualsAskingEveryText_data();
    void rankingEqualsAskingEveryText();
    void columnsAndRolesOfARow();
    void headersAndFlags();
    void emptyQueryShowsEveryActionInNameOrder();
    void kindsRankBeforeTexts();
    void primaryTextsRankBeforeSecondary();
    void secondaryTextsNeedAWordStart();
    void tiesKeepNameOrder();
    void aliasesFromPlainDataOrATable();
    void followsShortcutChangesInPlace();
    void rerankedChangeResetsTheModel();
    void destroyedActionLeaves();
    void refreshSeesNewActions();

private:
    std::unique_ptr<ActionPool> m_pool;
    std::unique_ptr<TemplatePool> m_templates;
    AliasTable m_aliases;
};

// The example catalogue, as Sketchpad loads it: UI files, their default shortcuts, the
// templates and the aliases.
void tst_CommandSearchModel::initTestCase()
{
    m_pool.reset(ActionPool::fromFolder(catalogue("ui")));
    QVERIFY(m_pool->actions().size() > 50);
    Keymap defaults;
    QVERIFY2(defaults.load(catalogue("ui/default.keymap")), qPrintable(defaults.errorString()));
    QVERIFY(defaults.applyTo(*m_pool).isEmpty());
    m_templates = std::make_unique<TemplatePool>();
    QVERIFY(m_templates->appendDirectory(catalogue("templates")));
    QVERIFY(m_templates->appendDirectory(catalogue("templates/view")));
    m_templates->load();
    QVERIFY(m_aliases.load(catalogue("commands.aliases")));
}

void tst_CommandSearchModel::passesTheModelTester()
{
    ActionPool pool;
    for (const QString& name : {QStringLiteral("ID_LINE"), QStringLiteral("ID_CIRCLE"), QStringLiteral("ID_GRID")})
        addAction(pool, name, name.mid(3).toLower(), name.mid(3).toLower());
    CommandSearchModel model(&pool);
    QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
    model.setTemplatePool(m_templates.get());
    model.setAliases(m_aliases);
    for (const char* query : {"l", "li", "line", "", "xyz", "c", "ID"})
        model.setQuery(QString::fromLatin1(query));
    model.setQuery(QStringLiteral("ctrl"));
    pool.action(QStringLiteral("ID_GRID"))->setShortcut(QKeySequence(QStringLiteral("Ctrl+G")));
    pool.action(QStringLiteral("ID_LINE"))->setShortcut(QKeySequence(QStringLiteral("F2")));
    pool.action(QStringLiteral("ID_CIRCLE"))->setEnabled(false);
    model.setQuery(QString());
    pool.action(QStringLiteral("ID_CIRCLE"))->setMenuText(QStringLiteral("&Circle"));
    addAction(pool, QStringLiteral("ID_ARC"), QStringLiteral("Arc"), QStringLiteral("arc"));
    model.refresh();
    delete pool.removeAction(QStringLiteral("ID_LINE"));
    QCOMPARE(model.rowCount(), 3);
}

void tst_CommandSearchModel::catalogueRanking_data()
{
    QTest::addColumn<QString>("query");
    QTest::addColumn<QStringList>("top");
    QTest::addColumn<int>("kind");
    const auto row = [](const char* query, QStringList top, NameMatcher::MatchKind kind) {
        QTest::newRow(query) << QString::fromUtf8(query) << top << int(kind);
    };
    row("rectang", {QStringLiteral("ID_DRAW_RECTANGLE")}, NameMatcher::Prefix);
    row("Rectangle", {QStringLiteral("ID_DRAW_RECTANGLE")}, NameMatcher::Exact);
    row("line", {QStringLiteral("ID_DRAW_LINE")}, NameMatcher::Exact);
    row("l", {QStringLiteral("ID_DRAW_LINE")}, NameMatcher::Exact);
    row("u", {QStringLiteral("ID_EDIT_UNDO")}, NameMatcher::Exact);
    row("zw", {QStringLiteral("ID_VIEW_ZOOMWINDOW")}, NameMatcher::WordStart);
    row("circle", {QStringLiteral("ID_DRAW_CIRCLE"), QStringLiteral("ID_DRAW_CIRCLE2P")}, NameMatcher::Exact);
    row("rctngl", {QStringLiteral("ID_DRAW_RECTANGLE")}, NameMatcher::Subsequence);
    row("2p", {QStringLiteral("ID_DRAW_CIRCLE2P")}, NameMatcher::WordStart);
    row("dim", {QStringLiteral("ID_ANNOTATE_DIMLINEAR"), QStringLiteral("ID_ANNOTATE_DIMRADIUS")}, NameMatcher::Prefix);
    row("grid", {QStringLiteral("ID_VIEW_GRID"), QStringLiteral("ID_VIEW_GRIDSPACING")}, NameMatcher::Exact);
    row("ctrl+z", {QStringLiteral("ID_EDIT_UNDO")}, NameMatcher::Exact);
    row("measure area", {QStringLiteral("ID_TOOLS_AREA")}, NameMatcher::WordStart);
    row("DARK", {QStringLiteral("ID_VIEW_BACKGROUND")}, NameMatcher::Exact);
    row("snap to", {QStringLiteral("ID_VIEW_SNAP")}, NameMatcher::Prefix);
    row("modify/m", {QStringLiteral("ID_MODIFY_ARRAY"), QStringLiteral("ID_MODIFY_CHAMFER")}, NameMatcher::Prefix);
    row("corner diagonally", {QStringLiteral("ID_DRAW_RECTANGLE")}, NameMatcher::WordStart);
    row("xyzzy", {}, NameMatcher::NoMatch);
}

void tst_CommandSearchModel::catalogueRanking()
{
    QFETCH(QString, query);
    QFETCH(QStringList, top);
    QFETCH(int, kind);
    CommandSearchModel model(m_pool.get());
    model.setTemplatePool(m_templates.get());
    model.setAliases(m_aliases);
    model.setQuery(query);
    QCOMPARE(model.query(), query);
    QCOMPARE(namesOf(model).mid(0, top.size()), top);
    if (top.isEmpty()) {
        QCOMPARE(model.rowCount(), 0);
        return;
    }
    QCOMPARE(model.index(0, 0).data(CommandSearchModel::MatchKindRole).toInt(), kind);
    // Rows are ordered by kind of match, best first.
    for (int row = 1; row < model.rowCount(); ++row)
        QVERIFY(model.index(row, 0).data(CommandSearchModel::MatchKindRole).toInt()
                <= model.index(row - 1, 0).data(CommandSearchModel::MatchKindRole).toInt());
}

void tst_CommandSearchModel::rankingEqualsAskingEveryText_data()
{
    QTest::addColumn<QString>("query");
    for (char letter = 'a'; letter <= 'z'; ++letter)
        QTest::newRow(QByteArray(1, letter).constData()) << QString(QLatin1Char(letter));
    for (const char* query : {"2", "id", "ID_", "zo", "zoom", "dr", "draw", "of", "ent", "crcl", "ln", "sp",
                              "ctrl", "f1", "home/", "point)", "lin", "dim", "cor", "x", "ls", "Ar", "e d"})
        QTest::newRow(query) << QString::fromLatin1(query);
}

// The model asks NameMatcher only about texts that can still improve a row's rank. Asking
// about every text of every action, by the rule the model documents, must give the same rows.
void tst_CommandSearchModel::rankingEqualsAskingEveryText()
{
    QFETCH(QString, query);
    CommandSearchModel model(m_pool.get());
    model.setTemplatePool(m_templates.get());
    model.setAliases(m_aliases);
    struct Expected {
        QString name;
        NameMatcher::Match match;
        bool primary;
    };
    QList<Expected> expected;
    for (int row = 0; row < model.rowCount(); ++row) {
        const auto text = [&model, row](int column) { return model.index(row, column).data().toString(); };
        QList<QPair<QString, bool>> texts;
        for (int column : {CommandSearchModel::NameColumn, CommandSearchModel::RibbonTextColumn,
                           CommandSearchModel::MenuTextColumn, CommandSearchModel::ScriptColumn})
            texts.append({text(column), true});
        for (const QString& alias : model.index(row, 0).data(CommandSearchModel::AliasesRole).toStringList())
            texts.append({alias, true});
        for (int column : {CommandSearchModel::HintColumn, CommandSearchModel::ShortcutColumn,
                           CommandSearchModel::FormColumn, CommandSearchModel::ParametersColumn})
            texts.append({text(column), false});
        Expected best{text(CommandSearchModel::NameColumn), NameMatcher::Match(), true};
        for (const auto& candidate : texts) {
            const NameMatcher::Match match = NameMatcher::match(query, candidate.first);
            if (candidate.first.isEmpty() || !match.isMatch() || (!candidate.second && match.kind < NameMatcher::WordStart))
                continue;
            const bool better = !best.match.isMatch() || match.kind > best.match.kind
                || (match.kind == best.match.kind
                    && (candidate.second != best.primary ? candidate.second
                                                         : match.penalty < best.match.penalty));
            if (better) {
                best.match = match;
                best.primary = candidate.second;
            }
        }
        if (best.match.isMatch())
            expected.append(best);
    }
    std::stable_sort(expected.begin(), expected.end(), [](const Expected& a, const Expected& b) {
        if (a.match.kind != b.match.kind)
            return a.match.kind > b.match.kind;
        if (a.primary != b.primary)
            return a.primary;
        return a.match.penalty < b.match.penalty;
    });
    model.setQuery(query);
    QStringList expectedNames;
    QList<int> expectedKinds;
    for (const Expected& row : expected) {
        expectedNames.append(row.name);
        expectedKinds.append(row.match.kind);
    }
    QList<int> kinds;
    for (int row = 0; row < model.rowCount(); ++row)
        kinds.append(model.index(row, 0).data(CommandSearchModel::MatchKindRole).toInt());
    QCOMPARE(namesOf(model), expectedNames);
    QCOMPARE(kinds, expectedKinds);
}

void tst_CommandSearchModel::columnsAndRolesOfARow()
{
    CommandSearchModel model(m_pool.get());
    model.setTemplatePool(m_templates.get());
    model.setAliases(m_aliases);
    const int row = model.rowOf(QStringLiteral("ID_DRAW_RECTANGLE"));
    QVERIFY(row >= 0);
    Action* action = model.action(row);
    QVERIFY(action);
    QCOMPARE(action->name(), QStringLiteral("ID_DRAW_RECTANGLE"));
    const auto cell = [&model, row](int column) { return model.index(row, column).data(); };
    QCOMPARE(cell(CommandSearchModel::TextColumn).toString(), QStringLiteral("Rectangle"));
    QCOMPARE(cell(CommandSearchModel::NameColumn).toString(), QStringLiteral("ID_DRAW_RECTANGLE"));
    QCOMPARE(cell(CommandSearchModel::RibbonTextColumn).toString(), QStringLiteral("Rectangle"));
    QCOMPARE(cell(CommandSearchModel::MenuTextColumn).toString(), QStringLiteral("Rectangle"));
    QCOMPARE(cell(CommandSearchModel::HintColumn).toString(), QStringLiteral("Draw a rectangle from two corners"));
    QCOMPARE(cell(CommandSearchModel::ScriptColumn).toString(), QStringLiteral("rectangle"));
    QCOMPARE(cell(CommandSearchModel::AliasesColumn).toString(), QStringLiteral("rec"));
    QCOMPARE(cell(CommandSearchModel::FormColumn).toString(), QStringLiteral("Home/Draw"));
    QCOMPARE(cell(CommandSearchModel::EnabledColumn).toBool(), true);
    QCOMPARE(cell(CommandSearchModel::ParametersColumn).toString(),
             QStringLiteral("One corner of the rectangle (point); The corner diagonally opposite the first one (point)"));
    const QModelIndex anyColumn = model.index(row, CommandSearchModel::HintColumn);
    QCOMPARE(anyColumn.data(CommandSearchModel::ActionRole).value<QObject*>(), static_cast<QObject*>(action));
    QCOMPARE(anyColumn.data(CommandSearchModel::NameRole).toString(), QStringLiteral("ID_DRAW_RECTANGLE"));
    QCOMPARE(anyColumn.data(CommandSearchModel::AliasesRole).toStringList(), QStringList(QStringLiteral("rec")));
    QCOMPARE(anyColumn.data(CommandSearchModel::ScriptRole).toString(), QStringLiteral("rectangle"));
    QCOMPARE(anyColumn.data(CommandSearchModel::EnabledRole).toBool(), true);
    QCOMPARE(model.index(row, 0).data(Qt::ToolTipRole).toString(), QStringLiteral("Draw a rectangle from two corners"));
    QVERIFY(!model.index(row, 0).data(Qt::DecorationRole).value<QIcon>().isNull() || action->icon().isNull());

    const int undo = model.rowOf(QStringLiteral("ID_EDIT_UNDO"));
    QCOMPARE(model.index(undo, CommandSearchModel::ShortcutColumn).data().toString(),
             QKeySequence(QStringLiteral("Ctrl+Z")).toString(QKeySequence::NativeText));
    QCOMPARE(model.index(undo, 0).data(CommandSearchModel::ShortcutRole).value<QKeySequence>(),
             QKeySequence(QStringLiteral("Ctrl+Z")));
    // A command without template has no summary; menu texts lose their mnemonics.
    const int quit = model.rowOf(QStringLiteral("ID_FILE_QUIT"));
    QCOMPARE(model.index(quit, CommandSearchModel::ParametersColumn).data().toString(), QString());
    QCOMPARE(model.index(quit, CommandSearchModel::MenuTextColumn).data().toString(), QStringLiteral("Exit"));
    QCOMPARE(model.index(quit, CommandSearchModel::TextColumn).data().toString(), QStringLiteral("Exit"));
    QCOMPARE(model.index(quit, CommandSearchModel::AliasesColumn).data().toString(), QString());
}

void tst_CommandSearchModel::headersAndFlags()
{
    ActionPool pool;
    addAction(pool, QStringLiteral("ID_A"), QStringLiteral("A"), QStringLiteral("a"));
    addAction(pool, QStringLiteral("ID_B"), QStringLiteral("B"), QStringLiteral("b"))->setEnabled(false);
    CommandSearchModel model(&pool);
    QCOMPARE(model.columnCount(), int(CommandSearchModel::ColumnCount));
    QStringList headers;
    for (int column = 0; column < model.columnCount(); ++column)
        headers.append(model.headerData(column, Qt::Horizontal).toString());
    QCOMPARE(headers, QStringList({QStringLiteral("Command"), QStringLiteral("Name"), QStringLiteral("Ribbon"),
                                   QStringLiteral("Menu"), QStringLiteral("Hint"), QStringLiteral("Script"),
                                   QStringLiteral("Aliases"), QStringLiteral("Shortcut"), QStringLiteral("Form"),
                                   QStringLiteral("Enabled"), QStringLiteral("Parameters")}));
    QVERIFY(!model.headerData(0, Qt::Vertical).isValid());
    QVERIFY(model.flags(model.index(0, 3)) & Qt::ItemIsEnabled);
    QVERIFY(model.flags(model.index(0, 3)) & Qt::ItemIsSelectable);
    QVERIFY(!(model.flags(model.index(1, 3)) & Qt::ItemIsEnabled));
    QVERIFY(!(model.flags(model.index(1, 3)) & Qt::ItemIsSelectable));
    QCOMPARE(model.index(1, CommandSearchModel::EnabledColumn).data().toBool(), false);
    QCOMPARE(model.roleNames().value(CommandSearchModel::ShortcutRole), QByteArray("shortcut"));
    QCOMPARE(model.rowCount(model.index(0, 0)), 0);
    QVERIFY(!model.action(2));
    QVERIFY(!model.action(-1));
    QCOMPARE(model.rowOf(QStringLiteral("ID_C")), -1);
}

void tst_CommandSearchModel::emptyQueryShowsEveryActionInNameOrder()
{
    CommandSearchModel model(m_pool.get());
    QStringList expected;
    for (const Action* action : m_pool->actions())
        expected.append(action->name());
    QCOMPARE(namesOf(model), expected);
    QSignalSpy changed(&model, &CommandSearchModel::queryChanged);
    model.setQuery(QStringLiteral("zz"));
    model.setQuery(QStringLiteral("zz"));
    model.setQuery(QString());
    QCOMPARE(changed.count(), 2);
    QCOMPARE(namesOf(model), expected);
    QCOMPARE(model.index(0, 0).data(CommandSearchModel::MatchKindRole).toInt(), int(NameMatcher::Prefix));
}

void tst_CommandSearchModel::kindsRankBeforeTexts()
{
    ActionPool pool;
    addAction(pool, QStringLiteral("ID_1"), QStringLiteral("Move all"), QStringLiteral("x"));       // subsequence of "mvl"?
    addAction(pool, QStringLiteral("ID_2"), QStringLiteral("Move Viewport Left"), QStringLiteral("y")); // word start
    addAction(pool, QStringLiteral("ID_3"), QStringLiteral("mvlist"), QStringLiteral("z"));           // prefix
    addAction(pool, QStringLiteral("ID_4"), QStringLiteral("MVL"), QStringLiteral("w"));              // exact
    addAction(pool, QStringLiteral("ID_5"), QStringLiteral("nothing"), QStringLiteral("v"));
    CommandSearchModel model(&pool);
    model.setQuery(QStringLiteral("mvl"));
    QCOMPARE(namesOf(model), QStringList({QStringLiteral("ID_4"), QStringLiteral("ID_3"), QStringLiteral("ID_2"), QStringLiteral("ID_1")}));
    QList<int> kinds;
    for (int row = 0; row < model.rowCount(); ++row)
        kinds.append(model.index(row, 0).data(CommandSearchModel::MatchKindRole).toInt());
    QCOMPARE(kinds, QList<int>({NameMatcher::Exact, NameMatcher::Prefix, NameMatcher::WordStart, NameMatcher::Subsequence}));
}

void tst_CommandSearchModel::primaryTextsRankBeforeSecondary()
{
    ActionPool pool;
    addAction(pool, QStringLiteral("ID_A"), QStringLiteral("Other"), QStringLiteral("other"), QStringLiteral("Offset lines"));
    addAction(pool, QStringLiteral("ID_B"), QStringLiteral("Offset"), QStringLiteral("offsetgap"));
    CommandSearchModel model(&pool);
    model.setQuery(QStringLiteral("offset"));
    // A's hint matches as a prefix with fewer characters left over than B's script, and
    // still ranks after B's ribbon text, an exact match.
    QCOMPARE(namesOf(model), QStringList({QStringLiteral("ID_B"), QStringLiteral("ID_A")}));
    model.setQuery(QStringLiteral("offs"));
    QCOMPARE(namesOf(model), QStringList({QStringLiteral("ID_B"), QStringLiteral("ID_A")}));
}

void tst_CommandSearchModel::secondaryTextsNeedAWordStart()
{
    ActionPool pool;
    addAction(pool, QStringLiteral("ID_A"), QStringLiteral("Alpha"), QStringLiteral("alpha"), QStringLiteral("quite verbose hint text"));
    CommandSearchModel model(&pool);
    model.setQuery(QStringLiteral("qvht"));
    QCOMPARE(namesOf(model), QStringList(QStringLiteral("ID_A")));
    model.setQuery(QStringLiteral("uieros"));
    QCOMPARE(model.rowCount(), 0);
    model.setQuery(QStringLiteral("lph"));
    QCOMPARE(namesOf(model), QStringList(QStringLiteral("ID_A")));
}

void tst_CommandSearchModel::tiesKeepNameOrder()
{
    ActionPool pool;
    for (const char* name : {"ID_C", "ID_A", "ID_D", "ID_B"})
        addAction(pool, QString::fromLatin1(name), QStringLiteral("Same"), QStringLiteral("same"));
    CommandSearchModel model(&pool);
    model.setQuery(QStringLiteral("sa"));
    QCOMPARE(namesOf(model), QStringList({QStringLiteral("ID_A"), QStringLiteral("ID_B"), QStringLiteral("ID_C"), QStringLiteral("ID_D")}));
}

void tst_CommandSearchModel::aliasesFromPlainDataOrATable()
{
    ActionPool pool;
    addAction(pool, QStringLiteral("ID_ZOOM_IN"), QStringLiteral("In"), QStringLiteral("zoom i"));
    addAction(pool, QStringLiteral("ID_LINE"), QStringLiteral("Line"), QStringLiteral("line"));
    CommandSearchModel model(&pool);
    model.setAliases(QMap<QString, QString>{{QStringLiteral("z"), QStringLiteral("ZOOM")},
                                            {QStringLiteral("zz"), QStringLiteral("zoom")},
                                            {QStringLiteral("l"), QStringLiteral("line")}});
    QCOMPARE(model.index(model.rowOf(QStringLiteral("ID_ZOOM_IN")), CommandSearchModel::AliasesColumn).data().toString(),
             QStringLiteral("z, zz"));
    model.setQuery(QStringLiteral("zz"));
    QCOMPARE(namesOf(model), QStringList(QStringLiteral("ID_ZOOM_IN")));
    QCOMPARE(model.index(0, 0).data(CommandSearchModel::MatchKindRole).toInt(), int(NameMatcher::Exact));
    AliasTable table;
    QVERIFY(table.loadText(QStringLiteral("ln line\n"), QStringLiteral("a.aliases")));
    model.setAliases(table);
    model.setQuery(QStringLiteral("ln"));
    QCOMPARE(namesOf(model), QStringList(QStringLiteral("ID_LINE")));
    QCOMPARE(model.index(0, CommandSearchModel::AliasesColumn).data().toString(), QStringLiteral("ln"));
}

void tst_CommandSearchModel::followsShortcutChangesInPlace()
{
    ActionPool pool;
    addAction(pool, QStringLiteral("ID_A"), QStringLiteral("Alpha"), QStringLiteral("alpha"));
    Action* beta = addAction(pool, QStringLiteral("ID_B"), QStringLiteral("Beta"), QStringLiteral("beta"));
    CommandSearchModel model(&pool);
    QSignalSpy dataChanged(&model, &QAbstractItemModel::dataChanged);
    QSignalSpy reset(&model, &QAbstractItemModel::modelReset);
    beta->setShortcut(QKeySequence(QStringLiteral("Ctrl+B")));
    QCOMPARE(reset.count(), 0);
    QCOMPARE(dataChanged.count(), 1);
    QCOMPARE(dataChanged.at(0).at(0).toModelIndex(), model.index(1, 0));
    QCOMPARE(dataChanged.at(0).at(1).toModelIndex(), model.index(1, CommandSearchModel::ColumnCount - 1));
    QCOMPARE(model.index(1, CommandSearchModel::ShortcutColumn).data().toString(),
             QKeySequence(QStringLiteral("Ctrl+B")).toString(QKeySequence::NativeText));
    beta->setEnabled(false);
    QCOMPARE(dataChanged.count(), 2);
    QCOMPARE(model.index(1, CommandSearchModel::EnabledColumn).data().toBool(), false);
    beta->setMenuText(QStringLiteral("&Bravo"));
    QCOMPARE(model.index(1, CommandSearchModel::TextColumn).data().toString(), QStringLiteral("Bravo"));
}

void tst_CommandSearchModel::rerankedChangeResetsTheModel()
{
    ActionPool pool;
    addAction(pool, QStringLiteral("ID_A"), QStringLiteral("Alpha"), QStringLiteral("alpha"));
    Action* beta = addAction(pool, QStringLiteral("ID_B"), QStringLiteral("Beta"), QStringLiteral("beta"));
    CommandSearchModel model(&pool);
    QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
    model.setQuery(QStringLiteral("bravo"));
    QCOMPARE(model.rowCount(), 0);
    QSignalSpy reset(&model, &QAbstractItemModel::modelReset);
    beta->setRibbonText(QStringLiteral("Bravo"));
    QCOMPARE(reset.count(), 1);
    QCOMPARE(namesOf(model), QStringList(QStringLiteral("ID_B")));
}

void tst_CommandSearchModel::destroyedActionLeaves()
{
    ActionPool pool;
    addAction(pool, QStringLiteral("ID_A"), QStringLiteral("Alpha"), QStringLiteral("alpha"));
    Action* beta = addAction(pool, QStringLiteral("ID_B"), QStringLiteral("Beta"), QStringLiteral("beta"));
    CommandSearchModel model(&pool);
    QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
    QCOMPARE(model.rowCount(), 2);
    pool.removeAction(beta);
    delete beta;
    QCOMPARE(namesOf(model), QStringList(QStringLiteral("ID_A")));
}

void tst_CommandSearchModel::refreshSeesNewActions()
{
    ActionPool pool;
    addAction(pool, QStringLiteral("ID_A"), QStringLiteral("Alpha"), QStringLiteral("alpha"));
    CommandSearchModel model(&pool);
    model.setQuery(QStringLiteral("g"));
    QCOMPARE(model.rowCount(), 0);
    addAction(pool, QStringLiteral("ID_G"), QStringLiteral("Gamma"), QStringLiteral("gamma"));
    QCOMPARE(model.rowCount(), 0);
    model.refresh();
    QCOMPARE(namesOf(model), QStringList(QStringLiteral("ID_G")));
    QCOMPARE(model.pool(), &pool);
    QVERIFY(!model.templatePool());
}

QTEST_MAIN(tst_CommandSearchModel)
#include "tst_commandsearchmodel.moc"
