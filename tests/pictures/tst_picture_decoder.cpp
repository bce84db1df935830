#include "picture_decoder.h"

#include "UnprivilegedUser.h"

#include <QBuffer>
#include <QColorSpace>
#include <QFile>
#include <QImageReader>
#include <QImageWriter>
#include <QTemporaryDir>
#include <QtTest>

#include <atomic>
#include <cstdio>
#include <thread>
#include <vector>

#include <jpeglib.h>
#include <tiffio.h>

#include <sys/stat.h>

namespace {

std::atomic<int> libraryMessages = 0;

QString pictureFolder()
{
    return qEnvironmentVariable("VESK_TEST_PICTURES");
}

/// Smooth enough for JPEG, different everywhere, no symmetry.
QImage scene(int width, int height, QImage::Format format = QImage::Format_RGB32)
{
    QImage picture(width, height, QImage::Format_RGB32);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x)
            picture.setPixel(x, y, qRgb(x * 255 / width, y * 255 / height, (x * y) % 97));
    }
    return picture.convertToFormat(format);
}

QByteArray encoded(const QImage &picture, const char *format, int compression = -1)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    QImageWriter writer(&buffer, format);
    if (compression >= 0)
        writer.setCompression(compression);
    return writer.write(picture) ? buffer.data() : QByteArray();
}

QByteArray progressiveJpeg(const QImage &picture)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    QImageWriter writer(&buffer, "jpeg");
    writer.setProgressiveScanWrite(true);
    return writer.write(picture) ? buffer.data() : QByteArray();
}

/// The segment by which a camera tells the orientation, for after the first two bytes.
QByteArray orientationSegment(int orientation)
{
    QByteArray segment = QByteArray::fromHex("ffe1002245786966000049492a0008000000"
                                             "0100120103000100000000000000"
                                             "00000000");
    segment[28] = static_cast<char>(orientation);
    return segment;
}

QByteArray withOrientation(const QByteArray &jpeg, int orientation)
{
    return jpeg.left(2) + orientationSegment(orientation) + jpeg.mid(2);
}

QByteArray inkJpeg(int width, int height)
{
    jpeg_compress_struct codec = {};
    jpeg_error_mgr errors;
    codec.err = jpeg_std_error(&errors);
    jpeg_create_compress(&codec);
    unsigned char *bytes = nullptr;
    unsigned long length = 0;
    jpeg_mem_dest(&codec, &bytes, &length);
    codec.image_width = static_cast<JDIMENSION>(width);
    codec.image_height = static_cast<JDIMENSION>(height);
    codec.input_components = 4;
    codec.in_color_space = JCS_CMYK;
    jpeg_set_defaults(&codec);
    jpeg_start_compress(&codec, TRUE);
    std::vector<JSAMPLE> row(static_cast<size_t>(width) * 4);
    while (codec.next_scanline < codec.image_height) {
        for (size_t i = 0; i < row.size(); ++i)
            row[i] = static_cast<JSAMPLE>(i * 7 + codec.next_scanline * 3);
        JSAMPROW rows = row.data();
        jpeg_write_scanlines(&codec, &rows, 1);
    }
    jpeg_finish_compress(&codec);
    const QByteArray file(reinterpret_cast<char *>(bytes), static_cast<int>(length));
    jpeg_destroy_compress(&codec);
    std::free(bytes);
    return file;
}

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

/// As the toolkit's own reader gives it.
QImage byToolkit(const QString &path)
{
    QImageReader reader(path);
    reader.setDecideFormatFromContent(true);
    reader.setAutoTransform(true);
    return reader.read();
}

} // namespace

class TestPictureDecoder : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir folder;

    QString save(const QString &name, const QByteArray &bytes)
    {
        const QString path = folder.filePath(name);
        QFile file(path);
        const bool isSaved =
            file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.flush();
        return isSaved ? path : QString();
    }

    DecodeError errorOf(const QByteArray &bytes)
    {
        const DecodedPicture decoded = decodePicture(save(QStringLiteral("tried"), bytes));
        // An error has a reason and no picture, a success a picture and no reason.
        if (decoded.image.isNull() != (decoded.error != DecodeError::None) ||
            decoded.image.isNull() == decoded.reason.isEmpty())
            qFatal("picture, error and reason contradict each other");
        return decoded.error;
    }

