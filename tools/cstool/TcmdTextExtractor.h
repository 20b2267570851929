#ifndef CSTOOL_TCMDTEXTEXTRACTOR_H
#define CSTOOL_TCMDTEXTEXTRACTOR_H

#include <QString>
#include <QStringList>

QT_BEGIN_NAMESPACE
class QXmlStreamReader;
QT_END_NAMESPACE

namespace CsTool {

class TranslationCatalog;

// Finds the texts of a template file that the library translates when it loads a parameter:
// the "description" attribute and the "prompt" and "format" properties, with the template's
// name as context. A property is read as the library reads it (the last piece of text that is
// not only white space); "true" and "false" become flags there and are not translated.
class TcmdTextExtractor
{
public:
    // False on an XML error; see error().
    bool extract(const QString& filePath, TranslationCatalog& catalog);
    QString error() const;

private:
    void startElement(const QXmlStreamReader& reader);
    void endElement(const QXmlStreamReader& reader);
    void add(const QString& text, qint64 line);

    TranslationCatalog* catalog = nullptr;
    QString file;
    QString problem;
    QStringList elements;
    QString context;
    QString property;
    QString value;
    qint64 propertyLine = 0;
};

} // namespace CsTool

#endif
