#ifndef CSTOOL_TRCOMMAND_H
#define CSTOOL_TRCOMMAND_H

#include "SubCommand.h"

namespace CsTool {

class TranslationCatalog;

// cstool tr PATH... -o FILE.ts: extracts the translatable texts of template and UI definition
// files into a Qt Linguist file, keeping the translations that FILE already holds.
class TrCommand : public SubCommand
{
public:
    QString name() const override;
    QString summary() const override;

protected:
    QString details() const override;
    void configure(QCommandLineParser& parser) override;
    int run(const QCommandLineParser& parser) override;

private:
    bool extract(const QStringList& files, TranslationCatalog& catalog) const;
};

} // namespace CsTool

#endif
