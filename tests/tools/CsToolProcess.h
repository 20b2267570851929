#ifndef CSTOOLPROCESS_H
#define CSTOOLPROCESS_H

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QString>
#include <QStringList>
#include <QTest>

// Runs the built cstool (CSTOOL_PATH) as a separate process, as authors and CI scripts do,
// and keeps its exit code and output for the test to check.
class CsToolProcess
{
public:
    int exitCode = -1;
    QString out;
    QString err;

    bool run(const QStringList& arguments, const QString& workingDirectory = QString())
    {
        QProcess process;
        process.setProgram(QStringLiteral(CSTOOL_PATH));
        process.setArguments(arguments);
        if (!workingDirectory.isEmpty())
            process.setWorkingDirectory(workingDirectory);
        process.start();
        if (!process.waitForFinished(60000) || process.exitStatus() != QProcess::NormalExit)
            return false;
        exitCode = process.exitCode();
        out = QString::fromLocal8Bit(process.readAllStandardOutput());
        err = QString::fromLocal8Bit(process.readAllStandardError());
        return true;
    }

    QStringList outLines() const { return out.split(QLatin1Char('\n'), Qt::SkipEmptyParts); }

    static bool writeFile(const QString& path, const QByteArray& content)
    {
        QDir().mkpath(path.section(QLatin1Char('/'), 0, -2));
        QFile file(path);
        return file.open(QIODevice::WriteOnly) && file.write(content) == content.size();
    }

    static QByteArray readFile(const QString& path)
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
};

// Fails the calling test function when cstool could not be run at all.
#define RUN_CSTOOL(tool, ...) QVERIFY2((tool).run(__VA_ARGS__), "cstool did not run to its end")

#endif
