#include "MapChecker.h"

#include "ScannedMap.h"
#include "XmlSource.h"

#include <QDir>
#include <QFileInfo>
#include <QXmlStreamReader>

namespace CsTool {

MapChecker::MapChecker(XmlSource& source, Findings& findings, const QString& filePath)
    : source(source), findings(findings), filePath(filePath)
{
}

void MapChecker::check()
{
    source.readDocument(findings, QStringLiteral("maps"), QStringLiteral("map file"), [this] {
        rootWhere = source.tokenPosition();
        checkMaps();
    });
    // A malformed map is rewritten, not compared.
    if (findings.errorCount() == 0)
        checkCurrent();
}

void MapChecker::checkMaps()
{
    QXmlStreamReader& reader = source.reader();
    const auto ignoredText = [this](const SourcePosition& where) {
        findings.warning(where, QStringLiteral("text in <maps> is ignored"));
    };
    while (source.nextChildElement(ignoredText)) {
        if (reader.name() == QLatin1String("map")) {
            checkEntry();
        } else {
            source.unexpectedElement(findings, QStringLiteral("maps"), QStringLiteral("only <map> belongs here"));
        }
    }
}

// The reader stops at an entry without key or value and keeps what came before, silently.
void MapChecker::checkEntry()
{
    QXmlStreamReader& reader = source.reader();
    Entry entry{QString(), QString(), source.tokenPosition(), source.tokenPosition()};
    const QXmlStreamAttributes attributes = reader.attributes();
    for (const QXmlStreamAttribute& attribute : attributes) {
        const QString name = attribute.qualifiedName().toString();
        if (attribute.name() == QLatin1String("key")) {
            entry.key = attribute.value().toString();
        } else if (attribute.name() == QLatin1String("value")) {
            entry.value = attribute.value().toString();
            entry.valueWhere = source.attributePosition(name);
        } else {
            source.unexpectedAttribute(findings, attribute, QStringLiteral("map"),
                                       QStringLiteral("allowed: key, value"));
        }
    }
    const auto ignoredText = [this](const SourcePosition& where) {
        findings.warning(where, QStringLiteral("text in <map> is ignored"));
    };
    while (source.nextChildElement(ignoredText))
        source.unexpectedElement(findings, QStringLiteral("map"), QStringLiteral("an entry holds no elements"));
    const auto required = [&](const char* attribute, const QString& text) {
        if (text.isEmpty())
            findings.error(entry.where, QStringLiteral("<map> without a \"%1\"; the template pool "
                                                       "stops reading the map here")
                                            .arg(QLatin1String(attribute)));
    };
    required("key", entry.key);
    required("value", entry.value);
    for (const Entry& earlier : std::as_const(entries)) {
        if (!entry.key.isEmpty() && earlier.key == entry.key)
            findings.warning(entry.where, QStringLiteral("key \"%1\" is given twice (first at %2); "
                                                         "the later entry wins")
                                              .arg(entry.key, findings.location(earlier.where)));
    }
    entries.append(entry);
}

void MapChecker::checkCurrent()
{
    const QDir directory = QFileInfo(filePath).absoluteDir();
    const ScannedMap scanned(directory.path());
    for (const QString& file : scanned.unreadableFiles())
        stale(rootWhere, QStringLiteral("the template file %1 cannot be read").arg(file));
    const QHash<QString, ScannedMap::Entry> expected = scanned.entries();
    QHash<QString, Entry> given;
    for (const Entry& entry : std::as_const(entries)) {
        given.insert(entry.key, entry);
        checkCurrentEntry(entry, expected.value(entry.key).filePath);
    }
    for (auto entry = expected.constBegin(); entry != expected.constEnd(); ++entry) {
        if (!given.contains(entry.key()))
            stale(rootWhere, QStringLiteral("no entry for template \"%1\", declared in %2:%3")
                                 .arg(entry.key(), QFileInfo(entry->filePath).fileName())
                                 .arg(entry->line));
    }
}

// A name that the scanner does not map is found by its file name or not at all.
void MapChecker::checkCurrentEntry(const Entry& entry, const QString& expectedFile)
{
    const QString named = QFileInfo(filePath).absoluteDir().absoluteFilePath(entry.value);
    if (!QFileInfo(named).isFile()) {
        stale(entry.valueWhere, QStringLiteral("entry \"%1\" names %2, which is not a file")
                                    .arg(entry.key, entry.value));
    } else if (expectedFile.isEmpty()) {
        const bool byFileName = QFileInfo(named).completeBaseName() == entry.key;
        stale(entry.where, byFileName
                               ? QStringLiteral("entry \"%1\" is not needed, the pool finds the "
                                                "template by the name of %2").arg(entry.key, entry.value)
                               : QStringLiteral("entry \"%1\": no file of the directory declares "
                                                "it on a line the map scanner reads").arg(entry.key));
    } else if (QDir::cleanPath(named) != QDir::cleanPath(expectedFile)) {
        stale(entry.valueWhere, QStringLiteral("entry \"%1\" names %2, but %3 declares it")
                                    .arg(entry.key, entry.value, QFileInfo(expectedFile).fileName()));
    }
}

void MapChecker::stale(const SourcePosition& where, const QString& message)
{
    findings.error(where, QStringLiteral("stale map: %1; run 'cstool map %2'")
                              .arg(message, QFileInfo(filePath).path()));
}

} // namespace CsTool
