// AVIF and JPEG XL files for bright screens, read back by the formats' own libraries and turned
// into light by the formula of SMPTE ST 2084, inverted here.

#include "picture_header.h"
#include "picture_reader.h"
#include "picture_writer.h"

#include <QBuffer>
#include <QColorSpace>
#include <QTemporaryDir>
#include <QtTest>

#include <array>
#include <cmath>
#include <memory>
#include <vector>

#ifdef VESK_WITH_AVIF
#include <avif/avif.h>
#endif
#ifdef VESK_WITH_JXL
#include <jxl/decode.h>
#endif

class TestBrightFiles : public QObject
{
    Q_OBJECT

private slots:
    void write_avif_holdsTheLight_data() { sizes(); }
    void write_avif_holdsTheLight();
    void write_jxl_holdsTheLight_data() { sizes(); }
    void write_jxl_holdsTheLight();
    void write_andReadAgain_isTheSameLight_data() { sizes(); }
    void write_andReadAgain_isTheSameLight();
    void write_toADeviceThatIsFull_saysSo();
    void header_namesTheQuantizer();

private:
    static void sizes();
};

namespace {

/// What a file holds.
struct Decoded
{
    bool isSound = false;
    QSize size;
    int bits = 0;
    int primaries = 0;
    int transfer = 0;
    bool hasExif = false;
    bool hasXmp = false;
    std::vector<double> levels; ///< red, green and blue in turn, 0..1
};

/// White is 1; a soft ramp of red over columns and of brightness over rows, up to 10 times white.
QImage softLight(QSize size)
{
    QImage light(size, QImage::Format_RGBX32FPx4);
    for (int y = 0; y < size.height(); ++y) {
        auto *pixel = reinterpret_cast<float *>(light.scanLine(y));
        for (int x = 0; x < size.width(); ++x, pixel += 4) {
            const auto bright = float(std::exp2(-3.0 + 6.3 * (y + 0.5) / size.height()));
            pixel[0] = bright * float(0.6 + 0.4 * (x + 0.5) / size.width());
            pixel[1] = bright * 0.8F;
            pixel[2] = bright * 0.7F;
            pixel[3] = 1.0F;
        }
    }
    light.setColorSpace(QColorSpace(QColorSpace::SRgbLinear));
    return light;
}

QByteArray written(const QImage &light, PictureFormat format)
{
    WriteOptions options;
    options.mark = ResultMark{"program", "1", {"a.jpg"}, "fusion", {}};
    options.metadata.exif.setText(ExifTags::Directory::Picture, ExifTags::Make, "Maker");
    QByteArray file;
    QBuffer device(&file);
    device.open(QIODevice::ReadWrite);
    const WriteResult result = picture::write(light, device, format, options);
    if (!result.reason.isEmpty())
        qWarning("%s", qPrintable(result.reason));
    return file;
}

/// In candelas per square metre: SMPTE ST 2084, equation 4.
[[maybe_unused]] double luminanceOf(double level)
{
    const double power = std::pow(level, 1.0 / 78.84375);
    return 10000.0 * std::pow(std::max(power - 0.8359375, 0.0) / (18.8515625 - 18.6875 * power),
                              1.0 / 0.1593017578125);
}

/// Stops rms of the luminance, white at 203 cd/m2; weights of BT.2020.
[[maybe_unused]] double distance(const Decoded &decoded, const QImage &light)
{
    double sum = 0.0;
    const double *level = decoded.levels.data();
    for (int y = 0; y < light.height(); ++y) {
        const auto *pixel = reinterpret_cast<const float *>(light.constScanLine(y));
        for (int x = 0; x < light.width(); ++x, pixel += 4, level += 3) {
            const double shown = 0.2627 * luminanceOf(level[0]) + 0.6780 * luminanceOf(level[1]) +
                                 0.0593 * luminanceOf(level[2]);
            const double truth = 203.0 * (0.2126 * double(pixel[0]) + 0.7152 * double(pixel[1]) +
                                          0.0722 * double(pixel[2]));
            sum += std::pow(std::log2(shown / truth), 2.0);
        }
    }
    return std::sqrt(sum / (double(light.width()) * light.height()));
}

[[maybe_unused]] void requireLight(const Decoded &decoded, const QImage &light)
{
    QVERIFY(decoded.isSound);
    QCOMPARE(decoded.size, light.size());
    QCOMPARE(decoded.bits, 10);
    QCOMPARE(decoded.primaries, 9);
    QCOMPARE(decoded.transfer, 16);
    QVERIFY(decoded.hasExif);
    QVERIFY(decoded.hasXmp);
    const double stops = distance(decoded, light);
    qInfo("%.4f stops rms", stops);
    QVERIFY(stops < 0.03);
}

/// Stops rms over all channels of two pictures of linear light in one space.
double distanceOf(const QImage &one, const QImage &other)
{
    double sum = 0.0;
    for (int y = 0; y < one.height(); ++y) {
        const auto *left = reinterpret_cast<const float *>(one.constScanLine(y));
        const auto *right = reinterpret_cast<const float *>(other.constScanLine(y));
        for (int i = 0; i < 4 * one.width(); ++i) {
            if (i % 4 != 3)
                sum += std::pow(std::log2(double(left[i]) / double(right[i])), 2.0);
        }
    }
    return std::sqrt(sum / (3.0 * one.width() * one.height()));
}

#ifdef VESK_WITH_AVIF

Decoded readAvif(const QByteArray &file)
{
    const std::unique_ptr<avifDecoder, decltype(&avifDecoderDestroy)> decoder(avifDecoderCreate(),
                                                                              &avifDecoderDestroy);
    Decoded decoded;
    avifDecoderSetIOMemory(decoder.get(), reinterpret_cast<const uint8_t *>(file.constData()),
                           size_t(file.size()));
    if (avifDecoderParse(decoder.get()) != AVIF_RESULT_OK ||
        avifDecoderNextImage(decoder.get()) != AVIF_RESULT_OK)
        return decoded;
    const avifImage &image = *decoder->image;
    decoded.size = QSize(int(image.width), int(image.height));
    decoded.bits = int(image.depth);
    decoded.primaries = int(image.colorPrimaries);
    decoded.transfer = int(image.transferCharacteristics);
    decoded.hasExif = image.exif.size > 0;
    decoded.hasXmp = image.xmp.size > 0;
    decoded.isSound = image.matrixCoefficients == 9;
    avifRGBImage words;
    avifRGBImageSetDefaults(&words, &image);
    words.depth = 16;
    words.format = AVIF_RGB_FORMAT_RGB;
    std::vector<quint16> samples(3 * size_t(image.width) * image.height);
    words.pixels = reinterpret_cast<uint8_t *>(samples.data());
    words.rowBytes = 6 * image.width;
    decoded.isSound &= avifImageYUVToRGB(&image, &words) == AVIF_RESULT_OK;
    for (const quint16 sample : samples)
        decoded.levels.push_back(sample / 65535.0);
    return decoded;
}

#endif

#ifdef VESK_WITH_JXL

Decoded readJxl(const QByteArray &file)
{
    const std::unique_ptr<JxlDecoder, decltype(&JxlDecoderDestroy)> decoder(
        JxlDecoderCreate(nullptr), &JxlDecoderDestroy);
    JxlDecoderSubscribeEvents(decoder.get(), JXL_DEC_BASIC_INFO | JXL_DEC_COLOR_ENCODING |
                                                 JXL_DEC_BOX | JXL_DEC_FULL_IMAGE);
    JxlDecoderSetInput(decoder.get(), reinterpret_cast<const uint8_t *>(file.constData()),
                       size_t(file.size()));
    JxlDecoderCloseInput(decoder.get());
    Decoded decoded;
    JxlBasicInfo info = {};
    JxlColorEncoding colours = {};
    const JxlPixelFormat layout = {3, JXL_TYPE_FLOAT, JXL_NATIVE_ENDIAN, 0};
    std::vector<float> samples;
    while (true) {
        switch (JxlDecoderProcessInput(decoder.get())) {
        case JXL_DEC_BASIC_INFO:
            JxlDecoderGetBasicInfo(decoder.get(), &info);
            decoded.size = QSize(int(info.xsize), int(info.ysize));
            decoded.bits = int(info.bits_per_sample);
            samples.resize(3 * size_t(info.xsize) * info.ysize);
            break;
        case JXL_DEC_COLOR_ENCODING:
            JxlDecoderGetColorAsEncodedProfile(decoder.get(), &layout,
                                               JXL_COLOR_PROFILE_TARGET_DATA, &colours);
            decoded.primaries = int(colours.primaries);
            decoded.transfer = int(colours.transfer_function);
            break;
        case JXL_DEC_BOX: {
            JxlBoxType type = {};
            JxlDecoderGetBoxType(decoder.get(), type, JXL_FALSE);
            decoded.hasExif |= QByteArray(type, 4) == "Exif";
            decoded.hasXmp |= QByteArray(type, 4) == "xml ";
            break;
        }
        case JXL_DEC_NEED_IMAGE_OUT_BUFFER:
            JxlDecoderSetImageOutBuffer(decoder.get(), &layout, samples.data(),
                                        samples.size() * sizeof(float));
            break;
        case JXL_DEC_FULL_IMAGE:
            decoded.isSound = true;
            break;
        default:
            decoded.levels.assign(samples.begin(), samples.end());
            return decoded;
        }
    }
}

#endif

} // namespace

