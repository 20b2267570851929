#ifndef CSTOOL_VALIDATECOMMAND_H
#define CSTOOL_VALIDATECOMMAND_H

#include "SubCommand.h"

namespace CsTool {

class Findings;
class XcuiChecker;

// cstool validate PATH... [--icons DIR]... [--recursive] [--werror]: checks template files,
// UI definition files and map files and reports every problem as a compiler would, as
// "FILE:LINE:COLUMN: error|warning: message" on standard error; a summary line at the end.
class ValidateCommand : public SubCommand
{
public:
    QString name() const override;
    QString summary() const override;

protected:
    QString details() const override;
    void configure(QCommandLineParser& parser) override;
    int run(const QCommandLineParser& parser) override;

private:
    static void checkFile(const QString& filePath, XcuiChecker& xcuiChecker, Findings& findings);
};

} // namespace CsTool

#endif
