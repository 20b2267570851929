#include "ShortcutsDialog.h"

#include <CommandSystem/Action.h>
#include <CommandSystem/ActionPool.h>
#include <CommandSystem/CommandSearchModel.h>
#include <CommandSystem/KeyConflicts.h>
#include <CommandSystem/ShortcutScheme.h>

#include <QApplication>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileInfo>
#include <QHeaderView>
#include <QKeyEvent>
#include <QKeySequenceEdit>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableView>
#include <QVBoxLayout>

#include <algorithm>
#include <iterator>

using namespace Talvir::Vexa::Cs;

namespace {

const int kShownColumns[] = {CommandSearchModel::TextColumn, CommandSearchModel::ShortcutColumn,
                             CommandSearchModel::NameColumn, CommandSearchModel::FormColumn};

QString portable(const QKeySequence& shortcut)
{
    return shortcut.isEmpty() ? QStringLiteral("none") : shortcut.toString(QKeySequence::PortableText);
}

} // namespace

ShortcutsDialog::ShortcutsDialog(ShortcutScheme* scheme, const AliasTable& aliases, const QString& keymapPath,
                                 QWidget* parent)
    : QDialog(parent)
    , m_scheme(scheme)
    , m_aliases(aliases)
    , m_keymapPath(keymapPath)
    , m_model(new CommandSearchModel(scheme->pool(), this))
    , m_filter(new QLineEdit(this))
    , m_table(new QTableView(this))
    , m_keys(new QKeySequenceEdit(this))
    , m_findings(new QLabel(this))
{
    setWindowTitle(tr("Keyboard Shortcuts"));
    resize(720, 520);
    m_model->setAliases(aliases);
    m_filter->setPlaceholderText(tr("Type to find a command; Enter records new keys"));
    m_filter->installEventFilter(this);
    m_table->setModel(m_model);
    for (int column = 0; column < CommandSearchModel::ColumnCount; ++column)
        m_table->setColumnHidden(column, std::find(std::begin(kShownColumns), std::end(kShownColumns), column)
                                             == std::end(kShownColumns));
    m_table->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_table->setSelectionMode(QAbstractItemView::SingleSelection);
    m_table->setFocusPolicy(Qt::NoFocus);
    m_table->verticalHeader()->hide();
    m_table->horizontalHeader()->setStretchLastSection(true);
    m_findings->setWordWrap(true);
    m_findings->setTextInteractionFlags(Qt::TextSelectableByMouse);

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    QPushButton* clear = buttons->addButton(tr("&No Shortcut"), QDialogButtonBox::ActionRole);
    QPushButton* reset = buttons->addButton(tr("&Default"), QDialogButtonBox::ActionRole);
    for (QPushButton* button : buttons->findChildren<QPushButton*>())
        button->setAutoDefault(false);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_filter);
    layout->addWidget(m_table, 1);
    layout->addWidget(m_keys);
    layout->addWidget(m_findings);
    layout->addWidget(new QLabel(tr("Changes are saved at once to %1").arg(keymapPath), this));
    layout->addWidget(buttons);

    connect(m_filter, &QLineEdit::textChanged, m_model, &CommandSearchModel::setQuery);
    connect(m_model, &QAbstractItemModel::modelReset, this, &ShortcutsDialog::selectFirstEnabled);
    connect(m_table, &QTableView::doubleClicked, this, &ShortcutsDialog::startRecording);
    connect(m_keys, &QKeySequenceEdit::editingFinished, this, &ShortcutsDialog::onKeysRecorded);
    connect(clear, &QPushButton::clicked, this, &ShortcutsDialog::clearShortcut);
    connect(reset, &QPushButton::clicked, this, &ShortcutsDialog::resetShortcut);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    selectFirstEnabled();
}

void ShortcutsDialog::showEvent(QShowEvent* event)
{
    QDialog::showEvent(event);
    m_filter->clear();
    m_findings->clear();
    m_filter->setFocus();
}

