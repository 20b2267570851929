#include <CommandSystem/AliasTable.h>
#include <CommandSystem/CommandLineModel.h>
#include <CommandSystem/InputSession.h>

#include "WalkTemplates.h"

#include <QSignalSpy>
#include <QtTest>

#include <memory>

using namespace Talvir::Vexa::Cs;

namespace {

// A model with a small catalogue: ten commands and an alias for most of them.
std::unique_ptr<CommandLineModel> catalogueModel()
{
    auto model = std::make_unique<CommandLineModel>();
    model->setCommands({QStringLiteral("line"), QStringLiteral("list"), QStringLiteral("layer"),
                        QStringLiteral("polyline"), QStringLiteral("circle"), QStringLiteral("zoom"),
                        QStringLiteral("copy"), QStringLiteral("help"), QStringLiteral("dump"),
                        QStringLiteral("rotate")});
    AliasTable aliases;
    aliases.loadText(QStringLiteral("l line\nli list\nla layer\npl polyline\nc circle\nz zoom\nco copy\n"
                                    "ro rotate\nx explode\n"),
                     QStringLiteral("test.aliases"));
    model->setAliases(aliases);
    model->setHelpCommand(QStringLiteral("help"));
    return model;
}

// Every signal that says what an entered line means, one line each.
QStringList meanings(CommandLineModel& model, const QString& line)
{
    QStringList result;
    auto record = [&result](const QString& text) { result.append(text); };
    QObject context;
    QObject::connect(&model, &CommandLineModel::commandEntered, &context,
                     [=](const QString& text) { record(QStringLiteral("command ") + text); });
    QObject::connect(&model, &CommandLineModel::answerEntered, &context,
                     [=](const QString& text) { record(QStringLiteral("answer ") + text); });
    QObject::connect(&model, &CommandLineModel::repeatRequested, &context, [=] { record(QStringLiteral("repeat")); });
    QObject::connect(&model, &CommandLineModel::unknownCommand, &context,
                     [=](const QString& name, const QString& message) { record(QStringLiteral("unknown %1: %2").arg(name, message)); });
    QObject::connect(&model, &CommandLineModel::commandsListed, &context,
                     [=](const QStringList& lines) { record(QStringLiteral("list %1").arg(lines.size())); });
    model.setText(line);
    model.enter();
    return result;
}

} // namespace

class tst_CommandLineModel : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void resolve_data();
    void resolve();
    void enterAtCommandPrompt_data();
    void enterAtCommandPrompt();
    void enterInRunningCommand();
    void finishedOrDeletedSessionIsForgotten();
    void historyRecallsUpAndDown();
    void historySkipsRepeatsAndKeepsItsLimit();
    void tabAtCommandPrompt_data();
    void tabAtCommandPrompt();
    void tabCyclesThroughCandidates();
    void editingEndsTheCycle();
    void tabInRunningCommand_data();
    void tabInRunningCommand();
    void suggestions_data();
    void suggestions();
    void commandList();
    void textChangedOnlyOnChange();
    void escapeClearsAndAsksToCancel();

private:
    WalkTemplates m_templates;
};

void tst_CommandLineModel::initTestCase()
{
    QVERIFY(m_templates.isLoaded());
}

void tst_CommandLineModel::resolve_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("command");
    QTest::newRow("command") << "line" << "line";
    QTest::newRow("command in capitals") << "LINE" << "line";
    QTest::newRow("alias") << "l" << "line";
    QTest::newRow("alias in capitals") << "PL" << "polyline";
    QTest::newRow("alias of an unknown command") << "x" << QString();
    QTest::newRow("unknown") << "lnie" << QString();
    QTest::newRow("prefix only") << "lin" << QString();
    QTest::newRow("empty") << "" << QString();
}

void tst_CommandLineModel::resolve()
{
    QFETCH(QString, name);
    QFETCH(QString, command);
    const auto model = catalogueModel();
    QCOMPARE(model->resolve(name), command);
    QCOMPARE(model->resolve(name).isNull(), command.isNull());
}

