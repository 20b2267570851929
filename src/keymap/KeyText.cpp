#include "keymap/KeyText.h"

#include <QStringList>
#include <QVector>

CS_BEGIN_NAMESPACE

namespace KeyText {

namespace {

const int kMaximumChords = 4;

#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
using Chord = QKeyCombination;
int combined(Chord chord)
{
    return chord.toCombined();
}
#else
using Chord = int;
int combined(Chord chord)
{
    return chord;
}
#endif

// A comma separates chords unless it is the key itself: the first key of a chord or the key
// after a "+" ("Ctrl+,").
QStringList splitChords(const QString& text)
{
    QStringList chords;
    QString chord;
    for (const QChar character : text) {
        const QString pending = chord.trimmed();
        if (character == QLatin1Char(',') && !pending.isEmpty() && !pending.endsWith(QLatin1Char('+'))) {
            chords.append(pending);
            chord.clear();
            continue;
        }
        chord.append(character);
    }
    chords.append(chord.trimmed());
    return chords;
}

QKeySequence combine(const QVector<Chord>& chords)
{
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
    const Chord none = QKeyCombination::fromCombined(0);
#else
    const Chord none = 0;
#endif
    return QKeySequence(chords.value(0, none), chords.value(1, none), chords.value(2, none),
                        chords.value(3, none));
}

} // namespace

QKeySequence parse(const QString& text, QString* error)
{
    const QStringList words = splitChords(text);
    QVector<Chord> chords;
    for (const QString& word : words) {
        const QKeySequence chord = QKeySequence::fromString(word, QKeySequence::PortableText);
        if (word.isEmpty() || chord.count() != 1
            || (combined(chord[0]) & ~int(Qt::KeyboardModifierMask)) == Qt::Key_unknown) {
            *error = word.isEmpty() && words.size() == 1
                         ? QStringLiteral("No keys given")
                         : QStringLiteral("Not a key: \"%1\"").arg(word);
            return QKeySequence();
        }
        chords.append(chord[0]);
    }
    if (chords.size() > kMaximumChords) {
        *error = QStringLiteral("More than %1 keys in one sequence: \"%2\"").arg(kMaximumChords).arg(text);
        return QKeySequence();
    }
    return combine(chords);
}

QString format(const QKeySequence& sequence)
{
    return sequence.toString(QKeySequence::PortableText);
}

int key(const QKeySequence& sequence, int chord)
{
    return combined(sequence[uint(chord)]) & ~int(Qt::KeyboardModifierMask);
}

Qt::KeyboardModifiers modifiers(const QKeySequence& sequence, int chord)
{
    return Qt::KeyboardModifiers(combined(sequence[uint(chord)]) & int(Qt::KeyboardModifierMask));
}

QChar typedCharacter(const QKeySequence& sequence)
{
    if (sequence.count() != 1 || (modifiers(sequence, 0) & ~Qt::ShiftModifier) != 0)
        return QChar();
    const int typed = key(sequence, 0);
    // Keys from space to the end of Latin-1 are named by the character they type.
    if (typed <= Qt::Key_Space || typed > 0xff)
        return QChar();
    return QChar(typed).toLower();
}

bool startsWith(const QKeySequence& sequence, const QKeySequence& prefix)
{
    if (prefix.isEmpty() || prefix.count() >= sequence.count())
        return false;
    for (int chord = 0; chord < prefix.count(); ++chord) {
        if (sequence[uint(chord)] != prefix[uint(chord)])
            return false;
    }
    return true;
}

} // namespace KeyText

CS_END_NAMESPACE
