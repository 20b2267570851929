#ifndef CSTOOL_TEXTTABLE_H
#define CSTOOL_TEXTTABLE_H

#include <QList>
#include <QStringList>

namespace CsTool {

// Rows of text printed in aligned columns, two blanks apart, without trailing blanks.
class TextTable
{
public:
    explicit TextTable(const QStringList& header = QStringList());

    void addRow(const QStringList& cells);
    bool isEmpty() const;
    QStringList lines(const QString& indent = QString()) const;

private:
    QList<int> widths() const;

    QList<QStringList> rows;
};

} // namespace CsTool

#endif
