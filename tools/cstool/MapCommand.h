#ifndef CSTOOL_MAPCOMMAND_H
#define CSTOOL_MAPCOMMAND_H

#include "SubCommand.h"

#include <QHash>

namespace CsTool {

// cstool map DIR... [--check]: writes each template directory's ".map", or with --check only
// reports the directories whose map is missing or out of date.
class MapCommand : public SubCommand
{
public:
    QString name() const override;
    QString summary() const override;

protected:
    QString details() const override;
    void configure(QCommandLineParser& parser) override;
    int run(const QCommandLineParser& parser) override;

private:
    bool write(const QString& directory, const QHash<QString, QString>& map) const;
    bool check(const QString& directory, const QHash<QString, QString>& map) const;
};

} // namespace CsTool

#endif
