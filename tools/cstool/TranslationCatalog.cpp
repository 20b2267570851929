#include "TranslationCatalog.h"

namespace CsTool {

namespace {

bool isGone(const QString& type)
{
    return type == QLatin1String("vanished") || type == QLatin1String("obsolete");
}

} // namespace

void TranslationCatalog::addExisting(const QString& context, const TsMessage& message)
{
    if (!find(context, message.source))
        byContext[context].append(message);
}

void TranslationCatalog::addExtracted(const QString& context, const QString& source,
                                      const QString& file, qint64 line)
{
    TsMessage* message = find(context, source);
    if (!message) {
        TsMessage fresh;
        fresh.source = source;
        fresh.type = QStringLiteral("unfinished");
        byContext[context].append(fresh);
        message = &byContext[context].last();
        ++added;
    } else if (!message->extracted) {
        message->locations.clear();
    }
    message->extracted = true;
    message->locations.append(TsMessage::Location{file, line});
}

void TranslationCatalog::finish()
{
    for (auto& entry : byContext) {
        for (TsMessage& message : entry.second) {
            if (!message.extracted) {
                if (!isGone(message.type))
                    message.type = QStringLiteral("vanished");
                message.locations.clear();
            } else if (isGone(message.type)) {
                message.type = message.translation.isEmpty() ? QStringLiteral("unfinished") : QString();
            }
        }
    }
}

QStringList TranslationCatalog::contexts() const
{
    QStringList result;
    for (const auto& entry : byContext)
        result.append(entry.first);
    return result;
}

QList<TsMessage> TranslationCatalog::messages(const QString& context) const
{
    const auto entry = byContext.find(context);
    return entry == byContext.end() ? QList<TsMessage>() : entry->second;
}

int TranslationCatalog::newCount() const
{
    return added;
}

int TranslationCatalog::vanishedCount() const
{
    return count([](const TsMessage& message) { return !message.extracted; });
}

int TranslationCatalog::messageCount() const
{
    return count([](const TsMessage& message) { return message.extracted; });
}

TsMessage* TranslationCatalog::find(const QString& context, const QString& source)
{
    const auto entry = byContext.find(context);
    if (entry == byContext.end())
        return nullptr;
    for (TsMessage& message : entry->second) {
        if (message.source == source)
            return &message;
    }
    return nullptr;
}

int TranslationCatalog::count(bool (*test)(const TsMessage&)) const
{
    int result = 0;
    for (const auto& entry : byContext) {
        for (const TsMessage& message : entry.second)
            result += test(message) ? 1 : 0;
    }
    return result;
}

} // namespace CsTool
