#include <CommandSystem/Action.h>
#include <CommandSystem/ActionPool.h>
#include <CommandSystem/CommandPalette.h>
#include <CommandSystem/CommandSearchModel.h>

#include <QLineEdit>
#include <QListView>
#include <QShortcut>
#include <QSignalSpy>
#include <QVBoxLayout>
#include <QtTest>

#include <memory>

using namespace Talvir::Vexa::Cs;

// The palette driven by key events as a user types, under the offscreen platform.
class tst_CommandPalette : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();
    void openFocusesAnEmptyQuery();
    void typingAndEnterIssueTheCommand();
    void arrowsMoveThroughTheList();
    void escapeClosesBeforeTheHostShortcut();
    void toggleFlipsThroughItsClone();
    void disabledActionIsNotTriggered();
    void widgetActionIsOnlyReported();
    void clickOnARowActivatesIt();
    void focusElsewhereCloses();

private:
    void type(const QString& text);
    void press(Qt::Key key);

    std::unique_ptr<QWidget> m_host;
    QLineEdit* m_hostEdit = nullptr;
    std::unique_ptr<ActionPool> m_pool;
    std::unique_ptr<CommandSearchModel> m_model;
    CommandPalette* m_palette = nullptr;
    std::unique_ptr<QSignalSpy> m_issued;
    std::unique_ptr<QSignalSpy> m_activated;
    int m_hostEscapes = 0;
};

// The signal names the type as moc sees it, without namespace.
void tst_CommandPalette::initTestCase()
{
    qRegisterMetaType<Action*>("Action*");
}

void tst_CommandPalette::init()
{
    m_pool = std::make_unique<ActionPool>();
    const auto add = [this](const char* name, const char* ribbon, const char* script) {
        Action* action = m_pool->insertAction(QString::fromLatin1(name));
        action->setRibbonText(QString::fromLatin1(ribbon));
        action->setScript(QString::fromLatin1(script));
        return action;
    };
    add("ID_DRAW_LINE", "Line", "line");
    add("ID_DRAW_POLYLINE", "Polyline", "polyline");
    add("ID_DRAW_RECTANGLE", "Rectangle", "rectangle")->setShortcut(QKeySequence(QStringLiteral("Ctrl+R")));
    Action* grid = add("ID_VIEW_GRID", "Grid", "Grid");
    grid->setType(QStringLiteral("toggle"));
    grid->setCheckable(true);
    add("ID_FILE_OLD", "Old Export", "oldexport")->setEnabled(false);
    add("ID_FORMAT_LAYER", "Layer", "clayer")->setType(QStringLiteral("widget"));
    m_model = std::make_unique<CommandSearchModel>(m_pool.get());

    m_host = std::make_unique<QWidget>();
    m_host->resize(800, 600);
    m_hostEdit = new QLineEdit(m_host.get());
    auto* layout = new QVBoxLayout(m_host.get());
    layout->addWidget(m_hostEdit);
    layout->addStretch();
    m_hostEscapes = 0;
    auto* escape = new QShortcut(QKeySequence(Qt::Key_Escape), m_host.get());
    connect(escape, &QShortcut::activated, this, [this] { ++m_hostEscapes; });
    m_palette = new CommandPalette(m_model.get(), m_host.get());
    m_issued = std::make_unique<QSignalSpy>(m_pool.get(), &ActionPool::commandIssued);
    m_activated = std::make_unique<QSignalSpy>(m_palette, &CommandPalette::actionActivated);
    m_host->show();
    m_host->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_host.get()));
    m_hostEdit->setFocus();
    QCOMPARE(QApplication::focusWidget(), m_hostEdit);
}

void tst_CommandPalette::cleanup()
{
    m_activated.reset();
    m_issued.reset();
    m_host.reset();
    m_model.reset();
    m_pool.reset();
}

// Keys go to the focused widget, shortcuts first, as a user's do.
void tst_CommandPalette::type(const QString& text)
{
    QTest::keyClicks(QApplication::focusWidget(), text);
}

void tst_CommandPalette::press(Qt::Key key)
{
    QTest::keyClick(QApplication::focusWidget(), key);
}

void tst_CommandPalette::openFocusesAnEmptyQuery()
{
    m_model->setQuery(QStringLiteral("poly"));
    m_palette->open();
    QVERIFY(m_palette->isVisible());
    QCOMPARE(QApplication::focusWidget(), m_palette->lineEdit());
    QVERIFY(m_palette->lineEdit()->text().isEmpty());
    QCOMPARE(m_model->query(), QString());
    QCOMPARE(m_palette->currentAction()->name(), QStringLiteral("ID_DRAW_LINE"));
    QVERIFY(m_palette->geometry().top() >= 0 && m_palette->geometry().bottom() < m_host->height());
    QCOMPARE(m_palette->model(), m_model.get());
    QCOMPARE(m_palette->listView()->model(), static_cast<QAbstractItemModel*>(m_model.get()));
}

