#include <CommandSystem/Parameter.h>
#include <CommandSystem/Template.h>
#include <CommandSystem/TemplatePool.h>
#include <CommandSystem/TemplateTools.h>

#include "OutputCapture.h"
#include "RecordingTranslator.h"
#include "TemplateFiles.h"
#include "TemplateTracker.h"

#include <QPointer>
#include <QTemporaryDir>
#include <QtTest>

using namespace Talvir::Vexa::Cs;

namespace {

QByteArray echoing(const QByteArray& name, const QByteArray& echo)
{
    return templateElement(name, "        <property name=\"echo\">" + echo + "</property>\n");
}

} // namespace

class tst_TemplatePool : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void metaObjectName();
    void emptyPool();
    void appendDirectory();
    void appendDirectoryComparesTextAsGiven();
    void appendAndRemoveDirectoryLists();
    void loadDirectoryOnce();
    void loadAfterRemoveDirectoryMapsAgain();
    void failedMappingIsNotRetried();
    void loadAllTriesEveryDirectory();
    void loadUsesMapFileWhenPresent();
    void fileIsReadOnFirstRequestOnly();
    void siblingsAreHeldAfterFirstRead();
    void repeatedRequestReturnsSameTemplate();
    void fileNamedAfterTemplateInFirstDirectory();
    void unknownNameIsNull();
    void nameNotInItsFileKeepsTheFilesTemplates();
    void unreadableMappedFileDoesNotSearchDirectories();
    void failedReadDeletesPartialTemplates();
    void insertTemplate();
    void insertReplacingLastTemplate();
    void removeTemplate();
    void removedTemplateIsReadAgain();
    void removeDirectoryKeepsWhatWasMapped();
    void loadFileIntoCallersList();
    void nonAsciiNamesEndToEnd();
    void nonAsciiNamesThroughMapFile();
    void translatedPrompts();
    void destructionDeletesTemplates();

private:
    QString dir(const QString& name = QString()) const
    {
        return name.isEmpty() ? root->path() : root->filePath(name);
    }
    bool write(const QString& name, const QByteArray& content)
    {
        return writeFile(dir(name), content);
    }

    QTemporaryDir* root = nullptr;
};

void tst_TemplatePool::init()
{
    root = new QTemporaryDir;
    QVERIFY(root->isValid());
}

void tst_TemplatePool::cleanup()
{
    delete root;
}

void tst_TemplatePool::metaObjectName()
{
    TemplatePool pool;
    QCOMPARE(pool.metaObject()->className(), "TemplatePool");
    QVERIFY(!pool.parent());
}

void tst_TemplatePool::emptyPool()
{
    TemplatePool pool;
    QVERIFY(!pool.getTemplate(QStringLiteral("circle")));
    QVERIFY(!pool.getTemplate(QString()));
    QVERIFY(!pool.load());
}

void tst_TemplatePool::appendDirectory()
{
    TemplatePool pool;
    QVERIFY(!pool.appendDirectory(dir(QStringLiteral("missing"))));
    QVERIFY(!pool.removeDirectory(dir(QStringLiteral("missing"))));
    QVERIFY(pool.appendDirectory(dir()));
    QVERIFY(pool.appendDirectory(dir()));
    QVERIFY(pool.removeDirectory(dir()));
    QVERIFY(!pool.removeDirectory(dir()));
}

// A differently written path of a listed directory is listed a second time.
void tst_TemplatePool::appendDirectoryComparesTextAsGiven()
{
    TemplatePool pool;
    QVERIFY(pool.appendDirectory(dir()));
    QVERIFY(pool.appendDirectory(dir() + QStringLiteral("/.")));
    QVERIFY(pool.removeDirectory(dir()));
    QVERIFY(pool.removeDirectory(dir()));
    QVERIFY(!pool.removeDirectory(dir()));
}

