#include "ExposureData.h"
#include "PhotoFolder.h"
#include "ProgramRun.h"
#include "metadata_reader.h"
#include "picture_writer.h"

#include <QBuffer>
#include <QImage>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QtTest>

#include <cmath>

namespace {

ProgramRun groupIn(const PhotoFolder &photos, const QStringList &options = {})
{
    return runProgramIn(photos.path(), QStringList("group") + options + QStringList(photos.path()));
}

QList<QJsonObject> bracketsOf(const ProgramRun &run)
{
    QList<QJsonObject> brackets;
    for (const QByteArray &line : linesOf(run.output))
        brackets += QJsonDocument::fromJson(line).object();
    return brackets;
}

QStringList namesOf(const QJsonObject &bracket)
{
    QStringList names;
    for (const auto picture : bracket.value("pictures").toArray())
        names += QFileInfo(picture.toString()).fileName();
    return names;
}

} // namespace

class TestGroup : public QObject
{
    Q_OBJECT

private slots:
    void bracket_tellsWhatTheCameraNoted();
    void turnedPictures_areMeasuredUpright();
    void bracketsAndSingles_areToldApart();
    void pictureWithoutExif_isNamedAndLeftOut();
    void filesThatAreNoPictures_arePassedOver();
    void hiddenFiles_arePassedOver();
    void damagedExif_isNamedAndLeftOut();
    void rawAndDeveloped_giveTheDevelopedFiles();
    void rawAndDeveloped_withRaw_giveTheRawFiles();
    void rawFilesAlone_areGrouped();
    void editedCopies_areNamedAndLeftOut();
    void mergedPicture_underAnyName_isNamedAndLeftOut();
    void severalBracketsInASecond_areNoCopies();
    void folderBelow_isSearchedWhenAskedFor();
    void paths_areAbsoluteAndKeepTheirLetters();
    void gapAndMinimum_areHonoured();
    void standardOutput_full_isAnError();
    void manyShotsOfOneSecond_areNoCopies();
    void emptyFolder_givesNothing();
    void missingFolder_isNamedAndOthersAreSearched();
    void wrongOptions_areRefused_data();
    void wrongOptions_areRefused();
    void realPhotographs_setByHand_areOneBracket();
    void ownTiffFiles_areReadAgain();
    void json_isOneObjectWithAllPictures();
    void longPause_picturesDecide();
    void namesInInvalidUtf8_areMergedWrittenAndGrouped();
};

void TestGroup::ownTiffFiles_areReadAgain()
{
    const PhotoFolder photos;
    photos.writeShot("in/a.jpg", -2, 0, {300, 200});
    photos.writeShot("in/b.jpg", 0, 1, {300, 200});
    photos.writeShot("in/c.jpg", 2, 2, {300, 200});
    photos.write("out/not a picture", "");
    for (const char *name : {"a", "b", "c"}) {
        const QString source = photos.path(QStringLiteral("in/%1.jpg").arg(name));
        WriteOptions options;
        options.metadata = metadata::read(source);
        const WriteResult written =
            picture::write(QImage(source), photos.path(QStringLiteral("out/%1.tif").arg(name)),
                           PictureFormat::Tiff, options);
        QCOMPARE(written.error, OutputFile::Error::None);
    }
    const ProgramRun run = runProgramIn(photos.path(), {"group", "out"});
    QCOMPARE(bracketsOf(run).size(), 1);
    QCOMPARE(bracketsOf(run)[0].value("exposureBias").toArray(), QJsonArray({-2, 0, 2}));
    QCOMPARE(namesOf(bracketsOf(run)[0]), QStringList({"a.tif", "b.tif", "c.tif"}));
}

