#include "MainWindow.h"

#include "CommandLine.h"
#include "CommandRunner.h"
#include "DrawOperations.h"
#include "Drawing.h"
#include "DrawingView.h"
#include "ModifyOperations.h"
#include "RibbonBar.h"
#include "SessionOperations.h"
#include "ShortcutsDialog.h"
#include "SketchFactory.h"
#include "ToolOperations.h"
#include "ViewOperations.h"

#include <CommandSystem/Action.h>
#include <CommandSystem/ActionPool.h>
#include <CommandSystem/AliasTable.h>
#include <CommandSystem/Builder.h>
#include <CommandSystem/CommandLineModel.h>
#include <CommandSystem/CommandPalette.h>
#include <CommandSystem/CommandSearchModel.h>
#include <CommandSystem/Keymap.h>
#include <CommandSystem/ShortcutScheme.h>
#include <CommandSystem/Template.h>
#include <CommandSystem/TemplatePool.h>
#include <CommandSystem/TemplateTools.h>
#include <CommandSystem/WidgetMapper.h>

#include <QCoreApplication>
#include <QDir>
#include <QDockWidget>
#include <QEventLoop>
#include <QFileInfo>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QProgressBar>
#include <QShortcut>
#include <QStatusBar>
#include <QToolButton>
#include <QUndoStack>
#include <QVBoxLayout>
#include <QWidgetAction>

#include <algorithm>
#include <cstdio>

namespace {

// Forms are written "Tab/Panel"; panels become menus, tabs group them on the ribbon.
const char* const kPanels[] = {"File", "Edit", "Draw", "Format", "Modify", "Annotate", "View",
                               "Settings", "Tools", "Help"};

QString tabOf(const QString& form)
{
    return form.section(QLatin1Char('/'), 0, 0);
}

QString panelOf(const QString& form)
{
    return form.section(QLatin1Char('/'), 1);
}

QStringList templateDirectories(const QDir& catalogue)
{
    return {catalogue.filePath(QStringLiteral("templates")), catalogue.filePath(QStringLiteral("templates/view"))};
}

// Every template name of the catalogue, read from its template files.
QStringList templateNames(const QDir& catalogue)
{
    QStringList names;
    Talvir::Vexa::Cs::TemplateTools tools;
    for (const QString& directory : templateDirectories(catalogue)) {
        for (const QFileInfo& file : QDir(directory).entryInfoList({QStringLiteral("*.tcmd")}, QDir::Files)) {
            QList<Talvir::Vexa::Cs::Template*> loaded;
            tools.loadTemplate(file.absoluteFilePath(), loaded);
            for (const Talvir::Vexa::Cs::Template* commandTemplate : loaded)
                names.append(commandTemplate->objectName());
            qDeleteAll(loaded);
        }
    }
    return names;
}

} // namespace

MainWindow::MainWindow(const QString& catalogue, QWidget* parent)
    : QMainWindow(parent)
    , m_ribbon(new RibbonBar(this))
    , m_coordinates(new QLabel(this))
{
    setWindowTitle(QStringLiteral("Sketchpad"));
    m_context.window = this;
    m_context.drawing = new Drawing(this);
    m_context.view = new DrawingView(m_context.drawing, this);
    m_context.commandLineModel = new Talvir::Vexa::Cs::CommandLineModel(this);
    m_context.commandLine = new CommandLine(m_context.commandLineModel, this);
    m_context.undoStack = new QUndoStack(this);
    m_context.progress = new QProgressBar(this);
    loadCatalogue(catalogue);

    m_operations = std::make_unique<Operations>(m_context);
    DrawOperations::registerAll(*m_operations);
    ModifyOperations::registerAll(*m_operations);
    ViewOperations::registerAll(*m_operations);
    SessionOperations::registerAll(*m_operations);
    ToolOperations::registerAll(*m_operations);
    m_context.runner = new CommandRunner(m_context, *m_operations, this);

    connect(m_context.actions, &Talvir::Vexa::Cs::ActionPool::commandIssued, m_context.runner, &CommandRunner::issue);
    connect(m_context.view, &DrawingView::pointPicked, m_context.runner, &CommandRunner::onPointPicked);
    connect(m_context.view, &DrawingView::cursorMoved, this, [this](const QPointF& point) {
        m_coordinates->setText(Entity::formatPoint(point, 2));
    });

    auto* central = new QWidget(this);
    auto* column = new QVBoxLayout(central);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(m_ribbon);
    column->addWidget(m_context.view, 1);
    setCentralWidget(central);

    buildMenus();
    buildRibbon();
    buildCommandLine();
    buildStatusBar();
    setUpCommandNames(catalogue);
    // Clones follow their action's shortcut, so shortcuts come once every clone is made.
    applyCatalogueShortcuts(catalogue);
    buildSearchAndShortcuts();
    m_context.runner->showPrompt();
}

