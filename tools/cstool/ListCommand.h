#ifndef CSTOOL_LISTCOMMAND_H
#define CSTOOL_LISTCOMMAND_H

#include "SubCommand.h"

namespace CsTool {

// cstool list DIR...: every template name the directories define, with its file.
class ListCommand : public SubCommand
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