void TestBrightFiles::sizes()
{
    QTest::addColumn<QSize>("size");
    for (const QSize size : {QSize(16, 16), QSize(67, 41), QSize(300, 200)})
        QTest::addRow("%d x %d", size.width(), size.height()) << size;
}

void TestBrightFiles::write_avif_holdsTheLight()
{
#ifdef VESK_WITH_AVIF
    QFETCH(QSize, size);
    const QImage light = softLight(size);
    requireLight(readAvif(written(light, PictureFormat::Avif)), light);
#else
    QVERIFY(!picture::isWritable(PictureFormat::Avif));
    QTest::ignoreMessage(QtWarningMsg, "this program was built without AVIF");
    QVERIFY(written(softLight({4, 4}), PictureFormat::Avif).isEmpty());
#endif
}

void TestBrightFiles::write_jxl_holdsTheLight()
{
#ifdef VESK_WITH_JXL
    QFETCH(QSize, size);
    const QImage light = softLight(size);
    requireLight(readJxl(written(light, PictureFormat::JpegXl)), light);
#else
    QVERIFY(!picture::isWritable(PictureFormat::JpegXl));
    QTest::ignoreMessage(QtWarningMsg, "this program was built without JPEG XL");
    QVERIFY(written(softLight({4, 4}), PictureFormat::JpegXl).isEmpty());
#endif
}

