// Sketchpad: a small 2D drafting program, the reference host of the CommandSystem library.

#include "CommandRunner.h"
#include "MainWindow.h"
#include "ScriptRunner.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QDir>

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
    parser.addOptions({script, screenshot, catalogue, record});
    parser.process(app);

    const QString folder = parser.value(catalogue);
    if (!QDir(folder).exists(QStringLiteral("templates")) || !QDir(folder).exists(QStringLiteral("ui"))) {
        std::fprintf(stderr, "sketchpad: %s holds no templates/ and ui/ folders\n", qPrintable(folder));
        return 2;
    }
    MainWindow window(folder);
    if (parser.isSet(record))
        window.context().runner->setRecordFile(parser.value(record));
    window.resize(1280, 820);
    window.show();

    std::unique_ptr<ScriptRunner> runner;
    if (parser.isSet(script) || parser.isSet(screenshot)) {
        runner = std::make_unique<ScriptRunner>(&window, parser.value(script), parser.value(screenshot));
        if (!runner->start())
            return 2;
    }
    return app.exec();
}
