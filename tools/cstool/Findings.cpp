#include "Findings.h"

#include <algorithm>

namespace CsTool {

Findings::Findings(const QString& file)
    : path(file)
{
}

void Findings::error(const SourcePosition& where, const QString& message)
{
    add(Error, where, message);
    ++errors;
}

void Findings::warning(const SourcePosition& where, const QString& message)
{
    add(Warning, where, message);
}

void Findings::add(Severity severity, const SourcePosition& where, const QString& message)
{
    findings.append(Finding{severity, where, message});
}

QString Findings::location(const SourcePosition& where) const
{
    return QStringLiteral("%1:%2:%3").arg(path).arg(where.line).arg(where.column);
}

QString Findings::quoted(QString value)
{
    value.replace(QLatin1Char('\\'), QLatin1String("\\\\")).replace(QLatin1Char('"'), QLatin1String("\\\""));
    value.replace(QLatin1Char('\n'), QLatin1String("\\n")).replace(QLatin1Char('\r'), QLatin1String("\\r"));
    value.replace(QLatin1Char('\t'), QLatin1String("\\t"));
    return QLatin1Char('"') + value + QLatin1Char('"');
}

QString Findings::file() const
{
    return path;
}

int Findings::errorCount() const
{
    return errors;
}

int Findings::warningCount() const
{
    return int(findings.size()) - errors;
}

QStringList Findings::lines() const
{
    QList<Finding> sorted = findings;
    std::stable_sort(sorted.begin(), sorted.end(), [](const Finding& a, const Finding& b) {
        return a.where.line != b.where.line ? a.where.line < b.where.line
                                            : a.where.column < b.where.column;
    });
    QStringList result;
    for (const Finding& finding : std::as_const(sorted)) {
        const QLatin1String severity(finding.severity == Error ? "error" : "warning");
        result.append(QStringLiteral("%1: %2: %3").arg(location(finding.where), severity,
                                                       finding.message));
    }
    return result;
}

} // namespace CsTool
