// Files that hold light, read back by the formats' own libraries, or by a reader of the test's own.

#include "picture_writer.h"

#include <QColorSpace>
#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

#include <array>
#include <cmath>
#include <vector>

#include <tiffio.h>

#ifdef VESK_WITH_OPENEXR
#include <ImfArray.h>
#include <ImfChannelList.h>
#include <ImfFrameBuffer.h>
#include <ImfInputFile.h>
#include <ImfStandardAttributes.h>
#endif

class TestLightFiles : public QObject
{
    Q_OBJECT

private slots:
    void openExr_halves_areWithinTheirPrecision_data();
    void openExr_halves_areWithinTheirPrecision();
    void openExr_floats_areExact();
    void openExr_header_tellsColoursAndExposure();
    void openExr_beyondHalves_isTheLargestHalf();
    void radianceHdr_anyWidth_isWithinItsPrecision_data();
    void radianceHdr_anyWidth_isWithinItsPrecision();
    void radianceHdr_header_tellsColoursAndExposure();
    void tiff_floats_areExact();
    void levels_toLight_areLinear();

private:
    static QImage light(QSize size, float brightest);
    QString write(const QImage &picture, PictureFormat format, const WriteOptions &options = {});

    QTemporaryDir folder;
};

namespace {

const float *pixel(const QImage &picture, int x, int y)
{
    return reinterpret_cast<const float *>(picture.constScanLine(y)) + 4 * x;
}

/// Whether a and b differ by no more than a share of the pixel's brightest channel.
bool isNear(const float *a, const float *b, float share)
{
    const float most = std::max({b[0], b[1], b[2]});
    for (int c = 0; c < 3; ++c) {
        if (std::abs(a[c] - b[c]) > share * most)
            return false;
    }
    return true;
}

#ifdef VESK_WITH_OPENEXR

std::vector<float> readExr(const QString &path)
{
    Imf::InputFile file(path.toLocal8Bit().constData());
    const Imath::Box2i box = file.header().dataWindow();
    const size_t width = size_t(box.max.x + 1);
    const size_t height = size_t(box.max.y + 1);
    std::vector<float> samples(3 * width * height);
    Imf::FrameBuffer buffer;
    size_t channel = 0;
    for (const char *name : {"R", "G", "B"})
        buffer.insert(name,
                      Imf::Slice(Imf::FLOAT, reinterpret_cast<char *>(samples.data() + channel++),
                                 3 * sizeof(float), 3 * sizeof(float) * width));
    file.setFrameBuffer(buffer);
    file.readPixels(0, int(height) - 1);
    return samples;
}

#endif

/// A row of the Radiance format, from the description of its coding.
class HdrReader
{
public:
    explicit HdrReader(const QByteArray &file)
        : bytes(file)
        , place(file.indexOf("\n\n") + 2)
    {
        const qsizetype end = bytes.indexOf('\n', place);
        const QList<QByteArray> words = bytes.mid(place, end - place).split(' ');
        size = QSize(words[3].toInt(), words[1].toInt());
        place = end + 1;
    }

    QSize size;

    std::vector<std::array<float, 3>> row()
    {
        std::vector<std::array<unsigned char, 4>> coded(size_t(size.width()));
        if (next(0) == 2 && next(1) == 2 && next(2) * 256 + next(3) == size.width()) {
            place += 4;
            for (size_t c = 0; c < 4; ++c)
                readChannel(coded, c);
        } else {
            for (auto &pixel : coded)
                for (unsigned char &byte : pixel)
                    byte = static_cast<unsigned char>(bytes[place++]);
        }
        std::vector<std::array<float, 3>> light;
        for (const auto &pixel : coded) {
            const float unit = pixel[3] == 0 ? 0.0F : std::ldexp(1.0F, pixel[3] - 128 - 8);
            light.push_back({(float(pixel[0]) + 0.5F) * unit, (float(pixel[1]) + 0.5F) * unit,
                             (float(pixel[2]) + 0.5F) * unit});
        }
        return light;
    }

private:
    int next(qsizetype ahead) const
    {
        return place + ahead < bytes.size() ? static_cast<unsigned char>(bytes[place + ahead]) : -1;
    }

