#ifndef SKETCHPAD_MAINWINDOW_H
#define SKETCHPAD_MAINWINDOW_H

#include "Operations.h"
#include "SketchContext.h"

#include <CommandSystem/AliasTable.h>

#include <QHash>
#include <QMainWindow>

#include <memory>

namespace Talvir { namespace Vexa { namespace Cs {
class Action;
class CommandPalette;
class ShortcutScheme;
} } }
class QLabel;
class RibbonBar;
class ShortcutsDialog;

// Sketchpad's window. Start-up joins the subsystems: the template pool over the catalogue's
// template directories, the builder's factory, the icon directories and the action pool over
// the UI files; then menus and ribbon are built from clones of the pool's actions.
class MainWindow : public QMainWindow
{
    Q_OBJECT

public:
    // catalogue: the folder holding "templates" and "ui".
    explicit MainWindow(const QString& catalogue, QWidget* parent = nullptr);
    ~MainWindow() override;

    SketchContext& context();
    QAction* menuClone(const QString& name) const;
    QAction* ribbonClone(const QString& name) const;
    QWidget* fieldWidget(const QString& name) const;

    // Applies the user's keymap on top of the catalogue's shortcuts and keeps its path for the
    // shortcuts dialog to save to. A missing file changes nothing; a broken one is reported
    // and changes nothing either.
    void loadUserKeymap(const QString& path);

private:
    using Action = Talvir::Vexa::Cs::Action;

    void loadCatalogue(const QString& catalogue);
    QList<Action*> orderedActions() const;
    void buildMenus();
    void buildRibbon();
    void buildStatusBar();
    void buildCommandLine();
    void setUpCommandNames(const QString& catalogue);
    void applyCatalogueShortcuts(const QString& catalogue);
    void buildSearchAndShortcuts();
    QMenu* menuTitled(const QString& title);
    void openShortcutsDialog();
    // Startup problems: on standard error and in the command line's history.
    void report(const QString& text);

    SketchContext m_context;
    std::unique_ptr<Operations> m_operations;
    RibbonBar* m_ribbon;
    QLabel* m_coordinates;
    QHash<QString, QAction*> m_menuClones;
    QHash<QString, QAction*> m_ribbonClones;
    Talvir::Vexa::Cs::AliasTable m_aliases;
    Talvir::Vexa::Cs::ShortcutScheme* m_shortcuts = nullptr;
    Talvir::Vexa::Cs::CommandPalette* m_palette = nullptr;
    ShortcutsDialog* m_shortcutsDialog = nullptr;
    QString m_keymapPath;
};

#endif
