#include "dng_writer.h"

#include <TiffFirstDirectory.h>

#include <QBuffer>
#include <QtTest>

namespace {

std::optional<TiffFirstDirectory> read(QByteArray file)
{
    QBuffer buffer(&file);
    buffer.open(QIODevice::ReadOnly);
    return TiffFirstDirectory::read(buffer);
}

} // namespace

class TestTiffFirstDirectory : public QObject
{
    Q_OBJECT

private slots:
    void greyPicture_isViewable()
    {
        const auto directory = read(plainTiff(5, 3, 1, 16, 7, "make", "model"));
        QVERIFY(directory);
        QCOMPARE(directory->size, QSize(5, 3));
        QCOMPARE(directory->bitsPerSample, 16);
        QVERIFY(directory->isViewable);
        QVERIFY(!directory->isDng);
    }

    void bitsOfThreeChannels_standBehindTheDirectory()
    {
        const auto directory = read(plainTiff(5, 3, 3, 8, 7, "make", "model"));
        QVERIFY(directory);
        QCOMPARE(directory->bitsPerSample, 8);
        QVERIFY(directory->isViewable);
    }

    void mosaic_isNotViewable()
    {
        DngRecipe recipe;
        QVERIFY(!read(dngFile(recipe))->isViewable);
        QVERIFY(read(dngFile(recipe))->isDng);
        recipe.dngVersion = false;
        QVERIFY(!read(dngFile(recipe))->isViewable);
        QVERIFY(!read(dngFile(recipe))->isDng);
    }

    void bigEndian_isReadAsWell()
    {
        const char bytes[] = "MM\0*\0\0\0\10\0\3"
                             "\1\0\0\3\0\0\0\1\0\5\0\0"
                             "\1\1\0\4\0\0\0\1\0\0\0\3"
                             "\1\6\0\3\0\0\0\1\0\2\0\0"
                             "\0\0\0\0";
        const auto directory = read(QByteArray(bytes, sizeof bytes - 1));
        QVERIFY(directory);
        QCOMPARE(directory->size, QSize(5, 3));
        QVERIFY(directory->isViewable);
    }

    void cutFile_everyLength_givesNothingOrTheWhole()
    {
        const QByteArray whole = plainTiff(5, 3, 3, 8, 7, "make", "model");
        for (int length = 0; length < whole.size(); ++length) {
            const auto directory = read(whole.left(length));
            if (directory)
                QCOMPARE(directory->size, QSize(5, 3));
        }
        QVERIFY(!read(whole.left(8)));
        QVERIFY(!read(QByteArray()));
        QVERIFY(!read("not a TIFF file at all"));
    }
};

QTEST_GUILESS_MAIN(TestTiffFirstDirectory)
#include "tst_TiffFirstDirectory.moc"
