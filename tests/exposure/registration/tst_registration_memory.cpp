#include "registration.h"
#include "resample.h"
#include "resident_memory.h"

#include <QtTest>

#include <cmath>

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace registration;

namespace {

constexpr QSize kSize(11600, 8650); // 100 megapixels
constexpr qint64 kMebibyte = 1 << 20;
constexpr qint64 kPictureBytes = qint64(kSize.width()) * kSize.height() * 4;
constexpr int kPatch = 24;

/// Patches of random greys, seen from a place that many pixels further right and down.
QImage patches(QPoint by)
{
    QImage picture(kSize, QImage::Format_RGB32);
    for (int y = 0; y < picture.height(); ++y) {
        auto *row = reinterpret_cast<QRgb *>(picture.scanLine(y));
        const quint32 line = quint32((y + by.y() + 10 * kPatch) / kPatch) * 0x85EBCA6BU;
        for (int x = 0; x < picture.width(); ++x) {
            quint32 key = line ^ quint32((x + by.x() + 10 * kPatch) / kPatch) * 0x9E3779B9U;
            key = (key ^ key >> 15) * 0x2C1B3C6DU;
            const int grey = 40 + int((key >> 24) % 160);
            row[x] = qRgb(grey, grey, grey);
        }
    }
    return picture;
}

/// The most memory that a process of its own takes for the work beyond what it begins with; nothing
/// when it fails.
template <typename Work>
qint64 peakOf(const Work &work)
{
    const auto peakAfter = [](const auto &task) -> qint64 {
        const pid_t child = ::fork();
        if (child == 0)
            ::_exit(task() ? 0 : 1);
        int status = 0;
        rusage usage = {};
        const bool isDone = ::wait4(child, &status, 0, &usage) == child && status == 0;
        return isDone ? usage.ru_maxrss * qint64(1024) : -1;
    };
    const qint64 idle = peakAfter([] { return true; });
    const qint64 working = peakAfter(work);
    return idle < 0 || working < 0 ? -1 : working - idle;
}

} // namespace

/// What the registration takes beside the pictures: at most one more and 64 MiB.
class TestRegistrationMemory : public QObject
{
    Q_OBJECT

private:
    const QImage reference = patches({});

private slots:
    void initTestCase()
    {
        if (residentBytes() < 0)
            QSKIP("memory is counted otherwise here");
    }

    void registration_hundredMegapixels_takesLessThanAPicture()
    {
        const QImage shot = patches({-37, 22});
        const qint64 peak = peakOf([&] {
            Options options;
            options.reference = 0;
            const Result result = registerShots({reference, shot}, options);
            return result.outcome == Outcome::Done &&
                   result.transforms[1].matrix == shiftMatrix(-37, 22);
        });
        qInfo("%lld MiB beside the pictures", peak / kMebibyte);
        QVERIFY(peak >= 0);
        QVERIFY(peak <= 112 * kMebibyte);
    }

    void resampling_hundredMegapixels_takesOnePicture()
    {
        Transform turn;
        turn.kind = Kind::Rigid;
        const double angle = 0.001;
        turn.matrix = {std::cos(angle),
                       -std::sin(angle),
                       3.3,
                       std::sin(angle),
                       std::cos(angle),
                       -5.1,
                       0,
                       0,
                       1};
        const qint64 peak = peakOf([&] { return !resample(reference, turn, kSize).isNull(); });
        qInfo("%lld MiB beside the picture", peak / kMebibyte);
        QVERIFY(peak >= kPictureBytes);
        QVERIFY(peak <= kPictureBytes + 64 * kMebibyte);
    }
};

QTEST_GUILESS_MAIN(TestRegistrationMemory)
#include "tst_registration_memory.moc"
