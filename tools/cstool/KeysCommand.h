#ifndef CSTOOL_KEYSCOMMAND_H
#define CSTOOL_KEYSCOMMAND_H

#include "SubCommand.h"

namespace CsTool {

// cstool keys FILE...: the library's conflict checks over UI definition, template, alias and
// keymap files, each finding as FILE:LINE:COLUMN: error|warning: message.
class KeysCommand : public SubCommand
{
public:
    QString name() const override;
    QString summary() const override;

protected:
    QString details() const override;
    void configure(QCommandLineParser& parser) override;
    int run(const QCommandLineParser& parser) override;
};

} // namespace CsTool

#endif