private slots:
    void initTestCase() { QVERIFY(folder.isValid()); }

    void decode_jpeg_equalsToolkit_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        const QImage colour = scene(61, 37);
        for (int orientation = 1; orientation <= 8; ++orientation) {
            const auto rowName = [&](const char *kind) {
                return QStringLiteral("%1, orientation %2")
                    .arg(QLatin1String(kind))
                    .arg(orientation);
            };
            QTest::newRow(qPrintable(rowName("colour")))
                << withOrientation(encoded(colour, "jpeg"), orientation);
            QTest::newRow(qPrintable(rowName("grey"))) << withOrientation(
                encoded(scene(35, 64, QImage::Format_Grayscale8), "jpeg"), orientation);
            QTest::newRow(qPrintable(rowName("inks")))
                << withOrientation(inkJpeg(33, 17), orientation);
        }
        QTest::newRow("orientation out of range") << withOrientation(encoded(colour, "jpeg"), 9);
        QTest::newRow("progressive") << progressiveJpeg(colour);
        QTest::newRow("best quality") << encoded(colour, "jpeg", 0);
        QTest::newRow("one pixel") << encoded(scene(1, 1), "jpeg");
        QTest::newRow("one pixel on its side") << withOrientation(encoded(scene(1, 1), "jpeg"), 6);
        QTest::newRow("one row on its side") << withOrientation(encoded(scene(50, 1), "jpeg"), 8);
        QTest::newRow("one column on its side")
            << withOrientation(encoded(scene(1, 50), "jpeg"), 5);
        QTest::newRow("rows of whole strips") << withOrientation(encoded(scene(16, 32), "jpeg"), 7);
    }

    void decode_jpeg_equalsToolkit()
    {
        QFETCH(QByteArray, bytes);
        const QString path = save(QStringLiteral("picture.jpg"), bytes);
        const QImage expected = byToolkit(path);
        QVERIFY(!expected.isNull());
        const DecodedPicture decoded = decodePicture(path);
        QCOMPARE(int(decoded.error), int(DecodeError::None));
        QCOMPARE(decoded.image.format(), expected.format());
        QCOMPARE(decoded.image, expected);
    }

    void decode_jpeg_keepsColourProfileAndResolution()
    {
        QImage picture = scene(8, 8);
        picture.setColorSpace(QColorSpace::AdobeRgb);
        picture.setDotsPerMeterX(11811);
        picture.setDotsPerMeterY(5906);
        const QString path = save(QStringLiteral("profile.jpg"), encoded(picture, "jpeg"));
        const QImage expected = byToolkit(path);
        const QImage decoded = decodePicture(path).image;
        QVERIFY(expected.colorSpace().isValid());
        QCOMPARE(decoded.colorSpace(), expected.colorSpace());
        QCOMPARE(decoded.dotsPerMeterX(), expected.dotsPerMeterX());
        QCOMPARE(decoded.dotsPerMeterY(), expected.dotsPerMeterY());
    }

    void decode_otherFormats_equalToolkit_data()
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

    void decode_otherFormats_equalToolkit()
    {
        QFETCH(QByteArray, bytes);
        QVERIFY2(!bytes.isEmpty(), "the toolkit cannot write this format here");
        const QString path = save(QStringLiteral("picture"), bytes);
        const DecodedPicture decoded = decodePicture(path);
        QCOMPARE(decoded.reason, QString());
        QCOMPARE(decoded.image, byToolkit(path));
        QCOMPARE(decoded.image.size(), QSize(61, 37));
    }

    void decode_wrongSuffix_goesByContent()
    {
        const QImage picture = scene(20, 10);
        for (const char *format : {"png", "jpeg", "tiff", "bmp"}) {
            const QString path = save(QStringLiteral("picture.gif"), encoded(picture, format));
            QCOMPARE(decodePicture(path).image.size(), picture.size());
        }
    }

    void decode_truncated_isDamaged_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<int>("shortestCut"); // bytes at the end that readers do without
        const QImage colour = scene(61, 37);
        const QImage indexed = scene(61, 37, QImage::Format_Indexed8);
        QTest::newRow("jpeg") << encoded(colour, "jpeg") << 1;
        QTest::newRow("jpeg, progressive") << progressiveJpeg(colour) << 1;
        QTest::newRow("jpeg, grey")
            << encoded(scene(61, 37, QImage::Format_Grayscale8), "jpeg") << 1;
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

    void decode_truncatedJpeg_printsNothing()
    {
        const QByteArray bytes = encoded(scene(61, 37), "jpeg");
        const QtMessageHandler handler = qInstallMessageHandler(
            [](QtMsgType, const QMessageLogContext &, const QString &) { ++libraryMessages; });
        libraryMessages = 0;
        const DecodeError error = errorOf(bytes.left(bytes.size() / 2));
        qInstallMessageHandler(handler);
        QCOMPARE(int(error), int(DecodeError::Damaged));
        QCOMPARE(libraryMessages.load(), 0);
    }

    void decode_jpegWithBrokenScan_isDamaged()
    {
        QByteArray bytes = encoded(scene(200, 200), "jpeg");
        for (int i = bytes.size() / 2; i < bytes.size() / 2 + 60; ++i)
            bytes[i] = '\xFF';
        QCOMPARE(int(errorOf(bytes)), int(DecodeError::Damaged));
    }

    void decode_jpegWithHarmlessOddities_isAPicture()
    {
        const QByteArray bytes = encoded(scene(61, 37), "jpeg");
        const QByteArray padded = bytes.left(2) + QByteArray("\0\0\0", 3) + bytes.mid(2);
        QCOMPARE(int(errorOf(bytes + "appended by a phone")), int(DecodeError::None));
        QCOMPARE(
            int(errorOf(bytes.left(2) + "\xFF\xFE" + QByteArray("\0\x04hi", 4) + bytes.mid(2))),
            int(DecodeError::None));
        // Stray bytes between segments are skipped with a warning; the third byte stays a marker.
        const int secondSegment = 2 + 2 + 16;
        QCOMPARE(int(errorOf(bytes.left(secondSegment) + QByteArray("\0\0", 2) +
                             bytes.mid(secondSegment))),
                 int(DecodeError::None));
    }

    void decode_jpegHeaderOnly_isDamaged()
    {
        QCOMPARE(int(errorOf("\xFF\xD8\xFF")), int(DecodeError::Damaged));
        QCOMPARE(int(errorOf(QByteArray("\xFF\xD8\xFF") + "no such thing at all")),
                 int(DecodeError::Damaged));
    }

    void decode_missingFile_saysSo()
    {
        QCOMPARE(int(decodePicture(folder.filePath(QStringLiteral("none.png"))).error),
                 int(DecodeError::Missing));
        QCOMPARE(int(decodePicture(QString()).error), int(DecodeError::Missing));
        QCOMPARE(decodePicture(QString()).reason, QStringLiteral("no such file"));
    }

    void decode_directory_saysSo()
    {
        QCOMPARE(int(decodePicture(folder.path()).error), int(DecodeError::Directory));
    }

    void decode_pipe_doesNotBlock()
    {
        const QString path = folder.filePath(QStringLiteral("pipe"));
        QCOMPARE(::mkfifo(QFile::encodeName(path).constData(), 0600), 0);
        QCOMPARE(int(decodePicture(path).error), int(DecodeError::NotRegularFile));
    }

    void decode_device_saysSo()
    {
        QCOMPARE(int(decodePicture(QStringLiteral("/dev/zero")).error),
                 int(DecodeError::NotRegularFile));
    }

    void decode_unreadableFile_saysSo()
    {
        const QString path = save(QStringLiteral("secret.png"), encoded(scene(4, 4), "png"));
        QVERIFY(QFile::setPermissions(path, {}));
        const UnprivilegedUser user({folder.path(), path});
        if (!user.canReach(path))
            QSKIP("root cannot step down here");
        QCOMPARE(int(decodePicture(path).error), int(DecodeError::NoPermission));
    }

    void decode_emptyFile_saysSo() { QCOMPARE(int(errorOf({})), int(DecodeError::Empty)); }

    void decode_noPicture_saysSo()
    {
        QCOMPARE(int(errorOf("Just a letter to a friend.\n")), int(DecodeError::NotAPicture));
        QCOMPARE(int(errorOf(QByteArray(1000, '\0'))), int(DecodeError::NotAPicture));
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
        const QString path = save(QStringLiteral("limit"), bytes);
        QCOMPARE(int(decodePicture(path, 61 * 37).error), int(DecodeError::None));
        const DecodedPicture refused = decodePicture(path, 61 * 37 - 1);
        QCOMPARE(int(refused.error), int(DecodeError::TooLarge));
        QVERIFY(refused.reason.contains(QStringLiteral("61 x 37")));
    }

    void decode_gifOnALargerScreen_isLimitedByTheScreen()
    {
        QByteArray bytes = gif(4, 3);
        bytes[7] = char(4); // 4 + 4 * 256 columns
        const QString path = save(QStringLiteral("screen"), bytes);
        const DecodedPicture refused = decodePicture(path, 1028 * 3 - 1);
        QCOMPARE(int(refused.error), int(DecodeError::TooLarge));
        QVERIFY(refused.reason.contains(QStringLiteral("1028 x 3")));
        QCOMPARE(int(decodePicture(path, 1028 * 3).error), int(DecodeError::None));
        bytes[6] = bytes[7] = 0; // as wide as needed
        const QString endless = save(QStringLiteral("endless"), bytes);
        QCOMPARE(int(decodePicture(endless, 65535 * 3 - 1).error), int(DecodeError::TooLarge));
    }

    void decode_hugeHeaderOfSmallFile_isRefused()
    {
        // 60,000 x 60,000 pixels are 14 GB: refused although the file ends after the header.
        QByteArray bytes = encoded(scene(61, 37), "jpeg");
        const int frame = bytes.indexOf(QByteArray("\xFF\xC0\0\x11\x08", 5));
        QVERIFY(frame > 0);
        for (const int at : {frame + 5, frame + 7}) {
            bytes[at] = static_cast<char>(60000 >> 8);
            bytes[at + 1] = static_cast<char>(60000 & 255);
        }
        QCOMPARE(int(errorOf(bytes)), int(DecodeError::TooLarge));
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
        const DecodedPicture decoded = decodePicture(save(QStringLiteral("palette"), bytes));
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
            paths.push_back(
                save(QStringLiteral("thread%1").arg(i), encoded(scene(40 + i, 30 + i), format)));
            expected.push_back(byToolkit(paths.back()));
        }
        std::atomic<int> wrong = 0;
        std::vector<std::thread> threads;
        for (size_t i = 0; i < paths.size(); ++i)
            threads.emplace_back([&, i] {
                for (int round = 0; round < 20; ++round)
                    wrong += decodePicture(paths[i]).image != expected[i];
            });
        for (std::thread &thread : threads)
            thread.join();
        QCOMPARE(wrong.load(), 0);
    }

    void decode_photographOnItsSide_isUprightAndEqualsToolkit()
    {
        const QString path = pictureFolder() + QStringLiteral("/IMG_3871.jpeg");
        if (!QFile::exists(path))
            QSKIP("the photographs are not here");
        const DecodedPicture decoded = decodePicture(path);
        QCOMPARE(decoded.reason, QString());
        QCOMPARE(decoded.image.size(), QSize(4032, 3024));
        QVERIFY(decoded.image == byToolkit(path));
    }
};

QTEST_GUILESS_MAIN(TestPictureDecoder)
#include "tst_picture_decoder.moc"
