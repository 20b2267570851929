#include "TextTable.h"

namespace CsTool {

TextTable::TextTable(const QStringList& header)
{
    if (!header.isEmpty())
        rows.append(header);
}

void TextTable::addRow(const QStringList& cells)
{
    rows.append(cells);
}

bool TextTable::isEmpty() const
{
    return rows.isEmpty();
}

QStringList TextTable::lines(const QString& indent) const
{
    const QList<int> columnWidths = widths();
    QStringList result;
    for (const QStringList& row : rows) {
        QString line = indent;
        for (int column = 0; column < row.size(); ++column) {
            const bool last = column == row.size() - 1;
            line += last ? row.at(column) : row.at(column).leftJustified(columnWidths.at(column) + 2);
        }
        while (line.endsWith(QLatin1Char(' ')))
            line.chop(1);
        result.append(line);
    }
    return result;
}

QList<int> TextTable::widths() const
{
    QList<int> result;
    for (const QStringList& row : rows) {
        for (int column = 0; column < row.size(); ++column) {
            if (column == result.size())
                result.append(0);
            result[column] = qMax(result.at(column), int(row.at(column).size()));
        }
    }
    return result;
}

} // namespace CsTool