void tst_CommandLineModel::enterAtCommandPrompt_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QStringList>("meaning");
    QTest::newRow("command") << "line" << QStringList{"command line"};
    QTest::newRow("capitals and answers") << "  Circle 80,50   22 " << QStringList{"command circle 80,50   22"};
    QTest::newRow("alias with answers") << "c 0,0 5" << QStringList{"command circle 0,0 5"};
    QTest::newRow("tab after the name") << "z\te" << QStringList{"command zoom e"};
    QTest::newRow("empty repeats") << "   " << QStringList{"repeat"};
    QTest::newRow("typo") << "lnie" << QStringList{"unknown lnie: Unknown command \"lnie\". Did you mean line? Type help for a list."};
    QTest::newRow("typo with answers") << "cirlce 0,0" << QStringList{"unknown cirlce: Unknown command \"cirlce\". Did you mean circle? Type help for a list."};
    QTest::newRow("nothing near") << "xyzzy" << QStringList{"unknown xyzzy: Unknown command \"xyzzy\". Type help for a list."};
    QTest::newRow("alias of unknown command") << "x" << QStringList{"unknown x: Unknown command \"x\". Did you mean circle, line or zoom? Type help for a list."};
    QTest::newRow("help alone lists") << "help" << QStringList{"list 10"};
    QTest::newRow("HELP alone lists") << "HELP " << QStringList{"list 10"};
    QTest::newRow("help with a name runs") << "help circle" << QStringList{"command help circle"};
}

void tst_CommandLineModel::enterAtCommandPrompt()
{
    QFETCH(QString, line);
    QFETCH(QStringList, meaning);
    const auto model = catalogueModel();
    QSignalSpy texts(model.get(), &CommandLineModel::textChanged);
    QCOMPARE(meanings(*model, line), meaning);
    QVERIFY(model->text().isEmpty());
    QCOMPARE(texts.last().first().toString(), QString());
}

void tst_CommandLineModel::enterInRunningCommand()
{
    const auto model = catalogueModel();
    InputSession session(m_templates.get(QStringLiteral("line")));
    session.start();
    model->setSession(&session);
    QCOMPARE(model->session(), &session);
    QCOMPARE(meanings(*model, QStringLiteral(" 10,0 ")), QStringList{QStringLiteral("answer 10,0")});
    QCOMPARE(meanings(*model, QString()), QStringList{QStringLiteral("answer ")});
    QCOMPARE(meanings(*model, QStringLiteral("help")), QStringList{QStringLiteral("answer help")});
    model->setSession(nullptr);
    QCOMPARE(meanings(*model, QStringLiteral("help")), QStringList{QStringLiteral("list 10")});
}

void tst_CommandLineModel::finishedOrDeletedSessionIsForgotten()
{
    const auto model = catalogueModel();
    InputSession finished(m_templates.get(QStringLiteral("line")));
    finished.start();
    finished.cancel();
    model->setSession(&finished);
    QCOMPARE(meanings(*model, QStringLiteral("l")), QStringList{QStringLiteral("command line")});
    {
        InputSession running(m_templates.get(QStringLiteral("line")));
        running.start();
        model->setSession(&running);
    }
    QVERIFY(!model->session());
    QCOMPARE(meanings(*model, QString()), QStringList{QStringLiteral("repeat")});
}

void tst_CommandLineModel::historyRecallsUpAndDown()
{
    const auto model = catalogueModel();
    for (const QString& line : {QStringLiteral("line"), QStringLiteral("0,0"), QStringLiteral("circle")})
        meanings(*model, line);
    QCOMPARE(model->history(), (QStringList{QStringLiteral("line"), QStringLiteral("0,0"), QStringLiteral("circle")}));
    model->setText(QStringLiteral("zo"));
    model->recallPrevious();
    QCOMPARE(model->text(), QStringLiteral("circle"));
    model->recallPrevious();
    model->recallPrevious();
    QCOMPARE(model->text(), QStringLiteral("line"));
    model->recallPrevious();
    QCOMPARE(model->text(), QStringLiteral("line"));
    model->recallNext();
    QCOMPARE(model->text(), QStringLiteral("0,0"));
    model->recallNext();
    model->recallNext();
    QCOMPARE(model->text(), QStringLiteral("zo"));
    model->recallNext();
    QCOMPARE(model->text(), QStringLiteral("zo"));
    model->recallPrevious();
    QCOMPARE(meanings(*model, model->text()), QStringList{QStringLiteral("command circle")});
    model->recallPrevious();
    QCOMPARE(model->text(), QStringLiteral("circle"));
}

