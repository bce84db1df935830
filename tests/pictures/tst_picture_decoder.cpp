#include "picture_decoder.h"

#include "InterruptibleFile.h"
#include "UnprivilegedUser.h"
#include "picture_makers.h"

#include <QFile>
#include <QtTest>

#include <atomic>
#include <thread>
#include <vector>

#include <sys/stat.h>

using namespace makers;

namespace {

/// A GIF whose codes are all nine bits wide: a clear code before the width would grow.
QByteArray gif(int width, int height)
{
    QByteArray file("GIF89a");
    const auto append16 = [&file](int number) {
        file.append(static_cast<char>(number & 255)).append(static_cast<char>(number >> 8));
    };
    append16(width);
    append16(height);
    file.append("\xF7\0\0", 3);
    for (int i = 0; i < 256; ++i)
        file.append(static_cast<char>(i)).append(static_cast<char>(255 - i)).append('\x40');
    file.append("\x2C\0\0\0\0", 5);
    append16(width);
    append16(height);
    file.append("\0\x08", 2);
    QByteArray codes;
    quint32 bits = 0;
    int bitCount = 0;
    const auto appendCode = [&](quint32 code) {
        bits |= code << bitCount;
        for (bitCount += 9; bitCount >= 8; bitCount -= 8, bits >>= 8)
            codes.append(static_cast<char>(bits & 255));
    };
    constexpr quint32 kClear = 256;
    constexpr quint32 kEnd = 257;
    for (int i = 0; i < width * height; ++i) {
        if (i % 200 == 0)
            appendCode(kClear);
        appendCode(static_cast<quint32>(i % 251));
    }
    appendCode(kEnd);
    codes.append(static_cast<char>(bits & 255));
    for (int at = 0; at < codes.size(); at += 255) {
        const QByteArray block = codes.mid(at, 255);
        file.append(static_cast<char>(block.size())).append(block);
    }
    return file.append("\0\x3B", 2);
}

/// Unless it has no more anyway.
QImage ofEightBits(const QImage &picture)
{
    return picture.depth() == 64 ? picture.convertToFormat(QImage::Format_ARGB32) : picture;
}

} // namespace

class TestPictureDecoder : public QObject
{
    Q_OBJECT

private:
    const Folder folder;

    DecodeError errorOf(const QByteArray &bytes)
    {
        const DecodedPicture decoded = picture::decode(folder.save(QStringLiteral("tried"), bytes));
        // An error has a reason and no picture, a success a picture and no reason.
        if (decoded.image.isNull() != (decoded.error != DecodeError::None) ||
            decoded.image.isNull() == decoded.reason.isEmpty())
            qFatal("picture, error and reason contradict each other");
        return decoded.error;
    }

private slots:
    void initTestCase() { QVERIFY(folder.isValid()); }

