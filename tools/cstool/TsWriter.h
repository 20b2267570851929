#ifndef CSTOOL_TSWRITER_H
#define CSTOOL_TSWRITER_H

#include <QString>

QT_BEGIN_NAMESPACE
class QDir;
class QXmlStreamWriter;
QT_END_NAMESPACE

namespace CsTool {

class TranslationCatalog;
struct TsMessage;

// Writes a catalog as a Qt Linguist translation file (TS 2.1), atomically: a failed write
// leaves the old file as it was. Locations are written relative to the file's directory.
class TsWriter
{
public:
    bool write(const QString& filePath, const TranslationCatalog& catalog);
    QString error() const;

private:
    static void writeContext(QXmlStreamWriter& writer, const TranslationCatalog& catalog,
                             const QString& context, const QDir& base);
    static void writeMessage(QXmlStreamWriter& writer, const TsMessage& message, const QDir& base);

    QString problem;
};

} // namespace CsTool

#endif
