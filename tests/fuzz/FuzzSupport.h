#ifndef COMMANDSYSTEM_TESTS_FUZZSUPPORT_H
#define COMMANDSYSTEM_TESTS_FUZZSUPPORT_H

// Shared set-up of the libFuzzer targets: a headless application, a scratch directory, and
// silence on standard output and Qt's message channels (the readers report every bad input
// there, which would only slow the fuzzer down).

#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QTemporaryDir>

#include <cstdint>
#include <cstdio>
#include <fcntl.h>
#include <unistd.h>

namespace Fuzz {

inline void dropMessage(QtMsgType, const QMessageLogContext&, const QString&) {}

inline QTemporaryDir& scratch()
{
    static QTemporaryDir directory;
    return directory;
}

inline void initialize(int* argc, char*** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    static QGuiApplication application(*argc, *argv);
    qInstallMessageHandler(dropMessage);
    std::fflush(stdout);
    const int devNull = ::open("/dev/null", O_WRONLY);
    ::dup2(devNull, STDOUT_FILENO);
    ::close(devNull);
    if (!scratch().isValid())
        std::abort();
}

// Writes the input as the file `name` in the scratch directory (or in `directory` below it)
// and returns its path.
inline QString writeInput(const uint8_t* data, size_t size, const QString& name,
                          const QString& directory = QString())
{
    QDir dir(scratch().path());
    if (!directory.isEmpty()) {
        dir.mkpath(directory);
        dir.cd(directory);
    }
    const QString path = dir.absoluteFilePath(name);
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate))
        std::abort();
    file.write(reinterpret_cast<const char*>(data), qint64(size));
    return path;
}

} // namespace Fuzz

#endif
