#include "exif_block.h"

#include "exif_orientation.h"
#include "picture_decoder.h"
#include "picture_makers.h"

#include <QtEndian>
#include <QtTest>

#include <zlib.h>

using namespace makers;

namespace {

/// A block that says nothing but the orientation, and then some bytes to make it longer.
QByteArray block(int orientation, int extraBytes = 0)
{
    QByteArray bytes = QByteArray::fromHex("49492a0008000000010012010300010000000000000000000000");
    bytes[18] = static_cast<char>(orientation);
    return bytes + QByteArray(extraBytes, 'x');
}

QByteArray bigEndian(quint32 number, int bytes)
{
    QByteArray word(4, '\0');
    qToBigEndian(number, word.data());
    return word.right(bytes);
}

QByteArray segment(int marker, const QByteArray &content)
{
    return QByteArray("\xFF") + static_cast<char>(marker) +
           bigEndian(quint32(content.size()) + 2, 2) + content;
}

QByteArray exifSegment(const QByteArray &exif)
{
    return segment(0xE1, QByteArray("Exif\0\0", 6) + exif);
}

QByteArray pngChunk(const QByteArray &name, const QByteArray &content)
{
    const QByteArray body = name + content;
    const auto sum = crc32(0, reinterpret_cast<const Bytef *>(body.constData()), uInt(body.size()));
    return bigEndian(quint32(content.size()), 4) + body + bigEndian(quint32(sum), 4);
}

/// The block behind the header, or behind the pixels.
QByteArray png(const QImage &picture, const QByteArray &exif, bool isLast = false)
{
    constexpr int kHeaderBytes = 8 + 25;
    constexpr int kEndBytes = 12;
    QByteArray file = encoded(picture, "png");
    return file.insert(isLast ? file.size() - kEndBytes : kHeaderBytes, pngChunk("eXIf", exif));
}

QByteArray webpChunk(const QByteArray &name, const QByteArray &content)
{
    QByteArray length(4, '\0');
    qToLittleEndian(quint32(content.size()), length.data());
    return name + length + content + QByteArray(content.size() % 2, '\0');
}

/// In the form with a header of its own, which alone can hold a block.
QByteArray webp(const QImage &picture, const QByteArray &exif)
{
    const QByteArray simple = encoded(picture, "webp");
    const int width = picture.width() - 1;
    const int height = picture.height() - 1;
    QByteArray header(10, '\0');
    header[0] = 8; // has EXIF
    header[4] = static_cast<char>(width & 255);
    header[5] = static_cast<char>(width >> 8);
    header[7] = static_cast<char>(height & 255);
    header[8] = static_cast<char>(height >> 8);
    const QByteArray content =
        "WEBP" + webpChunk("VP8X", header) + simple.mid(12) + webpChunk("EXIF", exif);
    return webpChunk("RIFF", content);
}

QByteArray blockIn(QByteArray file)
{
    QBuffer buffer(&file);
    buffer.open(QIODevice::ReadOnly);
    buffer.seek(3);
    const QByteArray found = exif::blockIn(buffer);
    return buffer.pos() == 0 ? found : QByteArray("the file is not at its start");
}

} // namespace

class TestExifBlock : public QObject
{
    Q_OBJECT

private:
    const Folder folder;

private slots:
    void initTestCase() { QVERIFY(folder.isValid()); }

    void blockIn_jpegWithAnySegmentBefore_findsIt_data()
    {
        QTest::addColumn<int>("marker");
        for (int marker = 0xE0; marker <= 0xEF; ++marker)
            QTest::addRow("APP%d", marker - 0xE0) << marker;
        QTest::newRow("comment") << 0xFE;
        QTest::newRow("quantisation tables") << 0xDB;
    }

    void blockIn_jpegWithAnySegmentBefore_findsIt()
    {
        QFETCH(int, marker);
        const QByteArray before = segment(marker, QByteArray(70, 'y'));
        QCOMPARE(blockIn("\xFF\xD8" + before + exifSegment(block(6)) + "\xFF\xDA"), block(6));
        QCOMPARE(blockIn("\xFF\xD8" + exifSegment(block(6)) + before + "\xFF\xDA"), block(6));
    }

    void blockIn_jpegWithStrayAndFillBytes_findsIt()
    {
        const QByteArray stray("\0\0\xFF\xFF", 4);
        QCOMPARE(blockIn("\xFF\xD8" + stray + exifSegment(block(6))), block(6));
    }

    void blockIn_jpeg_looksNotBehindTheScan()
    {
        QCOMPARE(blockIn("\xFF\xD8" + segment(0xDA, "...") + exifSegment(block(6))), QByteArray());
        QCOMPARE(blockIn("\xFF\xD8\xFF\xD9" + exifSegment(block(6))), QByteArray());
    }

    void blockIn_jpegWithOtherDataInTheSameKindOfSegment_findsIt()
    {
        const QByteArray xmp = segment(0xE1, QByteArray("http://ns.adobe.com/xap/1.0/\0<x/>", 34));
        QCOMPARE(blockIn("\xFF\xD8" + xmp + exifSegment(block(3))), block(3));
        QCOMPARE(blockIn("\xFF\xD8" + xmp), QByteArray());
    }

