#include "ProgramRun.h"
#include "Terminal.h"
#include "UnprivilegedUser.h"
#include "exposure_merge.h"
#include "mtb_alignment.h"
#include "mtb_shifts.h"
#include "picture_decoder.h"

#include <QDir>
#include <QFile>
#include <QImage>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>
#include <QtTest>

#include <algorithm>
#include <csignal>
#include <cstdlib>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

enum ExitCode {
    Ok = 0,
    Usage = 64,
    BadData = 65,
    NoInput = 66,
    NoMemory = 71,
    CannotCreate = 73,
    WriteFailed = 74
};

QString pictureFolder()
{
    return qEnvironmentVariable("VESK_TEST_PICTURES");
}

/// Overlapping blocks of different grey, taken at offset (x, y) with this exposure.
QImage scene(QSize size, QPoint offset, double exposure)
{
    QImage picture(size, QImage::Format_RGB32);
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x) {
            const int u = x + offset.x() + 1000;
            const int v = y + offset.y() + 1000;
            const int level = (u / 13 * 37 + v / 17 * 53 + (u + v) / 29 * 71) % 200 + 20;
            const int value = std::min(255, int(level * exposure));
            picture.setPixel(x, y, qRgb(value, value * 3 / 4, 255 - value));
        }
    }
    return picture;
}

QImage noise(QSize size)
{
    QImage picture(size, QImage::Format_RGB32);
    quint32 state = 1;
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x) {
            state = state * 1664525U + 1013904223U;
            picture.setPixel(x, y, 0xFF000000U | state >> 8);
        }
    }
    return picture;
}

/// What the engine makes of the files, in this order.
QImage mergedByEngine(const QStringList &paths, bool aligned)
{
    QList<QImage *> pictures;
    for (const QString &path : paths)
        pictures.append(new QImage(picture::decode(path).image));
    if (aligned)
        mtb_alignment(false, pictures);
    const std::unique_ptr<QImage> merged(mergeExposures(pictures));
    qDeleteAll(pictures);
    return merged ? *merged : QImage();
}

QImage pixelsOf(const QString &path)
{
    return QImage(path).convertToFormat(QImage::Format_RGB32);
}

} // namespace