void tst_TemplatePool::appendAndRemoveDirectoryLists()
{
    QVERIFY(QDir().mkpath(dir(QStringLiteral("a"))));
    QVERIFY(QDir().mkpath(dir(QStringLiteral("b"))));
    TemplatePool pool;
    pool.appendDirectoryList({dir(QStringLiteral("a")), dir(QStringLiteral("missing")),
                              dir(QStringLiteral("b"))});
    pool.removeDirectoryList({dir(QStringLiteral("a")), dir(QStringLiteral("missing"))});
    QVERIFY(!pool.removeDirectory(dir(QStringLiteral("a"))));
    QVERIFY(pool.removeDirectory(dir(QStringLiteral("b"))));
}

void tst_TemplatePool::loadDirectoryOnce()
{
    QVERIFY(write(QStringLiteral("shapes.tcmd"),
                  templatesDocument(templateElement("circle") + templateElement("arc"))));
    TemplatePool pool;
    QVERIFY(!pool.load(dir(QStringLiteral("missing"))));
    QVERIFY(pool.load(dir()));
    QVERIFY(!pool.load(dir()));
    // load(d) added the directory.
    QVERIFY(pool.removeDirectory(dir()));
    QVERIFY(!pool.removeDirectory(dir()));
}

void tst_TemplatePool::loadAfterRemoveDirectoryMapsAgain()
{
    QVERIFY(write(QStringLiteral("shapes.tcmd"), templatesDocument(templateElement("circle"))));
    TemplatePool pool;
    QVERIFY(pool.appendDirectory(dir()));
    QVERIFY(pool.load(dir()));
    QVERIFY(pool.removeDirectory(dir()));
    OutputCapture capture;
    QVERIFY(pool.load(dir()));
    QVERIFY(!pool.load(dir()));
    // Mapped a second time: the scan meets the name it found the first time.
    QCOMPARE(QString::fromUtf8(capture.standardOutput()),
             QStringLiteral("There is a same template name in %1\n")
                 .arg(QFileInfo(dir(QStringLiteral("shapes.tcmd"))).absoluteFilePath()));
}

void tst_TemplatePool::failedMappingIsNotRetried()
{
    QVERIFY(write(QStringLiteral(".map"), "<map/>"));
    TemplatePool pool;
    OutputCapture capture;
    QVERIFY(!pool.load(dir()));
    QVERIFY(!pool.load(dir()));
    // Mapping was tried once: one message from the map reader.
    QCOMPARE(capture.debugOutput().size(), 1);
    QCOMPARE(capture.standardOutput(), QByteArray());
}

void tst_TemplatePool::loadAllTriesEveryDirectory()
{
    QVERIFY(write(QStringLiteral("a/x.tcmd"), templatesDocument(templateElement("y"))));
    QVERIFY(write(QStringLiteral("b/shapes.tcmd"), templatesDocument(templateElement("z"))));
    TemplatePool pool;
    pool.appendDirectoryList({dir(QStringLiteral("a")), dir(QStringLiteral("b"))});
    QVERIFY(pool.load(dir(QStringLiteral("a"))));
    QVERIFY(pool.load());   // a is already mapped, b is not
    QVERIFY(!pool.load());
    QCOMPARE(QString::fromUtf8(pool.getTemplate(QStringLiteral("y"))->name()),
             QStringLiteral("y"));
    QCOMPARE(QString::fromUtf8(pool.getTemplate(QStringLiteral("z"))->name()),
             QStringLiteral("z"));
}

void tst_TemplatePool::loadUsesMapFileWhenPresent()
{
    QVERIFY(write(QStringLiteral("shapes.tcmd"), templatesDocument(echoing("circle", "scan"))));
    QVERIFY(write(QStringLiteral("other.tcmd"), templatesDocument(echoing("circle", "map"))));
    QVERIFY(TemplateTools().saveMap(TemplateTools::mapFile(dir()),
                                    {{QStringLiteral("circle"), dir(QStringLiteral("other.tcmd"))}}));
    TemplatePool pool;
    QVERIFY(pool.load(dir()));
    Template* circle = pool.getTemplate(QStringLiteral("circle"));
    QVERIFY(circle);
    QCOMPARE(circle->textProperty("echo"), "map");
}