void TestGroup::namesInInvalidUtf8_areMergedWrittenAndGrouped()
{
    const PhotoFolder photos;
    photos.writeShot("a.jpg", -2, 0);
    photos.writeShot("b.jpg", 0, 1);
    photos.writeShot("c.jpg", 2, 2);
    QProcess shell; // QProcess itself takes no such names
    shell.setWorkingDirectory(photos.path());
    shell.start("sh", {"-c",
                       R"(set -e
a=$(printf 'a\377.jpg'); out=$(printf 'o\374t.jpg')
mv a.jpg "$a"; mkdir out
"$0" merge --json --no-align "$a" b.jpg -o "out/$out"
test -s "out/$out"
"$0" group .
! "$0" merge --no-align "$a" b.jpg -o "out/$out")",
                       Program().program()});
    QVERIFY(shell.waitForFinished());
    const QByteArray output = shell.readAllStandardOutput();
    const QByteArray errors = shell.readAllStandardError();
    QVERIFY2(shell.exitCode() == 0, errors.constData());
    QVERIFY2(output.contains("\"a\\udcff.jpg\""), output.constData());
    QVERIFY2(output.contains("\"out/o\\udcfct.jpg\""), output.constData());
    QVERIFY2(output.contains("/a\\udcff.jpg\",\""), output.constData());
    QVERIFY2(errors.contains("out/o\xFCt.jpg: "), errors.constData());
}

void TestGroup::json_isOneObjectWithAllPictures()
{
    const PhotoFolder photos;
    for (int i = 0; i < 3; ++i)
        photos.writeShot(QString("IMG_%1.jpg").arg(i), 2 * i - 2, i);
    photos.writeShot("IMG_3.jpg", 0, 100);
    photos.write("bare.png", encodedPicture("png", {6, 4}));
    const ProgramRun run = groupIn(photos, {"--json"});
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(run.errors, QByteArray());
    const QJsonObject told = QJsonDocument::fromJson(run.output).object();
    QCOMPARE(told.value("brackets").toArray().size(), 1);
    QCOMPARE(namesOf(told.value("brackets").toArray()[0].toObject()),
             QStringList({"IMG_0.jpg", "IMG_1.jpg", "IMG_2.jpg"}));
    QMap<QString, QString> reasons;
    for (const auto left : told.value("leftOver").toArray())
        reasons.insert(QFileInfo(left.toObject().value("picture").toString()).fileName(),
                       left.toObject().value("reason").toString());
    QCOMPARE(reasons.keys(), QStringList({"IMG_3.jpg", "bare.png"}));
    QVERIFY(reasons["IMG_3.jpg"].contains("alone"));
    QVERIFY(reasons["bare.png"].contains("when it was taken"));
}

/// Grey stripes, across or down, of a scene of its own; lighter by these stops.
QImage stripes(int scene, double stops)
{
    QImage picture(96, 64, QImage::Format_RGB32);
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            const double light = scene == 0 ? 0.3 + 0.25 * std::sin(x * 0.4 + y * 0.1)
                                            : 0.3 + 0.25 * std::sin(y * 0.5 - x * 0.2);
            const int level = qBound(0, int(255 * light * std::exp2(stops / 3)), 255);
            picture.setPixel(x, y, qRgb(level, level, level));
        }
    }
    return picture;
}

void TestGroup::longPause_picturesDecide()
{
    const PhotoFolder photos;
    const auto write = [&photos](int number, int scene, double seconds) {
        QByteArray file;
        QBuffer buffer(&file);
        buffer.open(QIODevice::WriteOnly);
        stripes(scene, number - 3).save(&buffer, "jpg");
        sample::ExposureData exposure;
        exposure.exposureTime = 0.01 * std::exp2(number);
        exposure.takenAt = PhotoFolder::noon().addMSecs(qRound64(seconds * 1000));
        photos.write(QString("IMG_%1.jpg").arg(number),
                     sample::withExif(file, sample::exifBlock(exposure, {96, 64})));
    };
    for (int i = 0; i < 6; ++i)
        write(i, 0, i * 6);
    ProgramRun run = groupIn(photos);
    QCOMPARE(bracketsOf(run).size(), 1);
    QCOMPARE(namesOf(bracketsOf(run)[0]).size(), 6);
    QCOMPARE(run.errors, QByteArray());
    // The exposures go on, but from the fourth shot on it is another scene.
    for (int i = 3; i < 6; ++i)
        write(i, 1, i * 6);
    run = groupIn(photos);
    QCOMPARE(bracketsOf(run).size(), 2);
    QCOMPARE(namesOf(bracketsOf(run)[0]), QStringList({"IMG_0.jpg", "IMG_1.jpg", "IMG_2.jpg"}));
}

