// How much memory a merge takes beside its shots and the picture that it makes.

#include "merge_job.h"
#include "resident_memory.h"

#include <QtTest>

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

class TestMergeJobMemory : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void merge_threeShots_takesLessThanTheShots_data();
    void merge_threeShots_takesLessThanTheShots();
};

namespace {

constexpr QSize kSize(3000, 2250);
constexpr int kShots = 3;

/// Patches of random greys; in the middle others, for each moment.
QImage shotOf(double exposure, quint32 moment, QImage::Format format)
{
    constexpr int kPatch = 12;
    QImage shot(kSize, QImage::Format_RGB32);
    for (int y = 0; y < shot.height(); ++y) {
        auto *row = reinterpret_cast<QRgb *>(shot.scanLine(y));
        for (int x = 0; x < shot.width(); ++x) {
            const bool moves = QRect(1200, 900, 500, 500).contains(x, y);
            quint32 key = (quint32(y / kPatch) * 0x85EBCA6BU) ^ (quint32(x / kPatch) * 0x9E3779B9U);
            key += moves ? moment * 0xC2B2AE35U : 0;
            key = (key ^ key >> 15) * 0x2C1B3C6DU;
            const int grey = int(std::min(255.0, (40 + (key >> 24) % 160) * exposure));
            row[x] = qRgb(grey, grey, grey * 7 / 8);
        }
    }
    return shot.convertToFormat(format);
}

QList<QImage> shotsOf(QImage::Format format)
{
    QList<QImage> shots;
    for (int i = 0; i < kShots; ++i)
        shots += shotOf(0.6 + 0.4 * i, quint32(i), format);
    return shots;
}

/// The most memory, in bytes, that a process of its own takes for the work; less than 0 when it
/// fails.
template <typename Work>
qint64 peakOf(const Work &work)
{
    const pid_t child = ::fork();
    if (child == 0)
        ::_exit(work() ? 0 : 1);
    int status = 0;
    rusage usage = {};
    const bool isDone = ::wait4(child, &status, 0, &usage) == child && status == 0;
    return isDone ? usage.ru_maxrss * qint64(1024) : -1;
}

} // namespace

void TestMergeJobMemory::initTestCase()
{
    if (residentBytes() < 0)
        QSKIP("memory is counted otherwise here");
}

void TestMergeJobMemory::merge_threeShots_takesLessThanTheShots_data()
{
    QTest::addColumn<QImage::Format>("format");
    QTest::newRow("8 bits") << QImage::Format_RGB32;
    QTest::newRow("16 bits") << QImage::Format_RGBX64;
}

/// With registration and the search for movement, and something that moves.
void TestMergeJobMemory::merge_threeShots_takesLessThanTheShots()
{
    QFETCH(QImage::Format, format);
    const qint64 idle = peakOf([=] { return shotsOf(format).size() == kShots; });
    const qint64 working = peakOf([=] {
        const exposure::Outcome outcome = exposure::merge(shotsOf(format));
        return outcome.error == exposure::Error::None && outcome.report.hasGhosts;
    });
    QVERIFY(idle > 0 && working > 0);
    const double picture =
        double(kSize.width()) * kSize.height() * QImage::toPixelFormat(format).bitsPerPixel() / 8;
    const double beside = double(working - idle) - picture;
    qInfo("%.2f times the shots, beside them and the result", beside / (kShots * picture));
    QVERIFY(beside <= 0.7 * kShots * picture);
}

QTEST_GUILESS_MAIN(TestMergeJobMemory)
#include "tst_merge_job_memory.moc"
