#include "TestFiles.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

// Sketchpad's command palette, catalogue shortcuts, user keymap and shortcuts dialog, driven by
// scripted keys in a headless process. Every run has its own settings folder.
class tst_SketchpadKeys : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void paletteStartsTheRectangle();
    void catalogueShortcutsFire();
    void userKeymapChangesShortcutsAndKeepsOrphans();
    void brokenKeymapChangesNothing();
    void dialogRefusesAConflictAndSavesAChange();
    void settingsFolderHoldsTheKeymap();

private:
    struct Run {
        int exitCode = -1;
        QStringList out;
        QString err;
    };
    Run run(const QString& script, const QStringList& arguments = QStringList());
    QString write(const QString& name, const QByteArray& content);
    static int indexOf(const QStringList& lines, const QString& line, int from = 0);

    std::unique_ptr<QTemporaryDir> m_dir;
};

void tst_SketchpadKeys::init()
{
    m_dir = std::make_unique<QTemporaryDir>();
    QVERIFY(m_dir->isValid());
}

tst_SketchpadKeys::Run tst_SketchpadKeys::run(const QString& script, const QStringList& arguments)
{
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
    environment.insert(QStringLiteral("XDG_CONFIG_HOME"), m_dir->filePath(QStringLiteral("config")));
    process.setProcessEnvironment(environment);
    process.start(QStringLiteral(SKETCHPAD_EXECUTABLE),
                  QStringList{QStringLiteral("--script"), write(QStringLiteral("test.script"), script.toUtf8())} + arguments);
    Run result;
    if (!process.waitForFinished(90000)) {
        process.kill();
        return result;
    }
    result.exitCode = process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
    result.out = QString::fromLocal8Bit(process.readAllStandardOutput()).split(QLatin1Char('\n'));
    result.err = QString::fromLocal8Bit(process.readAllStandardError());
    return result;
}

QString tst_SketchpadKeys::write(const QString& name, const QByteArray& content)
{
    return TestFiles::write(QDir(m_dir->path()), name, content);
}

int tst_SketchpadKeys::indexOf(const QStringList& lines, const QString& line, int from)
{
    for (int i = from; i < lines.size(); ++i) {
        if (lines.at(i) == line)
            return i;
    }
    return -1;
}

void tst_SketchpadKeys::paletteStartsTheRectangle()
{
    const Run result = run(QStringLiteral("key Ctrl+Shift+P\ntext rectang\nkey Return\n"
                                          "type 0,0\ntype 10,5\ntype dump\n"));
    QVERIFY2(result.exitCode == 0, qPrintable(result.out.join(QLatin1Char('\n')) + result.err));
    const int enter = indexOf(result.out, QStringLiteral("script key Return"));
    QVERIFY(enter > 0);
    QCOMPARE(result.out.value(enter + 1), QStringLiteral("issued rectangle"));
    QVERIFY(result.out.contains(QStringLiteral("entity #1 rectangle layer=0 width=0.25 0,0 10,0 10,5 0,5")));
    QVERIFY(result.out.contains(QStringLiteral("script end, 0 failed steps")));
}

void tst_SketchpadKeys::catalogueShortcutsFire()
{
    const Run result = run(QStringLiteral("key Ctrl+N\nwait\nkey F1\nkey Escape\nwait\n"));
    QVERIFY2(result.exitCode == 0, qPrintable(result.out.join(QLatin1Char('\n')) + result.err));
    QCOMPARE(result.out.value(indexOf(result.out, QStringLiteral("script key Ctrl+N")) + 1), QStringLiteral("issued new"));
    QCOMPARE(result.out.value(indexOf(result.out, QStringLiteral("script key F1")) + 1), QStringLiteral("issued help"));
}

void tst_SketchpadKeys::userKeymapChangesShortcutsAndKeepsOrphans()
{
    const QString keymap = write(QStringLiteral("mine.keymap"),
                                 "<keymap version=\"1\">\n"
                                 "    <shortcut action=\"ID_DRAW_LINE\">Ctrl+Shift+L</shortcut>\n"
                                 "    <none action=\"ID_FILE_NEW\"/>\n"
                                 "    <shortcut action=\"ID_DRAW_GONE\">F4</shortcut>\n"
                                 "</keymap>\n");
    const Run result = run(QStringLiteral("key Ctrl+N\nkey Ctrl+Shift+L\ntype 0,0\ntype 3,0\ntype\ntype dump\n"),
                           {QStringLiteral("--keymap"), keymap});
    QVERIFY2(result.exitCode == 0, qPrintable(result.out.join(QLatin1Char('\n')) + result.err));
    QVERIFY2(result.err.contains(keymap + QStringLiteral(":4:5: no action ID_DRAW_GONE; its shortcut is kept in the file")),
             qPrintable(result.err));
    QCOMPARE(result.out.value(indexOf(result.out, QStringLiteral("script key Ctrl+N")) + 1), QStringLiteral("script key Ctrl+Shift+L"));
    QCOMPARE(result.out.value(indexOf(result.out, QStringLiteral("script key Ctrl+Shift+L")) + 1), QStringLiteral("issued line"));
    QVERIFY(result.out.contains(QStringLiteral("entity #1 line layer=0 width=0.25 0,0 3,0")));
}

