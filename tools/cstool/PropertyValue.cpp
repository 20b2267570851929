#include "PropertyValue.h"

#include <QObject>

#include <algorithm>

namespace CsTool {

QList<QByteArray> PropertyValue::names(const QObject* object)
{
    QList<QByteArray> result = object->dynamicPropertyNames();
    std::sort(result.begin(), result.end());
    return result;
}

bool PropertyValue::isTranslated(const QByteArray& name)
{
    return name == "prompt" || name == "format";
}

QString PropertyValue::text(const QVariant& value, bool local8Bit)
{
    if (value.userType() == QMetaType::QByteArray) {
        const QByteArray bytes = value.toByteArray();
        return local8Bit ? QString::fromLocal8Bit(bytes) : QString::fromUtf8(bytes);
    }
    return value.toString();
}

QJsonValue PropertyValue::json(const QVariant& value, bool local8Bit)
{
    switch (value.userType()) {
    case QMetaType::Bool:
        return value.toBool();
    case QMetaType::Int:
        return value.toInt();
    default:
        return text(value, local8Bit);
    }
}

} // namespace CsTool
