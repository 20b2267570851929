#include <CommandSystem/Keymap.h>

#include "keymap/ActionLookup.h"
#include "keymap/KeyText.h"
#include "keymap/KeymapFormat.h"
#include "keymap/KeymapImpl.h"
#include "keymap/KeymapReader.h"
#include "platform/OutputFile.h"

#include <CommandSystem/Action.h>
#include <CommandSystem/ActionPool.h>

#include <QXmlStreamWriter>

CS_BEGIN_NAMESPACE

Keymap::Keymap() : d(new KeymapImpl) {}

Keymap::Keymap(const Keymap& other) : d(new KeymapImpl(*other.d)) {}

Keymap::Keymap(Keymap&& other) noexcept : d(new KeymapImpl)
{
    d.swap(other.d);
}

Keymap& Keymap::operator=(const Keymap& other)
{
    if (this != &other)
        *d = *other.d;
    return *this;
}

Keymap& Keymap::operator=(Keymap&& other) noexcept
{
    d.swap(other.d);
    other.clear();
    other.d->clearError();
    return *this;
}

Keymap::~Keymap() = default;

bool Keymap::load(const QString& path)
{
    KeymapImpl::Entries entries;
    SourceLocation where;
    QString message;
    if (!KeymapReader::read(path, entries, where, message)) {
        d->setError(where, message);
        return false;
    }
    d->entries.swap(entries);
    d->clearError();
    return true;
}

bool Keymap::save(const QString& path) const
{
    OutputFile file(path);
    if (!file.open(QIODevice::WriteOnly)) {
        d->setError(SourceLocation{path, 0, 0}, QStringLiteral("cannot write: ") + file.errorString());
        return false;
    }
    QXmlStreamWriter writer(file.device());
    writer.setAutoFormatting(true);
    writer.writeStartDocument(QStringLiteral("1.0"));
    writer.writeStartElement(KeymapFormat::root());
    writer.writeAttribute(KeymapFormat::versionAttribute(), KeymapFormat::version());
    for (const auto& entry : d->entries) {
        const QKeySequence& shortcut = entry.second.shortcut;
        if (shortcut.isEmpty()) {
            writer.writeEmptyElement(KeymapFormat::noneElement());
            writer.writeAttribute(KeymapFormat::actionAttribute(), entry.first);
        } else {
            writer.writeStartElement(KeymapFormat::shortcutElement());
            writer.writeAttribute(KeymapFormat::actionAttribute(), entry.first);
            writer.writeCharacters(KeyText::format(shortcut));
            writer.writeEndElement();
        }
    }
    writer.writeEndElement();
    writer.writeEndDocument();
    if (writer.hasError() || !file.commit()) {
        d->setError(SourceLocation{path, 0, 0}, QStringLiteral("cannot write: ") + file.errorString());
        return false;
    }
    d->clearError();
    return true;
}

QString Keymap::errorString() const
{
    return d->error;
}

SourceLocation Keymap::errorLocation() const
{
    return d->errorLocation;
}

bool Keymap::isEmpty() const
{
    return d->entries.empty();
}

int Keymap::size() const
{
    return int(d->entries.size());
}

QStringList Keymap::actionNames() const
{
    QStringList names;
    names.reserve(size());
    for (const auto& entry : d->entries)
        names.append(entry.first);
    return names;
}

bool Keymap::contains(const QString& action) const
{
    return d->entries.count(action) != 0;
}

QKeySequence Keymap::shortcut(const QString& action) const
{
    const auto entry = d->entries.find(action);
    return entry != d->entries.end() ? entry->second.shortcut : QKeySequence();
}

void Keymap::setShortcut(const QString& action, const QKeySequence& shortcut)
{
    d->entries[action] = KeymapImpl::Entry{shortcut, SourceLocation()};
}

void Keymap::remove(const QString& action)
{
    d->entries.erase(action);
}

void Keymap::clear()
{
    d->entries.clear();
}

SourceLocation Keymap::location(const QString& action) const
{
    const auto entry = d->entries.find(action);
    return entry != d->entries.end() ? entry->second.location : SourceLocation();
}

QStringList Keymap::applyTo(ActionPool& pool) const
{
    const QHash<QString, Action*> actions = actionsByName(pool);
    QStringList missing;
    for (const auto& entry : d->entries) {
        if (Action* action = actions.value(entry.first))
            action->setShortcut(entry.second.shortcut);
        else
            missing.append(entry.first);
    }
    return missing;
}

bool Keymap::operator==(const Keymap& other) const
{
    if (d->entries.size() != other.d->entries.size())
        return false;
    for (const auto& entry : d->entries) {
        const auto match = other.d->entries.find(entry.first);
        if (match == other.d->entries.end() || match->second.shortcut != entry.second.shortcut)
            return false;
    }
    return true;
}

bool Keymap::operator!=(const Keymap& other) const
{
    return !(*this == other);
}

CS_END_NAMESPACE
