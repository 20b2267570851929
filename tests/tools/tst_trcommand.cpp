#include "CsToolProcess.h"

#include <CommandSystem/Action.h>
#include <CommandSystem/ActionPool.h>
#include <CommandSystem/Parameter.h>
#include <CommandSystem/Template.h>
#include <CommandSystem/TemplatePool.h>

#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTranslator>
#include <QXmlStreamReader>
#include <QtTest>

using namespace Talvir::Vexa::Cs;

// cstool tr: translatable texts into a Qt Linguist file under the contexts the library uses.
class tst_TrCommand : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void extractsUnderTheLibrarysContexts();
    void keepsExistingTranslations();
    void translationReachesTheLibrary();
    void brokenInputWritesNothing();
    void usageErrors();

private:
    QString path(const QString& name) const;
    // context -> source -> "type:translation"
    static QMap<QString, QMap<QString, QString>> readTs(const QString& file);
    // Fills in the translation of a source text, as a translator would in Linguist.
    static void translate(QString& ts, const char* source, const char* translation);
    bool runTr();

    QScopedPointer<QTemporaryDir> temp;
};

void tst_TrCommand::init()
{
    temp.reset(new QTemporaryDir);
    QVERIFY(temp->isValid());
    QVERIFY(CsToolProcess::writeFile(path(QStringLiteral("templates/circle.tcmd")),
        "<templates>\n"
        "  <template name=\"circle\">\n"
        "    <property name=\"echo\">not translated</property>\n"
        "    <parameters>\n"
        "      <parameter luid=\"1\" type=\"point\" description=\"Centre\">\n"
        "        <property name=\"prompt\">Specify the centre point:</property>\n"
        "        <property name=\"format\">Centre at %1</property>\n"
        "        <property name=\"options\">not translated either</property>\n"
        "      </parameter>\n"
        "    </parameters>\n"
        "  </template>\n"
        "</templates>\n"));
    QVERIFY(CsToolProcess::writeFile(path(QStringLiteral("ui/draw.xcui")),
        "<Actions>\n"
        "  <Action name=\"ID_CIRCLE\" type=\"plain\">\n"
        "    <Text><Ribbon>Circle</Ribbon><Menu>Draw circle</Menu></Text>\n"
        "    <Hint>Draws a circle</Hint>\n"
        "    <Desc>Draws a circle from its centre and radius.</Desc>\n"
        "    <Help>circle.html</Help>\n"
        "    <Script>circle</Script>\n"
        "  </Action>\n"
        "</Actions>\n"));
}

QString tst_TrCommand::path(const QString& name) const
{
    return temp->filePath(name);
}

void tst_TrCommand::translate(QString& ts, const char* source, const char* translation)
{
    const QRegularExpression unfinished(QStringLiteral("(<source>%1</source>\\s*<translation) type=\"unfinished\"></translation>")
                                            .arg(QRegularExpression::escape(QString::fromUtf8(source))));
    QVERIFY(ts.contains(unfinished));
    ts.replace(unfinished, QStringLiteral("\\1>%1</translation>").arg(QString::fromUtf8(translation)));
}

bool tst_TrCommand::runTr()
{
    CsToolProcess tool;
    return tool.run({QStringLiteral("tr"), path(QStringLiteral("templates")), path(QStringLiteral("ui")),
                     QStringLiteral("-o"), path(QStringLiteral("de.ts"))})
        && tool.exitCode == 0;
}

QMap<QString, QMap<QString, QString>> tst_TrCommand::readTs(const QString& file)
{
    QMap<QString, QMap<QString, QString>> result;
    QFile device(file);
    if (!device.open(QIODevice::ReadOnly))
        return result;
    QXmlStreamReader reader(&device);
    QString context;
    QString source;
    while (reader.readNext() != QXmlStreamReader::Invalid && !reader.atEnd()) {
        if (!reader.isStartElement())
            continue;
        if (reader.name() == QLatin1String("name")) {
            context = reader.readElementText();
        } else if (reader.name() == QLatin1String("source")) {
            source = reader.readElementText();
        } else if (reader.name() == QLatin1String("translation")) {
            const QString type = reader.attributes().value(QLatin1String("type")).toString();
            result[context][source] = type + QLatin1Char(':') + reader.readElementText();
        }
    }
    return result;
}

