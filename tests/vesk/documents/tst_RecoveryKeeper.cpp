#include "DocumentArea.h"
#include "DocumentHistory.h"
#include "FileSizeLimit.h"
#include "RecoveryKeeper.h"
#include "TestPictures.h"
#include "picture_document.h"
#include "recovery_file.h"

#include <VeskContext.h>

#include <QColorSpace>
#include <QDir>
#include <QDirIterator>
#include <QProcess>
#include <QSet>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

#include <random>

namespace {

constexpr int kPatienceMs = 20000;

void edit(VeskContext &document, QRgb colour)
{
    const QImage before = document::layerPictures(document).constFirst();
    QImage after = before;
    after.fill(colour);
    DocumentEdit change;
    change.text = QStringLiteral("Edit");
    change.pictures = {after};
    change.steps = std::make_shared<PictureSteps>(picture_step::ofChange(before, after));
    DocumentHistory::of(document).add(std::move(change));
}

/// A real process that edits and keeps, to be killed.
class Victim
{
public:
    Victim(const QString &root, int delayMs, int side)
    {
        process.start(QCoreApplication::applicationDirPath() + QStringLiteral("/recovery_victim"),
                      {root, QString::number(delayMs), QString::number(side)});
    }
    ~Victim()
    {
        process.kill();
        process.waitForFinished();
    }

    bool waitForWritten(int times)
    {
        while (written < times && process.waitForReadyRead(kPatienceMs))
            readOn();
        return written >= times;
    }

    void kill()
    {
        process.kill();
        process.waitForFinished();
        readOn();
    }

    int written = 0;
    int last = 0;          ///< picture that was announced
    int lastAtWritten = 0; ///< when the last file was complete

private:
    void readOn()
    {
        while (process.canReadLine()) {
            const QByteArray line = process.readLine().trimmed();
            if (line == "written") {
                ++written;
                lastAtWritten = last;
            } else {
                last = line.toInt();
            }
        }
    }

    QProcess process;
};

} // namespace

