#include "ProgramRun.h"

#include <QImage>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QPainter>
#include <QTemporaryDir>
#include <QtTest>

#include <random>

namespace {

const QSize kSize(600, 450);

QImage scene()
{
    std::mt19937 random(5);
    QImage picture(kSize + QSize(20, 20), QImage::Format_RGB32);
    picture.fill(QColor(110, 110, 110));
    QPainter painter(&picture);
    painter.setPen(Qt::NoPen);
    for (int i = 0; i < 3000; ++i) {
        painter.setBrush(
            QColor(int(random() % 200) + 20, int(random() % 200) + 20, int(random() % 200) + 20));
        painter.drawRect(int(random() % 620), int(random() % 470), int(random() % 20) + 2,
                         int(random() % 20) + 2);
    }
    return picture;
}

QImage shot(double factor, QPoint by = {})
{
    QImage picture = scene().copy(QRect(QPoint(10, 10) + by, kSize));
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            const QRgb pixel = picture.pixel(x, y);
            picture.setPixel(x, y,
                             qRgb(std::min(255, int(qRed(pixel) * factor)),
                                  std::min(255, int(qGreen(pixel) * factor)),
                                  std::min(255, int(qBlue(pixel) * factor))));
        }
    }
    return picture;
}

} // namespace

/// 'veskhdr merge' by exposure fusion, which is its default.
class TestFusion : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir folder;

    QString path(const QString &name) const { return folder.filePath(name); }
    ProgramRun run(const QStringList &arguments) const
    {
        return runProgramIn(folder.path(), QStringList("merge") + arguments);
    }
    QJsonObject report(const QStringList &arguments) const
    {
        return QJsonDocument::fromJson(run(arguments + QStringList("--json")).output).object();
    }

