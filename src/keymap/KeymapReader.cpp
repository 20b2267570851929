#include "keymap/KeymapReader.h"

#include "keymap/KeyText.h"
#include "keymap/KeymapFormat.h"
#include "keymap/PositionedXmlReader.h"

#include <QFile>

CS_BEGIN_NAMESPACE

bool KeymapReader::read(const QString& path, KeymapImpl::Entries& entries, SourceLocation& where,
                        QString& message)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        where = SourceLocation{path, 0, 0};
        message = QStringLiteral("cannot read: ") + file.errorString();
        return false;
    }
    PositionedXmlReader xml(file.readAll(), path);
    KeymapReader reader(xml);
    reader.readDocument();
    if (reader.failed()) {
        where = reader.problemAt;
        message = reader.problem;
        return false;
    }
    entries.swap(reader.entries);
    return true;
}

KeymapReader::KeymapReader(PositionedXmlReader& reader) : reader(reader) {}

void KeymapReader::readDocument()
{
    while (!reader.atEnd() && !reader.isStartElement())
        reader.readNextToken();
    if (reader.isStartElement()) {
        if (reader.name() != KeymapFormat::root()) {
            fail(reader.tokenStart(), QStringLiteral("Unexpected element: ") + reader.name().toString());
            return;
        }
        readRootAttributes();
        readEntries();
    }
    // What follows the root may still break the document.
    while (!failed() && !reader.atEnd())
        reader.readNextToken();
    if (!failed() && reader.hasError())
        fail(reader.here(), reader.errorString());
}

void KeymapReader::readRootAttributes()
{
    const QXmlStreamAttributes attributes = reader.attributes();
    for (const QXmlStreamAttribute& attribute : attributes) {
        const QString name = attribute.qualifiedName().toString();
        if (KeymapFormat::isSchemaInstance(attribute))
            continue;
        if (name != KeymapFormat::versionAttribute()) {
            fail(reader.tokenStart(), QStringLiteral("Unexpected attribute: ") + name);
            return;
        }
        if (attribute.value() != KeymapFormat::version()) {
            fail(reader.tokenStart(), QStringLiteral("Unsupported keymap version \"%1\" (expected %2)")
                                          .arg(attribute.value().toString(), KeymapFormat::version()));
            return;
        }
    }
}

void KeymapReader::readEntries()
{
    while (!failed() && !reader.atEnd()) {
        reader.readNextToken();
        if (reader.isEndElement())
            return;
        if (reader.isStartElement())
            readEntry();
        else if (reader.isCharacters() && !reader.isWhitespace())
            fail(textStart(), QStringLiteral("Unexpected text: \"%1\"").arg(reader.text().toString().trimmed()));
    }
}

void KeymapReader::readEntry()
{
    const SourceLocation where = reader.tokenStart();
    const bool none = reader.name() == KeymapFormat::noneElement();
    if (!none && reader.name() != KeymapFormat::shortcutElement()) {
        fail(where, QStringLiteral("Unexpected element: ") + reader.name().toString());
        return;
    }
    const QString action = readActionName();
    if (failed())
        return;
    const QString keys = readKeys();
    // A broken document is reported as the stream reader found it, after the reading.
    if (failed() || reader.hasError())
        return;
    QKeySequence shortcut;
    if (none && !keys.isEmpty()) {
        fail(where, QStringLiteral("Unexpected text in <none>: \"%1\"").arg(keys));
        return;
    }
    if (!none) {
        QString keyError;
        shortcut = KeyText::parse(keys, &keyError);
        if (shortcut.isEmpty()) {
            fail(where, keyError);
            return;
        }
    }
    const auto earlier = entries.find(action);
    if (earlier != entries.end()) {
        fail(where, QStringLiteral("%1 is given twice (first at line %2)")
                        .arg(action).arg(earlier->second.location.line));
        return;
    }
    entries[action] = KeymapImpl::Entry{shortcut, where};
}

QString KeymapReader::readActionName()
{
    QString action;
    bool given = false;
    const QXmlStreamAttributes attributes = reader.attributes();
    for (const QXmlStreamAttribute& attribute : attributes) {
        const QString name = attribute.qualifiedName().toString();
        if (name == KeymapFormat::actionAttribute()) {
            action = attribute.value().toString();
            given = true;
        } else if (!KeymapFormat::isSchemaInstance(attribute)) {
            fail(reader.tokenStart(), QStringLiteral("Unexpected attribute: ") + name);
            return QString();
        }
    }
    if (!given)
        fail(reader.tokenStart(), QStringLiteral("Missing attribute: action"));
    else if (action.isEmpty())
        fail(reader.tokenStart(), QStringLiteral("Empty action name"));
    return action;
}

// The text of an entry; elements inside it are not part of the format.
QString KeymapReader::readKeys()
{
    QString keys;
    while (!failed() && !reader.atEnd()) {
        reader.readNextToken();
        if (reader.isEndElement())
            break;
        if (reader.isStartElement())
            fail(reader.tokenStart(), QStringLiteral("Unexpected element: ") + reader.name().toString());
        else if (reader.isCharacters())
            keys += reader.text();
    }
    return keys.trimmed();
}

// Where the text just read begins, past the white space that lays out the file.
SourceLocation KeymapReader::textStart() const
{
    SourceLocation where = reader.tokenStart();
    const QString text = reader.text().toString();
    for (int i = 0; i < text.size() && text.at(i).isSpace(); ++i) {
        if (text.at(i) == QLatin1Char('\n')) {
            ++where.line;
            where.column = 1;
        } else {
            ++where.column;
        }
    }
    return where;
}

void KeymapReader::fail(const SourceLocation& where, const QString& message)
{
    if (failed())
        return;
    problemAt = where;
    problem = message;
}

bool KeymapReader::failed() const
{
    return !problem.isEmpty();
}

CS_END_NAMESPACE
