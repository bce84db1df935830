#include "free_memory.h"

#include <QDir>
#include <QTemporaryDir>
#include <QtTest>

namespace {

constexpr qint64 kMegabyte = 1 << 20;

/// The files of a machine, below a folder.
class Machine
{
public:
    void write(const QString &path, const QByteArray &text) const
    {
        QFile file(folder.filePath(path));
        QVERIFY(QDir().mkpath(QFileInfo(file.fileName()).path()));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(text);
    }
    qint64 bytes() const { return free_memory::bytes(folder.path()); }

private:
    QTemporaryDir folder;
};

} // namespace

class TestFreeMemory : public QObject
{
    Q_OBJECT

private slots:
    void kernelEstimate_isTaken()
    {
        const Machine machine;
        machine.write("proc/meminfo", "MemTotal: 9000 kB\nMemAvailable:    2048 kB\n");
        QCOMPARE(machine.bytes(), 2 * kMegabyte);
    }

    void controlGroup_limitsIt()
    {
        const Machine machine;
        machine.write("proc/meminfo", "MemAvailable: 1048576 kB\n");
        machine.write("proc/self/cgroup", "0::/users/ann\n");
        machine.write("sys/fs/cgroup/users/ann/memory.max", "max\n");
        machine.write("sys/fs/cgroup/users/memory.max", "104857600\n"); // 100 MB
        machine.write("sys/fs/cgroup/users/memory.current", "73400320\n");
        machine.write("sys/fs/cgroup/users/memory.stat", "anon 1\ninactive_file 10485760\n");
        QCOMPARE(machine.bytes(), 40 * kMegabyte);
    }

    void controlGroup_seenFromWithin_limitsIt()
    {
        const Machine machine;
        machine.write("proc/meminfo", "MemAvailable: 1048576 kB\n");
        machine.write("proc/self/cgroup", "0::/\n");
        machine.write("sys/fs/cgroup/memory.max", "52428800\n");
        machine.write("sys/fs/cgroup/memory.current", "0\n");
        QCOMPARE(machine.bytes(), 50 * kMegabyte);
    }

    void oldControlGroup_limitsIt()
    {
        const Machine machine;
        machine.write("proc/meminfo", "MemAvailable: 1048576 kB\n");
        machine.write("proc/self/cgroup", "7:cpu:/x\n5:memory:/job\n");
        machine.write("sys/fs/cgroup/memory/job/memory.limit_in_bytes", "20971520\n");
        machine.write("sys/fs/cgroup/memory/job/memory.usage_in_bytes", "31457280\n");
        QCOMPARE(machine.bytes(), 0); // never negative
    }

    void thisMachine_hasSome()
    {
        QVERIFY(free_memory::bytes() > 0);
        QVERIFY(free_memory::peakOfProcess() > kMegabyte);
    }

    void sizes_areRead_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<qint64>("bytes");
        QTest::newRow("megabytes") << "800M" << 800 * kMegabyte;
        QTest::newRow("gigabytes with a fraction") << "1.5g" << 1536 * kMegabyte;
        QTest::newRow("long unit") << "2GiB" << 2048 * kMegabyte;
        QTest::newRow("bytes") << "3145728" << 3 * kMegabyte;
        QTest::newRow("too little") << "800" << qint64(-1);
        QTest::newRow("no size") << "much" << qint64(-1);
        QTest::newRow("negative") << "-1G" << qint64(-1);
        QTest::newRow("nothing") << "" << qint64(-1);
        QTest::newRow("too much") << "99999999999T" << qint64(-1);
    }

    void sizes_areRead()
    {
        QFETCH(const QString, text);
        QFETCH(const qint64, bytes);
        QCOMPARE(free_memory::bytesOf(text).value_or(-1), bytes);
    }

    void texts_areForPeople()
    {
        QCOMPARE(free_memory::text(345 * kMegabyte), QString("345 MB"));
        QCOMPARE(free_memory::text(1536 * kMegabyte), QString("1.5 GB"));
    }
};

QTEST_GUILESS_MAIN(TestFreeMemory)
#include "tst_free_memory.moc"