// Mapping reads no template; the file is parsed when a template of it is first requested.
void tst_TemplatePool::fileIsReadOnFirstRequestOnly()
{
    QVERIFY(write(QStringLiteral("shapes.tcmd"),
                  templatesDocument(echoing("circle", "v1") + echoing("arc", "v1"))));
    TemplatePool pool;
    TemplateTracker tracker;
    QVERIFY(pool.load(dir()));
    QCOMPARE(tracker.created(), 0);
    QVERIFY(write(QStringLiteral("shapes.tcmd"),
                  templatesDocument(echoing("circle", "v2") + echoing("arc", "v2"))));

    Template* circle = pool.getTemplate(QStringLiteral("circle"));
    QVERIFY(circle);
    QCOMPARE(circle->textProperty("echo"), "v2");
    QCOMPARE(circle->parent(), &pool);
    QCOMPARE(tracker.created(), 2);
}

void tst_TemplatePool::siblingsAreHeldAfterFirstRead()
{
    QVERIFY(write(QStringLiteral("shapes.tcmd"),
                  templatesDocument(echoing("circle", "v1") + echoing("arc", "v1"))));
    TemplatePool pool;
    QVERIFY(pool.load(dir()));
    TemplateTracker tracker;
    Template* circle = pool.getTemplate(QStringLiteral("circle"));
    QVERIFY(circle);
    QCOMPARE(tracker.created(), 2);
    QVERIFY(write(QStringLiteral("shapes.tcmd"),
                  templatesDocument(echoing("circle", "v2") + echoing("arc", "v2"))));

    Template* arc = pool.getTemplate(QStringLiteral("arc"));
    QVERIFY(arc);
    QCOMPARE(arc->textProperty("echo"), "v1");
    QCOMPARE(arc->parent(), &pool);
    QVERIFY(QFile::remove(dir(QStringLiteral("shapes.tcmd"))));
    QCOMPARE(pool.getTemplate(QStringLiteral("circle")), circle);
    QCOMPARE(pool.getTemplate(QStringLiteral("arc")), arc);
    QCOMPARE(tracker.created(), 2);
}

void tst_TemplatePool::repeatedRequestReturnsSameTemplate()
{
    QVERIFY(write(QStringLiteral("line.tcmd"), templatesDocument(templateElement("line"))));
    TemplatePool pool;
    QVERIFY(pool.appendDirectory(dir()));
    TemplateTracker tracker;
    Template* line = pool.getTemplate(QStringLiteral("line"));
    QVERIFY(line);
    for (int request = 0; request < 3; ++request)
        QCOMPARE(pool.getTemplate(QStringLiteral("line")), line);
    QVERIFY(!pool.getTemplate(QStringLiteral("Line")));
    QCOMPARE(tracker.created(), 1);
}

void tst_TemplatePool::fileNamedAfterTemplateInFirstDirectory()
{
    QVERIFY(write(QStringLiteral("a/other.tcmd"), templatesDocument(templateElement("other"))));
    QVERIFY(write(QStringLiteral("b/line.tcmd"), templatesDocument(echoing("line", "b"))));
    QVERIFY(write(QStringLiteral("c/line.tcmd"), templatesDocument(echoing("line", "c"))));
    TemplatePool pool;
    pool.appendDirectoryList({dir(QStringLiteral("a")), dir(QStringLiteral("b")),
                              dir(QStringLiteral("c"))});
    Template* line = pool.getTemplate(QStringLiteral("line"));
    QVERIFY(line);
    QCOMPARE(line->textProperty("echo"), "b");
}

