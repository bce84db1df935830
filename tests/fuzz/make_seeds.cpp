// Writes the inputs that fuzzing starts from: make_seeds FOLDER gives one folder for each target.
// Everything is made here; the same version of the libraries gives the same files.

#include "VeskEnDecodeTool.h"
#include "coloured_files.h"
#include "dng_writer.h"
#include "modern_files.h"
#include "picture_writer.h"

#include <QBuffer>
#include <QColorSpace>
#include <QDir>
#include <QGuiApplication>
#include <QImage>
#include <QImageWriter>

#ifdef VESK_WITH_OPENEXR
#include <ImfChannelList.h>
#include <ImfCompression.h>
#include <ImfFrameBuffer.h>
#include <ImfHeader.h>
#include <ImfOutputFile.h>
#include <ImfStdIO.h>
#include <ImfTiledOutputFile.h>
#include <half.h>

#include <vector>
#endif

namespace {

class Folder
{
public:
    Folder(const QString &parent, const QString &name)
        : path(parent + QLatin1Char('/') + name)
    {
        QDir(path).removeRecursively();
        if (!QDir().mkpath(path))
            qFatal("cannot make %s", qPrintable(path));
    }

    void add(const QString &name, const QByteArray &bytes) const
    {
        QFile file(path + QLatin1Char('/') + name);
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
            qFatal("cannot write %s", qPrintable(file.fileName()));
    }

private:
    QString path;
};

QImage gradient(QSize size, QImage::Format format)
{
    QImage picture(size, QImage::Format_ARGB32);
    for (int y = 0; y < size.height(); ++y)
        for (int x = 0; x < size.width(); ++x)
            picture.setPixel(x, y, qRgba(x * 9 % 256, y * 17 % 256, (x ^ y) * 5 % 256, 255 - x));
    return picture.convertToFormat(format);
}

QByteArray encoded(const QImage &picture, const char *format, int compression = -1)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    QImageWriter writer(&buffer, format);
    if (compression >= 0)
        writer.setCompression(compression);
    if (!writer.write(picture))
        qWarning("this toolkit writes no %s", format);
    return bytes;
}

/// An EXIF block that turns the picture, as a camera writes it.
QByteArray exifSegment(char orientation)
{
    QByteArray block("Exif\0\0II*\0\x08\0\0\0\x01\0\x12\x01\x03\0\x01\0\0\0", 24);
    block += orientation;
    block += QByteArray(7, '\0');
    const int length = block.size() + 2;
    return QByteArray("\xFF\xE1", 2) + char(length >> 8) + char(length & 0xFF) + block;
}

/// A picture of four stripes, the fourth with a colour table of its own.
QByteArray gif()
{
    static const char kBytes[] =
        "GIF89a\x04\x00\x02\x00\x80\x00\x00\xFF\x00\x00\x00\x00\xFF"
        "\x2C\x00\x00\x00\x00\x04\x00\x02\x00\x00\x02\x03\x44\x02\x05\x00\x3B";
    return QByteArray(kBytes, sizeof(kBytes) - 1);
}

/// Inks, Lab, and what PNG files say of their colours.
void addColouredPictures(const Folder &folder)
{
    const QByteArray numbers(9 * 7 * 4 * 2, '\x5A');
    const QByteArray profile = QColorSpace(QColorSpace::AdobeRgb).iccProfile();
    folder.add(QStringLiteral("inks.jpeg"),
               coloured_files::made(coloured_files::Jpeg{{9, 7}, 4, numbers, profile, {}, true}));
    const auto tiff = [&](int photometric, int bits, int channels) {
        return coloured_files::made(
            coloured_files::Tiff{{9, 7}, photometric, bits, channels, numbers, profile});
    };
    constexpr int kSeparated = 5;
    constexpr int kCieLab = 8;
    constexpr int kIccLab = 9;
    folder.add(QStringLiteral("inks.tiff"), tiff(kSeparated, 8, 4));
    folder.add(QStringLiteral("deep_inks.tiff"), tiff(kSeparated, 16, 4));
    folder.add(QStringLiteral("lab.tiff"), tiff(kCieLab, 8, 3));
    folder.add(QStringLiteral("deep_lab.tiff"), tiff(kIccLab, 16, 3));
    const QByteArray png = encoded(gradient({5, 4}, QImage::Format_RGB32), "png");
    const QByteArray gamma = coloured_files::chunk("gAMA", QByteArray("\0\0\xB1\x8F", 4));
    const QByteArray primaries = coloured_files::chunk("cHRM", QByteArray(32, '\x11'));
    folder.add(QStringLiteral("gamma.png"), coloured_files::withChunks(png, {gamma, primaries}));
    folder.add(QStringLiteral("icc.png"),
               coloured_files::withChunks(png, {coloured_files::profileChunk(profile)}));
}