private slots:
    void initTestCase()
    {
        QVERIFY(shot(0.5).save(path("a.png")));
        QVERIFY(shot(1.0, {3, -2}).save(path("b.png")));
        QVERIFY(shot(1.9).save(path("c.png")));
        QImage moved = shot(1.0);
        QPainter(&moved).fillRect(100, 80, 60, 60, QColor(250, 240, 20));
        QVERIFY(moved.save(path("moved.png")));
        QImage blank(kSize, QImage::Format_RGB32);
        blank.fill(Qt::black);
        QVERIFY(blank.save(path("black.png")));
    }

    void merge_byDefault_isFusionAlignedToTheReference()
    {
        const QJsonObject told = report({"a.png", "b.png", "c.png", "-o", "fused.png"});
        QCOMPARE(told["method"].toString(), QString("fusion"));
        QCOMPARE(told["transforms"].toArray().size(), 3);
        QVERIFY(told["milliseconds"].toObject().contains("ghosts"));
        QCOMPARE(QImage(path("fused.png")).size(), kSize);
        QCOMPARE(run({"--method", "mean", "a.png", "b.png", "c.png", "-o", "mean.png"}).exitCode,
                 0);
        QVERIFY(QImage(path("fused.png")) != QImage(path("mean.png")));
    }

    void merge_reference_isThePictureGiven()
    {
        const QJsonObject told =
            report({"a.png", "b.png", "c.png", "--reference", "./c.png", "-o", "c_.png"});
        QCOMPARE(told["reference"].toString(), QString("c.png"));
        const QJsonArray transforms = told["transforms"].toArray();
        QCOMPARE(transforms[2].toObject()["kind"].toString(), QString("identity"));
        const QJsonArray matrix = transforms[1].toObject()["matrix"].toArray();
        QCOMPARE(matrix[0].toArray()[2].toDouble(), 3.0);
        QCOMPARE(matrix[1].toArray()[2].toDouble(), -2.0);
    }

    void merge_ghostMask_showsWhatMoved()
    {
        const QJsonObject told = report({"a.png", "moved.png", "c.png", "--no-align", "--ghosts",
                                         "a.png", "--ghost-mask", "mask.png", "-o", "still.png"});
        QCOMPARE(told["ghosts"].toBool(), true);
        const QImage mask(path("mask.png"));
        QCOMPARE(mask.size(), kSize);
        QVERIFY(qGray(mask.pixel(125, 105)) > 200);
        QCOMPARE(qGray(mask.pixel(500, 400)), 0);
        const QRgb pixel = QImage(path("still.png")).pixel(125, 105);
        QVERIFY(qRed(pixel) - qBlue(pixel) < 150);
    }

    void merge_ghostsOff_writesABlackMask()
    {
        QCOMPARE(run({"a.png", "moved.png", "--no-align", "--ghosts", "off", "--ghost-mask",
                      "none.png", "-o", "blend.png"})
                     .exitCode,
                 0);
        QImage black(kSize, QImage::Format_Grayscale8);
        black.fill(0);
        QCOMPARE(QImage(path("none.png")).convertToFormat(QImage::Format_Grayscale8), black);
    }

    void merge_adjustments_changeTheResult_data()
    {
        QTest::addColumn<QStringList>("options");
        QTest::newRow("exposure") << QStringList{"--exposure", "-1.5"};
        QTest::newRow("contrast") << QStringList{"--contrast=-0.5"};
        QTest::newRow("highlights") << QStringList{"--highlights", "-1"};
        QTest::newRow("shadows") << QStringList{"--shadows", "0.8"};
        QTest::newRow("black point") << QStringList{"--black-point", "0.2"};
        QTest::newRow("white point") << QStringList{"--white-point", "0.7"};
        QTest::newRow("saturation") << QStringList{"--saturation", "0"};
        QTest::newRow("exposure weight") << QStringList{"--exposure-weight", "0"};
        QTest::newRow("contrast weight") << QStringList{"--contrast-weight", "0"};
        QTest::newRow("saturation weight") << QStringList{"--saturation-weight", "3"};
    }

    void merge_adjustments_changeTheResult()
    {
        QFETCH(const QStringList, options);
        const QStringList plain{"a.png", "c.png", "--no-align", "--force"};
        QCOMPARE(run(plain + QStringList{"-o", "plain.png"}).exitCode, 0);
        QCOMPARE(run(plain + options + QStringList{"-o", "changed.png"}).exitCode, 0);
        QVERIFY(QImage(path("plain.png")) != QImage(path("changed.png")));
    }

    void merge_shotThatCannotBeAligned_isNamed()
    {
        const ProgramRun odd = run({"a.png", "b.png", "black.png", "-o", "odd.png"});
        QCOMPARE(odd.exitCode, 0);
        QVERIFY2(odd.errors.contains("black.png: warning: it was left unaligned: "), odd.errors);
    }

    void merge_device_meansTheMean()
    {
        const ProgramRun device =
            run({"--method", "fusion", "--device", "x", "a.png", "b.png", "-o", "o.png"});
        QCOMPARE(device.exitCode, 64);
        QVERIFY(device.errors.contains("--device goes with --method mean"));
        QCOMPARE(run({"--device", "x", "a.png", "b.png", "-o", "o.png"}).exitCode, 69);
    }

    void refuse_wrongWords_data()
    {
        QTest::addColumn<QStringList>("words");
        QTest::newRow("method") << QStringList{"--method", "median"};
        QTest::newRow("alignment") << QStringList{"--align", "twist"};
        QTest::newRow("two alignments") << QStringList{"--align", "shift", "--no-align"};
        QTest::newRow("mean by perspective")
            << QStringList{"--method", "mean", "--align", "perspective"};
        QTest::newRow("mean with ghosts") << QStringList{"--method", "mean", "--ghosts", "off"};
        QTest::newRow("strange reference") << QStringList{"--reference", "moved.png"};
        QTest::newRow("strange ghost reference") << QStringList{"--ghosts", "moved.png"};
        QTest::newRow("mask of no kind") << QStringList{"--ghost-mask", "mask.xyz"};
        QTest::newRow("mask in the result's place") << QStringList{"--ghost-mask", "o.png"};
        QTest::newRow("mask in a picture's place") << QStringList{"--ghost-mask", "a.png"};
        QTest::newRow("exposure beyond") << QStringList{"--exposure", "5"};
        QTest::newRow("contrast in words") << QStringList{"--contrast", "hard"};
        QTest::newRow("no number") << QStringList{"--saturation", "nan"};
    }

    void refuse_wrongWords()
    {
        QFETCH(const QStringList, words);
        const ProgramRun refused = run(words + QStringList{"a.png", "b.png", "-o", "o.png"});
        QVERIFY2(refused.exitCode == 64 || refused.exitCode == 73, refused.errors);
        QVERIFY(!QFile::exists(path("o.png")));
    }
};

QTEST_GUILESS_MAIN(TestFusion)
#include "tst_veskhdr_fusion.moc"
