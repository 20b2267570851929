#include "Program.h"

#include <QApplication>

int main(int argc, char* argv[])
{
    // Actions and icons need a GUI application, but a command-line tool must run without a
    // display (in CI, over ssh): use the offscreen platform unless the caller chose one.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("cstool"));
    QApplication::setApplicationVersion(QStringLiteral(CSTOOL_VERSION));
    CsTool::Program program;
    return program.run(QApplication::arguments());
}