void TestGroup::bracket_tellsWhatTheCameraNoted()
{
    const PhotoFolder photos;
    photos.writeShot("a.jpg", -2, 0.125);
    photos.writeShot("b.jpg", 0, 0.5);
    photos.writeShot("c.png", 2, 1);
    const ProgramRun run = groupIn(photos);
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(run.errors, QByteArray());
    QCOMPARE(bracketsOf(run).size(), 1);
    const QJsonObject expected{
        {"pictures", QJsonArray{photos.path("a.jpg"), photos.path("b.jpg"), photos.path("c.png")}},
        {"exposureBias", QJsonArray{-2, 0, 2}},
        {"exposureTime", QJsonArray{1.0 / 256, 1.0 / 64, 1.0 / 16}},
        {"takenAt", "2026-06-21T12:00:00.125"},
        {"width", 6},
        {"height", 4},
        {"orientation", 1},
        {"model", "Vesk Sample Camera"},
        {"fNumber", QJsonArray{8, 8, 8}},
        {"iso", QJsonArray{100, 100, 100}},
        {"lens", QJsonValue()},
        {"warnings", QJsonArray()},
    };
    QCOMPARE(bracketsOf(run)[0], expected);
}

void TestGroup::turnedPictures_areMeasuredUpright()
{
    const QByteArray asItIs = QByteArray::fromHex("120103000100000001");
    const QByteArray quarterTurned = QByteArray::fromHex("120103000100000006");
    const PhotoFolder photos;
    for (int i = 0; i < 3; ++i) {
        sample::ExposureData exposure;
        exposure.stops = 2 * i - 2;
        exposure.exposureTime = 0.01 * std::exp2(exposure.stops);
        exposure.takenAt = PhotoFolder::noon().addSecs(i);
        QByteArray block = sample::exifBlock(exposure, {6, 4});
        QCOMPARE(block.count(asItIs), 1);
        block.replace(asItIs, quarterTurned);
        photos.write(QString::number(i) + ".jpg",
                     sample::withExif(encodedPicture("jpg", {6, 4}), block));
    }
    const QList<QJsonObject> brackets = bracketsOf(groupIn(photos));
    QCOMPARE(brackets.size(), 1);
    QCOMPARE(brackets[0].value("orientation").toInt(), 6);
    QCOMPARE(brackets[0].value("width").toInt(), 4);
    QCOMPARE(brackets[0].value("height").toInt(), 6);
}

void TestGroup::bracketsAndSingles_areToldApart()
{
    const PhotoFolder photos;
    photos.writeShot("IMG_1.jpg", 0, 0);
    for (int i = 0; i < 3; ++i)
        photos.writeShot(QString("IMG_%1.jpg").arg(i + 2), 2 * i - 2, 60 + i * 0.3);
    photos.writeShot("IMG_5.jpg", 0, 62);
    for (int i = 0; i < 5; ++i)
        photos.writeShot(QString("IMG_%1.jpg").arg(i + 6), i - 2, 90 + i * 0.3);
    const QList<QJsonObject> brackets = bracketsOf(groupIn(photos));
    QCOMPARE(brackets.size(), 2);
    QCOMPARE(namesOf(brackets[0]), QStringList({"IMG_2.jpg", "IMG_3.jpg", "IMG_4.jpg"}));
    QCOMPARE(namesOf(brackets[1]),
             QStringList({"IMG_6.jpg", "IMG_7.jpg", "IMG_8.jpg", "IMG_9.jpg", "IMG_10.jpg"}));
}

void TestGroup::pictureWithoutExif_isNamedAndLeftOut()
{
    const PhotoFolder photos;
    photos.write("scan.png", encodedPicture("png", {6, 4}));
    const ProgramRun run = groupIn(photos);
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(run.output, QByteArray());
    QCOMPARE(linesOf(run.errors).size(), 1);
    QVERIFY(run.errors.startsWith("veskhdr: " + photos.path("scan.png").toUtf8() + ": left out"));
}

void TestGroup::filesThatAreNoPictures_arePassedOver()
{
    const PhotoFolder photos;
    photos.write("notes.txt", "sunny");
    photos.write("IMG_1.xmp", "<x:xmpmeta xmlns:x='adobe:ns:meta/'/>");
    photos.write("IMG_1.MOV", QByteArray::fromHex("00000014667479707174202000000000") + "qt  ");
    const ProgramRun run = groupIn(photos);
    QCOMPARE(run.errors, QByteArray());
    QCOMPARE(run.output, QByteArray());
}

