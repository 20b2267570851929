#include <CommandSystem/Action.h>
#include <CommandSystem/AliasTable.h>
#include <CommandSystem/ActionPool.h>
#include <CommandSystem/Parameter.h>
#include <CommandSystem/Template.h>
#include <CommandSystem/TemplatePool.h>
#include <CommandSystem/TemplateTools.h>

#include <QDirIterator>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>

using namespace Talvir::Vexa::Cs;

// The example catalogue that Sketchpad runs on, read through the library the way a host reads
// it: every template file valid, the mapped directory's map current, every action complete.
class tst_Catalogue : public QObject
{
    Q_OBJECT

private slots:
    void templateFileIsValid_data();
    void templateFileIsValid();
    void mapFileIsCurrent();
    void templatesCoverEveryParameterType();
    void actionsAreCompleteAndNameTemplates();
    void aliasFileIsCleanAndNamesCommands();

private:
    static QString templates() { return QStringLiteral(CATALOGUE_DIR "/templates"); }
    static QStringList templateFiles();
    static std::unique_ptr<TemplatePool> pool();
};

QStringList tst_Catalogue::templateFiles()
{
    QStringList files;
    QDirIterator it(templates(), {QStringLiteral("*.tcmd")}, QDir::Files, QDirIterator::Subdirectories);
    while (it.hasNext())
        files.append(it.next());
    files.sort();
    return files;
}

std::unique_ptr<TemplatePool> tst_Catalogue::pool()
{
    auto result = std::make_unique<TemplatePool>();
    result->appendDirectory(templates());
    result->appendDirectory(templates() + QStringLiteral("/view"));
    result->load();
    return result;
}

void tst_Catalogue::templateFileIsValid_data()
{
    QTest::addColumn<QString>("file");
    for (const QString& file : templateFiles())
        QTest::newRow(qPrintable(QDir(templates()).relativeFilePath(file))) << file;
}

void tst_Catalogue::templateFileIsValid()
{
    QFETCH(QString, file);
    TemplateTools tools;
    QVERIFY(tools.validateTemplate(file));
    QList<Template*> loaded;
    QVERIFY(tools.loadTemplate(file, loaded));
    QVERIFY(!loaded.isEmpty());
    qDeleteAll(loaded);
}

void tst_Catalogue::mapFileIsCurrent()
{
    const QString directory = templates() + QStringLiteral("/view");
    QVERIFY(TemplateTools::isMapExist(directory));
    TemplateTools tools;
    QHash<QString, QString> built;
    QVERIFY(tools.buildMap(directory, built));
    QVERIFY(built.size() >= 2);
    QTemporaryDir scratch;
    const QString written = scratch.filePath(QStringLiteral(".map"));
    QVERIFY(tools.saveMap(written, built));
    QFile committed(TemplateTools::mapFile(directory));
    QFile fresh(written);
    QVERIFY(committed.open(QIODevice::ReadOnly) && fresh.open(QIODevice::ReadOnly));
    QCOMPARE(committed.readAll(), fresh.readAll());
}

void tst_Catalogue::templatesCoverEveryParameterType()
{
    std::unique_ptr<TemplatePool> templates = pool();
    QSet<QString> names;
    QSet<int> types;
    for (const QString& file : templateFiles()) {
        QList<Template*> loaded;
        QVERIFY(templates->load(file, loaded));
        for (Template* commandTemplate : loaded) {
            names.insert(commandTemplate->objectName());
            QVERIFY2(templates->getTemplate(commandTemplate->objectName()), commandTemplate->name());
            for (const Parameter* parameter : commandTemplate->parameters()) {
                types.insert(parameter->type());
                QVERIFY2(*parameter->textProperty("prompt") || parameter->type() == Parameter::TypeForm,
                         commandTemplate->name());
            }
        }
        qDeleteAll(loaded);
    }
    QVERIFY(names.size() >= 40);
    QCOMPARE(types.size(), 13);
}

void tst_Catalogue::actionsAreCompleteAndNameTemplates()
{
    Action::setIconDirList({QStringLiteral(CATALOGUE_DIR "/ui/icons")});
    std::unique_ptr<ActionPool> actions(ActionPool::fromFolder(QStringLiteral(CATALOGUE_DIR "/ui")));
    std::unique_ptr<TemplatePool> templates = pool();
    QVERIFY(actions->actions().size() >= 60);
    QSet<QString> kinds;
    for (Action* action : actions->actions()) {
        kinds.insert(action->type());
        QVERIFY2(!action->iconName().isEmpty(), qPrintable(action->name()));
        QVERIFY2(!action->hint().isEmpty() && !action->help().isEmpty() && !action->desc().isEmpty(),
                 qPrintable(action->name()));
        QVERIFY2(action->form().contains(QLatin1Char('/')), qPrintable(action->name()));
        const QString command = action->script().section(QLatin1Char(' '), 0, 0);
        QVERIFY2(templates->getTemplate(command), qPrintable(action->name()));
    }
    QCOMPARE(kinds, (QSet<QString>{QStringLiteral("plain"), QStringLiteral("toggle"),
                                   QStringLiteral("check_box"), QStringLiteral("widget")}));
    int variants = 0;
    for (const QString& file : QDir(QStringLiteral(CATALOGUE_DIR "/ui/icons")).entryList({QStringLiteral("*_disabled.png")}))
        variants += QFile::exists(QStringLiteral(CATALOGUE_DIR "/ui/icons/") + QString(file).replace(QStringLiteral("_disabled"), QStringLiteral("_active")));
    QVERIFY(variants >= 10);
}

void tst_Catalogue::aliasFileIsCleanAndNamesCommands()
{
    QStringList commands;
    TemplateTools tools;
    for (const QString& file : templateFiles()) {
        QList<Template*> loaded;
        QVERIFY(tools.loadTemplate(file, loaded));
        for (Template* commandTemplate : loaded)
            commands.append(commandTemplate->objectName());
        qDeleteAll(loaded);
    }
    AliasTable aliases;
    QVERIFY2(aliases.load(QStringLiteral(CATALOGUE_DIR "/commands.aliases")), qPrintable(aliases.errors().join(QLatin1Char('\n'))));
    QCOMPARE(aliases.check(commands), QStringList());
    const QStringList expected{QStringLiteral("l line"), QStringLiteral("c circle"), QStringLiteral("a arc"),
                               QStringLiteral("pl polyline"), QStringLiteral("rec rectangle"), QStringLiteral("e erase"),
                               QStringLiteral("m move"), QStringLiteral("co copy"), QStringLiteral("ro rotate"),
                               QStringLiteral("z zoom")};
    for (const QString& pair : expected)
        QCOMPARE(aliases.command(pair.section(QLatin1Char(' '), 0, 0)), pair.section(QLatin1Char(' '), 1));
}

QTEST_MAIN(tst_Catalogue)
#include "tst_catalogue.moc"
