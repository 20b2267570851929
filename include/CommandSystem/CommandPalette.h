#ifndef COMMANDSYSTEM_COMMANDPALETTE_H
#define COMMANDSYSTEM_COMMANDPALETTE_H

#include <CommandSystem/Global.h>

#include <QFrame>

QT_BEGIN_NAMESPACE
class QLineEdit;
class QListView;
QT_END_NAMESPACE

CS_BEGIN_NAMESPACE

class Action;
class CommandPaletteImpl;
class CommandSearchModel;

/**
 * \brief A small search box over a CommandSearchModel: users type what they remember of a
 *        command and start it with Enter.
 *
 * A line edit sets the model's query as the user types; a list below shows the ranked
 * actions (text, and shortcut on the right), and the first enabled one is current. Up, Down,
 * Page Up and Page Down move through the list while the line edit keeps the focus. Enter (or
 * a click on a row) triggers the current action through a clone made for the purpose, so the
 * action's usual path runs: Action::triggered and ActionPool::commandIssued, and toggles flip
 * as if their menu entry had been chosen. Esc closes the palette, and so does focus moving to
 * a widget outside it; the widget that had the focus before open() gets it back.
 *
 * The palette takes Enter, Esc and the arrow keys before the host's shortcuts while it has the
 * focus, so a host's Esc shortcut does not fire while the palette is open.
 *
 * With a parent widget (usually the host's main window) the palette is shown over the top of
 * it, centred; without one it is a window of its own. It starts hidden: call open().
 *
 * GUI thread only. The palette does not own the model.
 */
class COMMANDSYSTEM_EXPORT CommandPalette : public QFrame
{
    Q_OBJECT

public:
    /**
     * \brief A hidden palette over the model.
     * \param model the actions to search; not owned, must outlive the palette.
     * \param parent the widget to show the palette over; the palette's parent.
     */
    explicit CommandPalette(CommandSearchModel* model, QWidget* parent = nullptr);
    ~CommandPalette() override;

    /** The model the palette searches. */
    CommandSearchModel* model() const;
    /** The line edit users type into; owned by the palette. */
    QLineEdit* lineEdit() const;
    /** The list of matching actions; owned by the palette. */
    QListView* listView() const;
    /** The action of the current row, or null when no row is current. */
    Action* currentAction() const;

public slots:
    /** Clears the query, shows the palette and gives its line edit the focus. */
    void open();

    /**
     * \brief Closes the palette and triggers the current action.
     *
     * An action of type "widget" has no clone to trigger: the palette only emits
     * actionActivated() for it, so the host can focus its widget.
     * \return false, leaving the palette open, when no enabled action is current.
     */
    bool activateCurrent();

signals:
    /**
     * \brief The user chose an action, which has just been triggered (unless it is of type
     *        "widget"). The palette is already closed.
     * \param action the action chosen.
     */
    void actionActivated(Action* action);

protected:
    /** Takes the keys of the line edit that move, choose and close. \param watched the object. \param event its event. */
    bool eventFilter(QObject* watched, QEvent* event) override;
    /** Gives the focus back to where it was. \param event the hide event. */
    void hideEvent(QHideEvent* event) override;

private slots:
    void selectFirstEnabled();
    void onFocusChanged(QWidget* old, QWidget* now);

private:
    CommandPaletteImpl* d;
};

CS_END_NAMESPACE

#endif
