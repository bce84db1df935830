#include "ProgramRun.h"
#include "ResultMark.h"
#include "metadata_reader.h"
#include "set_merge.h"
#include "stroke_parts.h"
#include "stroke_text.h"

#include <QColorSpace>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QPainter>
#include <QTemporaryDir>
#include <QtTest>

#include <random>

namespace {

const QSize kSize(301, 223);
const QRect kThing(120, 80, 40, 40);
const QString kStrokes = QStringLiteral("2:30:130,100,15,5+0:4:140,104");

/// Rectangles at an exposure; with a yellow thing.
QImage shot(double factor, bool hasThing)
{
    std::mt19937 random(5);
    QImage picture(kSize, QImage::Format_RGB32);
    picture.fill(QColor(int(110 * factor), int(110 * factor), int(110 * factor)));
    QPainter painter(&picture);
    const auto level = [&] { return std::min(255, int((random() % 200 + 20) * factor)); };
    for (int i = 0; i < 800; ++i) {
        const QRect part(int(random() % 300), int(random() % 220), int(random() % 20) + 2,
                         int(random() % 20) + 2);
        const int red = level();
        const int green = level();
        painter.fillRect(part, QColor(red, green, level()));
    }
    if (hasThing)
        painter.fillRect(kThing, QColor(225, 215, 20));
    painter.end();
    picture.setColorSpace(QColorSpace::SRgb);
    return picture;
}

QImage maskOf(const QRect &part)
{
    QImage mask(kSize, QImage::Format_Grayscale8);
    mask.fill(0);
    QPainter(&mask).fillRect(part, Qt::white);
    return mask;
}

} // namespace

/// 'veskhdr merge' with shots chosen for parts of the picture.
class TestParts : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir folder;

    QString path(const QString &name) const { return folder.filePath(name); }
    /// Of the three shots, as they stand.
    ProgramRun run(const QStringList &arguments) const
    {
        return runProgramIn(
            folder.path(),
            QStringList{"merge", "a.png", "b.png", "c.png", "--no-align", "--force"} + arguments);
    }
    QImage merged(const QStringList &arguments) const
    {
        const ProgramRun done = run(arguments + QStringList{"-o", "out.png"});
        if (done.exitCode != 0)
            qWarning("%s", done.errors.constData());
        return done.exitCode == 0 ? QImage(path("out.png")) : QImage();
    }
    QImage expected(const std::vector<motion::Take> &takes) const
    {
        exposure::Options options;
        options.alignment = exposure::Alignment::None;
        options.takes = takes;
        return exposure::mergeSet(exposure::Method::Fusion,
                                  {shot(0.5, false), shot(1.0, true), shot(1.8, false)}, options)
            .picture;
    }

private slots:
    void initTestCase();
    void take_byNumberAndByName_isTheMergesOwn();
    void take_later_winsOverEarlier();
    void take_greyMask_isTakenWhereItIsLight();
    void paint_equalsTheMasksOfItsStrokes();
    void paint_thing_comesFromTheNamedShot();
    void report_andMark_tellTheParts();
    void mark_withoutMetadata_tellsNoParts();
    void take_maskOfAnotherSize_isNamed();
    void take_maskThatIsMissing_isNamed();
    void take_ofRadiance_changesTheLight();
    void refuse_wrongWords_data();
    void refuse_wrongWords();
};

void TestParts::initTestCase()
{
    QVERIFY(shot(0.5, false).save(path("a.png")));
    QVERIFY(shot(1.0, true).save(path("b.png")));
    QVERIFY(shot(1.8, false).save(path("c.png")));
    QVERIFY(maskOf(kThing).save(path("m.png")));
    QVERIFY(maskOf(kThing).save(path("a=m.png")));
    QVERIFY(maskOf(kThing).copy(0, 0, 30, 20).save(path("small.png")));
    QImage grey(kSize, QImage::Format_RGB32);
    grey.fill(QColor(127, 127, 127));
    QPainter(&grey).fillRect(kThing, QColor(128, 128, 128));
    QVERIFY(grey.save(path("grey.png")));
}

void TestParts::take_byNumberAndByName_isTheMergesOwn()
{
    const QImage taken = expected({{1, maskOf(kThing)}});
    QVERIFY(taken != expected({}));
    QCOMPARE(merged({}), expected({}));
    for (const char *word : {"2=m.png", "b.png=m.png", "./b.png=a=m.png"})
        QCOMPARE(merged({"--take", word}), taken);
}

void TestParts::take_later_winsOverEarlier()
{
    const QImage mask = maskOf(kThing);
    QCOMPARE(merged({"--take", "2=m.png", "--take", "1=m.png"}), expected({{1, mask}, {0, mask}}));
}

void TestParts::take_greyMask_isTakenWhereItIsLight()
{
    QCOMPARE(merged({"--take", "2=grey.png"}), expected({{1, maskOf(kThing)}}));
}

void TestParts::paint_equalsTheMasksOfItsStrokes()
{
    const brush::Parts parts = brush::parts(*brush::fromText(kStrokes), kSize);
    QCOMPARE(parts.takes.size(), size_t(1));
    const QImage painted = merged({"--paint", kStrokes});
    QCOMPARE(painted, expected(parts.takes));
    QVERIFY(parts.takes[0].mask.save(path("painted.png")));
    QCOMPARE(merged({"--take", "2=painted.png"}), painted);
}

