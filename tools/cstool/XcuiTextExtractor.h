#ifndef CSTOOL_XCUITEXTEXTRACTOR_H
#define CSTOOL_XCUITEXTEXTRACTOR_H

#include <QString>

namespace CsTool {

class TranslationCatalog;

// Finds the texts of a UI definition file that the action pool translates: "Hint", "Desc",
// and the "Ribbon" and "Menu" of "Text", with the action's name as context.
class XcuiTextExtractor
{
public:
    // False on an XML error; see error().
    bool extract(const QString& filePath, TranslationCatalog& catalog);
    QString error() const;

private:
    QString problem;
};

} // namespace CsTool

#endif
