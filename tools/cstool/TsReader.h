#ifndef CSTOOL_TSREADER_H
#define CSTOOL_TSREADER_H

#include <QString>

QT_BEGIN_NAMESPACE
class QXmlStreamReader;
QT_END_NAMESPACE

namespace CsTool {

class TranslationCatalog;
struct TsMessage;

// Reads the contexts, sources and translations of an existing Qt Linguist file, so that a new
// extraction keeps what translators have done.
class TsReader
{
public:
    // False when the file cannot be read or is no translation file; see error().
    bool read(const QString& filePath, TranslationCatalog& catalog);
    QString error() const;

private:
    void readContext(QXmlStreamReader& reader, TranslationCatalog& catalog);
    static TsMessage readMessage(QXmlStreamReader& reader);

    QString problem;
};

} // namespace CsTool

#endif
