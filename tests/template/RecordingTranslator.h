#ifndef TST_RECORDINGTRANSLATOR_H
#define TST_RECORDINGTRANSLATOR_H

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QPair>
#include <QString>
#include <QTranslator>

// A translator that knows a few (context, source) pairs and records every request it gets.
class RecordingTranslator : public QTranslator
{
public:
    void add(const QByteArray& context, const QByteArray& source, const QString& translation)
    {
        translations.insert(qMakePair(context, source), translation);
    }

    QString translate(const char* context, const char* source, const char* = nullptr,
                      int = -1) const override
    {
        const QPair<QByteArray, QByteArray> key(context ? context : "", source ? source : "");
        requests.append(key);
        return translations.value(key);
    }

    bool isEmpty() const override { return false; }

    mutable QList<QPair<QByteArray, QByteArray>> requests;

private:
    QHash<QPair<QByteArray, QByteArray>, QString> translations;
};

#endif