    void readChannel(std::vector<std::array<unsigned char, 4>> &coded, size_t channel)
    {
        for (size_t x = 0; x < coded.size();) {
            int count = next(0);
            ++place;
            const bool isRun = count > 128;
            count = isRun ? count - 128 : count;
            for (int i = 0; i < count; ++i)
                coded[x++][channel] = static_cast<unsigned char>(bytes[isRun ? place : place + i]);
            place += isRun ? 1 : count;
        }
    }

    const QByteArray bytes;
    qsizetype place;
};

} // namespace

/// Smooth in one half, flat in the other, so that there are runs.
QImage TestLightFiles::light(QSize size, float brightest)
{
    QImage picture(size, QImage::Format_RGBX32FPx4);
    for (int y = 0; y < size.height(); ++y) {
        auto *pixels = reinterpret_cast<float *>(picture.scanLine(y));
        for (int x = 0; x < size.width(); ++x) {
            const bool isFlat = x > size.width() / 2;
            const float level =
                isFlat ? 0.25F : std::exp2(-10.0F * float((x * 7 + y * 3) % 101) / 101.0F);
            pixels[4 * x] = brightest * level;
            pixels[4 * x + 1] = brightest * level * 0.7F;
            pixels[4 * x + 2] = brightest * level * level;
            pixels[4 * x + 3] = 1.0F;
        }
    }
    picture.setColorSpace(QColorSpace(QColorSpace::SRgbLinear));
    return picture;
}

QString TestLightFiles::write(const QImage &picture, PictureFormat format,
                              const WriteOptions &options)
{
    const QString path = folder.filePath(QStringLiteral("light"));
    WriteOptions how = options;
    how.mayReplace = true;
    const WriteResult result = picture::write(picture, path, format, how);
    return result.error == OutputFile::Error::None ? path : QString();
}

void TestLightFiles::openExr_halves_areWithinTheirPrecision_data()
{
    QTest::addColumn<QSize>("size");
    for (const QSize size :
         {QSize(1, 1), QSize(1, 33), QSize(65, 31), QSize(300, 32), QSize(17, 97)})
        QTest::addRow("%d x %d", size.width(), size.height()) << size;
}

void TestLightFiles::openExr_halves_areWithinTheirPrecision()
{
#ifdef VESK_WITH_OPENEXR
    QFETCH(QSize, size);
    const QImage picture = light(size, 900.0F);
    const QString path = write(picture, PictureFormat::OpenExr);
    QVERIFY(!path.isEmpty());
    const std::vector<float> read = readExr(path);
    QCOMPARE(read.size(), size_t(3 * size.width() * size.height()));
    for (int y = 0; y < size.height(); ++y)
        for (int x = 0; x < size.width(); ++x)
            QVERIFY(isNear(&read[size_t(3 * (y * size.width() + x))], pixel(picture, x, y), 5e-4F));
#else
    QSKIP("built without OpenEXR");
#endif
}

void TestLightFiles::openExr_floats_areExact()
{
#ifdef VESK_WITH_OPENEXR
    const QImage picture = light({129, 67}, 1e6F);
    WriteOptions options;
    options.bitsPerSample = 32;
    const std::vector<float> read = readExr(write(picture, PictureFormat::OpenExr, options));
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            for (int c = 0; c < 3; ++c)
                QCOMPARE(read[size_t(3 * (y * picture.width() + x) + c)], pixel(picture, x, y)[c]);
#else
    QSKIP("built without OpenEXR");
#endif
}

void TestLightFiles::openExr_header_tellsColoursAndExposure()
{
#ifdef VESK_WITH_OPENEXR
    QImage picture = light({9, 9}, 1.0F);
    picture.setColorSpace(
        QColorSpace(QColorSpace::Primaries::ProPhotoRgb, QColorSpace::TransferFunction::Linear));
    WriteOptions options;
    options.whiteLuminance = 4000.0;
    options.metadata.exif.setFraction(ExifTags::Directory::Exposure, ExifTags::ExposureTime, 1, 8);
    const QString path = write(picture, PictureFormat::OpenExr, options);
    Imf::InputFile file(path.toLocal8Bit().constData());
    QVERIFY(Imf::hasChromaticities(file.header()));
    QVERIFY(std::abs(Imf::chromaticities(file.header()).green.y - 0.8404F) < 1e-3F);
    QCOMPARE(Imf::whiteLuminance(file.header()), 4000.0F);
    QCOMPARE(Imf::expTime(file.header()), 0.125F);
    QCOMPARE(file.header().channels()["G"].type, Imf::HALF);
#else
    QSKIP("built without OpenEXR");
#endif
}

