#ifndef CSTOOL_ICONRESOLVER_H
#define CSTOOL_ICONRESOLVER_H

#include <QString>
#include <QStringList>

namespace CsTool {

// Finds the file of an icon name the way actions do: the name as a path, then with ".png"
// added when it has no "." at all, then that name inside each icon directory in order.
class IconResolver
{
public:
    explicit IconResolver(const QStringList& directories);

    // The existing file, or an empty string.
    QString resolve(const QString& name) const;

private:
    QStringList directories;
};

} // namespace CsTool

#endif