bool ShortcutsDialog::eventFilter(QObject* watched, QEvent* event)
{
    if (watched != m_filter || event->type() != QEvent::KeyPress)
        return QDialog::eventFilter(watched, event);
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key == Qt::Key_Up || key == Qt::Key_Down || key == Qt::Key_PageUp || key == Qt::Key_PageDown) {
        QApplication::sendEvent(m_table, event);
        return true;
    }
    if (key == Qt::Key_Return || key == Qt::Key_Enter) {
        startRecording();
        return true;
    }
    return false;
}

void ShortcutsDialog::selectFirstEnabled()
{
    for (int row = 0; row < m_model->rowCount(); ++row) {
        if (m_model->index(row, 0).data(CommandSearchModel::EnabledRole).toBool()) {
            m_table->selectRow(row);
            return;
        }
    }
    m_table->clearSelection();
}

ShortcutsDialog::Action* ShortcutsDialog::currentAction() const
{
    const QModelIndexList rows = m_table->selectionModel()->selectedRows();
    return rows.isEmpty() ? nullptr : m_model->action(rows.first().row());
}

void ShortcutsDialog::startRecording()
{
    Action* action = currentAction();
    if (!action)
        return;
    m_keys->clear();
    m_findings->setText(tr("Press the new keys for %1").arg(action->name()));
    m_keys->setFocus();
}

// A sequence that another enabled action has is refused; warnings are shown, and the
// sequence is given all the same.
void ShortcutsDialog::onKeysRecorded()
{
    Action* action = currentAction();
    const QKeySequence shortcut = m_keys->keySequence();
    // The field shows the action's keys until new ones are given. Leaving the field ends its
    // editing once more, which then finds nothing new.
    m_keys->setKeySequence(action ? action->shortcut() : QKeySequence());
    m_filter->setFocus();
    m_filter->selectAll();
    if (!action || shortcut.isEmpty() || shortcut == action->shortcut())
        return;
    KeyConflicts conflicts;
    conflicts.addActions(*m_scheme->pool());
    conflicts.addAliases(m_aliases);
    conflicts.setShortcut(action->name(), shortcut);
    QStringList lines;
    bool refused = false;
    for (const KeyFinding& finding : conflicts.findings(action->name())) {
        lines.append(finding.toString());
        refused = refused || finding.severity == KeyFinding::Error;
    }
    showFindings(lines, refused);
    if (refused) {
        emit message(tr("%1 not given to %2: %3").arg(portable(shortcut), action->name(), lines.join(QLatin1String("; "))));
        return;
    }
    assign(action, shortcut);
}

void ShortcutsDialog::clearShortcut()
{
    if (Action* action = currentAction())
        assign(action, QKeySequence());
}

void ShortcutsDialog::resetShortcut()
{
    if (Action* action = currentAction())
        assign(action, m_scheme->defaultShortcut(action->name()));
}

void ShortcutsDialog::assign(Action* action, const QKeySequence& shortcut)
{
    action->setShortcut(shortcut);
    m_keys->setKeySequence(shortcut);
    // The settings folder may not exist before the first change.
    QDir().mkpath(QFileInfo(m_keymapPath).absolutePath());
    if (!m_scheme->save(m_keymapPath)) {
        emit message(tr("Shortcut of %1 is %2, but the keymap was not saved: %3")
                         .arg(action->name(), portable(shortcut), m_scheme->errorString()));
        return;
    }
    emit message(tr("Shortcut of %1 is %2, saved to %3").arg(action->name(), portable(shortcut), m_keymapPath));
}

void ShortcutsDialog::showFindings(const QStringList& lines, bool refused)
{
    QString text = lines.join(QLatin1Char('\n'));
    if (refused)
        text = tr("Not given:") + QLatin1Char('\n') + text;
    m_findings->setText(text);
}
