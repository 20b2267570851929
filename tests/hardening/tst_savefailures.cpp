// Saving never loses the earlier file: a write that fails part-way (a file-size limit), a target
// in a missing directory, a directory as the target; devices and pipes are written directly
// and never replaced.

#include "FileSizeLimit.h"
#include "OutputCapture.h"

#include <CommandSystem/Action.h>
#include <CommandSystem/ActionPool.h>
#include <CommandSystem/TemplateTools.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

#include <sys/stat.h>
#include <thread>

using namespace Talvir::Vexa::Cs;

namespace {

constexpr rlim_t smallLimit = 16 * 1024;

QByteArray contentsOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("<unreadable>");
}

QHash<QString, QString> bigMap()
{
    QHash<QString, QString> map;
    for (int index = 0; index < 5000; ++index)
        map.insert(QStringLiteral("template_%1").arg(index),
                   QStringLiteral("/catalogue/file_%1.tcmd").arg(index % 97));
    return map;
}

void fill(ActionPool& pool, int count)
{
    for (int index = 0; index < count; ++index) {
        Action* action = pool.insertAction(QStringLiteral("ID_ACTION_%1").arg(index));
        action->setScript(QStringLiteral("command_%1").arg(index));
        action->setHint(QStringLiteral("A hint long enough to make the file grow quickly"));
    }
}

// The files in a directory, hidden ones included: a failed save must not leave a temporary.
QStringList filesIn(const QString& directory)
{
    return QDir(directory).entryList(QDir::Files | QDir::Hidden | QDir::System, QDir::Name);
}

struct NodeIdentity {
    explicit NodeIdentity(const QString& path)
    {
        struct stat status {};
        valid = ::stat(QFile::encodeName(path).constData(), &status) == 0;
        mode = status.st_mode;
        inode = status.st_ino;
        device = status.st_rdev;
    }
    bool operator==(const NodeIdentity& other) const
    {
        return valid && other.valid && mode == other.mode && inode == other.inode
            && device == other.device;
    }
    bool valid = false;
    mode_t mode = 0;
    ino_t inode = 0;
    dev_t device = 0;
};

} // namespace

class tst_SaveFailures : public QObject
{
    Q_OBJECT

private slots:
    void saveMapFailingPartWayKeepsTheEarlierFile();
    void actionPoolSaveFailingPartWayKeepsTheEarlierFile();
    void targetInMissingDirectory();
    void nameThatCannotBeCreated_data();
    void nameThatCannotBeCreated();
    void directoryAsTarget();
    void deviceIsWrittenDirectlyAndNeverReplaced_data();
    void deviceIsWrittenDirectlyAndNeverReplaced();
    void pipeIsWrittenDirectly();
};

void tst_SaveFailures::saveMapFailingPartWayKeepsTheEarlierFile()
{
    QTemporaryDir directory;
    const QString path = directory.filePath(QStringLiteral(".map"));
    TemplateTools tools;
    QVERIFY(tools.saveMap(path, {{QStringLiteral("arc"), QStringLiteral("/c/curves.tcmd")}}));
    const QByteArray earlier = contentsOf(path);
    QVERIFY(earlier.contains("<map key=\"arc\" value=\"curves.tcmd\"/>"));

    QByteArray printed;
    {
        FileSizeLimit limit(smallLimit);
        QVERIFY(limit.isActive());
        OutputCapture capture;
        QVERIFY(!tools.saveMap(path, bigMap()));
        printed = capture.standardOutput();
    }
    QVERIFY2(printed.startsWith("Can not write to file .map: "), printed.constData());
    QCOMPARE(printed.count('\n'), 1);
    QVERIFY(printed.endsWith('\n'));
    QCOMPARE(contentsOf(path), earlier);
    QCOMPARE(filesIn(directory.path()), QStringList{QStringLiteral(".map")});

    // Without the limit the same map is written: the failure was the limit, part-way.
    QVERIFY(tools.saveMap(path, bigMap()));
    QVERIFY(QFileInfo(path).size() > qint64(smallLimit));
}

void tst_SaveFailures::actionPoolSaveFailingPartWayKeepsTheEarlierFile()
{
    QTemporaryDir directory;
    const QString path = directory.filePath(QStringLiteral("ribbon.xcui"));
    ActionPool small;
    fill(small, 2);
    QVERIFY(!small.save(path));   // false: written
    const QByteArray earlier = contentsOf(path);
    QVERIFY(earlier.contains("ID_ACTION_1"));

    ActionPool big;
    fill(big, 2000);
    {
        FileSizeLimit limit(smallLimit);
        QVERIFY(limit.isActive());
        QVERIFY(big.save(path));   // true: opened, and writing failed
    }
    QCOMPARE(contentsOf(path), earlier);
    QCOMPARE(filesIn(directory.path()), QStringList{QStringLiteral("ribbon.xcui")});

    QVERIFY(!big.save(path));
    QVERIFY(QFileInfo(path).size() > qint64(smallLimit));
}

void tst_SaveFailures::targetInMissingDirectory()
{
    QTemporaryDir directory;
    const QString missing = directory.filePath(QStringLiteral("missing/.map"));
    TemplateTools tools;
    OutputCapture capture;
    QVERIFY(!tools.saveMap(missing, {{QStringLiteral("a"), QStringLiteral("/a.tcmd")}}));
    const QByteArray printed = capture.standardOutput();
    QVERIFY2(printed.startsWith("Can not write to file .map: "), printed.constData());
    QCOMPARE(printed.count('\n'), 1);

    ActionPool pool;
    fill(pool, 1);
    QVERIFY(!pool.save(directory.filePath(QStringLiteral("missing/ui.xcui"))));
    QVERIFY(!QFileInfo::exists(directory.filePath(QStringLiteral("missing"))));
}