void TestLightFiles::openExr_beyondHalves_isTheLargestHalf()
{
#ifdef VESK_WITH_OPENEXR
    const std::vector<float> read = readExr(write(light({5, 1}, 1e6F), PictureFormat::OpenExr));
    QCOMPARE(read[0], 65504.0F);
#else
    QSKIP("built without OpenEXR");
#endif
}

void TestLightFiles::radianceHdr_anyWidth_isWithinItsPrecision_data()
{
    QTest::addColumn<QSize>("size");
    for (const QSize size :
         {QSize(1, 1), QSize(7, 3), QSize(8, 3), QSize(9, 3), QSize(127, 5), QSize(700, 4)})
        QTest::addRow("%d x %d", size.width(), size.height()) << size;
}

void TestLightFiles::radianceHdr_anyWidth_isWithinItsPrecision()
{
    QFETCH(QSize, size);
    const QImage picture = light(size, 5000.0F);
    QFile file(write(picture, PictureFormat::RadianceHdr));
    QVERIFY(file.open(QIODevice::ReadOnly));
    HdrReader reader(file.readAll());
    QCOMPARE(reader.size, size);
    for (int y = 0; y < size.height(); ++y) {
        const auto row = reader.row();
        for (int x = 0; x < size.width(); ++x)
            QVERIFY(isNear(row[size_t(x)].data(), pixel(picture, x, y), 1.0F / 250));
    }
}

void TestLightFiles::radianceHdr_header_tellsColoursAndExposure()
{
    WriteOptions options;
    options.whiteLuminance = 358.0;
    QFile file(write(light({9, 9}, 1.0F), PictureFormat::RadianceHdr, options));
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QByteArray bytes = file.readAll();
    QVERIFY(bytes.startsWith("#?RADIANCE\nFORMAT=32-bit_rle_rgbe\n"));
    QVERIFY(bytes.contains("\nEXPOSURE=0.5\n"));
    QVERIFY(bytes.contains("\nPRIMARIES= 0.64 0.33 0.3 0.6 0.15 0.06 0.3127 0.329\n"));
}

void TestLightFiles::tiff_floats_areExact()
{
    const QImage picture = light({131, 57}, 300.0F);
    const QString path = write(picture, PictureFormat::Tiff);
    TIFF *tiff = TIFFOpen(path.toLocal8Bit().constData(), "r");
    QVERIFY(tiff);
    uint16_t format = 0;
    uint16_t bits = 0;
    TIFFGetField(tiff, TIFFTAG_SAMPLEFORMAT, &format);
    TIFFGetField(tiff, TIFFTAG_BITSPERSAMPLE, &bits);
    QCOMPARE(int(format), SAMPLEFORMAT_IEEEFP);
    QCOMPARE(int(bits), 32);
    std::vector<float> row(size_t(3 * picture.width()));
    for (int y = 0; y < picture.height(); ++y) {
        QCOMPARE(TIFFReadScanline(tiff, row.data(), uint32_t(y), 0), 1);
        for (int x = 0; x < picture.width(); ++x)
            for (int c = 0; c < 3; ++c)
                QCOMPARE(row[size_t(3 * x + c)], pixel(picture, x, y)[c]);
    }
    TIFFClose(tiff);
}

void TestLightFiles::levels_toLight_areLinear()
{
    QImage picture(8, 1, QImage::Format_RGB32);
    picture.fill(qRgb(188, 255, 0));
    QFile file(write(picture, PictureFormat::RadianceHdr));
    QVERIFY(file.open(QIODevice::ReadOnly));
    HdrReader reader(file.readAll());
    const float expected[] = {0.50289F, 1.0F, 0.0F};
    QVERIFY(isNear(reader.row().front().data(), expected, 1.0F / 200));
}

QTEST_APPLESS_MAIN(TestLightFiles)
#include "tst_light_files.moc"