void TestBrightFiles::write_andReadAgain_isTheSameLight()
{
    QFETCH(QSize, size);
    const QTemporaryDir folder;
    const QImage light = softLight(size);
    ReadOptions floats;
    floats.light = ReadOptions::Light::Floats;
    for (const PictureFormat format : {PictureFormat::Avif, PictureFormat::JpegXl}) {
        if (!picture::isWritable(format))
            continue;
        QFile file(folder.filePath(QStringLiteral("light")));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(written(light, format));
        file.close();
        DecodedPicture read = picture::read(file.fileName(), floats);
        QVERIFY2(read.error == DecodeError::None, qPrintable(read.reason));
        QCOMPARE(read.whiteLuminance, 203.0);
        read.image.convertToColorSpace(light.colorSpace());
        const double stops = distanceOf(read.image, light);
        qInfo("%.4f stops rms", stops);
        QVERIFY(stops < 0.03);
    }
}

void TestBrightFiles::write_toADeviceThatIsFull_saysSo()
{
    QByteArray file;
    QBuffer device(&file);
    device.open(QIODevice::ReadOnly);
    for (const PictureFormat format :
         {PictureFormat::Avif, PictureFormat::JpegXl, PictureFormat::Jpeg}) {
        if (!picture::isWritable(format))
            continue;
        WriteOptions options;
        options.gainMap.picture = QImage(8, 8, QImage::Format_RGB32);
        options.gainMap.picture.fill(Qt::black);
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression("ReadOnly device"));
        QVERIFY(!picture::write(softLight({16, 16}), device, format, options).reason.isEmpty());
    }
}

void TestBrightFiles::header_namesTheQuantizer()
{
    for (const auto format : {PictureFormat::Avif, PictureFormat::JpegXl}) {
        if (!picture::isWritable(format))
            continue;
        QByteArray file = written(softLight({16, 16}), format);
        QBuffer device(&file);
        QVERIFY(device.open(QIODevice::ReadOnly));
        const auto header = picture::headerOf(device);
        QVERIFY(header);
        QCOMPARE(header->colours, QStringLiteral("Rec. 2020 PQ"));
        QCOMPARE(header->bitsPerSample, 10);
        QCOMPARE(device.pos(), 0);
    }
}

QTEST_GUILESS_MAIN(TestBrightFiles)
#include "tst_bright_files.moc"