void tst_CommandPalette::typingAndEnterIssueTheCommand()
{
    m_palette->open();
    type(QStringLiteral("rectang"));
    QCOMPARE(m_model->query(), QStringLiteral("rectang"));
    QCOMPARE(m_palette->currentAction()->name(), QStringLiteral("ID_DRAW_RECTANGLE"));
    press(Qt::Key_Return);
    QCOMPARE(m_issued->count(), 1);
    QCOMPARE(m_issued->at(0).at(0).toString(), QStringLiteral("rectangle"));
    QCOMPARE(m_activated->count(), 1);
    QCOMPARE(qvariant_cast<Action*>(m_activated->at(0).at(0))->name(), QStringLiteral("ID_DRAW_RECTANGLE"));
    QVERIFY(!m_palette->isVisible());
    QCOMPARE(QApplication::focusWidget(), m_hostEdit);
    // The clone made to fire the action is gone again.
    QCOMPARE(m_pool->action(QStringLiteral("ID_DRAW_RECTANGLE"))->findChildren<QAction*>().size(), 0);
}

void tst_CommandPalette::arrowsMoveThroughTheList()
{
    m_palette->open();
    type(QStringLiteral("line"));
    QCOMPARE(m_model->rowCount(), 2);
    QCOMPARE(m_palette->currentAction()->name(), QStringLiteral("ID_DRAW_LINE"));
    press(Qt::Key_Down);
    QCOMPARE(m_palette->currentAction()->name(), QStringLiteral("ID_DRAW_POLYLINE"));
    QCOMPARE(QApplication::focusWidget(), m_palette->lineEdit());
    press(Qt::Key_Up);
    QCOMPARE(m_palette->currentAction()->name(), QStringLiteral("ID_DRAW_LINE"));
    press(Qt::Key_Down);
    press(Qt::Key_Enter);
    QCOMPARE(m_issued->count(), 1);
    QCOMPARE(m_issued->at(0).at(0).toString(), QStringLiteral("polyline"));
}

void tst_CommandPalette::escapeClosesBeforeTheHostShortcut()
{
    press(Qt::Key_Escape);
    QCOMPARE(m_hostEscapes, 1);
    m_palette->open();
    type(QStringLiteral("gr"));
    press(Qt::Key_Escape);
    QVERIFY(!m_palette->isVisible());
    QCOMPARE(m_hostEscapes, 1);
    QCOMPARE(m_issued->count(), 0);
    QCOMPARE(m_activated->count(), 0);
    QCOMPARE(QApplication::focusWidget(), m_hostEdit);
}

void tst_CommandPalette::toggleFlipsThroughItsClone()
{
    Action* grid = m_pool->action(QStringLiteral("ID_VIEW_GRID"));
    QObject menu;
    QAction* menuClone = grid->clone(&menu, 0);
    for (const char* expected : {"GridOn", "GridOff"}) {
        m_palette->open();
        type(QStringLiteral("grid"));
        press(Qt::Key_Return);
        QCOMPARE(m_issued->takeLast().at(0).toString(), QString::fromLatin1(expected));
        QCOMPARE(grid->isChecked(), QByteArray(expected) == "GridOn");
        QCOMPARE(menuClone->isChecked(), grid->isChecked());
    }
}

void tst_CommandPalette::disabledActionIsNotTriggered()
{
    m_palette->open();
    type(QStringLiteral("oldexp"));
    QCOMPARE(m_model->rowCount(), 1);
    QVERIFY(!m_palette->currentAction());
    press(Qt::Key_Return);
    QVERIFY(m_palette->isVisible());
    QVERIFY(!m_palette->activateCurrent());
    QCOMPARE(m_issued->count(), 0);
    QCOMPARE(m_activated->count(), 0);
}

void tst_CommandPalette::widgetActionIsOnlyReported()
{
    m_palette->open();
    type(QStringLiteral("layer"));
    QCOMPARE(m_palette->currentAction()->name(), QStringLiteral("ID_FORMAT_LAYER"));
    press(Qt::Key_Return);
    QVERIFY(!m_palette->isVisible());
    QCOMPARE(m_issued->count(), 0);
    QCOMPARE(m_activated->count(), 1);
}

void tst_CommandPalette::clickOnARowActivatesIt()
{
    m_palette->open();
    type(QStringLiteral("l"));
    const int row = m_model->rowOf(QStringLiteral("ID_DRAW_POLYLINE"));
    QVERIFY(row > 0);
    QListView* list = m_palette->listView();
    const QRect rect = list->visualRect(m_model->index(row, 0));
    QVERIFY(rect.isValid());
    QTest::mouseClick(list->viewport(), Qt::LeftButton, Qt::NoModifier, rect.center());
    QCOMPARE(m_issued->count(), 1);
    QCOMPARE(m_issued->at(0).at(0).toString(), QStringLiteral("polyline"));
    QVERIFY(!m_palette->isVisible());
}

void tst_CommandPalette::focusElsewhereCloses()
{
    m_palette->open();
    type(QStringLiteral("li"));
    m_hostEdit->setFocus();
    QVERIFY(!m_palette->isVisible());
    QCOMPARE(m_issued->count(), 0);
}

QTEST_MAIN(tst_CommandPalette)
#include "tst_commandpalette.moc"