void tst_CommandLineModel::historySkipsRepeatsAndKeepsItsLimit()
{
    const auto model = catalogueModel();
    QCOMPARE(model->historyLimit(), 1000);
    model->recallPrevious();
    model->recallNext();
    QVERIFY(model->text().isEmpty());
    model->setHistoryLimit(3);
    for (const QString& line : {QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("b"), QString(),
                                QStringLiteral("c"), QStringLiteral("d")})
        meanings(*model, line);
    QCOMPARE(model->history(), (QStringList{QStringLiteral("b"), QStringLiteral("c"), QStringLiteral("d")}));
    model->setHistoryLimit(0);
    QCOMPARE(model->historyLimit(), 1);
    QCOMPARE(model->history(), QStringList{QStringLiteral("d")});
}

void tst_CommandLineModel::tabAtCommandPrompt_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("completed");
    QTest::addColumn<QStringList>("listed");
    QTest::newRow("one candidate") << "zo" << "zoom" << QStringList{};
    QTest::newRow("capitals") << "ROT" << "rotate" << QStringList{};
    QTest::newRow("alias and its command") << "z" << "z" << QStringList{"z", "zoom"};
    QTest::newRow("extends to the shared start") << "rot" << "rotate" << QStringList{};
    QTest::newRow("alias beside its command") << "p" << "p" << QStringList{"pl", "polyline"};
    QTest::newRow("extends, then lists") << "lis" << "list" << QStringList{};
    QTest::newRow("several") << "LI" << "LI" << QStringList{"li", "line", "list"};
    QTest::newRow("one letter") << "l" << "l" << QStringList{"l", "la", "layer", "li", "line", "list"};
    QTest::newRow("nothing") << "q" << "q" << QStringList{};
    QTest::newRow("answers follow") << "line 0" << "line 0" << QStringList{};
}

void tst_CommandLineModel::tabAtCommandPrompt()
{
    QFETCH(QString, typed);
    QFETCH(QString, completed);
    QFETCH(QStringList, listed);
    const auto model = catalogueModel();
    QSignalSpy lists(model.get(), &CommandLineModel::completionsListed);
    model->setText(typed);
    model->complete();
    QCOMPARE(model->text(), completed);
    QCOMPARE(lists.size(), listed.isEmpty() ? 0 : 1);
    if (!listed.isEmpty())
        QCOMPARE(lists.first().first().toStringList(), listed);
}

void tst_CommandLineModel::tabCyclesThroughCandidates()
{
    const auto model = catalogueModel();
    model->setText(QStringLiteral("li"));
    model->complete();
    QStringList shown;
    for (int i = 0; i < 4; ++i) {
        model->complete();
        shown.append(model->text());
    }
    QCOMPARE(shown, (QStringList{QStringLiteral("line"), QStringLiteral("list"), QStringLiteral("li"), QStringLiteral("line")}));
    QCOMPARE(meanings(*model, model->text()), QStringList{QStringLiteral("command line")});
}

void tst_CommandLineModel::editingEndsTheCycle()
{
    const auto model = catalogueModel();
    QSignalSpy lists(model.get(), &CommandLineModel::completionsListed);
    model->setText(QStringLiteral("l"));
    model->complete();
    model->complete();
    QCOMPARE(model->text(), QStringLiteral("la"));
    model->setText(QStringLiteral("lay"));
    model->complete();
    QCOMPARE(model->text(), QStringLiteral("layer"));
    QCOMPARE(lists.size(), 1);
}

