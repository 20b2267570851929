#ifndef CSTOOL_FINDINGS_H
#define CSTOOL_FINDINGS_H

#include <QList>
#include <QString>
#include <QStringList>

namespace CsTool {

// A place in a file, lines and columns counted from 1 as compilers and editors count them.
struct SourcePosition {
    qint64 line = 1;
    qint64 column = 1;
};

// What a check found in one file. Each finding reads "FILE:LINE:COLUMN: error: message" (or
// "warning:"), the file named as the user gave it, so that editors and CI logs can jump to it.
class Findings
{
public:
    enum Severity { Error, Warning };

    explicit Findings(const QString& file);

    void error(const SourcePosition& where, const QString& message);
    void warning(const SourcePosition& where, const QString& message);
    // "FILE:LINE:COLUMN", to refer to another place in a message.
    QString location(const SourcePosition& where) const;
    // A value for a message: in double quotes, with line breaks and tabs made visible, since
    // white space around a value is part of it.
    static QString quoted(QString value);

    QString file() const;
    int errorCount() const;
    int warningCount() const;
    // Every finding in the order of its position in the file; findings at the same place keep
    // the order in which they were made.
    QStringList lines() const;

private:
    struct Finding {
        Severity severity;
        SourcePosition where;
        QString message;
    };

    void add(Severity severity, const SourcePosition& where, const QString& message);

    QString path;
    QList<Finding> findings;
    int errors = 0;
};

} // namespace CsTool

#endif
