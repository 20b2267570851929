// Sketchpad: a small 2D drafting program, the reference host of the CommandSystem library.

#include "CommandRunner.h"
#include "MainWindow.h"
#include "ScriptRunner.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QStandardPaths>
#include <QTest>

#include <cstdio>
#include <memory>

int main(int argc, char* argv[])
{
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Sketchpad"));
    QApplication::setApplicationVersion(QStringLiteral(SKETCHPAD_VERSION));

    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("A small 2D drafting program built on CommandSystem."));
    parser.addHelpOption();
    parser.addVersionOption();
    const QCommandLineOption script(QStringLiteral("script"),
                                    QStringLiteral("Replay the session in <file>, print it, and quit."),
                                    QStringLiteral("file"));
    const QCommandLineOption screenshot(QStringLiteral("screenshot"),
                                        QStringLiteral("Save a picture of the window to <png> and quit."),
                                        QStringLiteral("png"));
    const QCommandLineOption catalogue(QStringLiteral("catalogue"),
                                       QStringLiteral("Read templates/ and ui/ from <folder>."),
                                       QStringLiteral("folder"), QStringLiteral(SKETCHPAD_CATALOGUE_DIR));
    const QCommandLineOption record(QStringLiteral("record"),
                                    QStringLiteral("Write every command run, with its answers, to the transcript <file>; "
                                                   "--script replays such a file."),
                                    QStringLiteral("file"));
    const QCommandLineOption keymap(QStringLiteral("keymap"),
                                    QStringLiteral("Read and save your shortcuts in <file> (default: shortcuts.keymap "
                                                   "in the settings folder)."),
                                    QStringLiteral("file"));
    parser.addOptions({script, screenshot, catalogue, record, keymap});
    parser.process(app);

    const QString folder = parser.value(catalogue);
    if (!QDir(folder).exists(QStringLiteral("templates")) || !QDir(folder).exists(QStringLiteral("ui"))) {
        std::fprintf(stderr, "sketchpad: %s holds no templates/ and ui/ folders\n", qPrintable(folder));
        return 2;
    }
    MainWindow window(folder);
    if (parser.isSet(record))
        window.context().runner->setRecordFile(parser.value(record));
    window.loadUserKeymap(parser.isSet(keymap)
                              ? parser.value(keymap)
                              : QDir(QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation))
                                    .filePath(QStringLiteral("shortcuts.keymap")));
    window.resize(1280, 820);
    window.show();

    std::unique_ptr<ScriptRunner> runner;
    if (parser.isSet(script) || parser.isSet(screenshot)) {
        // Scripted keys reach shortcuts only once the window is active, as a user's do.
        window.activateWindow();
        if (!QTest::qWaitForWindowActive(&window))
            std::fprintf(stderr, "sketchpad: the window did not become active; scripted shortcuts may not fire\n");
        runner = std::make_unique<ScriptRunner>(&window, parser.value(script), parser.value(screenshot));
        if (!runner->start())
            return 2;
    }
    return app.exec();
}