void TestParts::paint_thing_comesFromTheNamedShot()
{
    const QImage first = merged({"--ghosts", "a.png"});
    const QImage named = merged({"--ghosts", "a.png", "--paint", "2@140,100"});
    QVERIFY(!first.isNull() && !named.isNull());
    const QRgb without = first.pixel(kThing.center());
    const QRgb with = named.pixel(kThing.center());
    QVERIFY(qRed(with) - qBlue(with) > 150);
    QVERIFY(qRed(without) - qBlue(without) < 130);
}

void TestParts::report_andMark_tellTheParts()
{
    const ProgramRun done =
        run({"--take", "b.png=./m.png", "--paint", kStrokes, "--json", "-o", "out.png"});
    const QJsonObject told = QJsonDocument::fromJson(done.output).object();
    QCOMPARE(told["takes"].toArray().size(), 1);
    QCOMPARE(told["takes"].toArray()[0].toObject()["picture"].toString(), QString("b.png"));
    QCOMPARE(told["takes"].toArray()[0].toObject()["mask"].toString(), QString("./m.png"));
    QCOMPARE(told["paint"].toString(), kStrokes);
    const auto mark = result_mark::in(metadata::read(path("out.png")).xmp);
    QVERIFY(mark);
    QVERIFY2(mark->options.endsWith("--take 2=m.png --paint " + kStrokes),
             qPrintable(mark->options));
}

void TestParts::mark_withoutMetadata_tellsNoParts()
{
    QVERIFY(!merged({"--take", "2=m.png", "--paint", kStrokes, "--no-metadata"}).isNull());
    const auto mark = result_mark::in(metadata::read(path("out.png")).xmp);
    QVERIFY(mark);
    QVERIFY(!mark->options.contains("--take"));
    QVERIFY(!mark->options.contains("--paint"));
}

void TestParts::take_maskOfAnotherSize_isNamed()
{
    const ProgramRun done = run({"--take", "2=small.png", "-o", "none.png"});
    QCOMPARE(done.exitCode, 65);
    QVERIFY2(done.errors.contains("small.png: as a mask it must have the size of the pictures, "
                                  "301 x 223, not 30 x 20"),
             done.errors);
    QVERIFY(!QFile::exists(path("none.png")));
}

void TestParts::take_maskThatIsMissing_isNamed()
{
    const ProgramRun done = run({"--take", "2=gone.png", "-o", "none.png"});
    QCOMPARE(done.exitCode, 66);
    QVERIFY2(done.errors.contains("gone.png"), done.errors);
    QVERIFY(!QFile::exists(path("none.png")));
}

void TestParts::take_ofRadiance_changesTheLight()
{
    const QStringList light{"--method", "radiance", "--ghosts", "off"};
    QCOMPARE(run(light + QStringList{"-o", "plain.tif"}).exitCode, 0);
    QCOMPARE(run(light + QStringList{"--take", "2=m.png", "-o", "taken.tif"}).exitCode, 0);
    const auto content = [this](const QString &name) {
        QFile file(path(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    };
    QVERIFY(!content("plain.tif").isEmpty());
    QVERIFY(content("plain.tif") != content("taken.tif"));
}

void TestParts::refuse_wrongWords_data()
{
    QTest::addColumn<QStringList>("words");
    QTest::addColumn<QString>("reason");
    const QString ofTake = "--take takes one of the pictures or its place, \"=\" and a mask";
    QTest::newRow("no mask") << QStringList{"--take", "2"} << ofTake;
    QTest::newRow("empty mask") << QStringList{"--take", "2="} << ofTake;
    QTest::newRow("shot 0") << QStringList{"--take", "0=m.png"} << ofTake;
    QTest::newRow("shot beyond") << QStringList{"--take", "4=m.png"} << ofTake;
    QTest::newRow("strange shot") << QStringList{"--take", "d.png=m.png"} << ofTake;
    QTest::newRow("second is wrong") << QStringList{"--take", "2=m.png", "--take", "x"} << ofTake;
    QTest::newRow("no strokes") << QStringList{"--paint", "2:30"} << "--paint takes strokes";
    QTest::newRow("stroke of no shot")
        << QStringList{"--paint", "4:30:5,5"} << "--paint has a stroke of a picture";
    QTest::newRow("mean") << QStringList{"--method", "mean", "--take", "2=m.png"}
                          << "--take goes with --method fusion";
    QTest::newRow("mean, painted") << QStringList{"--method", "mean", "--paint", "2:30:5,5"}
                                   << "--paint goes with --method fusion";
    QTest::newRow("result in the mask's place")
        << QStringList{"--take", "2=o.png"} << "is one of the pictures";
}

void TestParts::refuse_wrongWords()
{
    QFETCH(const QStringList, words);
    QFETCH(const QString, reason);
    QVERIFY(maskOf(kThing).save(path("o.png")));
    const ProgramRun refused = run(words + QStringList{"-o", "o.png"});
    QCOMPARE(refused.exitCode, 64);
    QVERIFY2(refused.errors.contains(reason.toUtf8()), refused.errors);
}

QTEST_GUILESS_MAIN(TestParts)
#include "tst_veskhdr_parts.moc"
