#ifndef CSTOOL_PROPERTYVALUE_H
#define CSTOOL_PROPERTYVALUE_H

#include <QByteArray>
#include <QJsonValue>
#include <QList>
#include <QString>
#include <QVariant>

QT_BEGIN_NAMESPACE
class QObject;
QT_END_NAMESPACE

namespace CsTool {

// Templates and parameters keep their properties as dynamic properties holding an int, a bool
// or bytes. Translated texts ("prompt", "format", the description) are bytes in the local 8-bit
// encoding, all others UTF-8.
class PropertyValue
{
public:
    static QList<QByteArray> names(const QObject* object);
    static bool isTranslated(const QByteArray& name);
    static QString text(const QVariant& value, bool local8Bit);
    static QJsonValue json(const QVariant& value, bool local8Bit);
};

} // namespace CsTool

#endif