    void blockIn_png_findsItAnywhere()
    {
        QCOMPARE(blockIn(png(scene(5, 4), block(6))), block(6));
        QCOMPARE(blockIn(png(scene(5, 4), block(6), true)), block(6));
        QCOMPARE(blockIn(encoded(scene(5, 4), "png")), QByteArray());
    }

    void blockIn_webp_findsItWithAndWithoutSignature()
    {
        QCOMPARE(blockIn(webp(scene(5, 4), block(8))), block(8));
        QCOMPARE(blockIn(webp(scene(5, 4), QByteArray("Exif\0\0", 6) + block(8))), block(8));
        QCOMPARE(blockIn(encoded(scene(5, 4), "webp")), QByteArray());
    }

    void blockIn_otherFiles_isEmpty()
    {
        for (const QByteArray &file :
             {QByteArray(), QByteArray("II*\0\x08\0\0\0", 8), QByteArray("Just a letter.")})
            QCOMPARE(blockIn(file), QByteArray());
    }

    void blockIn_cutOrDamagedFile_isEmptyOrAsLongAsTheFileSays_data()
    {
        QTest::addColumn<QByteArray>("file");
        QTest::newRow("jpeg") << "\xFF\xD8" + segment(0xE0, "JFIF") + exifSegment(block(6, 40));
        QTest::newRow("png") << png(scene(5, 4), block(6, 40));
        QTest::newRow("webp") << webp(scene(5, 4), block(6, 40));
    }

    void blockIn_cutOrDamagedFile_isEmptyOrAsLongAsTheFileSays()
    {
        QFETCH(QByteArray, file);
        for (int length = 0; length < file.size(); ++length) {
            const QByteArray found = blockIn(file.left(length));
            QVERIFY(found.isEmpty() || found == block(6, 40));
        }
        for (int i = 0; i < file.size(); ++i) {
            QByteArray damaged = file;
            damaged[i] = '\xFF';
            QVERIFY(blockIn(damaged).size() <= file.size());
        }
    }

    void orientation_numberOutOfRangeOrDamaged_isNone()
    {
        QCOMPARE(exif::orientation({}), QImageIOHandler::TransformationNone);
        QCOMPARE(exif::orientation("rubbish"), QImageIOHandler::TransformationNone);
        QCOMPARE(exif::orientation(block(0)), QImageIOHandler::TransformationNone);
        QCOMPARE(exif::orientation(block(9)), QImageIOHandler::TransformationNone);
        QCOMPARE(exif::orientation(block(6)), QImageIOHandler::TransformationRotate90);
    }

    /// Where the stored picture's first pixel comes to lie, by orientation.
    void decode_pngAndWebp_areUpright_data()
    {
        QTest::addColumn<int>("orientation");
        QTest::addColumn<QPoint>("first");
        const int right = 30;
        const int bottom = 19;
        QTest::newRow("1") << 1 << QPoint(0, 0);
        QTest::newRow("2, mirrored") << 2 << QPoint(right, 0);
        QTest::newRow("3, upside down") << 3 << QPoint(right, bottom);
        QTest::newRow("4, mirrored upside down") << 4 << QPoint(0, bottom);
        QTest::newRow("5, over the diagonal") << 5 << QPoint(0, 0);
        QTest::newRow("6, clockwise") << 6 << QPoint(bottom, 0);
        QTest::newRow("7, over the other diagonal") << 7 << QPoint(bottom, right);
        QTest::newRow("8, counter-clockwise") << 8 << QPoint(0, right);
    }

    void decode_pngAndWebp_areUpright()
    {
        QFETCH(int, orientation);
        QFETCH(QPoint, first);
        QImage stored(31, 20, QImage::Format_RGB32);
        stored.fill(Qt::black);
        for (int i = 0; i < 16; ++i)
            stored.setPixel(i % 4, i / 4, qRgb(250, 250, 250)); // large enough for WebP
        const QSize size = orientation >= 5 ? stored.size().transposed() : stored.size();
        for (const QByteArray &file :
             {png(stored, block(orientation)), png(stored, block(orientation), true),
              webp(stored, block(orientation)),
              png(stored.convertToFormat(QImage::Format_Mono), block(orientation))}) {
            const DecodedPicture decoded =
                picture::decode(folder.save(QStringLiteral("turned"), file));
            QCOMPARE(decoded.reason, QString());
            QCOMPARE(decoded.image.size(), size);
            QVERIFY(qRed(decoded.image.pixel(first)) > 128);
            const QPoint opposite(size.width() - 1 - first.x(), size.height() - 1 - first.y());
            QVERIFY(qRed(decoded.image.pixel(opposite)) < 128);
        }
    }

    void decode_jpegWhoseBlockStandsBehindOtherSegments_isUpright()
    {
        const QByteArray jpeg = encoded(scene(31, 20), "jpeg");
        const QByteArray file = jpeg.left(2) + segment(0xE7, "abc") + segment(0xEF, "def") +
                                exifSegment(block(6)) + jpeg.mid(2);
        QCOMPARE(picture::decode(folder.save(QStringLiteral("behind.jpg"), file)).image.size(),
                 QSize(20, 31));
    }
};

QTEST_GUILESS_MAIN(TestExifBlock)
#include "tst_exif_block.moc"
