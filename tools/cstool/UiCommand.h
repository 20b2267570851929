#ifndef CSTOOL_UICOMMAND_H
#define CSTOOL_UICOMMAND_H

#include "SubCommand.h"

#include <QHash>
#include <QSet>

namespace Talvir { namespace Vexa { namespace Cs {
class Action;
class ActionPool;
} } }

namespace CsTool {

// cstool ui PATH... [--icons DIR]... [--save FILE]: loads UI definition files into an action
// pool as a host would and prints what the pool holds.
class UiCommand : public SubCommand
{
public:
    QString name() const override;
    QString summary() const override;

protected:
    QString details() const override;
    void configure(QCommandLineParser& parser) override;
    int run(const QCommandLineParser& parser) override;

private:
    static QStringList iconFoldersBeside(const QStringList& files);
    bool load(Talvir::Vexa::Cs::ActionPool& pool, const QString& filePath);
    void reportDropped(const Talvir::Vexa::Cs::ActionPool& pool, const QString& filePath);
    void print(const Talvir::Vexa::Cs::ActionPool& pool) const;
    QString iconState(const Talvir::Vexa::Cs::Action& action) const;
    bool save(Talvir::Vexa::Cs::ActionPool& pool, const QString& filePath) const;
    static bool readsBack(const Talvir::Vexa::Cs::ActionPool& pool, const QString& filePath);

    QSet<const Talvir::Vexa::Cs::Action*> seen;
    QHash<QString, QString> declaredIcons;
    int dropped = 0;
};

} // namespace CsTool

#endif
