#include <CommandSystem/PlatformHooks.h>

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QtTest>

#include <stdexcept>

using namespace Talvir::Vexa::Cs;

class tst_PlatformHooks : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { setPlatformHooks(PlatformHooks()); }
    void everyMemberIsSet();
    void emptyMembersKeepTheDefaults();
    void defaultListingIsSortedIgnoringCase();
    void defaultErrorFlushRunsTheBodyOnce_data();
    void defaultErrorFlushRunsTheBodyOnce();
    void defaultErrorFlushContainsExceptions();
    void defaultSystemVersionIsMajorDotMinor();
    void defaultLogicalDpiWithoutScreen();
};

void tst_PlatformHooks::everyMemberIsSet()
{
    const PlatformHooks& hooks = platformHooks();
    QVERIFY(hooks.attachName && hooks.detachName && hooks.attachLabel && hooks.detachLabel);
    QVERIFY(hooks.errorFlush && hooks.logAction && hooks.listFiles);
    QVERIFY(hooks.systemVersion && hooks.logicalDpi);
}

void tst_PlatformHooks::emptyMembersKeepTheDefaults()
{
    QStringList logged;
    PlatformHooks hooks;
    hooks.logAction = [&logged](const char* name) { logged << QString::fromUtf8(name); };
    hooks.systemVersion = [] { return QStringLiteral("6.1"); };
    setPlatformHooks(hooks);
    platformHooks().logAction("ID_LINE");
    QCOMPARE(logged, QStringList{QStringLiteral("ID_LINE")});
    QCOMPARE(platformHooks().systemVersion(), QStringLiteral("6.1"));
    QVERIFY(platformHooks().listFiles);
    QCOMPARE(platformHooks().errorFlush(0, "x", [](bool) { return 3; }), 3);
}

void tst_PlatformHooks::defaultListingIsSortedIgnoringCase()
{
    QTemporaryDir directory;
    QVERIFY(directory.isValid());
    for (const char* name : {"b.tcmd", "A.tcmd", "c.TXT", "C.tcmd", "a2.tcmd"}) {
        QFile file(directory.filePath(QString::fromLatin1(name)));
        QVERIFY(file.open(QIODevice::WriteOnly));
    }
    QVERIFY(QDir(directory.path()).mkdir(QStringLiteral("sub.tcmd")));
    const QStringList listed = platformHooks().listFiles(directory.path(), QStringLiteral("*.tcmd"));
    const QStringList expected{directory.filePath(QStringLiteral("A.tcmd")),
                               directory.filePath(QStringLiteral("a2.tcmd")),
                               directory.filePath(QStringLiteral("b.tcmd")),
                               directory.filePath(QStringLiteral("C.tcmd"))};
    QCOMPARE(listed, expected);
    QVERIFY(platformHooks().listFiles(directory.filePath(QStringLiteral("missing")),
                                      QStringLiteral("*.tcmd")).isEmpty());
}

void tst_PlatformHooks::defaultErrorFlushRunsTheBodyOnce_data()
{
    QTest::addColumn<int>("bodyResult");
    QTest::newRow("success") << 0;
    QTest::newRow("failure") << 4;
}

void tst_PlatformHooks::defaultErrorFlushRunsTheBodyOnce()
{
    QFETCH(int, bodyResult);
    int calls = 0;
    bool argument = true;
    const int result = platformHooks().errorFlush(0, "line", [&](bool flag) {
        ++calls;
        argument = flag;
        return bodyResult;
    });
    QCOMPARE(result, bodyResult);
    QCOMPARE(calls, 1);
    QCOMPARE(argument, false);
}

void tst_PlatformHooks::defaultErrorFlushContainsExceptions()
{
    QTest::ignoreMessage(QtWarningMsg, "Command circle failed: radius is zero");
    QVERIFY(platformHooks().errorFlush(0, "circle", [](bool) -> int {
        throw std::invalid_argument("radius is zero");
    }) != 0);
    QTest::ignoreMessage(QtWarningMsg, "Command arc failed: unknown exception");
    QVERIFY(platformHooks().errorFlush(0, "arc", [](bool) -> int { throw 42; }) != 0);
}

void tst_PlatformHooks::defaultSystemVersionIsMajorDotMinor()
{
    const QString version = platformHooks().systemVersion();
    QVERIFY2(QRegularExpression(QStringLiteral("^\\d+\\.\\d+$")).match(version).hasMatch(),
             qPrintable(version));
}

void tst_PlatformHooks::defaultLogicalDpiWithoutScreen()
{
    QCOMPARE(platformHooks().logicalDpi(), QSizeF(96.0, 96.0));
}

QTEST_GUILESS_MAIN(tst_PlatformHooks)
#include "tst_platformhooks.moc"
