#ifndef TST_OUTPUTCAPTURE_H
#define TST_OUTPUTCAPTURE_H

// Captures what the code under test writes to standard output (printf) and to Qt's debug
// channel (qDebug), so that tests can check which message went to which channel.

#include <QByteArray>
#include <QStringList>
#include <QTemporaryFile>
#include <QtGlobal>

#include <cstdio>
#include <unistd.h>

class OutputCapture
{
public:
    OutputCapture()
    {
        debugMessages().clear();
        previousHandler = qInstallMessageHandler(recordDebug);
        std::fflush(stdout);
        savedStdout = ::dup(STDOUT_FILENO);
        if (stdoutFile.open())
            ::dup2(stdoutFile.handle(), STDOUT_FILENO);
    }

    ~OutputCapture() { finish(); }

    OutputCapture(const OutputCapture&) = delete;
    OutputCapture& operator=(const OutputCapture&) = delete;

    // Everything printed to standard output since construction.
    QByteArray standardOutput()
    {
        finish();
        return printed;
    }

    // Every debug message since construction, as the handler received it (no line end added).
    QStringList debugOutput()
    {
        finish();
        return debugMessages();
    }

private:
    void finish()
    {
        if (savedStdout < 0)
            return;
        std::fflush(stdout);
        ::dup2(savedStdout, STDOUT_FILENO);
        ::close(savedStdout);
        savedStdout = -1;
        qInstallMessageHandler(previousHandler);
        stdoutFile.seek(0);
        printed = stdoutFile.readAll();
    }

    static QStringList& debugMessages()
    {
        static QStringList messages;
        return messages;
    }

    static void recordDebug(QtMsgType type, const QMessageLogContext&, const QString& message)
    {
        if (type == QtDebugMsg)
            debugMessages().append(message);
        else
            std::fprintf(stderr, "%s\n", qUtf8Printable(message));
    }

    QTemporaryFile stdoutFile;
    QtMessageHandler previousHandler = nullptr;
    int savedStdout = -1;
    QByteArray printed;
};

#endif
