#ifndef CSTOOL_VALIDATECOMMAND_H
#define CSTOOL_VALIDATECOMMAND_H

#include "SubCommand.h"

namespace CsTool {

class XcuiChecker;

// cstool validate PATH... [--icons DIR]...: template files through the library's validator,
// UI definition files through the strict XcuiChecker; a summary line at the end.
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
    static bool validateXcui(XcuiChecker& checker, const QString& filePath);
};

} // namespace CsTool

#endif
