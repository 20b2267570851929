#ifndef SKETCHPAD_SHORTCUTSDIALOG_H
#define SKETCHPAD_SHORTCUTSDIALOG_H

#include <CommandSystem/AliasTable.h>

#include <QDialog>

namespace Talvir { namespace Vexa { namespace Cs {
class Action;
class CommandSearchModel;
class ShortcutScheme;
} } }
class QKeySequenceEdit;
class QLabel;
class QLineEdit;
class QTableView;

// Lists every action with its shortcut and lets the user give it another. Type to find an
// action, Up and Down to choose it, Enter to record keys; once the keys are pressed, the new
// shortcut is checked for conflicts: one that clashes with another action is refused and the
// conflict shown, anything else is given to the action and the user's keymap saved at once.
class ShortcutsDialog : public QDialog
{
    Q_OBJECT

public:
    ShortcutsDialog(Talvir::Vexa::Cs::ShortcutScheme* scheme, const Talvir::Vexa::Cs::AliasTable& aliases,
                    const QString& keymapPath, QWidget* parent = nullptr);

signals:
    // What happened, for the command line's history.
    void message(const QString& text);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    // Each opening starts with an empty search in the search field.
    void showEvent(QShowEvent* event) override;

private slots:
    void selectFirstEnabled();
    void startRecording();
    void onKeysRecorded();
    void clearShortcut();
    void resetShortcut();

private:
    using Action = Talvir::Vexa::Cs::Action;

    Action* currentAction() const;
    void assign(Action* action, const QKeySequence& shortcut);
    void showFindings(const QStringList& lines, bool refused);

    Talvir::Vexa::Cs::ShortcutScheme* m_scheme;
    Talvir::Vexa::Cs::AliasTable m_aliases;
    QString m_keymapPath;
    Talvir::Vexa::Cs::CommandSearchModel* m_model;
    QLineEdit* m_filter;
    QTableView* m_table;
    QKeySequenceEdit* m_keys;
    QLabel* m_findings;
};

#endif