MainWindow::~MainWindow()
{
    // The runner and its pending commands go before the pools they refer to.
    delete m_context.runner;
    m_context.runner = nullptr;
}

SketchContext& MainWindow::context()
{
    return m_context;
}

QAction* MainWindow::menuClone(const QString& name) const
{
    return m_menuClones.value(name);
}

QAction* MainWindow::ribbonClone(const QString& name) const
{
    return m_ribbonClones.value(name);
}

QWidget* MainWindow::fieldWidget(const QString& name) const
{
    Action* action = m_context.actions->action(name);
    if (!action || !action->widgetMapper())
        return nullptr;
    return action->widgetMapper()->widgets().value(0);
}

void MainWindow::loadCatalogue(const QString& catalogue)
{
    const QDir root(catalogue);
    auto* templates = new Talvir::Vexa::Cs::TemplatePool;
    templates->setParent(this);
    templates->appendDirectoryList(templateDirectories(root));
    templates->load();
    m_context.templates = templates;

    Talvir::Vexa::Cs::Builder::appendFactory(new SketchFactory(m_context.drawing, m_context.view));
    Action::setIconDirList({root.filePath(QStringLiteral("ui/icons"))});
    m_context.actions = Talvir::Vexa::Cs::ActionPool::fromFolder(root.filePath(QStringLiteral("ui")));
    m_context.actions->setParent(this);
}

// Actions in panel order, and inside a panel in the order of their command's "icon_id".
QList<MainWindow::Action*> MainWindow::orderedActions() const
{
    QList<Action*> actions = m_context.actions->actions();
    auto rank = [this](Action* action) {
        int panel = 0;
        while (panel < int(std::size(kPanels)) && panelOf(action->form()) != QLatin1String(kPanels[panel]))
            ++panel;
        const QString command = action->script().section(QLatin1Char(' '), 0, 0);
        Talvir::Vexa::Cs::Template* commandTemplate = m_context.templates->getTemplate(command);
        const int order = commandTemplate ? commandTemplate->inteProperty("icon_id") : 0;
        return std::make_tuple(panel, action->type() == QLatin1String("widget"), order, action->name());
    };
    std::stable_sort(actions.begin(), actions.end(),
                     [&rank](Action* a, Action* b) { return rank(a) < rank(b); });
    return actions;
}

void MainWindow::buildMenus()
{
    QHash<QString, QMenu*> menus;
    for (Action* action : orderedActions()) {
        if (action->type() == QLatin1String("widget"))
            continue;
        const QString panel = panelOf(action->form());
        QMenu*& menu = menus[panel];
        if (!menu)
            menu = menuBar()->addMenu(QLatin1Char('&') + panel);
        QAction* clone = action->clone(menu, 0);
        clone->setStatusTip(action->desc());
        clone->setWhatsThis(action->help());
        menu->addAction(clone);
        m_menuClones.insert(action->name(), clone);
    }
}

void MainWindow::buildRibbon()
{
    for (Action* action : orderedActions()) {
        const QString tab = tabOf(action->form());
        const QString panel = panelOf(action->form());
        QAction* clone = action->clone(m_ribbon, 1);
        if (!clone)
            continue;
        clone->setToolTip(QStringLiteral("<b>%1</b><br>%2").arg(action->ribbonText(), action->hint()));
        clone->setStatusTip(action->desc());
        clone->setWhatsThis(action->help());
        if (qobject_cast<QWidgetAction*>(clone))
            m_ribbon->addField(tab, panel, action->ribbonText(), clone);
        else
            m_ribbon->addButton(tab, panel, clone);
        m_ribbonClones.insert(action->name(), clone);
    }
    m_ribbon->setCurrentIndex(1);
}

void MainWindow::buildStatusBar()
{
    m_coordinates->setMinimumWidth(150);
    statusBar()->addWidget(m_coordinates);
    m_context.progress->setMaximumWidth(220);
    m_context.progress->hide();
    statusBar()->addWidget(m_context.progress);
    for (const char* name : {"ID_VIEW_GRID", "ID_VIEW_SNAP", "ID_VIEW_ORTHO"}) {
        Action* action = m_context.actions->action(QString::fromLatin1(name));
        if (!action)
            continue;
        auto* button = new QToolButton(this);
        button->setDefaultAction(action->clone(button, QIcon(), action->ribbonText().toUpper(), 1));
        button->setToolButtonStyle(Qt::ToolButtonTextOnly);
        button->setAutoRaise(true);
        statusBar()->addPermanentWidget(button);
    }
}

