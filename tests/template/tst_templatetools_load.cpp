#include <CommandSystem/Parameter.h>
#include <CommandSystem/Template.h>
#include <CommandSystem/TemplateTools.h>

#include "OutputCapture.h"
#include "TemplateFiles.h"
#include "TemplateTracker.h"

#include <QRegularExpression>
#include <QTemporaryDir>
#include <QtTest>

using namespace Talvir::Vexa::Cs;

class tst_TemplateToolsLoad : public QObject
{
    Q_OBJECT

private slots:
    void metaObjectName();
    void loadsEveryTemplateInOrder();
    void appendsToCallersList();
    void loadingDoesNotValidate();
    void nonAsciiNames();
    void unreadableFile();
    void errors_data();
    void errors();
    void templatesBeforeErrorStayWithCaller();
    void contentAfterTemplatesIsRead();

private:
    QString write(const QString& name, const QByteArray& content);
    QTemporaryDir directory;
};

QString tst_TemplateToolsLoad::write(const QString& name, const QByteArray& content)
{
    const QString path = directory.filePath(name);
    return writeFile(path, content) ? path : QString();
}

void tst_TemplateToolsLoad::metaObjectName()
{
    TemplateTools tools;
    QCOMPARE(tools.metaObject()->className(), "TemplateTools");
}

void tst_TemplateToolsLoad::loadsEveryTemplateInOrder()
{
    const QString path = write(QStringLiteral("shapes.tcmd"), templatesDocument(
        templateElement("circle", "        <property name=\"form_id\">3</property>\n"
                                  "        <parameters><parameter luid=\"2\" type=\"point\">"
                                  "<property name=\"prompt\">Centre</property></parameter>"
                                  "</parameters>\n")
        + templateElement("arc")));
    QList<Template*> templates;
    OutputCapture capture;
    QVERIFY(TemplateTools().loadTemplate(path, templates));
    QCOMPARE(capture.standardOutput(), QByteArray());
    QCOMPARE(capture.debugOutput(), QStringList());
    QCOMPARE(templates.size(), 2);
    QCOMPARE(templates[0]->name(), "circle");
    QCOMPARE(templates[0]->inteProperty("form_id"), 3);
    QCOMPARE(templates[0]->parameters().size(), size_t(1));
    QCOMPARE(templates[0]->parameters().front()->type(), Parameter::TypePoint);
    QCOMPARE(templates[0]->parameters().front()->textProperty("prompt"), "Centre");
    QCOMPARE(templates[1]->objectName(), QStringLiteral("arc"));
    for (Template* temp : templates)
        QVERIFY(!temp->parent());
    qDeleteAll(templates);
}

void tst_TemplateToolsLoad::appendsToCallersList()
{
    const QString path = write(QStringLiteral("line.tcmd"),
                               templatesDocument(templateElement("line")));
    Template existing("existing");
    QList<Template*> templates{&existing};
    QVERIFY(TemplateTools().loadTemplate(path, templates));
    QCOMPARE(templates.size(), 2);
    QCOMPARE(templates[0], &existing);
    QCOMPARE(templates[1]->name(), "line");
    delete templates[1];
}

// Loading is lenient: what the validator rejects is still read.
void tst_TemplateToolsLoad::loadingDoesNotValidate()
{
    const QString path = write(QStringLiteral("lenient.tcmd"),
        "<templates><template name=\"a\">"
        "<property name=\"colour\">red</property><property name=\"no_ftr\">true</property>"
        "<parameters><parameter type=\"text\"><property name=\"dim\"><string/></property>"
        "</parameter></parameters></template><template/></templates>");
    QList<Template*> templates;
    QVERIFY(TemplateTools().loadTemplate(path, templates));
    QCOMPARE(templates.size(), 2);
    QCOMPARE(templates[0]->textProperty("colour"), "red");
    QCOMPARE(templates[0]->property("no_ftr"), QVariant(true));
    QCOMPARE(templates[1]->name(), "");
    qDeleteAll(templates);
}

void tst_TemplateToolsLoad::nonAsciiNames()
{
    const QString path = write(QString::fromUtf8("Körper.tcmd"),
                               templatesDocument(templateElement("Würfel")));
    QList<Template*> templates;
    QVERIFY(TemplateTools().loadTemplate(path, templates));
    QCOMPARE(templates.size(), 1);
    QCOMPARE(templates[0]->name(), "Würfel");
    QCOMPARE(templates[0]->objectName(), QString::fromUtf8("Würfel"));
    qDeleteAll(templates);
}