void tst_TrCommand::extractsUnderTheLibrarysContexts()
{
    CsToolProcess tool;
    RUN_CSTOOL(tool, {QStringLiteral("tr"), path(QStringLiteral("templates")), path(QStringLiteral("ui")),
                      QStringLiteral("-o"), path(QStringLiteral("de.ts"))});
    QCOMPARE(tool.exitCode, 0);
    QCOMPARE(tool.outLines(), QStringList(path(QStringLiteral("de.ts")) + QStringLiteral(": 7 message(s), 7 new, 0 vanished")));
    QMap<QString, QMap<QString, QString>> expected;
    expected[QStringLiteral("circle")][QStringLiteral("Centre")] = QStringLiteral("unfinished:");
    expected[QStringLiteral("circle")][QStringLiteral("Specify the centre point:")] = QStringLiteral("unfinished:");
    expected[QStringLiteral("circle")][QStringLiteral("Centre at %1")] = QStringLiteral("unfinished:");
    expected[QStringLiteral("ID_CIRCLE")][QStringLiteral("Circle")] = QStringLiteral("unfinished:");
    expected[QStringLiteral("ID_CIRCLE")][QStringLiteral("Draw circle")] = QStringLiteral("unfinished:");
    expected[QStringLiteral("ID_CIRCLE")][QStringLiteral("Draws a circle")] = QStringLiteral("unfinished:");
    expected[QStringLiteral("ID_CIRCLE")][QStringLiteral("Draws a circle from its centre and radius.")] =
        QStringLiteral("unfinished:");
    QCOMPARE(readTs(path(QStringLiteral("de.ts"))), expected);
    const QByteArray ts = CsToolProcess::readFile(path(QStringLiteral("de.ts")));
    QVERIFY(ts.contains("<location filename=\"templates/circle.tcmd\" line=\"6\"/>"));
    QVERIFY(ts.contains("<location filename=\"ui/draw.xcui\" line=\"4\"/>"));
}

void tst_TrCommand::keepsExistingTranslations()
{
    QVERIFY(runTr());
    QString ts = QString::fromUtf8(CsToolProcess::readFile(path(QStringLiteral("de.ts"))));
    translate(ts, "Circle", "Kreis");
    translate(ts, "Draws a circle", "Zeichnet einen Kreis");
    QVERIFY(CsToolProcess::writeFile(path(QStringLiteral("de.ts")), ts.toUtf8()));
    QByteArray ui = CsToolProcess::readFile(path(QStringLiteral("ui/draw.xcui")));
    ui.replace("<Hint>Draws a circle</Hint>", "<Hint>Draws a full circle</Hint>");
    QVERIFY(CsToolProcess::writeFile(path(QStringLiteral("ui/draw.xcui")), ui));

    CsToolProcess tool;
    RUN_CSTOOL(tool, {QStringLiteral("tr"), path(QStringLiteral("templates")), path(QStringLiteral("ui")),
                      QStringLiteral("-o"), path(QStringLiteral("de.ts"))});
    QCOMPARE(tool.exitCode, 0);
    QVERIFY2(tool.out.endsWith(QLatin1String(": 7 message(s), 1 new, 1 vanished\n")), qPrintable(tool.out));
    const auto messages = readTs(path(QStringLiteral("de.ts"))).value(QStringLiteral("ID_CIRCLE"));
    QCOMPARE(messages.value(QStringLiteral("Circle")), QStringLiteral(":Kreis"));
    QCOMPARE(messages.value(QStringLiteral("Draws a circle")), QStringLiteral("vanished:Zeichnet einen Kreis"));
    QCOMPARE(messages.value(QStringLiteral("Draws a full circle")), QStringLiteral("unfinished:"));
}

