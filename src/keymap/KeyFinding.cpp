#include <CommandSystem/KeyFinding.h>

CS_BEGIN_NAMESPACE

QString KeyFinding::toString() const
{
    const QString where = location.toString();
    const QString text = QLatin1String(severity == Error ? "error: " : "warning: ") + message;
    return where.isEmpty() ? text : where + QLatin1String(": ") + text;
}

CS_END_NAMESPACE