// The temporary beside the target is opened without a name of its own, so such a target shows
// only when the finished temporary is to take its name: that is still a file that cannot be
// opened.
void tst_SaveFailures::nameThatCannotBeCreated_data()
{
    QTest::addColumn<int>("length");
    QTest::newRow("longer than a file name may be") << 300;
    QTest::newRow("70,000 characters") << 70000;
}

void tst_SaveFailures::nameThatCannotBeCreated()
{
    QFETCH(int, length);
    QTemporaryDir directory;
    const QString target = directory.filePath(QString(length, QLatin1Char('n')) + QStringLiteral(".xcui"));
    ActionPool pool;
    fill(pool, 50);
    QVERIFY(!pool.save(target));   // false: could not be opened
    QVERIFY(!QFileInfo::exists(target));
    QCOMPARE(filesIn(directory.path()), QStringList());

    TemplateTools tools;
    OutputCapture capture;
    QVERIFY(!tools.saveMap(target, {{QStringLiteral("a"), QStringLiteral("/a.tcmd")}}));
    const QByteArray printed = capture.standardOutput();
    QVERIFY2(printed.startsWith("Can not write to file nnnn"), printed.left(80).constData());
    QCOMPARE(printed.count('\n'), 1);
    QCOMPARE(filesIn(directory.path()), QStringList());

    // The same pool saves under a name that can be created.
    QVERIFY(!pool.save(directory.filePath(QStringLiteral("ui.xcui"))));
    QCOMPARE(filesIn(directory.path()), QStringList{QStringLiteral("ui.xcui")});
}

void tst_SaveFailures::directoryAsTarget()
{
    QTemporaryDir directory;
    const QString target = directory.filePath(QStringLiteral("taken"));
    QVERIFY(QDir(directory.path()).mkdir(QStringLiteral("taken")));
    QVERIFY(QFile::copy(QFINDTESTDATA("tst_savefailures.cpp"), target + QStringLiteral("/kept")));

    TemplateTools tools;
    OutputCapture capture;
    QVERIFY(!tools.saveMap(target, {{QStringLiteral("a"), QStringLiteral("/a.tcmd")}}));
    const QByteArray printed = capture.standardOutput();
    QVERIFY2(printed.startsWith("Can not write to file taken: "), printed.constData());

    ActionPool pool;
    fill(pool, 1);
    QVERIFY(!pool.save(target));   // could not be opened
    QVERIFY(QFileInfo(target).isDir());
    QCOMPARE(filesIn(target), QStringList{QStringLiteral("kept")});
    QCOMPARE(filesIn(directory.path()), QStringList());
}

void tst_SaveFailures::deviceIsWrittenDirectlyAndNeverReplaced_data()
{
    QTest::addColumn<QString>("device");
    QTest::addColumn<bool>("accepts");
    QTest::newRow("/dev/null takes everything") << QStringLiteral("/dev/null") << true;
    QTest::newRow("/dev/full refuses every write") << QStringLiteral("/dev/full") << false;
}

void tst_SaveFailures::deviceIsWrittenDirectlyAndNeverReplaced()
{
    QFETCH(QString, device);
    QFETCH(bool, accepts);
    const NodeIdentity before(device);
    if (!before.valid || !S_ISCHR(before.mode))
        QSKIP("the device node is not available here");

    TemplateTools tools;
    OutputCapture capture;
    QCOMPARE(tools.saveMap(device, bigMap()), accepts);
    const QByteArray printed = capture.standardOutput();
    if (accepts) {
        QCOMPARE(printed, QByteArray());
    } else {
        const QByteArray expected =
            "Can not write to file " + QFileInfo(device).fileName().toUtf8() + ": ";
        QVERIFY2(printed.startsWith(expected), printed.constData());
        QCOMPARE(printed.count('\n'), 1);
    }

    ActionPool pool;
    fill(pool, 500);
    QCOMPARE(pool.save(device), !accepts);   // inverted: true when the write failed
    QVERIFY(NodeIdentity(device) == before);
}

void tst_SaveFailures::pipeIsWrittenDirectly()
{
    QTemporaryDir directory;
    const QString fifo = directory.filePath(QStringLiteral("pipe"));
    QCOMPARE(::mkfifo(QFile::encodeName(fifo).constData(), 0600), 0);
    const NodeIdentity before(fifo);

    QByteArray received;
    std::thread reader([&fifo, &received] {
        QFile end(fifo);
        if (end.open(QIODevice::ReadOnly))
            received = end.readAll();
    });
    TemplateTools tools;
    const bool saved = tools.saveMap(fifo, {{QStringLiteral("arc"), QStringLiteral("/c/curves.tcmd")}});
    reader.join();
    QVERIFY(saved);
    QVERIFY2(received.contains("<map key=\"arc\" value=\"curves.tcmd\"/>"), received.constData());
    QVERIFY(NodeIdentity(fifo) == before);
    QVERIFY(S_ISFIFO(NodeIdentity(fifo).mode));
}

QTEST_MAIN(tst_SaveFailures)
#include "tst_savefailures.moc"