void tst_TemplatePool::unknownNameIsNull()
{
    QVERIFY(write(QStringLiteral("line.tcmd"), templatesDocument(templateElement("line"))));
    TemplatePool pool;
    QVERIFY(pool.load(dir()));
    OutputCapture capture;
    QVERIFY(!pool.getTemplate(QStringLiteral("circle")));
    QCOMPARE(capture.debugOutput(), QStringList());
    QCOMPARE(capture.standardOutput(), QByteArray());
}

void tst_TemplatePool::nameNotInItsFileKeepsTheFilesTemplates()
{
    // The file is named after "line" but defines other templates.
    QVERIFY(write(QStringLiteral("line.tcmd"), templatesDocument(templateElement("polyline"))));
    TemplatePool pool;
    QVERIFY(pool.appendDirectory(dir()));
    TemplateTracker tracker;
    QVERIFY(!pool.getTemplate(QStringLiteral("line")));
    Template* polyline = pool.getTemplate(QStringLiteral("polyline"));
    QVERIFY(polyline);
    QCOMPARE(polyline->parent(), &pool);
    QCOMPARE(tracker.created(), 1);
}

void tst_TemplatePool::unreadableMappedFileDoesNotSearchDirectories()
{
    QVERIFY(write(QStringLiteral("shapes.tcmd"),
                  templatesDocument(templateElement("circle") + templateElement("line"))));
    QVERIFY(write(QStringLiteral("extra/line.tcmd"), templatesDocument(templateElement("line"))));
    TemplatePool pool;
    QVERIFY(pool.load(dir()));
    QVERIFY(pool.appendDirectory(dir(QStringLiteral("extra"))));
    QVERIFY(QFile::remove(dir(QStringLiteral("shapes.tcmd"))));
    OutputCapture capture;
    QVERIFY(!pool.getTemplate(QStringLiteral("line")));
    QCOMPARE(capture.debugOutput().size(), 1);
    QVERIFY(capture.debugOutput().first().startsWith(
        QStringLiteral("Can not read file shapes.tcmd: ")));
}

void tst_TemplatePool::failedReadDeletesPartialTemplates()
{
    QVERIFY(write(QStringLiteral("shapes.tcmd"),
                  templatesDocument(templateElement("circle") + templateElement("arc")
                                    + "<broken/>\n")));
    TemplatePool pool;
    QVERIFY(pool.load(dir()));
    TemplateTracker tracker;
    OutputCapture capture;
    QVERIFY(!pool.getTemplate(QStringLiteral("circle")));
    QVERIFY(!pool.getTemplate(QStringLiteral("arc")));
    QCOMPARE(capture.debugOutput().size(), 2);
    QCOMPARE(tracker.created(), 4);
    QCOMPARE(tracker.alive(), 0);
    QVERIFY(pool.children().isEmpty());
}

void tst_TemplatePool::insertTemplate()
{
    TemplatePool pool;
    QVERIFY(!pool.insertTemplate(nullptr));
    QPointer<Template> a1 = new Template("a");
    Template* a2 = new Template("a");
    QVERIFY(pool.insertTemplate(a1));
    QCOMPARE(a1->parent(), &pool);
    QCOMPARE(pool.getTemplate(QStringLiteral("a")), a1.data());
    QVERIFY(pool.insertTemplate(a2));
    QVERIFY(a1.isNull());
    QCOMPARE(pool.getTemplate(QStringLiteral("a")), a2);
    QVERIFY(pool.insertTemplate(a2));
    QCOMPARE(pool.getTemplate(QStringLiteral("a")), a2);
    QCOMPARE(pool.children().size(), 1);
}

// The template most recently read is replaced: requests must reach the new one.
void tst_TemplatePool::insertReplacingLastTemplate()
{
    QVERIFY(write(QStringLiteral("line.tcmd"), templatesDocument(templateElement("line"))));
    TemplatePool pool;
    QVERIFY(pool.appendDirectory(dir()));
    QPointer<Template> read = pool.getTemplate(QStringLiteral("line"));
    QVERIFY(read);
    Template* replacement = new Template("line");
    QVERIFY(pool.insertTemplate(replacement));
    QVERIFY(read.isNull());
    QCOMPARE(pool.getTemplate(QStringLiteral("line")), replacement);
}

