#ifndef CS_TESTS_ICONFILES_H
#define CS_TESTS_ICONFILES_H

#include <CommandSystem/PlatformHooks.h>

#include <QColor>
#include <QDir>
#include <QImage>
#include <QSize>

// Writes a PNG of one colour, so that tests can tell the files of an icon apart by pixel.
inline bool writePng(const QString& path, const QSize& size, const QColor& colour)
{
    QDir().mkpath(QFileInfo(path).absolutePath());
    QImage image(size, QImage::Format_ARGB32);
    image.fill(colour);
    return image.save(path, "PNG");
}

// Platform hooks with a fixed desktop DPI and everything else built in.
inline void useDesktopDpi(qreal x, qreal y)
{
    Talvir::Vexa::Cs::PlatformHooks hooks;
    hooks.logicalDpi = [x, y] { return QSizeF(x, y); };
    Talvir::Vexa::Cs::setPlatformHooks(hooks);
}

#endif