void tst_TrCommand::translationReachesTheLibrary()
{
    const QString lrelease = QStringLiteral(CS_LRELEASE);
    if (lrelease.isEmpty())
        QSKIP("lrelease is not installed");
    QVERIFY(runTr());
    QString ts = QString::fromUtf8(CsToolProcess::readFile(path(QStringLiteral("de.ts"))));
    translate(ts, "Specify the centre point:", "Mittelpunkt angeben:");
    translate(ts, "Draw circle", "Kreis zeichnen");
    QVERIFY(CsToolProcess::writeFile(path(QStringLiteral("de.ts")), ts.toUtf8()));
    QProcess process;
    process.start(lrelease, {path(QStringLiteral("de.ts")), QStringLiteral("-qm"), path(QStringLiteral("de.qm"))});
    QVERIFY(process.waitForFinished(60000));
    QVERIFY2(process.exitCode() == 0, process.readAllStandardError().constData());

    QTranslator translator;
    QVERIFY(translator.load(path(QStringLiteral("de.qm"))));
    QVERIFY(QCoreApplication::installTranslator(&translator));
    TemplatePool templates;
    QVERIFY(templates.appendDirectory(path(QStringLiteral("templates"))));
    templates.load();
    Template* circle = templates.getTemplate(QStringLiteral("circle"));
    QVERIFY(circle);
    QCOMPARE(circle->parameters().size(), std::size_t(1));
    QCOMPARE(QByteArray(circle->parameters().front()->textProperty("prompt")), QByteArray("Mittelpunkt angeben:"));
    QCOMPARE(QByteArray(circle->parameters().front()->textProperty("format")), QByteArray("Centre at %1"));
    ActionPool actions;
    QVERIFY(actions.load(path(QStringLiteral("ui/draw.xcui"))));
    QVERIFY(actions.action(QStringLiteral("ID_CIRCLE")));
    QCOMPARE(actions.action(QStringLiteral("ID_CIRCLE"))->menuText(), QStringLiteral("Kreis zeichnen"));
    QCOMPARE(actions.action(QStringLiteral("ID_CIRCLE"))->ribbonText(), QStringLiteral("Circle"));
    QCoreApplication::removeTranslator(&translator);
}

void tst_TrCommand::brokenInputWritesNothing()
{
    QVERIFY(runTr());
    const QByteArray before = CsToolProcess::readFile(path(QStringLiteral("de.ts")));
    QVERIFY(CsToolProcess::writeFile(path(QStringLiteral("ui/broken.xcui")), "<Actions><Action name=\"ID_X\">\n"));
    CsToolProcess tool;
    RUN_CSTOOL(tool, {QStringLiteral("tr"), path(QStringLiteral("templates")), path(QStringLiteral("ui")),
                      QStringLiteral("-o"), path(QStringLiteral("de.ts"))});
    QCOMPARE(tool.exitCode, 1);
    QVERIFY2(tool.err.contains(QStringLiteral("cstool tr: %1:2:").arg(path(QStringLiteral("ui/broken.xcui")))),
             qPrintable(tool.err));
    QCOMPARE(CsToolProcess::readFile(path(QStringLiteral("de.ts"))), before);
}

void tst_TrCommand::usageErrors()
{
    CsToolProcess tool;
    RUN_CSTOOL(tool, {QStringLiteral("tr"), path(QStringLiteral("ui"))});
    QCOMPARE(tool.exitCode, 2);
    QVERIFY(tool.err.contains(QLatin1String("cstool tr: -o FILE.ts is required")));
    RUN_CSTOOL(tool, {QStringLiteral("tr"), QStringLiteral("-o"), path(QStringLiteral("x.ts"))});
    QCOMPARE(tool.exitCode, 2);
    QVERIFY(tool.err.contains(QLatin1String("cstool tr: no PATH given")));
    RUN_CSTOOL(tool, {QStringLiteral("tr"), QStringLiteral("/nonexistent"), QStringLiteral("-o"),
                      path(QStringLiteral("x.ts"))});
    QCOMPARE(tool.exitCode, 2);
    QVERIFY(!QFile::exists(path(QStringLiteral("x.ts"))));
}

QTEST_MAIN(tst_TrCommand)
#include "tst_trcommand.moc"
