#ifndef CSTOOL_SHOWCOMMAND_H
#define CSTOOL_SHOWCOMMAND_H

#include "SubCommand.h"

#include <QJsonObject>

namespace Talvir { namespace Vexa { namespace Cs {
class Parameter;
class Template;
} } }

namespace CsTool {

// cstool show DIR... NAME [--json]: one template's properties and parameters.
class ShowCommand : public SubCommand
{
public:
    QString name() const override;
    QString summary() const override;

protected:
    QString details() const override;
    void configure(QCommandLineParser& parser) override;
    int run(const QCommandLineParser& parser) override;

private:
    static void printText(const Talvir::Vexa::Cs::Template& temp, const QString& file);
    static void printProperties(const Talvir::Vexa::Cs::Template& temp);
    static void printParameters(const Talvir::Vexa::Cs::Template& temp);
    static QStringList parameterRow(const Talvir::Vexa::Cs::Parameter& parameter);
    static QJsonObject templateJson(const Talvir::Vexa::Cs::Template& temp, const QString& file);
    static QJsonObject parameterJson(const Talvir::Vexa::Cs::Parameter& parameter);
};

} // namespace CsTool

#endif