void addModernPictures([[maybe_unused]] const Folder &folder)
{
#ifdef VESK_HAS_MODERN_FILES
    modern_files::Recipe recipe;
    recipe.picture = gradient({19, 11}, QImage::Format_RGB32);
    folder.add(QStringLiteral("colour.avif"), modern_files::avif(recipe));
    folder.add(QStringLiteral("colour.jxl"), modern_files::jxl(recipe));
    recipe.picture = gradient({9, 7}, QImage::Format_RGBA64);
    recipe.bits = 10;
    recipe.exif = exifSegment(6).mid(10);
    recipe.profile = QColorSpace(QColorSpace::AdobeRgb).iccProfile();
    recipe.quarterTurns = 1;
    recipe.mirror = 1;
    recipe.orientation = 6;
    folder.add(QStringLiteral("deep.avif"), modern_files::avif(recipe));
    folder.add(QStringLiteral("deep.jxl"), modern_files::jxl(recipe));
#endif
}

/// In both forms, and in the older one alone.
void addBrightPictures(const Folder &folder)
{
    WriteOptions options;
    options.gainMap.picture = gradient({10, 6}, QImage::Format_RGB32);
    QByteArray file;
    QBuffer device(&file);
    device.open(QIODevice::ReadWrite);
    picture::write(gradient({19, 11}, QImage::Format_RGB32), device, PictureFormat::Jpeg, options);
    folder.add(QStringLiteral("bright.jpeg"), file);
    file.replace("urn:iso:std:iso:ts:21496:-1", "urn:iso:std:iso:ts:00000:-0");
    folder.add(QStringLiteral("bright_older.jpeg"), file);
}

void addPictures(const QString &parent)
{
    const Folder folder(parent, QStringLiteral("picture"));
    QImage colour = gradient({19, 11}, QImage::Format_RGB32);
    for (const char *format :
         {"png", "jpeg", "bmp", "tiff", "webp", "ppm", "xpm", "xbm", "ico", "icns"})
        folder.add(QStringLiteral("colour.") + QLatin1String(format), encoded(colour, format));
    for (const char *format : {"png", "jpeg", "bmp", "tiff"}) {
        const QString suffix = QLatin1Char('.') + QLatin1String(format);
        folder.add(QStringLiteral("grey") + suffix,
                   encoded(gradient({9, 7}, QImage::Format_Grayscale8), format));
        folder.add(QStringLiteral("palette") + suffix,
                   encoded(gradient({9, 7}, QImage::Format_Indexed8), format));
        folder.add(QStringLiteral("mono") + suffix,
                   encoded(gradient({17, 5}, QImage::Format_Mono), format));
    }
    folder.add(QStringLiteral("deep.png"), encoded(gradient({5, 4}, QImage::Format_RGBA64), "png"));
    folder.add(QStringLiteral("deep.tiff"),
               encoded(gradient({5, 4}, QImage::Format_RGBA64), "tiff"));
    folder.add(QStringLiteral("packed.tiff"), encoded(colour, "tiff", 1));
    folder.add(QStringLiteral("picture.gif"), gif());
    folder.add(QStringLiteral("drawing.svg"),
               "<svg xmlns='http://www.w3.org/2000/svg' width='9' height='7'>"
               "<rect x='1' y='1' width='5' height='3' fill='#804020'/>"
               "<path d='M0 0 L5 5 Q3 3 1 6 Z' stroke='red'/></svg>");
    QByteArray turned = encoded(colour, "jpeg");
    turned.insert(2, exifSegment(6));
    folder.add(QStringLiteral("turned.jpeg"), turned);
    colour.setColorSpace(QColorSpace(QColorSpace::DisplayP3));
    folder.add(QStringLiteral("profile.jpeg"), encoded(colour, "jpeg"));
    folder.add(QStringLiteral("profile.png"), encoded(colour, "png"));
    addBrightPictures(folder);
    addColouredPictures(folder);
    addModernPictures(folder);
}