void MainWindow::buildCommandLine()
{
    auto* dock = new QDockWidget(QStringLiteral("Command Line"), this);
    dock->setObjectName(QStringLiteral("commandLine"));
    dock->setFeatures(QDockWidget::DockWidgetMovable | QDockWidget::DockWidgetFloatable);
    dock->setWidget(m_context.commandLine);
    addDockWidget(Qt::BottomDockWidgetArea, dock);
    resizeDocks({dock}, {150}, Qt::Vertical);
    auto* escape = new QShortcut(QKeySequence(Qt::Key_Escape), this);
    connect(escape, &QShortcut::activated, m_context.commandLineModel, &Talvir::Vexa::Cs::CommandLineModel::escape);
    m_context.commandLine->setFocus();
}

// What can be typed: the catalogue's commands, the program's own, and the aliases of the
// catalogue's alias file, whose problems are shown in the command line's history. The aliases
// serve the command palette and the shortcut checks as well.
void MainWindow::setUpCommandNames(const QString& catalogue)
{
    const QDir root(catalogue);
    const QStringList commands = templateNames(root) << QStringLiteral("dump");
    const QString aliasFile = root.filePath(QStringLiteral("commands.aliases"));
    if (QFileInfo::exists(aliasFile))
        m_aliases.load(aliasFile);
    for (const QString& problem : m_aliases.errors() + m_aliases.check(commands))
        m_context.commandLine->appendHistory(problem, CommandLine::Error);
    Talvir::Vexa::Cs::CommandLineModel* model = m_context.commandLineModel;
    model->setCommands(commands);
    model->setAliases(m_aliases);
    model->setHelpCommand(QStringLiteral("help"));
}

// UI definition files carry no shortcuts; the catalogue gives its own in a keymap beside them.
void MainWindow::applyCatalogueShortcuts(const QString& catalogue)
{
    const QString path = QDir(catalogue).filePath(QStringLiteral("ui/default.keymap"));
    if (!QFileInfo::exists(path))
        return;
    Talvir::Vexa::Cs::Keymap defaults;
    if (!defaults.load(path)) {
        report(QStringLiteral("catalogue shortcuts not applied: ") + defaults.errorString());
        return;
    }
    for (const QString& name : defaults.applyTo(*m_context.actions))
        report(QStringLiteral("%1: no action %2 for its shortcut").arg(defaults.location(name).toString(), name));
}

// The command palette (Ctrl+Shift+P) and the shortcuts dialog, both in the Tools menu. The
// scheme takes the catalogue's shortcuts as the defaults that the user's keymap changes.
void MainWindow::buildSearchAndShortcuts()
{
    using namespace Talvir::Vexa::Cs;
    m_shortcuts = new ShortcutScheme(m_context.actions, this);
    auto* model = new CommandSearchModel(m_context.actions, this);
    model->setTemplatePool(m_context.templates);
    model->setAliases(m_aliases);
    m_palette = new CommandPalette(model, this);
    QMenu* tools = menuTitled(QStringLiteral("&Tools"));
    tools->addSeparator();
    QAction* palette = tools->addAction(QStringLiteral("Command &Palette..."), m_palette, &CommandPalette::open);
    palette->setShortcut(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_P));
    QAction* shortcuts = tools->addAction(QStringLiteral("Keyboard &Shortcuts..."), this, &MainWindow::openShortcutsDialog);
    shortcuts->setShortcut(QKeySequence(Qt::CTRL | Qt::ALT | Qt::Key_K));
}

QMenu* MainWindow::menuTitled(const QString& title)
{
    for (QAction* entry : menuBar()->actions()) {
        if (entry->menu() && entry->text() == title)
            return entry->menu();
    }
    return menuBar()->addMenu(title);
}

void MainWindow::loadUserKeymap(const QString& path)
{
    m_keymapPath = path;
    if (!m_shortcuts->load(path)) {
        report(QStringLiteral("your shortcuts were not applied: ") + m_shortcuts->errorString());
        return;
    }
    const Talvir::Vexa::Cs::Keymap changes = m_shortcuts->changes();
    for (const QString& name : m_shortcuts->orphans())
        report(QStringLiteral("%1: no action %2; its shortcut is kept in the file")
                   .arg(changes.location(name).toString(), name));
}

// One dialog, kept: it follows the actions' shortcuts while hidden.
void MainWindow::openShortcutsDialog()
{
    if (!m_shortcutsDialog) {
        m_shortcutsDialog = new ShortcutsDialog(m_shortcuts, m_aliases, m_keymapPath, this);
        connect(m_shortcutsDialog, &ShortcutsDialog::message, this, [this](const QString& text) {
            m_context.commandLine->appendHistory(text);
        });
        // The drawing window is active again before the next key, so that its shortcuts work
        // at once; the window system would hand the activation over only later.
        connect(m_shortcutsDialog, &QDialog::finished, this, [this] {
            activateWindow();
            QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
            m_context.commandLine->setFocus();
        });
    }
    m_shortcutsDialog->open();
}

void MainWindow::report(const QString& text)
{
    std::fprintf(stderr, "sketchpad: %s\n", qPrintable(text));
    m_context.commandLine->appendHistory(text, CommandLine::Error);
}