void tst_SketchpadKeys::brokenKeymapChangesNothing()
{
    const QString keymap = write(QStringLiteral("broken.keymap"),
                                 "<keymap version=\"1\">\n"
                                 "    <none action=\"ID_FILE_NEW\"/>\n"
                                 "    <shortcut action=\"ID_DRAW_LINE\">Ctrl+Shift+Nothing</shortcut>\n"
                                 "</keymap>\n");
    const Run result = run(QStringLiteral("key Ctrl+N\n"), {QStringLiteral("--keymap"), keymap});
    QVERIFY2(result.exitCode == 0, qPrintable(result.out.join(QLatin1Char('\n')) + result.err));
    QVERIFY2(result.err.contains(QStringLiteral("your shortcuts were not applied: ") + keymap
                                 + QStringLiteral(":3:5: Not a key: \"Ctrl+Shift+Nothing\"")),
             qPrintable(result.err));
    QCOMPARE(result.out.value(indexOf(result.out, QStringLiteral("script key Ctrl+N")) + 1), QStringLiteral("issued new"));
}

// Enter in the search field records keys; once pressed they are checked: a clash is refused
// and shown, anything else given and saved at once, with the orphan of the file kept.
void tst_SketchpadKeys::dialogRefusesAConflictAndSavesAChange()
{
    const QString keymap = write(QStringLiteral("user.keymap"),
                                 "<keymap version=\"1\">\n"
                                 "    <shortcut action=\"ID_DRAW_GONE\">F4</shortcut>\n"
                                 "</keymap>\n");
    const Run result = run(QStringLiteral("key Ctrl+Alt+K\n"
                                          "text rectangle\nkey Return\nkey Ctrl+Shift+R\npause 1300\n"
                                          "text new drawing\nkey Return\nkey Ctrl+Y\npause 1300\n"
                                          "key Escape\n"
                                          "key Ctrl+Shift+R\ntype 0,0\ntype 4,4\ntype dump\n"),
                           {QStringLiteral("--keymap"), keymap});
    QVERIFY2(result.exitCode == 0, qPrintable(result.out.join(QLatin1Char('\n')) + result.err));
    QVERIFY2(result.out.contains(QStringLiteral("| Shortcut of ID_DRAW_RECTANGLE is Ctrl+Shift+R, saved to ") + keymap),
             qPrintable(result.out.join(QLatin1Char('\n'))));
    QVERIFY(result.out.contains(QStringLiteral("| Ctrl+Y not given to ID_FILE_NEW: error: Ctrl+Y is the shortcut of "
                                               "both ID_FILE_NEW and ID_EDIT_REDO")));
    QCOMPARE(result.out.filter(QStringLiteral("not given")).size(), 1);
    QCOMPARE(result.out.value(indexOf(result.out, QStringLiteral("script key Ctrl+Shift+R"),
                                      indexOf(result.out, QStringLiteral("script key Escape"))) + 1),
             QStringLiteral("issued rectangle"));
    QVERIFY(result.out.contains(QStringLiteral("entity #1 rectangle layer=0 width=0.25 0,0 4,0 4,4 0,4")));
    QCOMPARE(TestFiles::read(keymap), QByteArray("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                                      "<keymap version=\"1\">\n"
                                      "    <shortcut action=\"ID_DRAW_GONE\">F4</shortcut>\n"
                                      "    <shortcut action=\"ID_DRAW_RECTANGLE\">Ctrl+Shift+R</shortcut>\n"
                                      "</keymap>\n"));
}

void tst_SketchpadKeys::settingsFolderHoldsTheKeymap()
{
    const Run first = run(QStringLiteral("key Ctrl+Alt+K\ntext polyline\nkey Return\nkey F6\npause 1300\nkey Escape\n"));
    QVERIFY2(first.exitCode == 0, qPrintable(first.out.join(QLatin1Char('\n')) + first.err));
    const QString saved = m_dir->filePath(QStringLiteral("config/Sketchpad/shortcuts.keymap"));
    QVERIFY2(TestFiles::read(saved).contains("<shortcut action=\"ID_DRAW_POLYLINE\">F6</shortcut>"), qPrintable(QString::fromUtf8(TestFiles::read(saved))));
    const Run second = run(QStringLiteral("key F6\n"));
    QVERIFY2(second.exitCode == 0, qPrintable(second.out.join(QLatin1Char('\n')) + second.err));
    QCOMPARE(second.out.value(indexOf(second.out, QStringLiteral("script key F6")) + 1), QStringLiteral("issued polyline"));
}

QTEST_GUILESS_MAIN(tst_SketchpadKeys)
#include "tst_sketchpadkeys.moc"