QImage lightOf(QSize size)
{
    QImage light = gradient(size, QImage::Format_RGB32).convertToFormat(QImage::Format_RGBX32FPx4);
    light.setColorSpace(QColorSpace::SRgbLinear);
    return light;
}

QByteArray written(const QImage &light, PictureFormat format, int bits = 0)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadWrite);
    WriteOptions how;
    how.bitsPerSample = bits;
    how.whiteLuminance = 100.0;
    picture::write(light, buffer, format, how);
    return bytes;
}

#ifdef VESK_WITH_OPENEXR

/// By the library itself: other channels, compressions and tiles.
QByteArray exr(std::initializer_list<const char *> channels, Imf::Compression compression,
               bool isTiled)
{
    constexpr int kWidth = 21;
    constexpr int kHeight = 13;
    Imf::Header header(kWidth, kHeight);
    header.compression() = compression;
    const std::vector<half> numbers(kWidth * kHeight, half(0.3F));
    Imf::FrameBuffer buffer;
    for (const char *channel : channels) {
        header.channels().insert(channel, Imf::Channel(Imf::HALF));
        buffer.insert(channel, Imf::Slice::Make(Imf::HALF, numbers.data(), Imath::V2i(0, 0), kWidth,
                                                kHeight));
    }
    Imf::StdOSStream stream;
    if (isTiled) {
        header.setTileDescription({8, 8, Imf::RIPMAP_LEVELS});
        Imf::TiledOutputFile file(stream, header);
        file.setFrameBuffer(buffer);
        file.writeTiles(0, file.numXTiles() - 1, 0, file.numYTiles() - 1);
    } else {
        Imf::OutputFile file(stream, header);
        file.setFrameBuffer(buffer);
        file.writePixels(kHeight);
    }
    return QByteArray::fromStdString(stream.str());
}

void addExrFiles(const Folder &folder)
{
    const QImage light = lightOf({19, 11});
    folder.add(QStringLiteral("halves.exr"), written(light, PictureFormat::OpenExr, 16));
    folder.add(QStringLiteral("floats.exr"), written(light, PictureFormat::OpenExr, 32));
    int number = 0;
    for (const Imf::Compression compression :
         {Imf::NO_COMPRESSION, Imf::RLE_COMPRESSION, Imf::ZIPS_COMPRESSION, Imf::PIZ_COMPRESSION,
          Imf::PXR24_COMPRESSION, Imf::B44_COMPRESSION, Imf::B44A_COMPRESSION,
          Imf::DWAA_COMPRESSION})
        folder.add(QStringLiteral("compressed_%1.exr").arg(number++),
                   exr({"R", "G", "B", "A"}, compression, false));
    folder.add(QStringLiteral("tiles.exr"), exr({"R", "G", "B"}, Imf::ZIP_COMPRESSION, true));
    folder.add(QStringLiteral("luminance.exr"), exr({"Y"}, Imf::PIZ_COMPRESSION, false));
    folder.add(QStringLiteral("layers.exr"),
               exr({"a.R", "a.G", "a.B", "Z"}, Imf::ZIP_COMPRESSION, true));
}

#endif

/// Light, and the kinds of file that are not Qt's.
void addLight(const QString &parent)
{
    const Folder folder(parent, QStringLiteral("light"));
    folder.add(QStringLiteral("coded.hdr"), written(lightOf({19, 11}), PictureFormat::RadianceHdr));
    folder.add(QStringLiteral("plain.hdr"), written(lightOf({7, 5}), PictureFormat::RadianceHdr));
    folder.add(QStringLiteral("old.hdr"),
               "#?RGBE\nFORMAT=32-bit_rle_rgbe\nEXPOSURE=2\n\n+X 3 -Y 2\n" +
                   QByteArray("\x80\x40\x20\x81\1\1\1\1\x10\x20\x30\x80\1\1\1\2", 16));
    folder.add(QStringLiteral("floats.tif"), written(lightOf({19, 11}), PictureFormat::Tiff));
#ifdef VESK_WITH_OPENEXR
    addExrFiles(folder);
#endif
    addModernPictures(folder);
}

