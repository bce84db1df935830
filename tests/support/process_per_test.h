#pragma once

#include <QApplication>
#include <QProcess>
#include <QtTest>

/// Whether QTest runs the slot as a test by itself.
inline bool isTestFunction(const QMetaMethod &method)
{
    static const QStringList kFixtures = {"initTestCase", "init", "cleanup", "cleanupTestCase"};
    const QString name = QString::fromLatin1(method.name());
    return method.methodType() == QMetaMethod::Slot && method.access() == QMetaMethod::Private &&
           !name.endsWith(QLatin1String("_data")) && !kFixtures.contains(name);
}

/// Runs every test function of Test in a process of its own, for what a process can have only once:
/// a registry that is never destroyed, a driver that is loaded at the first call. With a function's
/// name among the arguments it runs that one here, so single tests can be debugged as usual.
template <class Test>
int runEachTestInItsOwnProcess(int argc, char **argv)
{
    if (argc > 1) {
        QApplication app(argc, argv);
        Test test;
        return QTest::qExec(&test, argc, argv);
    }

    const QMetaObject &meta = Test::staticMetaObject;
    int failures = 0;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
        if (isTestFunction(meta.method(i))) {
            failures += QProcess::execute(QString::fromLocal8Bit(argv[0]),
                                          {QString::fromLatin1(meta.method(i).name())}) != 0;
        }
    }
    return failures;
}