    void decode_cancelled_givesNoPicture_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        for (const char *format : {"png", "jpeg", "tiff", "bmp", "webp"})
            QTest::newRow(format) << encoded(scene(61, 37), format);
    }

    void decode_cancelled_givesNoPicture()
    {
        QFETCH(QByteArray, bytes);
        const QString path = folder.save(QStringLiteral("p"), bytes);
        std::atomic<bool> cancelled = true;
        ReadOptions options;
        options.cancelled = &cancelled;
        const DecodedPicture ended = picture::decode(path, options);
        QCOMPARE(ended.error, DecodeError::Cancelled);
        QVERIFY(ended.image.isNull());
        cancelled = false;
        QCOMPARE(picture::decode(path, options).error, DecodeError::None);
    }

    void file_interrupted_givesNoMoreBytes()
    {
        const QString path = folder.save(QStringLiteral("bytes"), QByteArray(100000, 'a'));
        std::atomic<bool> end = false;
        InterruptibleFile file(&end);
        file.setFileName(path);
        QVERIFY(file.open(QIODevice::ReadOnly | QIODevice::Unbuffered));
        QCOMPARE(file.read(10).size(), 10);
        end = true;
        QCOMPARE(file.read(10).size(), 0);
        QVERIFY(file.isInterrupted());
    }

    void decode_otherFormats_equalQt_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        const QImage colour = scene(61, 37);
        const QImage indexed = scene(61, 37, QImage::Format_Indexed8);
        for (const char *format : {"png", "tiff", "bmp", "webp", "ppm"})
            QTest::newRow(format) << encoded(colour, format);
        QTest::newRow("png, palette") << encoded(indexed, "png");
        QTest::newRow("png, one bit") << encoded(scene(61, 37, QImage::Format_Mono), "png");
        QTest::newRow("png, 16 bits") << encoded(scene(61, 37, QImage::Format_RGBA64), "png");
        QTest::newRow("tiff, palette") << encoded(indexed, "tiff");
        QTest::newRow("bmp, palette") << encoded(indexed, "bmp");
        QTest::newRow("gif") << gif(61, 37);
    }

    void decode_otherFormats_equalQt()
    {
        QFETCH(QByteArray, bytes);
        QVERIFY2(!bytes.isEmpty(), "Qt cannot write this format here");
        const QString path = folder.save(QStringLiteral("picture"), bytes);
        const DecodedPicture decoded = picture::decode(path);
        QCOMPARE(decoded.reason, QString());
        QCOMPARE(decoded.image, ofEightBits(byQt(path)));
        QCOMPARE(decoded.image.size(), QSize(61, 37));
    }

    void decode_wrongSuffix_goesByContent()
    {
        const QImage picture = scene(20, 10);
        for (const char *format : {"png", "jpeg", "tiff", "bmp"}) {
            const QString path =
                folder.save(QStringLiteral("picture.gif"), encoded(picture, format));
            QCOMPARE(picture::decode(path).image.size(), picture.size());
        }
    }

    void decode_truncated_isDamaged_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<int>("shortestCut"); // bytes at the end that readers do without
        const QImage colour = scene(61, 37);
        const QImage indexed = scene(61, 37, QImage::Format_Indexed8);
        QTest::newRow("png") << encoded(colour, "png") << 5;
        QTest::newRow("png, palette") << encoded(indexed, "png") << 5;
        QTest::newRow("tiff") << encoded(colour, "tiff", 0) << 1;
        QTest::newRow("tiff, compressed") << encoded(colour, "tiff", 1) << 1;
        QTest::newRow("tiff, palette") << encoded(indexed, "tiff") << 5;
        QTest::newRow("bmp") << encoded(colour, "bmp") << 1;
        QTest::newRow("bmp, palette") << encoded(indexed, "bmp") << 1;
        QTest::newRow("bmp, one bit") << encoded(scene(61, 37, QImage::Format_Mono), "bmp") << 1;
        QTest::newRow("gif") << gif(61, 37) << 1;
        QTest::newRow("webp") << encoded(colour, "webp") << 2;
        QTest::newRow("ppm") << encoded(colour, "ppm") << 1;
        QTest::newRow("pgm") << encoded(scene(61, 37, QImage::Format_Grayscale8), "pgm") << 1;
        QTest::newRow("pbm") << encoded(scene(61, 37, QImage::Format_Mono), "pbm") << 1;
    }

    void decode_truncated_isDamaged()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(int, shortestCut);
        QVERIFY(!bytes.isEmpty());
        QCOMPARE(int(errorOf(bytes)), int(DecodeError::None));
        std::vector<int> lengths;
        for (int cut = shortestCut; cut < 40; ++cut)
            lengths.push_back(bytes.size() - cut);
        for (int percent = 2; percent < 98; percent += 4)
            lengths.push_back(bytes.size() * percent / 100);
        for (const int length : lengths) {
            if (length <= 0)
                continue;
            const DecodeError error = errorOf(bytes.left(length));
            QVERIFY2(error == DecodeError::Damaged || error == DecodeError::NotAPicture,
                     qPrintable(QStringLiteral("%1 of %2 bytes gave error %3")
                                    .arg(length)
                                    .arg(bytes.size())
                                    .arg(int(error))));
        }
    }

    void decode_missingFile_saysSo()
    {
        QCOMPARE(int(picture::decode(folder.path(QStringLiteral("none.png"))).error),
                 int(DecodeError::Missing));
        QCOMPARE(int(picture::decode(QString()).error), int(DecodeError::Missing));
        QCOMPARE(picture::decode(QString()).reason, QStringLiteral("no such file"));
    }

    void decode_directory_saysSo()
    {
        QCOMPARE(int(picture::decode(folder.path({})).error), int(DecodeError::Directory));
    }

    void decode_pipe_doesNotBlock()
    {
        const QString path = folder.path(QStringLiteral("pipe"));
        QCOMPARE(::mkfifo(QFile::encodeName(path).constData(), 0600), 0);
        QCOMPARE(int(picture::decode(path).error), int(DecodeError::NotRegularFile));
    }

    void decode_device_saysSo()
    {
        QCOMPARE(int(picture::decode(QStringLiteral("/dev/zero")).error),
                 int(DecodeError::NotRegularFile));
    }

    void decode_unreadableFile_saysSo()
    {
        const QString path = folder.save(QStringLiteral("secret.png"), encoded(scene(4, 4), "png"));
        QVERIFY(QFile::setPermissions(path, {}));
        const UnprivilegedUser user({folder.path({}), path});
        if (!user.canReach(path))
            QSKIP("root cannot step down here");
        QCOMPARE(int(picture::decode(path).error), int(DecodeError::NoPermission));
    }

    void decode_emptyFile_saysSo() { QCOMPARE(int(errorOf({})), int(DecodeError::Empty)); }

    void decode_noPicture_saysSo()
    {
        QCOMPARE(int(errorOf("Just a letter to a friend.\n")), int(DecodeError::NotAPicture));
        QCOMPARE(int(errorOf(QByteArray(1000, '\0'))), int(DecodeError::NotAPicture));
    }

    void decode_kindThatIsNotRead_saysWhatItIs_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("name");
        const auto row = [](const char *name, const QByteArray &head) {
            QTest::newRow(head.left(12).toPercentEncoding())
                << head + QByteArray(100, '\1') << QString::fromLatin1(name);
        };
        row("HEIC", QByteArray("\0\0\0\x18"
                               "ftypheic\0\0\0\0mif1heic",
                               24));
        row("HEIC", QByteArray("\0\0\0\x18"
                               "ftypmif1\0\0\0\0mif1heic",
                               24));
