#include "PhotoFolder.h"
#include "ProgramRun.h"
#include "merge_memory.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QtTest>

using merge_memory::Method;
using merge_memory::Needs;

/// The estimate against what real merges tell of themselves.
class TestMergeMemory : public QObject
{
    Q_OBJECT

private slots:
    void merge_takesNoMoreThanWasEstimated_data()
    {
        QTest::addColumn<int>("shots");
        QTest::addColumn<QSize>("size");
        QTest::addColumn<int>("method");
        QTest::addColumn<QString>("result");
        QTest::addColumn<QStringList>("options");
        const auto row = [](const char *name, int shots, QSize size, Method method,
                            const char *result, const QStringList &options = {}) {
            QTest::newRow(name) << shots << size << int(method) << QString(result) << options;
        };
        row("three tiny shots", 3, {40, 30}, Method::Fusion, "a.jpg");
        row("two shots", 2, {3000, 2000}, Method::Fusion, "a.jpg");
        row("three shots", 3, {3000, 2000}, Method::Fusion, "a.jpg");
        row("nine shots", 9, {2000, 1500}, Method::Fusion, "a.jpg");
        row("three shots to 16 bits", 3, {3000, 2000}, Method::Fusion, "a.tif", {"--depth", "16"});
        row("three shots to light", 3, {3000, 2000}, Method::Radiance, "a.exr");
        row("three shots, mean", 3, {3000, 2000}, Method::Mean, "a.jpg", {"--method", "mean"});
    }

    void merge_takesNoMoreThanWasEstimated()
    {
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
        QSKIP("sanitizers take memory of their own");
#endif
        QFETCH(const int, shots);
        QFETCH(const QSize, size);
        QFETCH(const int, method);
        QFETCH(const QString, result);
        QFETCH(const QStringList, options);
        const PhotoFolder photos;
        QStringList words{"merge", "--json", "-o", result};
        for (int i = 0; i < shots; ++i) {
            const QString name = QStringLiteral("%1.jpg").arg(i);
            photos.writeShot(name, i - shots / 2, i, size);
            words += name;
        }
        const ProgramRun run = runProgramIn(photos.path(), words + options);
        QVERIFY2(run.exitCode == 0, run.errors);
        const qint64 peak = QJsonDocument::fromJson(run.output).object()["peakMemory"].toInteger();
        Needs needs;
        needs.size = size;
        needs.shots = shots;
        needs.method = Method(method);
        needs.isResultDeep = options.contains("16");
        const qint64 estimate = merge_memory::peakBytes(needs);
        qInfo("peak %lld, estimate %lld", peak, estimate);
        QVERIFY(peak > 0);
        QVERIFY2(estimate >= peak, "too little");
        QVERIFY2(estimate <= 3 * peak, "so much that cores would stand idle");
    }

    void headers_tellSizeNumberAndDepth()
    {
        const PhotoFolder photos;
        Bracket bracket;
        for (int i = 0; i < 3; ++i) {
            photos.writeRaw(QStringLiteral("%1.dng").arg(i), i, i);
            bracket.shots.push_back(
                brackets::readShot(photos.path(QStringLiteral("%1.dng").arg(i))).shot);
        }
        const Needs raw = merge_memory::of(bracket);
        QCOMPARE(raw.size, QSize(48, 64));
        QCOMPARE(raw.shots, 3);
        QVERIFY(raw.areRaw);
        Needs developed = raw;
        developed.areRaw = developed.areDeep = false;
        QVERIFY(merge_memory::peakBytes(raw) > merge_memory::peakBytes(developed));
    }
};

QTEST_GUILESS_MAIN(TestMergeMemory)
#include "tst_merge_memory.moc"