void tst_TemplatePool::removeTemplate()
{
    TemplatePool pool;
    Template* t = new Template("t");
    QVERIFY(!pool.removeTemplate(nullptr));
    QVERIFY(!pool.removeTemplate(t));
    QVERIFY(pool.insertTemplate(t));
    QVERIFY(pool.removeTemplate(t));
    QVERIFY(!pool.removeTemplate(t));
    QCOMPARE(t->parent(), &pool);
    QVERIFY(!pool.getTemplate(QStringLiteral("t")));
    // The entry is removed by name, whichever template it holds.
    Template other("t");
    QVERIFY(pool.insertTemplate(new Template("t")));
    QVERIFY(pool.removeTemplate(&other));
    QVERIFY(!pool.getTemplate(QStringLiteral("t")));
}

void tst_TemplatePool::removedTemplateIsReadAgain()
{
    QVERIFY(write(QStringLiteral("shapes.tcmd"),
                  templatesDocument(echoing("circle", "v1") + echoing("arc", "v1"))));
    TemplatePool pool;
    QVERIFY(pool.load(dir()));
    Template* circle = pool.getTemplate(QStringLiteral("circle"));
    QPointer<Template> arc = pool.getTemplate(QStringLiteral("arc"));
    QVERIFY(circle && arc);
    QVERIFY(pool.removeTemplate(circle));
    QVERIFY(write(QStringLiteral("shapes.tcmd"),
                  templatesDocument(echoing("circle", "v2") + echoing("arc", "v2"))));

    Template* newCircle = pool.getTemplate(QStringLiteral("circle"));
    QVERIFY(newCircle);
    QVERIFY(newCircle != circle);
    QCOMPARE(newCircle->textProperty("echo"), "v2");
    QVERIFY(arc.isNull());
    QCOMPARE(pool.getTemplate(QStringLiteral("arc"))->textProperty("echo"), "v2");
    // The removed one is still alive and still a child of the pool.
    QCOMPARE(circle->parent(), &pool);
    QCOMPARE(circle->textProperty("echo"), "v1");
}

void tst_TemplatePool::removeDirectoryKeepsWhatWasMapped()
{
    QVERIFY(write(QStringLiteral("shapes.tcmd"),
                  templatesDocument(templateElement("circle") + templateElement("arc"))));
    TemplatePool pool;
    QVERIFY(pool.load(dir()));
    Template* circle = pool.getTemplate(QStringLiteral("circle"));
    QVERIFY(circle);
    QVERIFY(pool.removeTemplate(pool.getTemplate(QStringLiteral("arc"))));
    QVERIFY(pool.removeDirectory(dir()));
    QCOMPARE(pool.getTemplate(QStringLiteral("circle")), circle);
    QVERIFY(pool.getTemplate(QStringLiteral("arc")));
}

void tst_TemplatePool::loadFileIntoCallersList()
{
    QVERIFY(write(QStringLiteral("elsewhere/shapes.tcmd"),
                  templatesDocument(templateElement("circle") + templateElement("arc"))));
    TemplatePool pool;
    QList<Template*> templates;
    QVERIFY(pool.load(dir(QStringLiteral("elsewhere/shapes.tcmd")), templates));
    QCOMPARE(templates.size(), 2);
    for (Template* temp : templates)
        QVERIFY(!temp->parent());
    QVERIFY(!pool.getTemplate(QStringLiteral("circle")));
    OutputCapture capture;
    QVERIFY(!pool.load(dir(QStringLiteral("missing.tcmd")), templates));
    QCOMPARE(capture.debugOutput().size(), 1);
    QCOMPARE(templates.size(), 2);
    qDeleteAll(templates);
}

