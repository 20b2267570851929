#include "action/IconCache.h"

#include <QFileInfo>

CS_BEGIN_NAMESPACE

namespace {

QPixmap readScaled(const QString& path, const QSizeF& factors)
{
    const QPixmap pixmap(path);
    if (pixmap.isNull() || (factors.width() <= 1.001 && factors.height() <= 1.001))
        return pixmap;
    const QSize size(int(factors.width() * 64), int(factors.height() * 64));
    return pixmap.scaled(size, Qt::IgnoreAspectRatio, Qt::FastTransformation);
}

} // namespace

IconCache::IconCache() : previous(active())
{
    active() = this;
}

IconCache::~IconCache()
{
    active() = previous;
}

IconCache*& IconCache::active()
{
    static IconCache* cache = nullptr;
    return cache;
}

QPixmap IconCache::scaledPixmap(const QString& path, const QSizeF& factors)
{
    IconCache* cache = active();
    if (!cache)
        return readScaled(path, factors);
    if (cache->pixmapFactors != factors) {
        cache->pixmaps.clear();
        cache->pixmapFactors = factors;
    }
    auto known = cache->pixmaps.constFind(path);
    if (known == cache->pixmaps.constEnd())
        known = cache->pixmaps.insert(path, readScaled(path, factors));
    return *known;
}

bool IconCache::isFile(const QString& path)
{
    IconCache* cache = active();
    if (!cache)
        return QFileInfo(path).isFile();
    auto known = cache->files.constFind(path);
    if (known == cache->files.constEnd())
        known = cache->files.insert(path, QFileInfo(path).isFile());
    return *known;
}

CS_END_NAMESPACE