void TestGroup::hiddenFiles_arePassedOver()
{
    const PhotoFolder photos;
    photos.write("._IMG_1.jpg", "resource fork");
    QCOMPARE(groupIn(photos).errors, QByteArray());
}

void TestGroup::damagedExif_isNamedAndLeftOut()
{
    const PhotoFolder photos;
    sample::ExposureData exposure;
    exposure.takenAt = PhotoFolder::noon();
    QByteArray block = sample::exifBlock(exposure, {6, 4});
    for (int i = 20; i < block.size(); ++i)
        block[i] = char(0xFF);
    photos.write("a.jpg", sample::withExif(encodedPicture("jpg", {6, 4}), block));
    const ProgramRun run = groupIn(photos);
    QCOMPARE(run.exitCode, 0);
    QVERIFY(run.errors.contains("a.jpg: left out"));
}

void TestGroup::rawAndDeveloped_giveTheDevelopedFiles()
{
    const PhotoFolder photos;
    for (int i = 0; i < 3; ++i) {
        photos.writeRaw(QString("IMG_%1.DNG").arg(i), 2 * i - 2, i);
        photos.writeShot(QString("IMG_%1.JPG").arg(i), 2 * i - 2, i);
    }
    const ProgramRun run = groupIn(photos);
    QCOMPARE(run.errors, QByteArray());
    QCOMPARE(bracketsOf(run).size(), 1);
    QCOMPARE(namesOf(bracketsOf(run)[0]), QStringList({"IMG_0.JPG", "IMG_1.JPG", "IMG_2.JPG"}));
}

void TestGroup::rawAndDeveloped_withRaw_giveTheRawFiles()
{
    const PhotoFolder photos;
    for (int i = 0; i < 3; ++i) {
        photos.writeRaw(QString("IMG_%1.DNG").arg(i), 2 * i - 2, i);
        photos.writeShot(QString("img_%1.jpg").arg(i), 2 * i - 2, i);
    }
    const QList<QJsonObject> brackets = bracketsOf(groupIn(photos, {"--raw"}));
    QCOMPARE(brackets.size(), 1);
    QCOMPARE(namesOf(brackets[0]), QStringList({"IMG_0.DNG", "IMG_1.DNG", "IMG_2.DNG"}));
}

void TestGroup::rawFilesAlone_areGrouped()
{
    const PhotoFolder photos;
    for (int i = 0; i < 3; ++i)
        photos.writeRaw(QString("IMG_%1.DNG").arg(i), 2 * i - 2, i);
    const ProgramRun run = groupIn(photos);
    QCOMPARE(run.errors, QByteArray());
    QCOMPARE(bracketsOf(run).size(), 1);
    const QJsonObject bracket = bracketsOf(run)[0];
    QCOMPARE(bracket.value("exposureBias").toArray(), QJsonArray({-2, 0, 2}));
    QCOMPARE(bracket.value("takenAt").toString(), QString("2026-06-21T12:00:00.000"));
    QCOMPARE(bracket.value("model").toString(), QString("Test Camera"));
    // Taken upright: 64 x 48 on the sensor.
    QCOMPARE(bracket.value("orientation").toInt(), 6);
    QCOMPARE(bracket.value("width").toInt(), 48);
    QCOMPARE(bracket.value("height").toInt(), 64);
}

void TestGroup::editedCopies_areNamedAndLeftOut()
{
    // A camera that tells the second only.
    const PhotoFolder photos;
    for (int i = 0; i < 3; ++i)
        photos.writeShot(QString("IMG_%1.jpg").arg(i), 2 * i - 2, i);
    photos.writeShot("IMG_0_merged.jpg", -2, 0);
    photos.writeShot("IMG_1-edited.jpg", 0, 1, {3, 2});
    photos.writeShot("IMG_2.png", 2, 2);
    const ProgramRun run = groupIn(photos);
    QCOMPARE(bracketsOf(run).size(), 1);
    QCOMPARE(namesOf(bracketsOf(run)[0]), QStringList({"IMG_0.jpg", "IMG_1.jpg", "IMG_2.jpg"}));
    QCOMPARE(linesOf(run.errors).size(), 3);
    QVERIFY(run.errors.contains("IMG_0_merged.jpg: left out, it is a copy of "));
}

