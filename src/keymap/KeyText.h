#ifndef COMMANDSYSTEM_KEYTEXT_H
#define COMMANDSYSTEM_KEYTEXT_H

#include <CommandSystem/Global.h>

#include <QChar>
#include <QKeySequence>
#include <QString>

CS_BEGIN_NAMESPACE

// Key sequences as keymap files and messages write them: QKeySequence's portable text
// ("Ctrl+Shift+P", chords separated by ", "), read strictly. QKeySequence::fromString turns
// unknown words into a key nobody can press and drops chords after the fourth without a word;
// a user's file deserves a message instead.
namespace KeyText {

// The sequence that text names; an empty sequence and a message in error when it names none.
QKeySequence parse(const QString& text, QString* error);
QString format(const QKeySequence& sequence);

// The key of one chord without its modifiers, and its modifiers alone.
int key(const QKeySequence& sequence, int chord);
Qt::KeyboardModifiers modifiers(const QKeySequence& sequence, int chord);

// The character that the shortcut's one key types into a text field (a letter, digit or sign
// pressed alone or with Shift), or a null character when it types none.
QChar typedCharacter(const QKeySequence& sequence);

// True when the chords of prefix are the first chords of sequence, and sequence has more.
bool startsWith(const QKeySequence& sequence, const QKeySequence& prefix);

} // namespace KeyText

CS_END_NAMESPACE

#endif
