#ifndef COMMANDSYSTEM_ICONCACHE_H
#define COMMANDSYSTEM_ICONCACHE_H

#include <CommandSystem/Global.h>

#include <QHash>
#include <QPixmap>
#include <QSizeF>
#include <QString>

CS_BEGIN_NAMESPACE

// Icon files decoded and scaled for action icons. While an IconCache object lives (one UI
// definition file being loaded), each file is decoded once per scale and each path is looked
// up once; outside such a scope every request goes to the disk, so an icon file changed on disk
// is always seen afresh.
class IconCache
{
public:
    IconCache();
    ~IconCache();

    IconCache(const IconCache&) = delete;
    IconCache& operator=(const IconCache&) = delete;

    // The file's pixmap scaled by factors (64 pixels times each factor above 1.001); null when
    // the file is missing or unreadable.
    static QPixmap scaledPixmap(const QString& path, const QSizeF& factors);

    // Whether a regular file exists at path. A pool's actions share few icons, and resolving
    // one name costs up to five lookups (name, name.png, each icon directory, the _disabled and
    // _active variants): a third of a pool's load time before they were cached.
    static bool isFile(const QString& path);

private:
    static IconCache*& active();

    QHash<QString, QPixmap> pixmaps;
    QHash<QString, bool> files;
    QSizeF pixmapFactors;
    IconCache* previous;
};

CS_END_NAMESPACE

#endif
