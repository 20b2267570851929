#ifndef COMMANDSYSTEM_COMMANDSEARCHMODEL_H
#define COMMANDSYSTEM_COMMANDSEARCHMODEL_H

#include <CommandSystem/Global.h>

#include <QAbstractTableModel>
#include <QMap>
#include <QStringList>

CS_BEGIN_NAMESPACE

class Action;
class ActionPool;
class AliasTable;
class CommandSearchModelImpl;
class TemplatePool;

/**
 * \brief A table of the actions of an action pool that users can search by what they remember
 *        of a command: one row per action, ranked by how well it matches a query.
 *
 * Each row shows an action's text (its menu text without mnemonics, else its ribbon text, else
 * its name), name, ribbon and menu texts (as translated when the pool read them), hint, script,
 * the aliases of the command it runs, its current shortcut, its form (where it lives in the
 * host's interface), whether it is enabled, and, when a template pool is set and holds a
 * template of the action's command, a one-line summary of the template's parameters. Every
 * value is also given under its own role on every column, so a list view of column 0 can
 * show or use any of them.
 *
 * setQuery() keeps only the rows whose texts match the query, ranked with NameMatcher:
 * exact matches first, then prefixes, then word starts ("zw" for "Zoom Window"), then other
 * subsequences, case-insensitively. Names, texts, scripts and aliases count first; hints,
 * forms, shortcuts and parameter summaries count only from a word-start match up, and rank
 * after names and texts that match as well. Rows that rank equally keep the pool's name order.
 * An empty query shows every action in the pool's name order.
 *
 * The model follows changes of each action's texts, shortcut and enabled state as the action
 * signals them (dataChanged(), or a reset when the ranking changes). It does not see actions
 * inserted into or removed from the pool, nor changes of scripts, hints and forms, which
 * Action does not signal: call refresh() after those. An action that is destroyed leaves the
 * model at once.
 *
 * GUI thread only. The model neither owns nor changes the pool or the template pool; both must
 * outlive it or be replaced first.
 */
class COMMANDSYSTEM_EXPORT CommandSearchModel : public QAbstractTableModel
{
    Q_OBJECT
    /** The query that the rows match; see setQuery(). */
    Q_PROPERTY(QString query READ query WRITE setQuery NOTIFY queryChanged)

public:
    /** The columns, in order. */
    enum Column {
        TextColumn,       /**< the text users know the action by */
        NameColumn,       /**< the action's name */
        RibbonTextColumn, /**< the ribbon text */
        MenuTextColumn,   /**< the menu text without mnemonics */
        HintColumn,       /**< the short hint */
        ScriptColumn,     /**< the command script */
        AliasesColumn,    /**< the aliases of the script's command, joined by ", " */
        ShortcutColumn,   /**< the current shortcut, in the platform's words */
        FormColumn,       /**< where the action lives */
        EnabledColumn,    /**< whether the action is enabled, as a bool */
        ParametersColumn, /**< the parameter summary of the command's template */
        ColumnCount       /**< the number of columns */
    };
    Q_ENUM(Column)

    /** Roles that every index of a row answers, whatever its column. */
    enum Role {
        ActionRole = Qt::UserRole + 1, /**< the Action, as QObject* (QPointer semantics: null once destroyed) */
        NameRole,                      /**< QString: the action's name */
        RibbonTextRole,                /**< QString: the ribbon text */
        MenuTextRole,                  /**< QString: the menu text without mnemonics */
        HintRole,                      /**< QString: the hint */
        ScriptRole,                    /**< QString: the script */
        AliasesRole,                   /**< QStringList: the aliases */
        ShortcutRole,                  /**< QKeySequence: the current shortcut */
        FormRole,                      /**< QString: the form */
        EnabledRole,                   /**< bool: whether the action is enabled */
        ParametersRole,                /**< QString: the parameter summary */
        MatchKindRole                  /**< int: the NameMatcher::MatchKind of the row's best
                                            text under the query (NameMatcher::Prefix for an
                                            empty query) */
    };
    Q_ENUM(Role)

    /**
     * \brief A model of every action of the pool, with an empty query.
     * \param pool the actions; not owned, must outlive the model.
     * \param parent the model's parent object.
     */
    explicit CommandSearchModel(ActionPool* pool, QObject* parent = nullptr);
    ~CommandSearchModel() override;

    /** The pool the model shows. */
    ActionPool* pool() const;

    /**
     * \brief Where the parameter summaries come from; null for none. Reads the rows anew.
     * \param templates the templates, looked up by the first word of each action's script;
     *        not owned. Looking a template up may read its file.
     */
    void setTemplatePool(TemplatePool* templates);
    /** The template pool of the parameter summaries; null when none is set. */
    TemplatePool* templatePool() const;

    /**
     * \brief The aliases to show and search, as plain data. Reads the rows anew.
     * \param aliases alias to command; an action shows the aliases of the first word of its
     *        script, compared without regard to case.
     */
    void setAliases(const QMap<QString, QString>& aliases);
    /**
     * \brief The aliases of a table to show and search. Reads the rows anew.
     * \param table the aliases; copied, not kept.
     */
    void setAliases(const AliasTable& table);

    /** The current query; empty shows every action. */
    QString query() const;

    /**
     * \brief The action of a row.
     * \param row the row under the current query.
     * \return the action, or null for a row out of range or an action destroyed meanwhile.
     */
    Action* action(int row) const;

    /**
     * \brief The row of an action under the current query.
     * \param name the action's name.
     * \return the row, or -1 when the action is not shown.
     */
    int rowOf(const QString& name) const;

    /** The number of rows under the current query; 0 below the top level. \param parent the parent index. */
    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    /** ColumnCount; 0 below the top level. \param parent the parent index. */
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    /**
     * \brief The column's value for Qt::DisplayRole (and Qt::EditRole), the action's icon as
     *        Qt::DecorationRole and its hint as Qt::ToolTipRole on TextColumn, and the values of
     *        Role on every column.
     * \param index the cell.
     * \param role the role.
     */
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    /**
     * \brief The column titles, translatable in the context "CommandSearchModel".
     * \param section the column.
     * \param orientation only Qt::Horizontal has titles.
     * \param role only Qt::DisplayRole has titles.
     */
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
    /**
     * \brief Rows of enabled actions are enabled and selectable; rows of disabled actions are
     *        neither.
     * \param index the cell.
     */
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    /** The names of Role for QML and other views, and Qt's own. */
    QHash<int, QByteArray> roleNames() const override;

public slots:
    /**
     * \brief Keeps and ranks the rows that match the query; resets the model.
     *
     * Emits queryChanged() when the query differs from the current one.
     * \param query what the user typed.
     */
    void setQuery(const QString& query);

    /** Reads every action of the pool anew and ranks them under the current query; resets
     *  the model. */
    void refresh();

signals:
    /** The query changed to \a query. \param query the new query. */
    void queryChanged(const QString& query);

private slots:
    void onActionChanged();
    void onActionDestroyed(QObject* action);

private:
    CommandSearchModelImpl* d;
};

CS_END_NAMESPACE

#endif
