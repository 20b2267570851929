#ifndef QTTESTCOMPAT_H
#define QTTESTCOMPAT_H

#include <QtTest>

// Qt 6.3 replaced QVERIFY_EXCEPTION_THROWN; Qt 5.15 only has the old macro.
#ifndef QVERIFY_THROWS_EXCEPTION
#  define QVERIFY_THROWS_EXCEPTION(type, ...) QVERIFY_EXCEPTION_THROWN((__VA_ARGS__), type)
#endif

#endif