class TestRecoveryKeeper : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        root = std::make_unique<QTemporaryDir>();
        begin();
    }
    void cleanup() { end(); }

    void file_keepsAllOfADocument_data()
    {
        QTest::addColumn<QImage::Format>("format");
        QTest::newRow("8 bits") << QImage::Format_RGB32;
        QTest::newRow("16 bits, alpha") << QImage::Format_RGBA64;
        QTest::newRow("palette") << QImage::Format_Indexed8;
        QTest::newRow("grey") << QImage::Format_Grayscale16;
    }

    void file_keepsAllOfADocument()
    {
        QFETCH(const QImage::Format, format);
        QImage picture = TestPictures::texture({61, 43}, 1).convertToFormat(format);
        picture.setColorSpace(QColorSpace::DisplayP3);
        picture.setDotsPerMeterX(4242);
        RecoveredDocument kept;
        kept.name = QStringLiteral("näme");
        kept.path = QStringLiteral("/a/b.tif");
        kept.metadataSource = QStringLiteral("/a/s.jpg");
        kept.mark = document::markOfMerge(QStringLiteral("fusion"), {QStringLiteral("/a/s.jpg")});
        kept.savedBits = 16;
        kept.stamp = {1234, 5678};
        kept.hasGainMap = true;
        kept.layers = {{picture, QStringLiteral("one"), 0.5F, true}, {picture, {}, 1.0F, false}};
        const QString path = root->filePath(QStringLiteral("f"));
        QCOMPARE(recovery::write(kept, path), QString());
        const auto back = recovery::read(path);
        QVERIFY(back);
        QCOMPARE(back->name, kept.name);
        QCOMPARE(back->path, kept.path);
        QCOMPARE(back->metadataSource, kept.metadataSource);
        QCOMPARE(back->mark->sources, kept.mark->sources);
        QCOMPARE(back->savedBits, 16);
        QVERIFY(back->stamp == kept.stamp);
        QVERIFY(back->hasGainMap);
        QCOMPARE(back->layers.size(), 2);
        QCOMPARE(back->layers[0].picture, picture);
        QCOMPARE(back->layers[0].picture.format(), format);
        QCOMPARE(back->layers[0].picture.colorSpace(), picture.colorSpace());
        QCOMPARE(back->layers[0].picture.dotsPerMeterX(), 4242);
        QCOMPARE(back->layers[0].alpha, 0.5F);
        QVERIFY(!back->layers[1].isVisible);
        QCOMPARE(recovery::readName(path), kept.name);
    }

    void file_damaged_isRefused()
    {
        RecoveredDocument kept;
        kept.layers = {{TestPictures::texture({64, 48}, 1), {}, 1.0F, true}};
        const QString path = root->filePath(QStringLiteral("f"));
        recovery::write(kept, path);
        QFile file(path);
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QByteArray whole = file.readAll();
        file.close();
        std::mt19937 random(5);
        for (int i = 0; i < 300; ++i) {
            QByteArray bad = whole.left(int(random() % unsigned(whole.size())));
            if (!bad.isEmpty() && i % 2)
                bad[int(random() % unsigned(std::min<int>(200, bad.size())))] = char(random());
            QVERIFY(file.open(QIODevice::WriteOnly));
            file.write(bad);
            file.close();
            QVERIFY(!recovery::read(path));
        }
    }

    /// As programs wrote it before the stamp was kept.
    void file_ofTheFirstVersion_isRead()
    {
        const QString path = root->filePath(QStringLiteral("f"));
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly));
        QDataStream out(&file);
        out.setVersion(QDataStream::Qt_6_4);
        out << quint32(0x5665736B) << quint16(1) << QStringLiteral("old") << QString() << QString()
            << false << QString() << QString() << QString() << QString() << QStringList()
            << qint32(0) << qint32(0) << quint32(0x21646E65);
        file.close();
        const auto back = recovery::read(path);
        QVERIFY(back);
        QCOMPARE(back->name, QStringLiteral("old"));
        QVERIFY(!back->stamp.isKnown());
    }

    void recover_damagedAmongOthers_bringsTheOthersBack_data()
    {
        QTest::addColumn<int>("damage");
        QTest::newRow("cut in the middle") << 0;
        QTest::newRow("empty") << 1;
        QTest::newRow("another program's") << 2;
        QTest::newRow("of a later version") << 3;
        QTest::newRow("cannot be opened") << 4;
    }

    void recover_damagedAmongOthers_bringsTheOthersBack()
    {
        QFETCH(const int, damage);
        const QList<QRgb> colours{0xFF111111, 0xFF222222, 0xFF333333};
        QSignalSpy written(keeper.get(), &RecoveryKeeper::written);
        for (const QRgb colour : colours)
            edit(*area->open(TestPictures::texture({64, 48}, 1), {}, {}), colour);
        QTRY_COMPARE(files().size(), 3);
        QTRY_COMPARE(written.size(), 3);
        end();
        begin();
        const QStringList orphans = keeper->orphans();
        spoil(orphans.at(1), damage);
        QCOMPARE(keeper->recover(orphans), QStringList{orphans.at(1)});
        const QList<VeskContext *> back = area->documents();
        QCOMPARE(back.size(), 2);
        QVERIFY(QFileInfo::exists(orphans.at(1))); // somebody may still make something of it
        QSet<QRgb> seen;
        for (const VeskContext *document : back)
            seen.insert(document::layerPictures(*document).constFirst().pixel(1, 1));
        QCOMPARE(seen.size(), 2);
        QVERIFY(QSet<QRgb>(colours.begin(), colours.end()).contains(seen));
    }

    /// What a kill in the middle of a write leaves beside the files.
    void orphans_halfWrittenTemporaryFile_isNone()
    {
        QSignalSpy written(keeper.get(), &RecoveryKeeper::written);
        edit(*area->open(TestPictures::texture({64, 48}, 1), {}, {}), 0xFF111111);
        QTRY_COMPARE(written.size(), 1);
        const QString file = files().constFirst();
        end();
        QVERIFY(QFile::copy(file, file + QStringLiteral(".part")));
        begin();
        QCOMPARE(keeper->orphans(), QStringList{file});
    }

    void saving_removesTheFile_closingToo()
    {
        VeskContext *document = area->open(TestPictures::texture({64, 48}, 1), {}, {});
        QSignalSpy written(keeper.get(), &RecoveryKeeper::written);
        edit(*document, 0xFF00FF00);
        QTRY_COMPARE(written.size(), 1);
        QCOMPARE(files().size(), 1);
        document::markSaved(*document);
        QCOMPARE(files().size(), 0);
        edit(*document, 0xFF0000FF);
        QTRY_COMPARE(written.size(), 2);
        QCOMPARE(files().size(), 1);
        area->close(document);
        QCOMPARE(files().size(), 0);
    }

    void savedWhileItIsWritten_leavesNoFile()
    {
        VeskContext *document = area->open(TestPictures::texture({2400, 1600}, 1), {}, {});
        QSignalSpy written(keeper.get(), &RecoveryKeeper::written);
        keeper->setDelay(0);
        edit(*document, 0xFF00FF00);
        while (QDir(root->path()).isEmpty()) // its folder comes right before the writing
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        document::markSaved(*document);
        QCOMPARE(written.size(), 0);
        QTRY_COMPARE(written.size(), 1);
        QCOMPARE(files().size(), 0);
    }

    void nothingChanged_nothingIsWritten()
    {
        VeskContext *document = area->open(TestPictures::texture({64, 48}, 1), {}, {});
        QSignalSpy written(keeper.get(), &RecoveryKeeper::written);
        edit(*document, 0xFF00FF00);
        QTRY_COMPARE(written.size(), 1);
        QTest::qWait(200);
        QCOMPARE(written.size(), 1);
        QVERIFY(!keeper->findChild<QTimer *>() || !keeper->findChild<QTimer *>()->isActive());
    }

    void endWithoutAsking_documentComesBack()
    {
        VeskContext *document =
            area->open(TestPictures::texture({64, 48}, 1), QStringLiteral("kept"), {});
        QSignalSpy written(keeper.get(), &RecoveryKeeper::written);
        edit(*document, 0xFF123456);
        QTRY_COMPARE(written.size(), 1);
        end();
        begin();
        const QStringList orphans = keeper->orphans();
        QCOMPARE(RecoveryKeeper::names(orphans), QStringList{QStringLiteral("kept")});
        QVERIFY(keeper->recover(orphans).isEmpty());
        QVERIFY(area->currentDocument()->isSaveAble());
        QCOMPARE(document::layerPictures(*area->currentDocument()).constFirst().pixel(3, 3),
                 0xFF123456);
        // It is still safe, without having been written again.
        end();
        begin();
        QCOMPARE(keeper->orphans().size(), 1);
    }

    void endAfterAsking_nothingComesBack()
    {
        VeskContext *document = area->open(TestPictures::texture({64, 48}, 1), {}, {});
        QSignalSpy written(keeper.get(), &RecoveryKeeper::written);
        edit(*document, 0xFF123456);
        QTRY_COMPARE(written.size(), 1);
        keeper->forgetAll();
        end();
        begin();
        QVERIFY(keeper->orphans().isEmpty());
        QVERIFY(QDir(root->path()).isEmpty());
    }

    void fullDisk_isTold_documentStays_andLaterItWorks()
    {
        VeskContext *document = area->open(TestPictures::texture({640, 480}, 1), {}, {});
        QSignalSpy failed(keeper.get(), &RecoveryKeeper::failed);
        QSignalSpy written(keeper.get(), &RecoveryKeeper::written);
        {
            const FileSizeLimit full(10000);
            edit(*document, 0xFF00FF00);
            QTRY_COMPARE(failed.size(), 1);
            QVERIFY(!failed.constFirst().constFirst().toString().isEmpty());
            QTest::qWait(100);
            QCOMPARE(failed.size(), 1); // not again and again
        }
        QCOMPARE(document::layerPictures(*document).constFirst().pixel(3, 3), 0xFF00FF00);
        QTRY_COMPARE(written.size(), 1);
        QCOMPARE(files().size(), 1);
    }

    void fullDisk_leavesTheFileThatIsThere()
    {
        VeskContext *document = area->open(TestPictures::texture({640, 480}, 1), {}, {});
        QSignalSpy failed(keeper.get(), &RecoveryKeeper::failed);
        QSignalSpy written(keeper.get(), &RecoveryKeeper::written);
        edit(*document, 0xFF111111);
        QTRY_COMPARE(written.size(), 1);
        const FileSizeLimit full(10000);
        edit(*document, 0xFF222222);
        QTRY_COMPARE(failed.size(), 1);
        const auto kept = recovery::read(files().constFirst());
        QVERIFY(kept);
        QCOMPARE(kept->layers.constFirst().picture.pixel(0, 0), 0xFF111111);
    }

    void livingProgram_keepsItsFiles()
    {
        Victim other(root->path(), 20, 64);
        QVERIFY(other.waitForWritten(1));
        QVERIFY(keeper->orphans().isEmpty());
        other.kill();
        QCOMPARE(keeper->orphans().size(), 1);
        const RecoveryFolder third(root->path());
        QVERIFY(RecoveryFolder(root->path()).orphans().isEmpty()); // this one has them now
    }

    void killed_atAnyMoment_losesNoMoreThanTheDelay_data()
    {
        QTest::addColumn<int>("waitMs");
        std::mt19937 random(9);
        for (int i = 0; i < 12; ++i) {
            const int wait = int(random() % 150);
            QTest::newRow(qPrintable(QStringLiteral("%1: %2 ms").arg(i).arg(wait))) << wait;
        }
    }

    /// The files are large and written without a pause, so most kills come in the middle of one.
    void killed_atAnyMoment_losesNoMoreThanTheDelay()
    {
        QFETCH(const int, waitMs);
        Victim victim(root->path(), 0, 1500);
        QVERIFY(victim.waitForWritten(2));
        const int known = victim.lastAtWritten;
        QTest::qWait(waitMs);
        victim.kill();
        const QStringList orphans = keeper->orphans();
        QCOMPARE(orphans.size(), 1);
        const auto kept = recovery::read(orphans.constFirst());
        QVERIFY(kept);
        const QImage picture = kept->layers.constFirst().picture;
        const int number = int(picture.pixel(0, 0) & 0xFFFFFFU);
        QVERIFY(number > 0 && number <= victim.last);
        QVERIFY2(number >= known - 100, "older than a file that was complete");
        QImage expected(picture.size(), picture.format());
        expected.fill(QRgb(number) | 0xFF000000U);
        QCOMPARE(picture, expected); // of one moment, whole
    }