void tst_TemplatePool::nonAsciiNamesEndToEnd()
{
    QVERIFY(write(QString::fromUtf8("größe.tcmd"),
                  templatesDocument(echoing("größe", "file name"))));
    QVERIFY(write(QStringLiteral("solids.tcmd"),
                  templatesDocument(echoing("Würfel", "mapped") + echoing("Kegel", "mapped"))));
    TemplatePool pool;
    QVERIFY(pool.load(dir()));
    Template* size = pool.getTemplate(QString::fromUtf8("größe"));
    QVERIFY(size);
    QCOMPARE(size->name(), "größe");
    QCOMPARE(size->textProperty("echo"), "file name");
    Template* cube = pool.getTemplate(QString::fromUtf8("Würfel"));
    QVERIFY(cube);
    QCOMPARE(cube->objectName(), QString::fromUtf8("Würfel"));
    QCOMPARE(pool.getTemplate(QString::fromUtf8("Würfel")), cube);
    QVERIFY(pool.getTemplate(QStringLiteral("Kegel")));
    QVERIFY(!pool.getTemplate(QStringLiteral("Wurfel")));
    // Inserting by name uses the same conversion as the lookup.
    Template* replacement = new Template("Würfel");
    QVERIFY(pool.insertTemplate(replacement));
    QCOMPARE(pool.getTemplate(QString::fromUtf8("Würfel")), replacement);
}

void tst_TemplatePool::nonAsciiNamesThroughMapFile()
{
    QVERIFY(write(QString::fromUtf8("körper.tcmd"),
                  templatesDocument(echoing("Würfel", "mapped") + echoing("Kegel", "mapped"))));
    TemplateTools tools;
    QHash<QString, QString> map;
    QVERIFY(tools.buildMap(dir(), map));
    QVERIFY(tools.saveMap(TemplateTools::mapFile(dir()), map));
    TemplatePool pool;
    QVERIFY(pool.load(dir()));
    Template* cube = pool.getTemplate(QString::fromUtf8("Würfel"));
    QVERIFY(cube);
    QCOMPARE(cube->name(), "Würfel");
}

void tst_TemplatePool::translatedPrompts()
{
    QVERIFY(write(QStringLiteral("circle.tcmd"), templatesDocument(templateElement(
        "circle", "<parameters><parameter description=\"Centre\"><property name=\"prompt\">"
                  "Pick the centre</property></parameter></parameters>\n"))));
    RecordingTranslator translator;
    translator.add("circle", "Pick the centre", QString::fromUtf8("Mittelpunkt wählen"));
    translator.add("circle", "Centre", QStringLiteral("Mitte"));
    QVERIFY(QCoreApplication::installTranslator(&translator));
    TemplatePool pool;
    QVERIFY(pool.appendDirectory(dir()));
    Template* circle = pool.getTemplate(QStringLiteral("circle"));
    QCoreApplication::removeTranslator(&translator);
    QVERIFY(circle);
    QCOMPARE(circle->parameters().size(), size_t(1));
    const Parameter* parameter = circle->parameters().front();
    QCOMPARE(QString::fromUtf8(parameter->textProperty("prompt")),
             QString::fromUtf8("Mittelpunkt wählen"));
    QCOMPARE(parameter->description(), "Mitte");
}

void tst_TemplatePool::destructionDeletesTemplates()
{
    QPointer<Template> inserted;
    QPointer<Template> removed;
    {
        TemplatePool pool;
        inserted = new Template("a");
        removed = new Template("b");
        QVERIFY(pool.insertTemplate(inserted));
        QVERIFY(pool.insertTemplate(removed));
        QVERIFY(pool.removeTemplate(removed));
    }
    QVERIFY(inserted.isNull());
    QVERIFY(removed.isNull());
}

QTEST_GUILESS_MAIN(tst_TemplatePool)
#include "tst_templatepool.moc"
