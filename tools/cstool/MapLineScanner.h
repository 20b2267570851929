#ifndef CSTOOL_MAPLINESCANNER_H
#define CSTOOL_MAPLINESCANNER_H

#include <QByteArray>
#include <QList>
#include <QString>

namespace CsTool {

// How the library's map builder reads a template file: as text lines, not as XML. A line that
// begins (after leading white space) with "<template " declares a template, named by the text
// between the first two double quotes from the blank on. A declaration without such a name
// ends the reading of the file (its line still yields a name). Templates the scanner does not
// read are found by the template pool only through the file name. This reading is repeated
// here, rather than asked of the library, to tell authors on which line and why.
class MapLineScanner
{
public:
    struct Declaration {
        qint64 line;      // from 1
        qint64 column;    // of the "<", from 1
        QString name;
    };

    explicit MapLineScanner(const QByteArray& content);

    // The names in file order, as the map builder collects them.
    QList<Declaration> declarations() const;
    // The line on which the scanner stopped reading the file, or 0 when it read it all.
    qint64 stopLine() const;
    // Why it stopped: "template name is not defined" or "template name is empty".
    QString stopReason() const;
    // Whether a line (from 1) begins with the declaring text, so that the scanner reads it.
    bool isDeclarationLine(qint64 line) const;

private:
    void scan(const QByteArray& content);
    QString nameOf(const QByteArray& line, qint64 lineNumber);
    void stopAt(qint64 line, const char* reason);

    QList<Declaration> found;
    QList<qint64> declarationLines;
    qint64 stoppedAt = 0;
    QString reason;
};

} // namespace CsTool

#endif
