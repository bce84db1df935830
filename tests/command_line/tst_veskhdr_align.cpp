#include "ExposureData.h"
#include "ProgramRun.h"
#include "exif_metadata.h"

#include <QColorSpace>
#include <QDir>
#include <QImage>
#include <QImageReader>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QPainter>
#include <QTemporaryDir>
#include <QtTest>

#include <csignal>
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
    picture.setColorSpace(QColorSpace(QColorSpace::DisplayP3));
    return picture;
}

/// The scene from a place that many pixels further right and down.
QImage shot(QPoint by = {})
{
    return scene().copy(QRect(QPoint(10, 10) + by, kSize));
}

const QPoint kMoved(3, -2);

/// What a shot at kMoved shows of the one at (0, 0), in its own pixels.
const QRect kOverlap(0, 2, 597, 448);

} // namespace

/// 'veskhdr align'.
class TestAlign : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir folder;

    QString path(const QString &name) const { return folder.filePath(name); }
    ProgramRun run(const QStringList &arguments) const
    {
        return runProgramIn(folder.path(), QStringList("align") + arguments);
    }
    QJsonObject report(const QStringList &arguments) const
    {
        return QJsonDocument::fromJson(run(arguments + QStringList("--json")).output).object();
    }

private slots:
    void initTestCase()
    {
        QVERIFY(shot().save(path("a.png")));
        QVERIFY(shot(kMoved).save(path("b.png")));
        QVERIFY(shot().save(path("c.jpg"), nullptr, 95));
        QVERIFY(shot(kMoved).save(path("d.jpg"), nullptr, 95));
        QVERIFY(shot().convertToFormat(QImage::Format_RGBX64).save(path("deep.png")));
        QVERIFY(shot(kMoved).convertToFormat(QImage::Format_RGBX64).save(path("deep2.png")));
        QImage blank(kSize, QImage::Format_RGB32);
        blank.fill(Qt::black);
        QVERIFY(blank.save(path("black.png")));
        QVERIFY(blank.copy(0, 0, 300, 200).save(path("small.png")));
    }

    void align_movedShot_liesOnTheReference()
    {
        const QJsonObject told = report({"a.png", "b.png", "--reference", "a.png", "-o", "one"});
        QCOMPARE(told["reference"].toString(), QString("a.png"));
        QCOMPARE(told["outputs"].toArray(), QJsonArray({"one/a.png", "one/b.png"}));
        const QJsonArray matrix = told["transforms"].toArray()[1].toObject()["matrix"].toArray();
        QCOMPARE(matrix[0].toArray()[2].toDouble(), 3.0);
        QCOMPARE(matrix[1].toArray()[2].toDouble(), -2.0);
        const QImage first = QImage(path("one/a.png"));
        const QImage second = QImage(path("one/b.png"));
        QCOMPARE(first.convertToFormat(QImage::Format_RGB32),
                 shot().convertToFormat(QImage::Format_RGB32));
        const QRect both = QRect({}, kSize) & QRect(kMoved, kSize);
        QCOMPARE(second.copy(both).convertToFormat(QImage::Format_RGB32),
                 first.copy(both).convertToFormat(QImage::Format_RGB32));
    }

    void align_border_isTransparentOrBlack()
    {
        QCOMPARE(run({"a.png", "b.png", "--reference", "a.png", "-o", "edge"}).exitCode, 0);
        const QImage png(path("edge/b.png"));
        QCOMPARE(qAlpha(png.pixel(0, 0)), 0);
        QCOMPARE(qAlpha(png.pixel(2, 100)), 0);
        QCOMPARE(qAlpha(png.pixel(3, 100)), 255);
        QCOMPARE(run({"a.png", "b.png", "--reference", "a.png", "--format", "tiff", "-o", "edge"})
                     .exitCode,
                 0);
        QCOMPARE(qAlpha(QImage(path("edge/b.tif")).pixel(0, 0)), 0);
        QCOMPARE(run({"c.jpg", "d.jpg", "--reference", "c.jpg", "-o", "edge"}).exitCode, 0);
        const QImage jpeg(path("edge/d.jpg"));
        QVERIFY(!jpeg.hasAlphaChannel());
        QVERIFY(qGray(jpeg.pixel(0, 440)) < 16);
    }

    void align_crop_leavesWhatAllCover()
    {
        const QJsonObject told =
            report({"a.png", "b.png", "--reference", "a.png", "--crop", "-o", "cropped"});
        const QJsonObject area{{"x", 3}, {"y", 0}, {"width", 597}, {"height", 448}};
        QCOMPARE(told["area"].toObject(), area);
        const QImage first(path("cropped/a.png"));
        QCOMPARE(first.size(), kOverlap.size());
        QVERIFY(!first.hasAlphaChannel());
        QCOMPARE(QImage(path("cropped/b.png")), first);
    }

    void align_sixteenBits_stay()
    {
        QCOMPARE(run({"deep.png", "deep2.png", "--reference", "deep.png", "-o", "deep"}).exitCode,
                 0);
        QCOMPARE(QImageReader(path("deep/deep2.png")).imageFormat(), QImage::Format_RGBA64);
        QCOMPARE(QImageReader(path("deep/deep.png")).imageFormat(), QImage::Format_RGBX64);
    }

    void align_profile_isKept()
    {
        QCOMPARE(run({"a.png", "b.png", "-o", "profile"}).exitCode, 0);
        for (const char *name : {"profile/a.png", "profile/b.png"})
            QCOMPARE(QImage(path(name)).colorSpace(), QColorSpace(QColorSpace::DisplayP3));
    }

    void align_exifData_isThatOfEachShot()
    {
        int seconds = 1;
        for (const char *name : {"c.jpg", "d.jpg"}) {
            QFile plain(path(name));
            QVERIFY(plain.open(QIODevice::ReadOnly));
            sample::ExposureData exposure;
            exposure.exposureTime = seconds++;
            QFile photograph(path(QStringLiteral("exif_%1").arg(name)));
            QVERIFY(photograph.open(QIODevice::WriteOnly));
            photograph.write(sample::withExif(plain.readAll(), sample::exifBlock(exposure, kSize)));
        }
        QCOMPARE(run({"exif_c.jpg", "exif_d.jpg", "--format", "png", "-o", "exif"}).exitCode, 0);
        const auto exposureOf = [this](const char *name) {
            return exif::read(path(name))
                .fraction(ExifTags::Directory::Exposure, ExifTags::ExposureTime)
                .value_or(0.0);
        };
        QCOMPARE(exposureOf("exif/exif_c.png"), 1.0);
        QCOMPARE(exposureOf("exif/exif_d.png"), 2.0);
    }

    void align_format_isThatOfEachShotUnlessGiven()
    {
        QJsonObject told = report({"a.png", "d.jpg", "-o", "own"});
        QCOMPARE(told["outputs"].toArray(), QJsonArray({"own/a.png", "own/d.jpg"}));
        QCOMPARE(QImageReader::imageFormat(path("own/d.jpg")), QByteArray("jpeg"));
        told = report({"a.png", "d.jpg", "--format", "jpeg", "-o", "jpegs"});
        QCOMPARE(told["outputs"].toArray(), QJsonArray({"jpegs/a.jpg", "jpegs/d.jpg"}));
        QCOMPARE(QImageReader::imageFormat(path("jpegs/a.jpg")), QByteArray("jpeg"));
    }

    void align_byShift_goesOntoTheFirst()
    {
        const QJsonObject told = report({"a.png", "b.png", "--align", "shift", "-o", "shift"});
        QCOMPARE(told["reference"].toString(), QString("a.png"));
        QCOMPARE(told["transforms"].toArray()[1].toObject()["kind"].toString(), QString("shift"));
        QVERIFY(QImage(path("shift/b.png")).copy(10, 10, 500, 400) ==
                QImage(path("shift/a.png"))
                    .copy(10, 10, 500, 400)
                    .convertToFormat(QImage(path("shift/b.png")).format()));
    }

    void align_shotThatCannotBe_isNamedAndWrittenAsItIs()
    {
        const ProgramRun odd = run({"a.png", "b.png", "black.png", "-o", "odd"});
        QCOMPARE(odd.exitCode, 0);
        QVERIFY2(odd.errors.contains("black.png: warning: it was left unaligned: "), odd.errors);
        QCOMPARE(QImage(path("odd/black.png")).convertToFormat(QImage::Format_RGB32),
                 QImage(path("black.png")).convertToFormat(QImage::Format_RGB32));
    }

    void align_existingResult_staysUnlessForced()
    {
        QVERIFY(QDir(folder.path()).mkdir("full"));
        QFile file(path("full/b.png"));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("mine");
        file.close();
        const ProgramRun refused = run({"a.png", "b.png", "-o", "full"});
        QCOMPARE(refused.exitCode, 73);
        QVERIFY2(refused.errors.contains("full/b.png: "), refused.errors);
        QCOMPARE(QDir(path("full")).entryList(QDir::Files), QStringList("b.png"));
        QCOMPARE(file.size(), 4);
        QCOMPARE(run({"a.png", "b.png", "-o", "full", "--force"}).exitCode, 0);
        QCOMPARE(QImage(path("full/b.png")).size(), kSize);
    }

    void align_intoTheFolderOfThePictures_replacesNone()
    {
        const ProgramRun refused = run({"a.png", "b.png", "-o", ".", "--force"});
        QCOMPARE(refused.exitCode, 64);
        QVERIFY2(refused.errors.contains("is one of the pictures"), refused.errors);
        QCOMPARE(QImage(path("b.png")).convertToFormat(QImage::Format_RGB32),
                 shot(kMoved).convertToFormat(QImage::Format_RGB32));
    }

    void align_quietInAPipe_saysLinesWhenAsked()
    {
        const ProgramRun quiet = run({"a.png", "b.png", "-o", "quiet"});
        QCOMPARE(quiet.output, QByteArray());
        QCOMPARE(quiet.errors, QByteArray());
        const QByteArray lines = run({"a.png", "b.png", "-o", "loud", "--verbose"}).output;
        QVERIFY2(lines.contains("align   b.png: shift, confidence ") ||
                     lines.contains("align   a.png: shift, confidence "),
                 lines);
    }

    void interrupt_whileWriting_leavesCompleteFilesOnly()
    {
        const QDir results(path("stopped"));
        const auto temporaries = [&results] {
            return QDir(results.path()).entryList({"*.tmp"}, QDir::Files | QDir::Hidden);
        };
        // The signal must meet a file while it is written; on a busy machine it may come late.
        constexpr int kTries = 20;
        bool isInterrupted = false;
        for (int i = 0; i < kTries && !isInterrupted; ++i) {
            QDir(results.path()).removeRecursively();
            Program program;
            program.setWorkingDirectory(folder.path());
            program.start(program.program(), {"align", "a.png", "b.png", "-o", "stopped"});
            while (program.state() != QProcess::NotRunning && temporaries().isEmpty())
                program.waitForFinished(1);
            ::kill(pid_t(program.processId()), SIGINT);
            program.waitForFinished();
            isInterrupted = program.exitStatus() == QProcess::CrashExit;
            QCOMPARE(temporaries(), QStringList());
            for (const QString &name : QDir(results.path()).entryList(QDir::Files))
                QCOMPARE(QImage(results.filePath(name)).size(), kSize);
        }
        QVERIFY(isInterrupted);
    }

    void refuse_wrongWords_data()
    {
        QTest::addColumn<QStringList>("words");
        QTest::addColumn<int>("code");
        QTest::newRow("no folder") << QStringList{"a.png", "b.png"} << 64;
        QTest::newRow("one picture") << QStringList{"a.png", "-o", "no"} << 64;
        QTest::newRow("one picture twice") << QStringList{"a.png", "./a.png", "-o", "no"} << 64;
        QTest::newRow("no picture") << QStringList{"-o", "no"} << 64;
        QTest::newRow("two folders")
            << QStringList{"a.png", "b.png", "-o", "no", "-o", "nor"} << 64;
        QTest::newRow("alignment")
            << QStringList{"a.png", "b.png", "-o", "no", "--align", "none"} << 64;
        QTest::newRow("format") << QStringList{"a.png", "b.png", "-o", "no", "--format", "gif"}
                                << 64;
        QTest::newRow("quality") << QStringList{"a.png", "b.png", "-o", "no", "--quality", "0"}
                                 << 64;
        QTest::newRow("megapixels")
            << QStringList{"a.png", "b.png", "-o", "no", "--max-megapixels", "-1"} << 64;
        QTest::newRow("strange reference")
            << QStringList{"a.png", "b.png", "-o", "no", "--reference", "c.jpg"} << 64;
        QTest::newRow("two of one name")
            << QStringList{"a.png", "one/a.png", "-o", "no", "--format", "tiff"} << 64;
        QTest::newRow("json and lines")
            << QStringList{"a.png", "b.png", "-o", "no", "--json", "--verbose"} << 64;
        QTest::newRow("other size") << QStringList{"a.png", "small.png", "-o", "no"} << 65;
        QTest::newRow("missing") << QStringList{"a.png", "missing.png", "-o", "no"} << 66;
        QTest::newRow("a file for a folder") << QStringList{"a.png", "b.png", "-o", "c.jpg"} << 73;
    }

    void refuse_wrongWords()
    {
        QFETCH(const QStringList, words);
        QFETCH(const int, code);
        const ProgramRun refused = run(words);
        QVERIFY2(refused.exitCode == code, refused.errors);
        QVERIFY(!refused.errors.isEmpty());
        QVERIFY(!QFile::exists(path("no")));
    }
};

QTEST_GUILESS_MAIN(TestAlign)
#include "tst_veskhdr_align.moc"
