#ifndef CSTOOL_DECLAREDICONS_H
#define CSTOOL_DECLAREDICONS_H

#include <QHash>
#include <QString>

namespace CsTool {

// The icon names as a UI definition file writes them, by action name. An action keeps only the
// icon names that resolved; to say which icon is missing the file's own text is needed.
class DeclaredIcons
{
public:
    static QHash<QString, QString> read(const QString& filePath);
};

} // namespace CsTool

#endif