void TestGroup::standardOutput_full_isAnError()
{
    const PhotoFolder photos;
    for (int i = 0; i < 3; ++i)
        photos.writeShot(QString("IMG_%1.jpg").arg(i), 2 * i - 2, i);
    Program program;
    program.isOutputFull = true;
    const ProgramRun run = program.run({"group", photos.path()});
    QCOMPARE(run.exitCode, 74);
    QVERIFY(run.errors.contains("standard output cannot be written: "));
}

void TestGroup::manyShotsOfOneSecond_areNoCopies()
{
    const PhotoFolder photos;
    for (int i = 1; i <= 12; ++i)
        photos.writeShot(QString("IMG_%1.jpg").arg(i), 0, 0);
    photos.writeShot("IMG_1b.jpg", 0, 0);
    const ProgramRun run = groupIn(photos);
    QCOMPARE(run.errors.count("it is a copy of"), 1);
    QVERIFY(run.errors.contains("IMG_1b.jpg: left out, it is a copy of " +
                                photos.path("IMG_1.jpg").toUtf8()));
}

void TestGroup::mergedPicture_underAnyName_isNamedAndLeftOut()
{
    const PhotoFolder photos;
    for (int i = 0; i < 3; ++i)
        photos.writeShot(QString("IMG_%1.jpg").arg(i), 2 * i - 2, i + 0.25);
    const QStringList shots{"IMG_0.jpg", "IMG_1.jpg", "IMG_2.jpg"};
    // What was made of the shots is younger, and sorts before them.
    for (const QString &shot : shots) {
        QFile file(photos.path(shot));
        QVERIFY(file.open(QIODevice::ReadWrite));
        QVERIFY(file.setFileTime(PhotoFolder::noon(), QFileDevice::FileModificationTime));
    }
    const ProgramRun merge = runProgramIn(
        photos.path(), QStringList({"merge", "--no-align", "-o", "Best of all.jpg"}) + shots);
    QCOMPARE(merge.exitCode, 0);
    const ProgramRun run = groupIn(photos);
    QCOMPARE(bracketsOf(run).size(), 1);
    QCOMPARE(namesOf(bracketsOf(run)[0]), shots);
    QVERIFY(run.errors.contains("Best of all.jpg: left out, it is a result of veskhdr"));
}

void TestGroup::severalBracketsInASecond_areNoCopies()
{
    const PhotoFolder photos;
    for (int i = 0; i < 6; ++i)
        photos.writeShot(QString("IMG_%1.jpg").arg(i + 8), 2 * (i % 3) - 2, 1);
    const ProgramRun run = groupIn(photos);
    QCOMPARE(run.errors, QByteArray());
    QCOMPARE(bracketsOf(run).size(), 2);
    QCOMPARE(namesOf(bracketsOf(run)[1]), QStringList({"IMG_11.jpg", "IMG_12.jpg", "IMG_13.jpg"}));
}

void TestGroup::folderBelow_isSearchedWhenAskedFor()
{
    const PhotoFolder photos;
    for (const char *day : {"", "day 1/", "day 2/"}) {
        for (int i = 0; i < 3; ++i)
            photos.writeShot(QString("%1IMG_%2.jpg").arg(day).arg(i), 2 * i - 2, i);
    }
    QCOMPARE(bracketsOf(groupIn(photos)).size(), 1);
    const QList<QJsonObject> brackets = bracketsOf(groupIn(photos, {"--recursive"}));
    QCOMPARE(brackets.size(), 3);
    QCOMPARE(brackets[2].value("pictures").toArray()[0].toString(), photos.path("day 2/IMG_0.jpg"));
}

void TestGroup::paths_areAbsoluteAndKeepTheirLetters()
{
    const PhotoFolder photos;
    for (int i = 0; i < 3; ++i)
        photos.writeShot(QString::fromUtf8("Köln/a \"%1\" 'x'.jpg").arg(i), 2 * i - 2, i);
    const ProgramRun run = runProgramIn(photos.path(), {"group", QString::fromUtf8("Köln")});
    QCOMPARE(bracketsOf(run).size(), 1);
    QCOMPARE(bracketsOf(run)[0].value("pictures").toArray()[1].toString(),
             QDir(photos.path()).canonicalPath() + QString::fromUtf8("/Köln/a \"1\" 'x'.jpg"));
}

