#include "template/PropertyTextCache.h"

#include <QObject>
#include <QVariant>

CS_BEGIN_NAMESPACE

const char* PropertyTextCache::text(const QObject* object, const char* name) const
{
    const QVariant value = object->property(name);
    if (!value.isValid())
        return "";
    // The variant shares the stored array, so its bytes live as long as the property value.
    if (value.userType() == QMetaType::QByteArray)
        return static_cast<const QByteArray*>(value.constData())->constData();
    QByteArray& text = texts[QByteArray(name)];
    text = value.toByteArray();
    return text.constData();
}

int PropertyTextCache::integer(const QObject* object, const char* name)
{
    return object->property(name).toInt();
}

CS_END_NAMESPACE
