#include "dng_writer.h"

#include <VeskRawType.h>

#include <QBuffer>
#include <QImage>
#include <QImageWriter>
#include <QtTest>

namespace {

/// Length of the files of a camera whose raw format has no header: LibRaw knows them by
/// their length alone.
constexpr int kLengthOfARawFile = 5067304;

QImage gradient()
{
    QImage image(640, 480, QImage::Format_RGB32);
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            image.setPixel(x, y, qRgb(x & 255, y & 255, (x + y) & 255));
    return image;
}

} // namespace

class TestVeskRawType : public QObject
{
    Q_OBJECT

private slots:
    void suffixes_areLowerCaseAndKnowTheCommonOnes()
    {
        const QStringList suffixes = VeskRawType::suffixes();
        for (const QString &suffix : suffixes)
            QCOMPARE(suffix, suffix.toLower());
        for (const char *common : {"cr2", "cr3", "nef", "arw", "raf", "orf", "rw2", "dng", "kdc"})
            QVERIFY(suffixes.contains(QLatin1String(common)));
        QVERIFY(!suffixes.contains(QStringLiteral("jpg")));
        QVERIFY(!suffixes.contains(QStringLiteral("tif")));
    }

    void rawContent_isRawUnderAnySuffix_data()
    {
        QTest::addColumn<QString>("name");
        for (const char *name : {"a.dng", "A.DNG", "b.nef", "c.jpg", "d.tif", "e.png", "nothing"})
            QTest::newRow(name) << QString::fromLatin1(name);
    }
    void rawContent_isRawUnderAnySuffix()
    {
        QFETCH(QString, name);
        QVERIFY(VeskRawType::isRaw(written(name, dngFile({}))));
    }

    void ordinaryPicture_isNeverRaw_data()
    {
        QTest::addColumn<QByteArray>("format");
        QTest::addColumn<QString>("name");
        for (const char *format : {"jpg", "png", "bmp", "tiff", "webp", "ppm"})
            for (const char *suffix : {"own", "dng", "nef", "kdc", "raw"})
                QTest::addRow("%s as %s", format, suffix)
                    << QByteArray(format)
                    << QStringLiteral("picture.") +
                           QString::fromLatin1(qstrcmp(suffix, "own") == 0 ? format : suffix);
    }
    void ordinaryPicture_isNeverRaw()
    {
        QFETCH(QByteArray, format);
        QFETCH(QString, name);
        if (!QImageWriter::supportedImageFormats().contains(format))
            QSKIP("Qt does not write this format here");
        const QString path = folder.filePath(name);
        QVERIFY(gradient().save(path, format.constData()));
        QVERIFY(!VeskRawType::isRaw(path));
    }

    void ordinaryTiffOfACamera_isNotRaw_data()
    {
        QTest::addColumn<QByteArray>("make");
        QTest::addColumn<int>("channels");
        QTest::addColumn<int>("bits");
        for (const char *make : {"", "Canon", "NIKON CORPORATION", "SONY", "FUJIFILM", "OLYMPUS",
                                 "Panasonic", "PENTAX", "Eastman Kodak Company", "Kodak",
                                 "Phase One", "LEICA", "SAMSUNG", "Leaf", "Imacon", "Hasselblad"})
            for (const int channels : {1, 3})
                for (const int bits : {8, 16})
                    QTest::addRow("%s, %d x %d bits", make, channels, bits)
                        << QByteArray(make) << channels << bits;
    }
    void ordinaryTiffOfACamera_isNotRaw()
    {
        QFETCH(QByteArray, make);
        QFETCH(int, channels);
        QFETCH(int, bits);
        const QByteArray tiff = plainTiff(640, 480, channels, bits, 128, make, make + " Model 1");
        QVERIFY(!VeskRawType::isRaw(written(QStringLiteral("plain.tif"), tiff)));
        QVERIFY(!VeskRawType::isRaw(written(QStringLiteral("plain"), tiff)));
        if (bits == 8 || channels == 3)
            QVERIFY(!VeskRawType::isRaw(written(QStringLiteral("plain.dcr"), tiff)));
    }

    void rawSuffixWithOtherContent_isNotRaw_data()
    {
        QTest::addColumn<QByteArray>("contents");
        QTest::newRow("empty") << QByteArray();
        QTest::newRow("text") << QByteArray("not a picture at all\n").repeated(100);
        QTest::newRow("zeros") << QByteArray(100000, '\0');
        QTest::newRow("TIFF header only") << QByteArray("II*\0\10\0\0\0", 8);
    }
    void rawSuffixWithOtherContent_isNotRaw()
    {
        QFETCH(QByteArray, contents);
        for (const char *name : {"a.dng", "a.nef", "a.raw", "a.crw"})
            QVERIFY(!VeskRawType::isRaw(written(QString::fromLatin1(name), contents)));
    }

    void contentToldByItsLengthAlone_isRawOnlyUnderARawSuffix()
    {
        const QByteArray contents(kLengthOfARawFile, '\x40');
        if (!VeskRawType::isRaw(written(QStringLiteral("a.raw"), contents)))
            QSKIP("This release of LibRaw does not know the camera");
        QVERIFY(!VeskRawType::isRaw(written(QStringLiteral("a.bin"), contents)));
    }

    void ordinaryPictureOfThatLength_isNotRaw()
    {
        QByteArray contents;
        QBuffer buffer(&contents);
        QVERIFY(gradient().save(&buffer, "JPG"));
        contents.append(kLengthOfARawFile - contents.size(), '\0');
        QVERIFY(!VeskRawType::isRaw(written(QStringLiteral("a.raw"), contents)));
        QVERIFY(!VeskRawType::isRaw(written(QStringLiteral("a.jpg"), contents)));
    }

    void missingFileAndFolder_areNotRaw()
    {
        QVERIFY(!VeskRawType::isRaw(QString()));
        QVERIFY(!VeskRawType::isRaw(folder.filePath(QStringLiteral("missing.dng"))));
        const QString directory = folder.filePath(QStringLiteral("folder.dng"));
        QVERIFY(QDir().mkpath(directory));
        QVERIFY(!VeskRawType::isRaw(directory));
    }

    void nameBeyondLatin1_isFound()
    {
        QVERIFY(
            VeskRawType::isRaw(written(QString::fromUtf8("\u65e5\u672c \u00fc.dng"), dngFile({}))));
    }

    void photographs_areToldApart()
    {
        const QDir pictures(QFile::decodeName(qgetenv("VESK_TEST_PICTURES")));
        const QString raw = pictures.filePath(QStringLiteral("kodak-dc50.kdc"));
        if (!QFile::exists(raw))
            QSKIP("The folder with photographs is missing");
        QVERIFY(VeskRawType::isRaw(raw));
        const QStringList others =
            pictures.entryList({QStringLiteral("*.jp*g"), QStringLiteral("*.png")}, QDir::Files);
        for (const QString &name : others)
            QVERIFY2(!VeskRawType::isRaw(pictures.filePath(name)), qPrintable(name));
    }

private:
    QString written(const QString &name, const QByteArray &contents)
    {
        const QString path = folder.filePath(name);
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly) || file.write(contents) != contents.size())
            qFatal("cannot write %s", qPrintable(path));
        return path;
    }

    QTemporaryDir folder;
};

QTEST_GUILESS_MAIN(TestVeskRawType)
#include "tst_VeskRawType.moc"