void TestGroup::gapAndMinimum_areHonoured()
{
    const PhotoFolder photos;
    photos.writeShot("a.jpg", -1, 0);
    photos.writeShot("b.jpg", 1, 8);
    QCOMPARE(bracketsOf(groupIn(photos, {"--gap", "7", "--min", "2"})).size(), 0);
    QCOMPARE(bracketsOf(groupIn(photos, {"--gap", "8"})).size(), 0);
    QCOMPARE(bracketsOf(groupIn(photos, {"--gap", "8", "--min", "2"})).size(), 1);
    QCOMPARE(bracketsOf(groupIn(photos, {"--gap", "auto", "--min", "2"})).size(), 1);
    QCOMPARE(bracketsOf(groupIn(photos, {"--min", "2", "--max", "2"})).size(), 1);
    photos.writeShot("c.jpg", 3, 9);
    QCOMPARE(bracketsOf(groupIn(photos, {"--max", "3"})).size(), 1);
    QCOMPARE(bracketsOf(groupIn(photos, {"--min", "2", "--max", "2"}))[0]
                 .value("pictures")
                 .toArray()
                 .size(),
             2);
}

void TestGroup::emptyFolder_givesNothing()
{
    const ProgramRun run = groupIn(PhotoFolder());
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(run.output, QByteArray());
    QCOMPARE(run.errors, QByteArray());
}

void TestGroup::missingFolder_isNamedAndOthersAreSearched()
{
    const PhotoFolder photos;
    for (int i = 0; i < 3; ++i)
        photos.writeShot(QString("IMG_%1.jpg").arg(i), 2 * i - 2, i);
    const ProgramRun run = groupIn(photos, {"nowhere", photos.path("IMG_0.jpg")});
    QCOMPARE(run.exitCode, 66);
    QCOMPARE(bracketsOf(run).size(), 1);
    QCOMPARE(linesOf(run.errors).size(), 2);
    QVERIFY(run.errors.startsWith("veskhdr: nowhere: "));
}

void TestGroup::wrongOptions_areRefused_data()
{
    QTest::addColumn<QStringList>("words");
    QTest::newRow("no folder") << QStringList({"group"});
    QTest::newRow("unknown option") << QStringList({"group", "--fast", "."});
    QTest::newRow("gap is no number") << QStringList({"group", "--gap", "soon", "."});
    QTest::newRow("negative gap") << QStringList({"group", "--gap", "-1", "."});
    QTest::newRow("one picture") << QStringList({"group", "--min", "1", "."});
    QTest::newRow("fewer than the fewest") << QStringList({"group", "--max", "2", "."});
    QTest::newRow("most is no number") << QStringList({"group", "--max", "many", "."});
    QTest::newRow("unknown kind") << QStringList({"group", "--prefer", "tiff", "."});
    QTest::newRow("both kinds") << QStringList({"group", "--raw", "--prefer", "jpeg", "."});
}

void TestGroup::wrongOptions_areRefused()
{
    QFETCH(const QStringList, words);
    const PhotoFolder photos;
    const ProgramRun run = runProgramIn(photos.path(), words);
    QCOMPARE(run.exitCode, 64);
    QCOMPARE(run.output, QByteArray());
    QVERIFY(run.errors.startsWith("veskhdr: group: "));
    QCOMPARE(linesOf(run.errors).size(), 1);
}

void TestGroup::realPhotographs_setByHand_areOneBracket()
{
    const QString pictures = qEnvironmentVariable("VESK_TEST_PICTURES");
    if (!QFileInfo::exists(pictures + "/IMG_3871.jpeg"))
        QSKIP("there are no photographs here");
    // The exposure was set by hand between the shots, with the time alone.
    const QList<QJsonObject> brackets = bracketsOf(runProgramIn({}, {"group", pictures}));
    QCOMPARE(brackets.size(), 1);
    QCOMPARE(namesOf(brackets[0]), QStringList({"IMG_3871.jpeg", "IMG_3872.jpeg", "IMG_3873.jpeg",
                                                "IMG_3874.jpeg", "IMG_3875.jpeg"}));
}

QTEST_GUILESS_MAIN(TestGroup)
#include "tst_veskhdr_group.moc"