void tst_CommandLineModel::tabInRunningCommand_data()
{
    QTest::addColumn<QString>("command");
    QTest::addColumn<QStringList>("answers");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("completed");
    QTest::addColumn<QStringList>("listed");
    QTest::newRow("option label") << "zoom" << QStringList{} << "w" << "Window" << QStringList{};
    QTest::newRow("every option") << "zoom" << QStringList{} << "" << "" << QStringList{"In", "Out", "Window"};
    QTest::newRow("option of a point") << "polyline" << QStringList{"0,0"} << "cl" << "Close" << QStringList{};
    QTest::newRow("no options") << "line" << QStringList{} << "1" << "1" << QStringList{};
    QTest::newRow("command names") << "help" << QStringList{} << "ci" << "circle" << QStringList{};
    QTest::newRow("command names and aliases") << "help" << QStringList{} << "co" << "co" << QStringList{"co", "copy"};
}

void tst_CommandLineModel::tabInRunningCommand()
{
    QFETCH(QString, command);
    QFETCH(QStringList, answers);
    QFETCH(QString, typed);
    QFETCH(QString, completed);
    QFETCH(QStringList, listed);
    const auto model = catalogueModel();
    InputSession session(m_templates.get(command));
    session.start(answers);
    model->setSession(&session);
    QSignalSpy lists(model.get(), &CommandLineModel::completionsListed);
    model->setText(typed);
    model->complete();
    QCOMPARE(model->text(), completed);
    QCOMPARE(lists.isEmpty() ? QStringList() : lists.first().first().toStringList(), listed);
}

void tst_CommandLineModel::suggestions_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QStringList>("expected");
    QTest::newRow("swap") << "lnie" << QStringList{"line"};
    QTest::newRow("missing letter") << "rotat" << QStringList{"rotate"};
    QTest::newRow("capitals") << "CIRCEL" << QStringList{"circle"};
    QTest::newRow("typo of an alias") << "pll" << QStringList{"polyline"};
    QTest::newRow("nothing near") << "xyzzy" << QStringList{};
    QTest::newRow("at most three") << "lz" << QStringList{"line", "layer", "list"};
}

void tst_CommandLineModel::suggestions()
{
    QFETCH(QString, name);
    QFETCH(QStringList, expected);
    QCOMPARE(catalogueModel()->suggestions(name), expected);
}

void tst_CommandLineModel::commandList()
{
    const auto model = catalogueModel();
    QCOMPARE(model->commandList(), (QStringList{"circle (c)", "copy (co)", "dump", "help", "layer (la)", "line (l)",
                                                "list (li)", "polyline (pl)", "rotate (ro)", "zoom (z)"}));
    QCOMPARE(model->commands().size(), 10);
    QCOMPARE(model->aliases().count(), 9);
    QCOMPARE(model->helpCommand(), QStringLiteral("help"));
}

void tst_CommandLineModel::textChangedOnlyOnChange()
{
    const auto model = catalogueModel();
    QSignalSpy texts(model.get(), &CommandLineModel::textChanged);
    model->setText(QStringLiteral("zo"));
    model->setText(QStringLiteral("zo"));
    model->complete();
    model->complete();
    QCOMPARE(texts.size(), 2);
    QCOMPARE(texts.at(1).first().toString(), QStringLiteral("zoom"));
}

void tst_CommandLineModel::escapeClearsAndAsksToCancel()
{
    const auto model = catalogueModel();
    QSignalSpy cancels(model.get(), &CommandLineModel::cancelRequested);
    meanings(*model, QStringLiteral("line"));
    model->setText(QStringLiteral("10,"));
    model->recallPrevious();
    model->escape();
    QVERIFY(model->text().isEmpty());
    QCOMPARE(cancels.size(), 1);
    model->recallNext();
    QVERIFY(model->text().isEmpty());
    QCOMPARE(model->history(), QStringList{QStringLiteral("line")});
}

QTEST_GUILESS_MAIN(tst_CommandLineModel)
#include "tst_commandlinemodel.moc"
