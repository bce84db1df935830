#include "parallel_rows.h"
#include "picture_makers.h"
#include "picture_reader.h"

#include <QRgba64>
#include <QtTest>

#include <vector>

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace makers;

namespace {

constexpr int kPictures = 3;
constexpr qint64 kPictureBytes = 3000LL * 2000 * 4; // at 8 bits per channel
constexpr qint64 kMebibyte = 1 << 20;

QImage deepPicture(QImage::Format format)
{
    QImage picture(3000, 2000, QImage::Format_RGBX64);
    for (int y = 0; y < picture.height(); ++y) {
        auto *row = reinterpret_cast<QRgba64 *>(picture.scanLine(y));
        for (int x = 0; x < picture.width(); ++x)
            row[x] = QRgba64::fromRgba64(quint16(x * 21), quint16(y * 31), quint16(x ^ y), 0xFFFF);
    }
    return picture.convertToFormat(format);
}

/// Reads the file that many times side by side, and has all pictures in memory at the end.
bool canReadAll(const QString &path)
{
    std::vector<DecodedPicture> pictures(kPictures);
    parallel::each(kPictures, [&](int i) { pictures[size_t(i)] = picture::read(path); });
    for (const DecodedPicture &picture : pictures) {
        if (picture.image.isNull())
            return false;
    }
    return true;
}

/// The most memory that a process of its own takes for it beyond what it begins with; nothing when
/// it fails.
qint64 peakOfReading(const QString &path)
{
    const auto peakAfter = [](auto work) -> qint64 {
        const pid_t child = ::fork();
        if (child == 0)
            ::_exit(work() ? 0 : 1);
        int status = 0;
        rusage usage = {};
        const bool isDone = ::wait4(child, &status, 0, &usage) == child && status == 0;
        return isDone ? usage.ru_maxrss * qint64(1024) : -1;
    };
    const qint64 idle = peakAfter([] { return true; });
    const qint64 reading = peakAfter([&path] { return canReadAll(path); });
    return idle < 0 || reading < 0 ? -1 : reading - idle;
}

} // namespace

class TestPictureMemory : public QObject
{
    Q_OBJECT

private:
    const Folder folder;

private slots:
    void initTestCase() { QVERIFY(folder.isValid()); }
    void cleanup() { parallel::setThreadLimit(0); }

    void read_sixteenBits_takesTheMemoryOfEightBitPictures_data()
    {
        QTest::addColumn<QByteArray>("format");
        QTest::addColumn<QImage::Format>("pixels");
        QTest::newRow("tiff") << QByteArray("tiff") << QImage::Format_RGBX64;
        QTest::newRow("tiff with alpha") << QByteArray("tiff") << QImage::Format_RGBA64;
    }

    void read_sixteenBits_takesTheMemoryOfEightBitPictures()
    {
#if !defined(__linux__) || defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
        QSKIP("memory is counted otherwise here");
#endif
        QFETCH(QByteArray, format);
        QFETCH(QImage::Format, pixels);
        parallel::setThreadLimit(kPictures); // all of them at the same time
        const QString path =
            folder.save(QStringLiteral("deep"), encoded(deepPicture(pixels), format.constData()));
        QVERIFY(!path.isEmpty());
        const qint64 peak = peakOfReading(path);
        QVERIFY(peak > kPictures * kPictureBytes);
        QVERIFY2(peak < kPictures * kPictureBytes + 16 * kMebibyte,
                 qPrintable(QStringLiteral("%1 MiB").arg(peak / kMebibyte)));
    }
};

QTEST_GUILESS_MAIN(TestPictureMemory)
#include "tst_picture_memory.moc"