private:
    void begin()
    {
        area = std::make_unique<DocumentArea>(new QWidget);
        keeper = std::make_unique<RecoveryKeeper>(area.get(), root->path());
        keeper->setDelay(10);
    }

    void end()
    {
        keeper.reset();
        area.reset();
    }

    static void spoil(const QString &path, int damage)
    {
        QFile file(path);
        QVERIFY(file.open(QIODevice::ReadWrite));
        if (damage == 0) {
            file.resize(file.size() / 2);
        } else if (damage == 1) {
            file.resize(0);
        } else if (damage == 2) {
            file.write("PNG");
        } else if (damage == 3) {
            file.seek(4);
            file.write(QByteArray::fromHex("7FFF"));
        } else {
            file.close();
            QFile::remove(path);
            QVERIFY(QDir().mkdir(path)); // no permissions: root has all of them
        }
    }

    QStringList files() const
    {
        QStringList paths;
        QDirIterator all(root->path(), {QStringLiteral("*.vesk-recovery")}, QDir::Files,
                         QDirIterator::Subdirectories);
        while (all.hasNext())
            paths.append(all.next());
        return paths;
    }

    std::unique_ptr<QTemporaryDir> root;
    std::unique_ptr<DocumentArea> area;
    std::unique_ptr<RecoveryKeeper> keeper;
};

QTEST_MAIN(TestRecoveryKeeper)
#include "tst_RecoveryKeeper.moc"
