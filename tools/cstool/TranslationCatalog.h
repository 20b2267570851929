#ifndef CSTOOL_TRANSLATIONCATALOG_H
#define CSTOOL_TRANSLATIONCATALOG_H

#include "TsMessage.h"

#include <QStringList>

#include <map>

namespace CsTool {

// The messages of a translation file by context: those of an existing file with their
// translations, merged with the texts extracted now. Translations are never dropped: a message
// whose text is gone is kept as "vanished", one that comes back is revived.
class TranslationCatalog
{
public:
    QString language;
    QString sourceLanguage;

    void addExisting(const QString& context, const TsMessage& message);
    void addExtracted(const QString& context, const QString& source, const QString& file,
                      qint64 line);
    // Settles the state of every message after the extraction.
    void finish();

    QStringList contexts() const;
    QList<TsMessage> messages(const QString& context) const;
    int newCount() const;
    int vanishedCount() const;
    int messageCount() const;

private:
    TsMessage* find(const QString& context, const QString& source);
    int count(bool (*test)(const TsMessage&)) const;

    std::map<QString, QList<TsMessage>> byContext;
    int added = 0;
};

} // namespace CsTool

#endif