class TestVeskhdrMerge : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<QTemporaryDir> folder;

    QString path(const QString &name) const { return folder->filePath(name); }

    void savePicture(const QString &name, const QImage &picture) const
    {
        if (!picture.save(path(name)))
            qFatal("cannot save a test picture");
    }

    void saveBytes(const QString &name, const QByteArray &bytes) const
    {
        QFile file(path(name));
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
            qFatal("cannot save a test file");
    }

    QByteArray bytesOf(const QString &name) const
    {
        QFile file(path(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    /// Merges by the mean, whose pixels the engine gives, too.
    ProgramRun run(QStringList arguments) const
    {
        if (arguments.value(0) == QLatin1String("merge"))
            arguments.insert(1, QStringLiteral("--method=mean"));
        return runProgramIn(folder->path(), arguments);
    }

    QStringList files() const
    {
        return QDir(folder->path())
            .entryList(QDir::Files | QDir::Hidden | QDir::System, QDir::Name);
    }

    /// The program must end with this code and one line that begins so, and leave the folder as it
    /// was.
    void verifyRefused(const QStringList &arguments, int exitCode, const QByteArray &lineStart,
                       const QByteArray &reason)
    {
        const QStringList before = files();
        const ProgramRun refused = run(arguments);
        QVERIFY2(refused.exitCode == exitCode,
                 "exit code " + QByteArray::number(refused.exitCode) + ": " + refused.errors);
        const QList<QByteArray> lines = linesOf(refused.errors);
        QVERIFY2(lines.size() == 1, refused.errors.constData());
        QVERIFY2(lines.first().startsWith("veskhdr: " + lineStart), lines.first().constData());
        QVERIFY2(lines.first().contains(reason), lines.first().constData());
        QCOMPARE(refused.output, QByteArray());
        QCOMPARE(files(), before);
    }

private slots:
    void init()
    {
        folder = std::make_unique<QTemporaryDir>();
        QVERIFY(folder->isValid());
        savePicture(QStringLiteral("a.png"), scene({200, 150}, {0, 0}, 1.0));
        savePicture(QStringLiteral("b.png"), scene({200, 150}, {2, -1}, 0.6));
        savePicture(QStringLiteral("c.png"), scene({200, 150}, {1, 1}, 1.6));
    }

    void cleanup() { folder.reset(); }

    void merge_threePictures_equalsEngineInEveryPixel_data()
    {
        QTest::addColumn<QStringList>("options");
        QTest::addColumn<bool>("aligned");
        QTest::newRow("aligned") << QStringList() << true;
        QTest::newRow("not aligned") << QStringList{QStringLiteral("--no-align")} << false;
    }

    void merge_threePictures_equalsEngineInEveryPixel()
    {
        QFETCH(QStringList, options);
        QFETCH(bool, aligned);
        const ProgramRun merged = run(QStringList{"merge"} + options +
                                      QStringList{"a.png", "b.png", "c.png", "-o", "out.png"});
        QCOMPARE(merged.errors, QByteArray());
        QCOMPARE(merged.exitCode, int(Ok));
        const QImage expected =
            mergedByEngine({path("a.png"), path("b.png"), path("c.png")}, aligned);
        QCOMPARE(pixelsOf(path("out.png")), expected);
        QCOMPARE(expected !=
                     mergedByEngine({path("a.png"), path("b.png"), path("c.png")}, !aligned),
                 true);
    }

    void merge_inAPipe_isSilent()
    {
        const ProgramRun merged = run({"merge", "a.png", "b.png", "-o", "out.png"});
        QCOMPARE(merged.exitCode, int(Ok));
        QCOMPARE(merged.output, QByteArray());
        QCOMPARE(merged.errors, QByteArray());
        QCOMPARE(files(), QStringList({"a.png", "b.png", "c.png", "out.png"}));
    }

    void merge_onATerminal_showsBarAndSummary()
    {
        const Terminal errors;
        const Terminal output;
        QVERIFY(errors.end >= 0 && output.end >= 0);
        Program program;
        program.errorTerminal = errors.end;
        program.outputTerminal = output.end;
        program.setWorkingDirectory(folder->path());
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert("TERM", "xterm");
        program.setProcessEnvironment(environment);
        QCOMPARE(
            program.run({"merge", "--method=mean", "a.png", "b.png", "-o", "out.png"}).exitCode,
            int(Ok));
        const QByteArray bar = errors.shown();
        QVERIFY2(bar.contains("] Aligning") && bar.contains("] Writing"), bar.constData());
        QVERIFY2(bar.endsWith("\r\x1b[K"), bar.right(80).toHex(32).constData());
        const QByteArray summary = output.shown();
        QVERIFY2(summary.startsWith("out.png: 200 x 150 pixels from 2 pictures in "),
                 summary.constData());
    }

    void merge_onADumbTerminal_showsNoBar()
    {
        const Terminal errors;
        Program program;
        program.errorTerminal = errors.end;
        program.setWorkingDirectory(folder->path());
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert("TERM", "dumb");
        program.setProcessEnvironment(environment);
        QCOMPARE(
            program.run({"merge", "--method=mean", "a.png", "b.png", "-o", "out.png"}).exitCode,
            int(Ok));
        QCOMPARE(errors.shown(), QByteArray());
    }

    void merge_forAProgram_tellsItsProgressInLines()
    {
        Program program;
        program.setWorkingDirectory(folder->path());
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert("VESKHDR_PROGRESS", "lines");
        program.setProcessEnvironment(environment);
        const ProgramRun merged =
            program.run({"merge", "a.png", "b.png", "c.png", "-o", "out.png"});
        QCOMPARE(merged.exitCode, int(Ok));
        double last = -1;
        for (const QByteArray &line : linesOf(merged.errors)) {
            QVERIFY2(line.startsWith("progress "), line.constData());
            const double done = line.mid(9).toDouble();
            QVERIFY2(done > last && done <= 1, line.constData());
            last = done;
        }
        QVERIFY(last > 0.9);
    }

    void merge_pictures_areOrderedByPathAsTheToolDoes()
    {
        // By UTF-16 code units: upper case before lower case, a surrogate pair before U+FF21.
        const QStringList ordered{"B.png", "a.png", QString::fromUtf8("\xF0\x9F\x93\xB7.png"),
                                  QString::fromUtf8("\xEF\xBC\xA1.png")};
        for (const QString &name : ordered)
            QFile::copy(path("a.png"), path(name));
        const ProgramRun merged =
            run(QStringList{"merge", "--json", "--no-align", "-o", "out.png"} +
                QStringList{ordered[3], ordered[1], ordered[0], ordered[2]});
        QCOMPARE(merged.exitCode, int(Ok));
        QCOMPARE(QJsonDocument::fromJson(merged.output).object()["inputs"].toArray(),
                 QJsonArray::fromStringList(ordered));
    }

    void merge_keepOrder_alignsToTheFirstGiven()
    {
        const QStringList given{"c.png", "a.png", "b.png"};
        const ProgramRun merged = run(QStringList{"merge", "--json", "--keep-order"} + given +
                                      QStringList{"-o", "out.png"});
        QCOMPARE(merged.exitCode, int(Ok));
        QCOMPARE(QJsonDocument::fromJson(merged.output).object()["inputs"].toArray(),
                 QJsonArray::fromStringList(given));
        QCOMPARE(pixelsOf(path("out.png")),
                 mergedByEngine({path("c.png"), path("a.png"), path("b.png")}, true));
    }

    void merge_json_tellsWhatWasDone()
    {
        const ProgramRun merged =
            run({"merge", "--json", "b.png", "a.png", "c.png", "-o", "out.png"});
        QCOMPARE(merged.exitCode, int(Ok));
        QJsonParseError problem;
        const QJsonObject report = QJsonDocument::fromJson(merged.output, &problem).object();
        QCOMPARE(problem.error, QJsonParseError::NoError);

        QList<QImage *> pictures;
        for (const char *name : {"a.png", "b.png", "c.png"})
            pictures.append(new QImage(path(name)));
        const std::vector<QPoint> pairs = mtb::pairShifts(pictures);
        const std::vector<QPoint> sums = mtb::summedShifts(pairs);
        qDeleteAll(pictures);
        QVERIFY(pairs[0] != QPoint());

        QCOMPARE(report["inputs"].toArray(), QJsonArray({"a.png", "b.png", "c.png"}));
        QCOMPARE(report["output"].toString(), QStringLiteral("out.png"));
        QCOMPARE(report["size"].toObject(), QJsonObject({{"width", 200}, {"height", 150}}));
        QCOMPARE(report["aligned"].toBool(), true);
        QCOMPARE(report["largestFindableShift"].toInt(), 3);
        const QJsonArray shifts = report["shifts"].toArray();
        QCOMPARE(shifts.size(), 2);
        for (int i = 0; i < 2; ++i) {
            const QJsonObject shift = shifts[i].toObject();
            QCOMPARE(shift["picture"], report["inputs"].toArray()[i + 1]);
            QCOMPARE(shift["pair"].toObject(),
                     QJsonObject({{"x", pairs[size_t(i)].x()}, {"y", pairs[size_t(i)].y()}}));
            QCOMPARE(shift["sum"].toObject(),
                     QJsonObject({{"x", sums[size_t(i)].x()}, {"y", sums[size_t(i)].y()}}));
            QVERIFY(shift["atLimit"].isBool());
        }
        const QJsonObject times = report["milliseconds"].toObject();
        for (const char *step : {"decode", "align", "merge", "encode", "total"})
            QVERIFY2(times[QLatin1String(step)].isDouble(), step);
        QVERIFY(times["total"].toInt() >= times["merge"].toInt());
    }

    void merge_shiftAtTheLimit_isReportedAndWarnedOf()
    {
        savePicture("b.png", scene({200, 150}, {5, 0}, 1.0));
        const ProgramRun merged = run({"merge", "--json", "a.png", "b.png", "-o", "out.png"});
        QCOMPARE(merged.exitCode, int(Ok));
        const QJsonObject shift =
            QJsonDocument::fromJson(merged.output).object()["shifts"].toArray()[0].toObject();
        QVERIFY2(shift["atLimit"].toBool(), merged.output.constData());
        const QList<QByteArray> lines = linesOf(merged.errors);
        QCOMPARE(lines.size(), 1);
        QVERIFY2(lines.first().startsWith("veskhdr: b.png: warning: "), lines.first().constData());
    }

    void merge_verbose_printsTimesAndShifts()
    {
        const ProgramRun merged = run({"merge", "--verbose", "a.png", "b.png", "-o", "out.png"});
        QCOMPARE(merged.exitCode, int(Ok));
        const QList<QByteArray> lines = linesOf(merged.output);
        QCOMPARE(lines.size(), 7);
        const char *const starts[] = {"decode ", "align ",        "merge ",         "encode ",
                                      "total ",  "shift   b.png", "output  out.png"};
        for (int i = 0; i < 7; ++i)
            QVERIFY2(lines[i].startsWith(starts[i]), lines[i].constData());
    }

    void merge_moreThanFivePictures_areAllMerged()
    {
        QStringList names;
        QStringList paths;
        for (int i = 0; i < 8; ++i) {
            names << QStringLiteral("p%1.png").arg(i);
            paths << path(names.last());
            savePicture(names.last(), scene({40, 30}, {0, 0}, 0.3 + 0.2 * i));
        }
        QCOMPARE(run(QStringList{"merge"} + names + QStringList{"-o", "out.png"}).exitCode,
                 int(Ok));
        QCOMPARE(pixelsOf(path("out.png")), mergedByEngine(paths, true));
    }

    void merge_samePathTwice_countsOnce()
    {
        QCOMPARE(run({"merge", "a.png", "b.png", "a.png", "-o", "out.png"}).exitCode, int(Ok));
        QCOMPARE(pixelsOf(path("out.png")), mergedByEngine({path("a.png"), path("b.png")}, true));
        verifyRefused({"merge", "a.png", "a.png", "-o", "other.png"}, Usage, "a.png: ", "only one");
    }

    void merge_crop_keepsWhatEveryPictureCovers()
    {
        const ProgramRun merged =
            run({"merge", "--json", "--crop", "a.png", "b.png", "c.png", "-o", "out.png"});
        QCOMPARE(merged.exitCode, int(Ok));
        const QJsonObject report = QJsonDocument::fromJson(merged.output).object();
        QRect expected(0, 0, 200, 150);
        for (const auto shift : report["shifts"].toArray()) {
            const QJsonObject sum = shift.toObject()["sum"].toObject();
            expected &= QRect(sum["x"].toInt(), sum["y"].toInt(), 200, 150);
        }
        QVERIFY(expected.size() != QSize(200, 150));
        const QJsonObject area = report["area"].toObject();
        QCOMPARE(QRect(area["x"].toInt(), area["y"].toInt(), area["width"].toInt(),
                       area["height"].toInt()),
                 expected);
        const QImage whole = mergedByEngine({path("a.png"), path("b.png"), path("c.png")}, true);
        QCOMPARE(pixelsOf(path("out.png")), whole.copy(expected));
    }

    void merge_suffix_choosesTheFormat_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QByteArray>("start");
        QTest::newRow("png") << "out.png" << QByteArray("\x89PNG");
        QTest::newRow("PNG") << "out.PNG" << QByteArray("\x89PNG");
        QTest::newRow("jpg") << "out.jpg" << QByteArray("\xFF\xD8\xFF");
        QTest::newRow("JPEG") << "out.JPEG" << QByteArray("\xFF\xD8\xFF");
        QTest::newRow("tif") << "out.tif" << QByteArray("II*");
        QTest::newRow("Tiff") << "out.Tiff" << QByteArray("II*");
    }

    void merge_suffix_choosesTheFormat()
    {
        QFETCH(QString, name);
        QFETCH(QByteArray, start);
        QCOMPARE(run({"merge", "a.png", "b.png", "-o", name}).exitCode, int(Ok));
        QVERIFY(bytesOf(name).startsWith(start));
        const QImage expected = mergedByEngine({path("a.png"), path("b.png")}, true);
        QCOMPARE(pixelsOf(path(name)).size(), expected.size());
        if (!start.startsWith("\xFF"))
            QCOMPARE(pixelsOf(path(name)), expected);
    }

    void merge_quality_changesTheJpeg()
    {
        QCOMPARE(run({"merge", "a.png", "b.png", "-o", "best.jpg", "--quality", "100"}).exitCode,
                 int(Ok));
        QCOMPARE(run({"merge", "a.png", "b.png", "-o", "usual.jpg"}).exitCode, int(Ok));
        QCOMPARE(run({"merge", "a.png", "b.png", "-o", "95.jpg", "--quality=95"}).exitCode,
                 int(Ok));
        QCOMPARE(run({"merge", "a.png", "b.png", "-o", "small.jpg", "--quality", "10"}).exitCode,
                 int(Ok));
        QVERIFY(bytesOf("best.jpg").size() > bytesOf("usual.jpg").size());
        QVERIFY(bytesOf("usual.jpg").size() > bytesOf("small.jpg").size());
        QCOMPARE(pixelsOf(path("usual.jpg")), pixelsOf(path("95.jpg"))); // their marks differ
    }

    void merge_doubleDash_endsTheOptions()
    {
        QFile::copy(path("a.png"), path("-a.png"));
        QFile::copy(path("b.png"), path("--force"));
        QCOMPARE(run({"merge", "-o", "out.png", "--", "-a.png", "--force"}).exitCode, int(Ok));
        QCOMPARE(pixelsOf(path("out.png")),
                 mergedByEngine({path("--force"), path("-a.png")}, true));
    }

    void merge_namesBeyondAscii_workInTheCLocale()
    {
        const QString name = QString::fromUtf8("\xE5\x86\x99\xE7\x9C\x9F \xC3\xA4.png");
        QFile::copy(path("a.png"), path(name));
        Program program;
        program.setWorkingDirectory(folder->path());
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert("LC_ALL", "C");
        program.setProcessEnvironment(environment);
        const ProgramRun merged =
            program.run({"merge", "--method=mean", "b.png", name, "-o", "out.png"});
        QCOMPARE(merged.errors, QByteArray());
        QCOMPARE(merged.exitCode, int(Ok));
        const ProgramRun refused =
            program.run({"merge", "--method=mean", "b.png", name + "x", "-o", "no.png"});
        QVERIFY2(refused.errors.startsWith("veskhdr: " + name.toUtf8() + "x: "), refused.errors);
    }

    void merge_force_replacesTheFileAndKeepsItsPermissions()
    {
        saveBytes("out.png", "an older file");
        QCOMPARE(::chmod(QFile::encodeName(path("out.png")).constData(), 0640), 0);
        QCOMPARE(run({"merge", "--force", "a.png", "b.png", "-o", "out.png"}).exitCode, int(Ok));
        QCOMPARE(pixelsOf(path("out.png")), mergedByEngine({path("a.png"), path("b.png")}, true));
        struct stat info = {};
        QCOMPARE(::stat(QFile::encodeName(path("out.png")).constData(), &info), 0);
        QCOMPARE(int(info.st_mode & 07777), 0640);
        QCOMPARE(files(), QStringList({"a.png", "b.png", "c.png", "out.png"}));
    }

    void merge_forceThroughALink_replacesTheFileBehindIt()
    {
        saveBytes("real.png", "an older file");
        QVERIFY(QFile::link(path("real.png"), path("link.png")));
        QCOMPARE(run({"merge", "--force", "a.png", "b.png", "-o", "link.png"}).exitCode, int(Ok));
        QVERIFY(QFileInfo(path("link.png")).isSymLink());
        QCOMPARE(pixelsOf(path("real.png")), mergedByEngine({path("a.png"), path("b.png")}, true));
    }

    // Bad input: one line that names the file and the reason, an exit code, and no file.

    void refuse_existingTargetWithoutForce()
    {
        saveBytes("out.png", "an older file");
        verifyRefused({"merge", "a.png", "b.png", "-o", "out.png"}, CannotCreate,
                      "out.png: ", "exists already");
        QCOMPARE(bytesOf("out.png"), QByteArray("an older file"));
    }

    void refuse_existingTarget_beforeReadingThePictures()
    {
        saveBytes("out.png", "an older file");
        verifyRefused({"merge", "a.png", "none.png", "-o", "out.png"}, CannotCreate,
                      "out.png: ", "exists already");
    }

    void refuse_targetThatIsAnInput_evenWithForce()
    {
        const QByteArray before = bytesOf("a.png");
        verifyRefused({"merge", "--force", "a.png", "b.png", "-o", "./a.png"}, Usage,
                      "./a.png: ", "one of the pictures");
        QCOMPARE(bytesOf("a.png"), before);
    }

    void refuse_targetThatIsADirectory()
    {
        QVERIFY(QDir(folder->path()).mkdir("out.png"));
        verifyRefused({"merge", "--force", "a.png", "b.png", "-o", "out.png"}, CannotCreate,
                      "out.png: ", "is a directory");
    }

    void refuse_targetThatIsADevice()
    {
        QVERIFY(QFile::link("/dev/null", path("null.png")));
        verifyRefused({"merge", "--force", "a.png", "b.png", "-o", "null.png"}, CannotCreate,
                      "null.png: ", "not a regular file");
    }

    void refuse_targetInMissingFolder()
    {
        verifyRefused({"merge", "a.png", "b.png", "-o", "none/out.png"}, CannotCreate,
                      "none/out.png: ", "no such folder");
    }

    void refuse_targetInFolderThatTakesNoFiles()
    {
        if (!QFileInfo("/proc/self").isDir())
            QSKIP("no /proc here");
        verifyRefused({"merge", "a.png", "b.png", "-o", "/proc/out.png"}, CannotCreate,
                      "/proc/out.png: ", "");
    }

    void refuse_targetInReadOnlyFolder()
    {
        QVERIFY(QDir(folder->path()).mkdir("locked"));
        const UnprivilegedUser user({folder->path(), path("locked")});
        if (!user.canReach(path("locked")) || !user.canReach(Program().program()))
            QSKIP("root cannot step down here");
        QVERIFY(QFile::setPermissions(path("locked"), QFile::ReadOwner | QFile::ExeOwner));
        verifyRefused({"merge", "a.png", "b.png", "-o", "locked/out.png"}, CannotCreate,
                      "locked/out.png: ", "ermission");
        QFile::setPermissions(path("locked"),
                              QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }

    void refuse_missingFile()
    {
        verifyRefused({"merge", "a.png", "none.png", "-o", "out.png"}, NoInput,
                      "none.png: ", "no such file");
    }

    void refuse_directory()
    {
        QVERIFY(QDir(folder->path()).mkdir("d.png"));
        verifyRefused({"merge", "a.png", "d.png", "-o", "out.png"}, NoInput,
                      "d.png: ", "is a directory");
    }

    void refuse_pipe()
    {
        QCOMPARE(::mkfifo(QFile::encodeName(path("pipe.png")).constData(), 0600), 0);
        verifyRefused({"merge", "a.png", "pipe.png", "-o", "out.png"}, NoInput,
                      "pipe.png: ", "not a regular file");
    }

    void refuse_emptyFile()
    {
        saveBytes("empty.jpg", {});
        verifyRefused({"merge", "a.png", "empty.jpg", "-o", "out.png"}, BadData,
                      "empty.jpg: ", "empty");
    }

    void refuse_fileThatIsNoPicture()
    {
        saveBytes("letter.png", "Dear friend,\n");
        verifyRefused({"merge", "a.png", "letter.png", "-o", "out.png"}, BadData,
                      "letter.png: ", "not a picture");
    }

    void refuse_truncatedPicture_data()
    {
        QTest::addColumn<QString>("suffix");
        for (const char *suffix : {"jpg", "png", "tif", "bmp", "webp"})
            QTest::newRow(suffix) << QString::fromLatin1(suffix);
    }

    void refuse_truncatedPicture()
    {
        QFETCH(QString, suffix);
        const QString name = "cut." + suffix;
        savePicture(name, scene({200, 150}, {0, 0}, 1.0));
        const QByteArray whole = bytesOf(name);
        saveBytes(name, whole.left(whole.size() / 2));
        verifyRefused({"merge", "a.png", name, "-o", "out.png"}, BadData, name.toUtf8() + ": ",
                      "truncated or damaged");
    }

    void refuse_severalBadPictures_oneLineForEach()
    {
        saveBytes("letter.png", "Dear friend,\n");
        const ProgramRun refused =
            run({"merge", "a.png", "none.png", "letter.png", "-o", "out.png"});
        QCOMPARE(linesOf(refused.errors).size(), 2);
        QVERIFY(refused.exitCode == BadData);
        QVERIFY(!QFile::exists(path("out.png")));
    }

    void refuse_pictureOfAnotherSize()
    {
        savePicture("small.png", scene({199, 150}, {0, 0}, 1.0));
        verifyRefused({"merge", "a.png", "small.png", "-o", "out.png"}, BadData,
                      "small.png: ", "199 x 150");
    }

    void refuse_unknownSuffix()
    {
        verifyRefused({"merge", "a.png", "b.png", "-o", "out.xyz"}, Usage, "out.xyz: ", "unknown");
        verifyRefused({"merge", "a.png", "b.png", "-o", "out"}, Usage, "out: ", "unknown");
        verifyRefused({"merge", "a.png", "b.png", "-o", "-"}, Usage, "merge: ", "name its format");
    }

    void merge_oneFileUnderTwoNames_countsOnce()
    {
        QVERIFY(QFile::link(path("a.png"), path("link.png")));
        const ProgramRun same = run({"merge", "a.png", "./a.png", "link.png", "-o", "o.png"});
        QCOMPARE(same.exitCode, 64);
        QVERIFY(same.errors.contains("only one picture given"));
        QCOMPARE(run({"merge", "b.png", "./b.png", "a.png", "-o", "twice.png"}).exitCode, 0);
        QCOMPARE(run({"merge", "a.png", "b.png", "-o", "once.png"}).exitCode, 0);
        QCOMPARE(bytesOf("twice.png"), bytesOf("once.png"));
    }

    void merge_qualityOfAFormatWithout_isWarnedOf()
    {
        const ProgramRun png = run({"merge", "a.png", "b.png", "-o", "o.png", "--quality", "90"});
        QCOMPARE(png.exitCode, 0);
        QVERIFY(png.errors.contains("o.png: warning: --quality has no effect"));
        QCOMPARE(run({"merge", "a.png", "b.png", "-o", "o.jpg", "--quality", "90"}).errors,
                 QByteArray());
    }

    void merge_standardOutputFull_isAnErrorButThePictureIsThere()
    {
        for (const char *report : {"--json", "--verbose"}) {
            Program program;
            program.setWorkingDirectory(path({}));
            program.isOutputFull = true;
            const ProgramRun full = program.run(
                {"merge", "--method=mean", "a.png", "b.png", "--force", "-o", "o.png", report});
            QCOMPARE(full.exitCode, 74);
            QVERIFY(full.errors.contains("standard output cannot be written: "));
            QVERIFY(!pixelsOf(path("o.png")).isNull());
        }
    }

    void merge_standardOutputClosed_leavesThePictureWhole()
    {
        Program program;
        program.setWorkingDirectory(path({}));
        program.isOutputClosed = true;
        QCOMPARE(program.run({"merge", "--method=mean", "a.png", "b.png", "-o", "o.png", "--json"})
                     .exitCode,
                 74);
        QCOMPARE(run({"merge", "a.png", "b.png", "-o", "good.png"}).exitCode, 0);
        QCOMPARE(bytesOf("o.png"), bytesOf("good.png"));
    }

    void refuse_onePictureOnly()
    {
        verifyRefused({"merge", "a.png", "-o", "out.png"}, Usage, "a.png: ", "two or more");
    }

    void refuse_wrongWords_data()
    {
        QTest::addColumn<QStringList>("words");
        QTest::newRow("no pictures") << QStringList{"-o", "out.png"};
        QTest::newRow("no output") << QStringList{"a.png", "b.png"};
        QTest::newRow("two outputs") << QStringList{"a.png", "b.png", "-o", "1.png", "-o", "2.png"};
        QTest::newRow("unknown option")
            << QStringList{"--frobnicate", "a.png", "b.png", "-o", "o.png"};
        QTest::newRow("quality 0")
            << QStringList{"--quality", "0", "a.png", "b.png", "-o", "o.jpg"};
        QTest::newRow("quality 101")
            << QStringList{"--quality", "101", "a.png", "b.png", "-o", "o.jpg"};
        QTest::newRow("quality in words")
            << QStringList{"--quality", "good", "a.png", "b.png", "-o", "o.jpg"};
        QTest::newRow("no megapixels")
            << QStringList{"--max-megapixels", "0", "a.png", "b.png", "-o", "o.jpg"};
        QTest::newRow("megapixels below nothing")
            << QStringList{"--max-megapixels", "-1", "a.png", "b.png", "-o", "o.jpg"};
        QTest::newRow("megapixels in words")
            << QStringList{"--max-megapixels", "many", "a.png", "b.png", "-o", "o.jpg"};
        QTest::newRow("json and verbose")
            << QStringList{"--json", "--verbose", "a.png", "b.png", "-o", "o.jpg"};
    }

    void refuse_wrongWords()
    {
        QFETCH(QStringList, words);
        verifyRefused(QStringList{"merge"} + words, Usage, "merge: ", "");
    }

    void refuse_moreMegapixelsThanAllowed_fromTheHeader()
    {
        // Two gigapixels by their headers, a few hundred bytes long.
        savePicture("x.jpg", noise({8, 8}));
        QByteArray bytes = bytesOf("x.jpg");
        bytes.replace(bytes.indexOf("\xFF\xC0") + 5, 4, "\x9C\x40\xC3\x50");
        saveBytes("x.jpg", bytes);
        saveBytes("y.jpg", bytes);
        const ProgramRun refused = run({"merge", "x.jpg", "y.jpg", "-o", "o.png"});
        QCOMPARE(refused.exitCode, int(BadData));
        QCOMPARE(linesOf(refused.errors).first(),
                 QByteArray("veskhdr: x.jpg: the picture is too large (50000 x 40000 pixels), "
                            "--max-megapixels allows more"));
        savePicture("m.png", noise({1200, 900}));
        savePicture("n.png", noise({1200, 900}));
        verifyRefused({"merge", "--max-megapixels", "1", "a.png", "n.png", "-o", "o.png"}, BadData,
                      "n.png: the picture is too large", "1200 x 900");
        QCOMPARE(run({"merge", "--max-megapixels", "2", "m.png", "n.png", "-o", "o.png"}).exitCode,
                 int(Ok));
    }

    void refuse_anyShortageOfMemory_inWords()
    {
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__) || !defined(Q_OS_LINUX)
        QSKIP("the address space of the program cannot be limited here");
#endif
        const QSize size(1500, 1000);
        savePicture("a.png", noise(size));
        savePicture("b.jpg", noise(size));
        savePicture("c.tif", noise(size));
        saveBytes("out.png", "an older file");
        constexpr qint64 kMegabyte = 1 << 20;
        constexpr qint64 kMost = 1024 * kMegabyte;
        int refusals = 0;
        // Upwards from what the libraries need until the merge succeeds.
        int exitCode = NoMemory;
        for (qint64 bytes = 40 * kMegabyte; exitCode != Ok; bytes += 4 * kMegabyte) {
            QVERIFY(bytes < kMost);
            Program program;
            program.addressSpaceBytes = bytes;
            program.setWorkingDirectory(folder->path());
            const ProgramRun starved = program.run(
                {"merge", "--method=mean", "--force", "a.png", "b.jpg", "c.tif", "-o", "out.png"});
            exitCode = starved.exitCode;
            constexpr int kLibrariesDoNotLoad = 127;
            // Libraries that load may lack the memory to set themselves up, before the program.
            const bool hasNotBegun =
                exitCode == -1 && refusals == 0 && starved.errors.contains("bad_alloc");
            if (exitCode == Ok || exitCode == kLibrariesDoNotLoad || hasNotBegun)
                continue;
            ++refusals;
            // Qt does not say why it gave no picture of a PNG or TIFF file.
            const bool isInWords =
                (exitCode == NoMemory && starved.errors.contains("not enough")) ||
                (exitCode == BadData && starved.errors.contains("damaged"));
            QVERIFY2(isInWords, QByteArray::number(bytes) + " bytes, exit code " +
                                    QByteArray::number(exitCode) + ": " + starved.errors);
            QCOMPARE(bytesOf("out.png"), QByteArray("an older file"));
        }
        QVERIFY(refusals > 5);
        QCOMPARE(QImage(path("out.png")).size(), size);
    }

    void merge_sixteenProcessesAtOneTarget_itIsAlwaysAWholePicture()
    {
        const QStringList arguments = {"merge", "--method=mean", "--force", "a.png",
                                       "b.png", "c.png",         "-o",      "o.png"};
        QCOMPARE(runProgramIn(folder->path(), arguments).exitCode, int(Ok));
        const QImage expected(path("o.png"));
        std::vector<std::unique_ptr<Program>> programs;
        for (int i = 0; i < 16; ++i) {
            programs.push_back(std::make_unique<Program>());
            programs.back()->setWorkingDirectory(folder->path());
            programs.back()->setArguments(arguments);
            programs.back()->start(QIODevice::ReadOnly);
        }
        const auto areRunning = [&programs] {
            return std::any_of(programs.begin(), programs.end(), [](const auto &program) {
                return !program->waitForFinished(1) && program->state() != QProcess::NotRunning;
            });
        };
        int looks = 0;
        do {
            QVERIFY(QImage(path("o.png")) == expected);
            ++looks;
        } while (areRunning());
        QVERIFY(looks > 1);
        for (const auto &program : programs) {
            QCOMPARE(program->exitStatus(), QProcess::NormalExit);
            QCOMPARE(program->exitCode(), int(Ok));
        }
        QCOMPARE(files(), QStringList({"a.png", "b.png", "c.png", "o.png"}));
    }

    void merge_inputsThatVanishOrChangeMeanwhile_endInWordsOrAWholePicture()
    {
        const QByteArray whole = bytesOf("b.png");
        for (int round = 0; round < 12; ++round) {
            saveBytes("b.png", whole);
            Program program;
            program.setWorkingDirectory(folder->path());
            program.setArguments({"merge", "--force", "a.png", "b.png", "-o", "o.png"});
            program.start(QIODevice::ReadOnly);
            QVERIFY(program.waitForStarted());
            program.waitForFinished(round);
            if (round % 3 == 0)
                QFile::remove(path("b.png"));
            else if (round % 3 == 1)
                QVERIFY(QFile::resize(path("b.png"), whole.size() / 2));
            else
                saveBytes("b.png", QByteArray(whole.size() * 2, 'x'));
            QVERIFY(program.waitForFinished(60000));
            QCOMPARE(program.exitStatus(), QProcess::NormalExit);
            const QList<int> allowed = {Ok, BadData, NoInput};
            QVERIFY2(allowed.contains(program.exitCode()), program.readAllStandardError());
            if (QFile::exists(path("o.png")))
                QCOMPARE(QImage(path("o.png")).size(), QSize(200, 150));
        }
    }

    void merge_linksAndOddNames_data()
    {
        QTest::addColumn<QString>("name");
        QTest::newRow("spaces and quotes") << QStringLiteral(" a 'b' \"c\" ");
        QTest::newRow("line break and tab") << QStringLiteral("a\nb\tc");
        QTest::newRow("shell's own") << QStringLiteral("$(x) `y` ; & | < > * ? [z] ~ ! \\");
        QTest::newRow("percent") << QStringLiteral("%s%n%1%2");
        QTest::newRow("Japanese") << QStringLiteral("\u65e5\u672c\u8a9e");
        QTest::newRow("Korean, Chinese, German, Greek, Arabic, Hebrew")
            << QStringLiteral("\ud55c\uad6d\u4e2d\u6587\u00e4\u00df\u03a9\u0639\u05d0");
        QTest::newRow("beyond the first plane, combining, direction marks")
            << QString::fromUcs4(U"\U0001F4F7e\u0301\u202E\uFEFF");
        QTest::newRow("as long as names can be") << QString(250, QLatin1Char('n'));
    }

    void merge_linksAndOddNames()
    {
        QFETCH(QString, name);
        QVERIFY(QFile::rename(path("b.png"), path(name)));
        QVERIFY(QFile::link(name, path("link.png")));
        const QString output =
            name.size() > 200 ? QStringLiteral("o.png") : name + QStringLiteral(".png");
        const ProgramRun merged = run({"merge", "--force", "--", "a.png", "link.png", "c.png"});
        QCOMPARE(merged.exitCode, int(Usage)); // no output yet
        QCOMPARE(run({"merge", "-o", output, "--", "a.png", "link.png", name}).exitCode, int(Ok));
        QVERIFY(QImage(path(output)).size() == QSize(200, 150));
    }

    void refuse_linkToItself()
    {
        QVERIFY(QFile::link("loop.png", path("loop.png")));
        verifyRefused({"merge", "a.png", "loop.png", "-o", "o.png"}, NoInput, "loop.png: ", "");
    }

    void refuse_diskFull_leavesNothing_data()
    {
        QTest::addColumn<QString>("name");
        for (const char *name : {"out.png", "out.jpg", "out.tif"})
            QTest::newRow(name) << QString::fromLatin1(name);
    }

    void refuse_diskFull_leavesNothing()
    {
        QFETCH(QString, name);
        savePicture("a.png", noise({200, 150}));
        savePicture("b.png", noise({200, 150}));
#ifdef __SANITIZE_THREAD__
        const QVector<qint64> limits = {4000, 20000}; // it writes a file itself, ahead of main
#else
        const QVector<qint64> limits = {0, 4000, 20000};
#endif
        for (const qint64 limit : limits) {
            Program program;
            program.largestFileBytes = limit;
            program.setWorkingDirectory(folder->path());
            const ProgramRun refused =
                program.run({"merge", "--method=mean", "a.png", "b.png", "-o", name});
            QCOMPARE(refused.exitCode, int(WriteFailed));
            QCOMPARE(linesOf(refused.errors).size(), 1);
            QVERIFY2(refused.errors.startsWith("veskhdr: " + name.toUtf8() + ": "), refused.errors);
            QVERIFY2(refused.errors.contains("too large"), refused.errors);
            QCOMPARE(files(), QStringList({"a.png", "b.png", "c.png"}));
        }
    }

    void refuse_diskFullWithForce_keepsTheOldFile()
    {
        saveBytes("out.png", "an older file");
        savePicture("a.png", noise({200, 150}));
        savePicture("b.png", noise({200, 150}));
        Program program;
        program.largestFileBytes = 4000;
        program.setWorkingDirectory(folder->path());
        QCOMPARE(
            program.run({"merge", "--method=mean", "--force", "a.png", "b.png", "-o", "out.png"})
                .exitCode,
            int(WriteFailed));
        QCOMPARE(bytesOf("out.png"), QByteArray("an older file"));
        QCOMPARE(files(), QStringList({"a.png", "b.png", "c.png", "out.png"}));
    }

    void interrupt_whileWriting_removesTheTemporaryFile_data()
    {
        QTest::addColumn<int>("signal");
        QTest::newRow("Ctrl+C") << int(SIGINT);
        QTest::newRow("kill") << int(SIGTERM);
        QTest::newRow("hang-up") << int(SIGHUP);
    }

    void interrupt_whileWriting_removesTheTemporaryFile()
    {
        QFETCH(int, signal);
        savePicture("a.png", noise({900, 900}));
        savePicture("b.png", noise({900, 900}));
        // The signal must meet the file while it is written; on a busy machine it may come late.
        constexpr int kTries = 20;
        bool isInterrupted = false;
        for (int i = 0; i < kTries && !isInterrupted; ++i) {
            QFile::remove(path("out.png"));
            Program program;
            program.setWorkingDirectory(folder->path());
            program.start(program.program(),
                          {"merge", "--no-align", "a.png", "b.png", "-o", "out.png"});
            while (program.state() != QProcess::NotRunning && files().filter(".tmp").isEmpty())
                program.waitForFinished(1);
            ::kill(pid_t(program.processId()), signal);
            program.waitForFinished();
            isInterrupted = program.exitStatus() == QProcess::CrashExit;
            QVERIFY(files().filter(".tmp").isEmpty());
            QCOMPARE(QFile::exists(path("out.png")), !isInterrupted);
        }
        QVERIFY(isInterrupted);
    }

    /// As the program "timeout" does: to the process, and at once to its group.
    void interrupt_twice_leavesNoTemporaryFile()
    {
        savePicture("a.png", noise({400, 300}));
        savePicture("b.png", noise({400, 300}));
        const QStringList merge{"merge", "--no-align", "a.png", "b.png", "-o", "out.png"};
        constexpr int kTries = 80;
        int interrupted = 0;
        for (int i = 0; i < kTries; ++i) {
            QFile::remove(path("out.png"));
            Program program;
            program.setWorkingDirectory(folder->path());
            program.start(program.program(), merge);
            while (program.state() != QProcess::NotRunning && files().filter(".tmp").isEmpty())
                program.waitForFinished(0);
            const auto process = pid_t(program.processId());
            if (process > 0) {
                ::kill(process, SIGTERM);
                ::kill(process, i % 2 == 0 ? SIGTERM : SIGINT);
            }
            program.waitForFinished();
            interrupted += program.exitStatus() == QProcess::CrashExit;
            QCOMPARE(files().filter(".tmp"), QStringList());
        }
        QVERIFY(interrupted > 0);
    }

    void leftoverOfAKilledRun_isGoneAfterTheNext()
    {
        savePicture("a.png", noise({900, 900}));
        savePicture("b.png", noise({900, 900}));
        constexpr int kTries = 20;
        for (int i = 0; i < kTries && files().filter(".tmp").isEmpty(); ++i) {
            Program program;
            program.setWorkingDirectory(folder->path());
            program.start(program.program(),
                          {"merge", "--no-align", "a.png", "b.png", "-o", "killed.png"});
            while (program.state() != QProcess::NotRunning && files().filter(".tmp").isEmpty())
                program.waitForFinished(1);
            program.kill();
            program.waitForFinished();
        }
        QCOMPARE(files().filter(".tmp").size(), 1);
        QCOMPARE(run({"merge", "a.png", "b.png", "-o", "next.png"}).exitCode, 0);
        QCOMPARE(files().filter(".tmp"), QStringList());
    }

    // Real pictures.

    void merge_photographs_areUprightAndEqualTheEngine()
    {
        QStringList photographs;
        for (const char *name : {"IMG_3871.jpeg", "IMG_3873.jpeg"})
            photographs << pictureFolder() + '/' + name;
        if (!QFile::exists(photographs.first()))
            QSKIP("the photographs are not here");
        const ProgramRun merged =
            run(QStringList{"merge", "--no-align", "-o", "out.png"} + photographs);
        QCOMPARE(merged.errors, QByteArray());
        QCOMPARE(merged.exitCode, int(Ok));
        const QImage picture = pixelsOf(path("out.png"));
        QCOMPARE(picture.size(), QSize(4032, 3024));
        QVERIFY(picture == mergedByEngine(photographs, false));
    }

    void merge_memorialPictures_equalTheEngine()
    {
        QStringList pictures;
        for (const char *name :
             {"test1_memorial0061.png", "test1_memorial0064.png", "test1_memorial0067.png",
              "test1_memorial0070.png", "test1_memorial0073.png"})
            pictures << pictureFolder() + '/' + name;
        if (!QFile::exists(pictures.first()))
            QSKIP("the memorial pictures are not here");
        QCOMPARE(run(QStringList{"merge", "-o", "out.png"} + pictures).exitCode, int(Ok));
        QCOMPARE(pixelsOf(path("out.png")), mergedByEngine(pictures, true));
    }

    void merge_cameraRawFiles_areConverted()
    {
        const QString raw = pictureFolder() + "/kodak-dc50.kdc";
        if (!QFile::exists(raw))
            QSKIP("the camera raw file is not here");
        QVERIFY(QFile::copy(raw, path("1.kdc")));
        QVERIFY(QFile::copy(raw, path("2.kdc")));
        const ProgramRun merged = run({"merge", "1.kdc", "2.kdc", "-o", "out.png"});
        QCOMPARE(merged.errors, QByteArray());
        QCOMPARE(merged.exitCode, int(Ok));
        const QImage picture(path("out.png"));
        QCOMPARE(picture.size(), QSize(768, 512));
        // A picture, not a black surface.
        QVERIFY(picture.convertToFormat(QImage::Format_Indexed8).colorCount() > 100);
    }

    void refuse_truncatedRawFile()
    {
        QFile raw(pictureFolder() + "/kodak-dc50.kdc");
        if (!raw.open(QIODevice::ReadOnly))
            QSKIP("the camera raw file is not here");
        saveBytes("cut.kdc", raw.readAll().left(40000));
        verifyRefused({"merge", "a.png", "cut.kdc", "-o", "out.png"}, BadData, "cut.kdc: ", "");
    }
};

QTEST_GUILESS_MAIN(TestVeskhdrMerge)
#include "tst_veskhdr_merge.moc"
