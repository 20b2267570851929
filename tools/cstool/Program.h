#ifndef CSTOOL_PROGRAM_H
#define CSTOOL_PROGRAM_H

#include <QStringList>

#include <memory>
#include <vector>

namespace CsTool {

class SubCommand;

// The program: picks the sub-command named by the first argument and hands it the rest.
class Program
{
public:
    Program();
    ~Program();

    int run(const QStringList& arguments);

private:
    SubCommand* find(const QString& name) const;
    QString overview() const;
    int help(const QStringList& topics) const;

    std::vector<std::unique_ptr<SubCommand>> commands;
};

} // namespace CsTool

#endif