#ifndef VESK_WITH_AVIF
        row("AVIF", QByteArray("\0\0\0\x18"
                               "ftypavif\0\0\0\0mif1avif",
                               24));
        row("AVIF", QByteArray("\0\0\0\x18"
                               "ftypmif1\0\0\0\0mif1avif",
                               24));
#endif
        row("JPEG 2000", QByteArray("\0\0\0\x0CjP  \r\n\x87\n", 12));
        row("JPEG 2000", "\xFF\x4F\xFF\x51");
#ifndef VESK_WITH_JXL
        row("JPEG XL", QByteArray("\0\0\0\x0CJXL \r\n\x87\n", 12));
#endif
        row("PSD", QByteArray("8BPS\0\1", 6));
        row("OpenEXR", "\x76\x2F\x31\x01");
    }

    void decode_kindThatIsNotRead_saysWhatItIs()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(QString, name);
        const DecodedPicture refused = picture::decode(folder.save(QStringLiteral("kind"), bytes));
        QCOMPARE(refused.error, DecodeError::Unsupported);
        QCOMPARE(refused.reason, name + ", a kind of picture that this build does not read");
    }

    void decode_targa_isReadOrSaysWhatItIs_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        const auto file = [](int kind, int bits, int pixelBytes) {
            QByteArray bytes(18, '\0');
            bytes[2] = char(kind);
            bytes[12] = 5; // columns
            bytes[14] = 4; // rows
            bytes[16] = char(bits);
            return bytes + QByteArray(5 * 4 * pixelBytes, '\x40');
        };
        QTest::newRow("colour") << file(2, 24, 3);
        QTest::newRow("grey") << file(3, 8, 1);
        QTest::newRow("newer") << file(2, 24, 3) +
                                      QByteArray("\0\0\0\0\0\0\0\0TRUEVISION-XFILE.\0", 26);
    }

    void decode_targa_isReadOrSaysWhatItIs()
    {
        QFETCH(QByteArray, bytes);
        const DecodedPicture result = picture::decode(folder.save(QStringLiteral("t.tga"), bytes));
        if (result.error == DecodeError::None)
            QCOMPARE(result.image.size(), QSize(5, 4));
        else
            QCOMPARE(result.reason, QStringLiteral("Targa, a kind of picture that this build does "
                                                   "not read"));
    }

    void decode_drawingWithoutGraphicalApplication_isRefused()
    {
        // Its text would need fonts, and those end a process that has no graphical application.
        QCOMPARE(int(errorOf("<svg xmlns='http://www.w3.org/2000/svg' width='9' height='9'>"
                             "<text x='1' y='8'>a</text></svg>")),
                 int(DecodeError::NotAPicture));
    }

    void decode_pixelLimit_isCheckedFromTheHeader_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        for (const char *format : {"jpeg", "png", "tiff", "bmp", "webp", "ppm"})
            QTest::newRow(format) << encoded(scene(61, 37), format);
        QTest::newRow("gif") << gif(61, 37);
    }

    void decode_pixelLimit_isCheckedFromTheHeader()
    {
        QFETCH(QByteArray, bytes);
        const QString path = folder.save(QStringLiteral("limit"), bytes);
        QCOMPARE(int(picture::decode(path, {61 * 37}).error), int(DecodeError::None));
        const DecodedPicture refused = picture::decode(path, {61 * 37 - 1});
        QCOMPARE(int(refused.error), int(DecodeError::TooLarge));
        QVERIFY(refused.reason.contains(QStringLiteral("61 x 37")));
    }

    void decode_gifOnALargerScreen_isLimitedByTheScreen()
    {
        QByteArray bytes = gif(4, 3);
        bytes[7] = char(4); // 4 + 4 * 256 columns
        const QString path = folder.save(QStringLiteral("screen"), bytes);
        const DecodedPicture refused = picture::decode(path, {1028 * 3 - 1});
        QCOMPARE(int(refused.error), int(DecodeError::TooLarge));
        QVERIFY(refused.reason.contains(QStringLiteral("1028 x 3")));
        QCOMPARE(int(picture::decode(path, {1028 * 3}).error), int(DecodeError::None));
        bytes[6] = bytes[7] = 0; // as wide as needed
        const QString endless = folder.save(QStringLiteral("endless"), bytes);
        QCOMPARE(int(picture::decode(endless, {65535 * 3 - 1}).error), int(DecodeError::TooLarge));
    }

    void decode_paletteIndexBeyondColourTable_isSafe_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QImage indexed(5, 3, QImage::Format_Indexed8);
        indexed.setColorTable(QVector<QRgb>(256, qRgb(1, 2, 3)));
        indexed.fill(1);
        indexed.setPixel(4, 2, 200);
        QByteArray bmp = encoded(indexed, "bmp");
        bmp[46] = 2; // colours used
        bmp[47] = 0;
        bmp.remove(54 + 2 * 4, 254 * 4);
        bmp[10] = 54 + 2 * 4; // where the pixels begin
        bmp[11] = 0;
        QTest::newRow("bmp with two colours") << bmp;
    }

    void decode_paletteIndexBeyondColourTable_isSafe()
    {
        QFETCH(QByteArray, bytes);
        const DecodedPicture decoded =
            picture::decode(folder.save(QStringLiteral("palette"), bytes));
        QCOMPARE(decoded.reason, QString());
        QCOMPARE(decoded.image.format(), QImage::Format_Indexed8);
        QVERIFY(decoded.image.pixelIndex(4, 2) < decoded.image.colorCount());
        QCOMPARE(decoded.image.pixel(4, 2), QRgb(0));
    }

    void decode_manyThreadsAtOnce_givesEachItsPicture()
    {
        std::vector<QString> paths;
        std::vector<QImage> expected;
        for (int i = 0; i < 6; ++i) {
            const char *format = i % 2 ? "png" : "jpeg";
            paths.push_back(folder.save(QStringLiteral("thread%1").arg(i),
                                        encoded(scene(40 + i, 30 + i), format)));
            expected.push_back(byQt(paths.back()));
        }
        std::atomic<int> wrong = 0;
        std::vector<std::thread> threads;
        for (size_t i = 0; i < paths.size(); ++i)
            threads.emplace_back([&, i] {
                for (int round = 0; round < 20; ++round)
                    wrong += picture::decode(paths[i]).image != expected[i];
            });
        for (std::thread &thread : threads)
            thread.join();
        QCOMPARE(wrong.load(), 0);
    }
};

QTEST_GUILESS_MAIN(TestPictureDecoder)
#include "tst_picture_decoder.moc"
