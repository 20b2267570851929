#ifndef CSTOOL_SUBCOMMAND_H
#define CSTOOL_SUBCOMMAND_H

#include <QString>
#include <QStringList>

QT_BEGIN_NAMESPACE
class QCommandLineParser;
QT_END_NAMESPACE

namespace CsTool {

// One sub-command of cstool with its own options and help text. Exit codes are shared by all
// sub-commands: 0 success, 1 a problem found in the files, 2 a usage error.
class SubCommand
{
public:
    enum ExitCode { Success = 0, Failure = 1, UsageError = 2 };

    virtual ~SubCommand();

    virtual QString name() const = 0;
    // One line for the overview of "cstool --help".
    virtual QString summary() const = 0;

    // arguments: the sub-command's own arguments, without the program and sub-command name.
    int execute(const QStringList& arguments);

protected:
    // More text for "cstool NAME --help" after the summary line.
    virtual QString details() const = 0;
    virtual void configure(QCommandLineParser& parser) = 0;
    virtual int run(const QCommandLineParser& parser) = 0;

    int usageError(const QString& message) const;
    void report(const QString& message) const;

private:
    QString helpText(const QCommandLineParser& parser) const;
};

} // namespace CsTool

#endif