void addRawFiles(const QString &parent)
{
    const Folder folder(parent, QStringLiteral("raw"));
    DngRecipe recipe;
    recipe.width = 32;
    recipe.height = 24;
    folder.add(QStringLiteral("upright.dng"), dngFile(recipe));
    recipe.orientation = 6;
    folder.add(QStringLiteral("turned.dng"), dngFile(recipe));
    recipe.dngVersion = false;
    folder.add(QStringLiteral("mosaic.tiff"), dngFile(recipe));
    for (const char *make :
         {"NIKON CORPORATION", "Canon", "SONY", "OLYMPUS IMAGING CORP.", "PENTAX Corporation",
          "Panasonic", "SAMSUNG", "Leaf", "EASTMAN KODAK COMPANY"}) {
        recipe.make = make;
        folder.add(QStringLiteral("of_%1.tiff").arg(QLatin1String(make).left(4)), dngFile(recipe));
    }
    folder.add(QStringLiteral("plain.tiff"), plainTiff(20, 10, 3, 16, 77, "Canon", "EOS"));
}

void addSettings(const QString &parent)
{
    const Folder folder(parent, QStringLiteral("settings"));
    folder.add(QStringLiteral("usual.ini"), "[General]\nOpenCLDevice=Some Device (TM)\n"
                                            "language=de_DE\nhistogramVisible=false\n");
    folder.add(QStringLiteral("escapes.ini"),
               "[General]\nlanguage=\"\\x65e5\\x672c \\\"\\\\ \\n\"\nOpenCLDevice=@Invalid()\n"
               "histogramVisible=@ByteArray(\\x1\\x2)\n[a%20b/c]\nd=1, 2, \"3;4\"\n");
    folder.add(QStringLiteral("variants.ini"),
               "[General]\nlanguage=@Variant(\\0\\0\\0\\x9\\0\\0\\0\\0)\n"
               "OpenCLDevice=@Rect(1 2 3 4)\nhistogramVisible=@Size(5 6)\n");
    folder.add(QStringLiteral("path.ini"), "language=../../../../etc/passwd\nlanguage=%s%n\n");
    folder.add(QStringLiteral("no_ini"), QByteArray("\0\xFF\xFE[[[]]]==\n;\r\n\\", 17));
}

void addArguments(const QString &parent)
{
    const Folder folder(parent, QStringLiteral("arguments"));
    folder.add(QStringLiteral("usual"), "a.jpg\nb.jpg\n-o\nout.png");
    folder.add(QStringLiteral("options"),
               "--no-align\n--crop\n--quality\n90\n--json\nb\na\n--output=x.tif\n--force");
    folder.add(QStringLiteral("order"), "--keep-order\n--verbose\nz\ny\nz\n-ojpeg.jpeg");
    folder.add(QStringLiteral("dashes"), "-o\nx.jpg\n--\n-a\n--b\n--");
    folder.add(QStringLiteral("colours"),
               "--depth\n16\n--raw-space\np3\n--output-space\nadobe\n--effort\n9\n-\na\n-o\n-\n"
               "--format\ntiff\n--tiff-compression\nnone");
    folder.add(QStringLiteral("others"), "--device\n1\n--max-megapixels\n12\na\nb\n-o\nc.png");
}

void addEnginePictures(const QString &parent)
{
    const Folder folder(parent, QStringLiteral("engine"));
    for (int seed = 0; seed < 24; ++seed) {
        QByteArray bytes;
        quint32 state = quint32(seed);
        for (int i = 0; i < 64; ++i) {
            state = state * 1664525U + 1013904223U;
            bytes += char(state >> 24);
        }
        folder.add(QString::number(seed), bytes);
    }
}

void addCipherTexts(const QString &parent)
{
    const Folder folder(parent, QStringLiteral("decipher"));
    QString key;
    VeskEnDecodeTool::VeskGetMM(key);
    for (const int length : {0, 1, 7, 8, 9, 300}) {
        QByteArray cipherText;
        VeskEnDecodeTool::DES_Encrypt(QString(length, QLatin1Char('k')), key, cipherText);
        folder.add(QStringLiteral("of_%1").arg(length), cipherText);
    }
    folder.add(QStringLiteral("empty"), {});
}

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    if (argc != 2)
        qFatal("usage: make_seeds FOLDER");
    const QString parent = QFile::decodeName(argv[1]);
    addPictures(parent);
    addLight(parent);
    addRawFiles(parent);
    addSettings(parent);
    addArguments(parent);
    addEnginePictures(parent);
    addCipherTexts(parent);
    return 0;
}