// The loader reports on the debug channel, with the file name but not its directory.
void tst_TemplateToolsLoad::unreadableFile()
{
    const QString path = directory.filePath(QStringLiteral("gone/missing.tcmd"));
    QFile missing(path);
    QVERIFY(!missing.open(QIODevice::ReadOnly));
    QList<Template*> templates;
    OutputCapture capture;
    QVERIFY(!TemplateTools().loadTemplate(path, templates));
    QCOMPARE(capture.standardOutput(), QByteArray());
    QCOMPARE(capture.debugOutput(),
             QStringList(QStringLiteral("Can not read file missing.tcmd: ")
                         + missing.errorString()));
    QVERIFY(templates.isEmpty());
}

void tst_TemplateToolsLoad::errors_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("error");
    QTest::addColumn<int>("loaded");

    QTest::newRow("root tpl") << QByteArray("<tpl><template name=\"a\"/></tpl>")
                              << "Unexpected element tpl" << 0;
    QTest::newRow("child of templates")
        << QByteArray("<templates><template name=\"a\"/><tmpl/></templates>")
        << "Unexpected element tmpl" << 1;
    QTest::newRow("template attribute")
        << QByteArray("<templates><template name=\"a\" id=\"1\"/></templates>")
        << "Unexpected attribute: id" << 0;
    QTest::newRow("parameter element")
        << QByteArray("<templates><template name=\"a\"><parameters><param/></parameters>"
                      "</template></templates>")
        << "Unexpected element: param" << 0;
    QTest::newRow("malformed") << QByteArray("<templates><template name=\"a\"></templates>")
                               << "Opening and ending tag mismatch." << 0;
    QTest::newRow("empty file") << QByteArray() << "Premature end of document." << 0;
}

// One summary line on the debug channel: file name, line, column and the reader's error.
void tst_TemplateToolsLoad::errors()
{
    QFETCH(QByteArray, content);
    QFETCH(QString, error);
    QFETCH(int, loaded);
    const QString path = write(QStringLiteral("broken.tcmd"), content);
    QList<Template*> templates;
    OutputCapture capture;
    QVERIFY(!TemplateTools().loadTemplate(path, templates));
    QCOMPARE(capture.standardOutput(), QByteArray());
    const QStringList messages = capture.debugOutput();
    QCOMPARE(messages.size(), 1);
    const QRegularExpression summary(QStringLiteral(
        "^An error has occurred while loading broken\\.tcmd at line \\d+, column \\d+: (.*)$"));
    const QRegularExpressionMatch match = summary.match(messages.first());
    QVERIFY2(match.hasMatch(), qPrintable(messages.first()));
    QCOMPARE(match.captured(1), error);
    QCOMPARE(templates.size(), loaded);
    qDeleteAll(templates);
}

void tst_TemplateToolsLoad::templatesBeforeErrorStayWithCaller()
{
    const QString path = write(QStringLiteral("partial.tcmd"),
        "<templates>\n<template name=\"a\"/>\n<template name=\"b\"/>\n"
        "<template name=\"c\"><bad/></template>\n<template name=\"d\"/>\n</templates>\n");
    TemplateTracker tracker;
    QList<Template*> templates;
    OutputCapture capture;
    QVERIFY(!TemplateTools().loadTemplate(path, templates));
    QCOMPARE(capture.debugOutput(),
             QStringList(QStringLiteral("An error has occurred while loading partial.tcmd at "
                                        "line 4, column 25: Unexpected element: bad")));
    QCOMPARE(templates.size(), 2);
    QCOMPARE(templates[0]->name(), "a");
    QCOMPARE(templates[1]->name(), "b");
    // The broken template was made and deleted; the one after it was never read.
    QCOMPARE(tracker.created(), 3);
    QCOMPARE(tracker.alive(), 2);
    qDeleteAll(templates);
}

void tst_TemplateToolsLoad::contentAfterTemplatesIsRead()
{
    const QString path = write(QStringLiteral("trailing.tcmd"),
                               "<templates><template name=\"a\"/></templates>\n<!-- end -->\n");
    QList<Template*> templates;
    QVERIFY(TemplateTools().loadTemplate(path, templates));
    QCOMPARE(templates.size(), 1);
    qDeleteAll(templates);
}

QTEST_GUILESS_MAIN(tst_TemplateToolsLoad)
#include "tst_templatetools_load.moc"
