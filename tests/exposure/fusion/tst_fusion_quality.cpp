// Floors of quality on real brackets: what is lost by a change shows here, not only in a benchmark.

#include "fusion.h"
#include "mef_ssim.h"
#include "mef_ssimd.h"
#include "motion.h"

#include <QDir>
#include <QtTest>

using fusion::Shot;

class tst_fusion_quality : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void fuse_staticBrackets_scoresAboveTheFloor();
    void fuse_movingSet_scoresAboveTheFloorAndTheMiddleShot();

private:
    std::vector<QImage> load(const QString &folder) const;

    QDir pictures;
};

namespace {

QImage fused(const std::vector<QImage> &pictures, const std::vector<QImage> &masks)
{
    std::vector<Shot> shots;
    for (size_t i = 0; i < pictures.size(); ++i)
        shots.push_back({pictures[i], i < masks.size() ? masks[i] : QImage()});
    return fusion::fuse(shots).picture;
}

} // namespace

void tst_fusion_quality::initTestCase()
{
    pictures.setPath(qEnvironmentVariable("VESK_TEST_PICTURES"));
    if (!pictures.exists("brackets") || !pictures.exists("moving"))
        QSKIP("No brackets in the folder of test pictures (VESK_TEST_PICTURES)");
}

std::vector<QImage> tst_fusion_quality::load(const QString &folder) const
{
    const QDir dir(pictures.filePath(folder));
    std::vector<QImage> shots;
    for (const QString &name : dir.entryList(QDir::Files, QDir::Name))
        shots.push_back(QImage(dir.filePath(name)).convertToFormat(QImage::Format_RGB32));
    return shots;
}

void tst_fusion_quality::fuse_staticBrackets_scoresAboveTheFloor()
{
    double sum = 0.0;
    double lost = 0.0;
    const QStringList sets{"Arno", "House", "Landscape", "Venice"};
    for (const QString &set : sets) {
        const std::vector<QImage> shots = load("brackets/" + set);
        const double score = mefSsim::score(shots, fused(shots, {}));
        QVERIFY2(score >= 0.972, qPrintable(QString("%1 %2").arg(set).arg(score)));
        sum += score;
        lost += score - mefSsim::score(shots, fused(shots, motion::find(shots).masks));
    }
    QVERIFY2(sum / double(sets.size()) >= 0.979, qPrintable(QString::number(sum / 4)));
    QVERIFY2(lost / double(sets.size()) <= 0.002, qPrintable(QString::number(lost / 4)));
}

void tst_fusion_quality::fuse_movingSet_scoresAboveTheFloorAndTheMiddleShot()
{
    const std::vector<QImage> shots = load("moving/dynamic");
    const double score = mefSsimd::score(shots, fused(shots, motion::find(shots).masks));
    QVERIFY2(score >= 0.94, qPrintable(QString::number(score)));
    QVERIFY(score > mefSsimd::score(shots, shots[2]) + 0.02);
}

QTEST_GUILESS_MAIN(tst_fusion_quality)
#include "tst_fusion_quality.moc"
