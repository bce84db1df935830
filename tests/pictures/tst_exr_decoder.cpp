// OpenEXR files of many kinds, written by the format's own library.

#include "light_pictures.h"
#include "picture_makers.h"

#include <QRgba64>
#include <QtTest>

#include <cstring>
#include <vector>

#include <ImfChannelList.h>
#include <ImfFrameBuffer.h>
#include <ImfOutputFile.h>
#include <ImfStandardAttributes.h>
#include <ImfTiledOutputFile.h>

using namespace light;
using namespace makers;

namespace {

struct ExrRecipe
{
    std::vector<const char *> channels = {"R", "G", "B"};
    Imf::PixelType type = Imf::FLOAT;
    Imath::Box2i data = {{0, 0}, {36, 28}};
    Imath::Box2i display = {{0, 0}, {36, 28}};
    Imf::Compression compression = Imf::ZIP_COMPRESSION;
    Imf::LineOrder order = Imf::INCREASING_Y;
    bool isTiled = false;
};

/// At a place of the data window. Alpha is a half.
float exrNumberAt(const char *channel, int x, int y)
{
    const char last = channel[std::strlen(channel) - 1];
    return last == 'A' ? 0.5F : numberAt(x + 1000, y + 1000, last == 'G' ? 1 : last == 'B' ? 2 : 0);
}

void writeExr(const QString &path, const ExrRecipe &recipe)
{
    const int width = recipe.data.max.x - recipe.data.min.x + 1;
    const int height = recipe.data.max.y - recipe.data.min.y + 1;
    Imf::Header header(recipe.display, recipe.data, 1, {0, 0}, 1, recipe.order, recipe.compression);
    Imf::FrameBuffer buffer;
    std::vector<std::vector<float>> planes;
    std::vector<std::vector<half>> halves;
    for (const char *name : recipe.channels) {
        header.channels().insert(name, Imf::Channel(recipe.type));
        planes.emplace_back();
        for (int y = recipe.data.min.y; y <= recipe.data.max.y; ++y)
            for (int x = recipe.data.min.x; x <= recipe.data.max.x; ++x)
                planes.back().push_back(exrNumberAt(name, x, y));
        halves.emplace_back(planes.back().begin(), planes.back().end());
    }
    const bool isHalf = recipe.type == Imf::HALF;
    for (size_t i = 0; i < planes.size(); ++i) {
        char *start = isHalf ? reinterpret_cast<char *>(halves[i].data())
                             : reinterpret_cast<char *>(planes[i].data());
        buffer.insert(recipe.channels[i],
                      Imf::Slice::Make(recipe.type, start, recipe.data.min, width, height));
    }
    if (recipe.isTiled) {
        header.setTileDescription({16, 8, Imf::MIPMAP_LEVELS});
        Imf::TiledOutputFile file(path.toLocal8Bit().constData(), header);
        file.setFrameBuffer(buffer);
        file.writeTiles(0, file.numXTiles() - 1, 0, file.numYTiles() - 1);
        return;
    }
    Imf::OutputFile file(path.toLocal8Bit().constData(), header);
    file.setFrameBuffer(buffer);
    file.writePixels(height);
}

} // namespace

class TestExrDecoder : public QObject
{
    Q_OBJECT

private:
    const Folder folder;

    QString path(const char *name) const { return folder.path(QLatin1String(name)); }

private slots:
    void initTestCase() { QVERIFY(folder.isValid()); }

    void decode_anyStorage_isReadToTheBit_data()
    {
        QTest::addColumn<ExrRecipe>("recipe");
        const auto row = [](const char *name, void (*change)(ExrRecipe &)) {
            ExrRecipe recipe;
            change(recipe);
            QTest::newRow(name) << recipe;
        };
        row("floats", [](ExrRecipe &) {});
        row("halves", [](ExrRecipe &recipe) { recipe.type = Imf::HALF; });
        row("tiles", [](ExrRecipe &recipe) { recipe.isTiled = true; });
        row("without compression",
            [](ExrRecipe &recipe) { recipe.compression = Imf::NO_COMPRESSION; });
        row("PIZ, from the bottom", [](ExrRecipe &recipe) {
            recipe.compression = Imf::PIZ_COMPRESSION;
            recipe.order = Imf::DECREASING_Y;
        });
        row("luminance alone", [](ExrRecipe &recipe) { recipe.channels = {"Y"}; });
        row("alpha", [](ExrRecipe &recipe) { recipe.channels = {"R", "G", "B", "A"}; });
        row("other channels, too", [](ExrRecipe &recipe) {
            recipe.channels = {"R", "G", "B", "Z", "normals.X"};
        });
        row("a layer", [](ExrRecipe &recipe) {
            recipe.channels = {"view.R", "view.G", "view.B", "view.A", "other.Z"};
        });
        row("fewer pixels than shown", [](ExrRecipe &recipe) { recipe.data = {{5, 3}, {20, 25}}; });
        row("more pixels than shown", [](ExrRecipe &recipe) {
            recipe.data = {{-7, -3}, {50, 40}};
        });
        row("not begun at 0", [](ExrRecipe &recipe) {
            recipe.data = {{-300, 110}, {-270, 150}};
            recipe.display = {{-290, 100}, {-254, 128}};
        });
        row("elsewhere", [](ExrRecipe &recipe) { recipe.data = {{100, 100}, {110, 110}}; });
    }

    void decode_anyStorage_isReadToTheBit()
    {
        QFETCH(ExrRecipe, recipe);
        writeExr(path("p.exr"), recipe);
        const DecodedPicture read =
            picture::read(path("p.exr"), asking(ReadOptions::Light::Floats));
        QCOMPARE(read.reason, QString());
        QCOMPARE(read.image.size(), QSize(37, 29));
        const bool hasAlpha =
            std::any_of(recipe.channels.begin(), recipe.channels.end(),
                        [](const char *name) { return name[std::strlen(name) - 1] == 'A'; });
        QCOMPARE(read.image.format(),
                 hasAlpha ? QImage::Format_RGBA32FPx4_Premultiplied : QImage::Format_RGBX32FPx4);
        const bool isGrey = recipe.channels.size() == 1;
        for (int y = 0; y < 29; ++y) {
            for (int x = 0; x < 37; ++x) {
                const Imath::V2i at(x + recipe.display.min.x, y + recipe.display.min.y);
                const bool isThere = recipe.data.intersects(at);
                for (size_t c = 0; c < 3; ++c) {
                    const char *channel = isGrey ? "Y" : c == 0 ? "R" : c == 1 ? "G" : "B";
                    const float number = isThere ? exrNumberAt(channel, at.x, at.y) : 0.0F;
                    QVERIFY(pixel(read.image, x, y)[c] ==
                            (recipe.type == Imf::HALF ? asHalf(number) : number));
                }
                QCOMPARE(pixel(read.image, x, y)[3], !hasAlpha ? 1.0F : isThere ? 0.5F : 0.0F);
            }
        }
    }

    void decode_withAlpha_isShownUndivided()
    {
        ExrRecipe recipe;
        recipe.channels = {"R", "G", "B", "A"};
        writeExr(path("alpha.exr"), recipe);
        const QImage shown =
            picture::read(path("alpha.exr"), asking(ReadOptions::Light::Shown)).image;
        QCOMPARE(shown.format(), QImage::Format_RGBA64);
        const auto *word = reinterpret_cast<const QRgba64 *>(shown.constScanLine(5)) + 11;
        QCOMPARE(int(word->alpha()), 32768);
        const double light = 2 * double(exrNumberAt("G", 11, 5));
        QVERIFY(std::abs(double(word->green()) - 65535 * levelOf(light)) <= 0.52);
    }

    void decode_chromaticities_areItsColours()
    {
        ExrRecipe recipe;
        Imf::Header header(8, 8);
        header.channels().insert("Y", Imf::Channel(Imf::HALF));
        Imf::addChromaticities(header,
                               {{0.64F, 0.33F}, {0.21F, 0.71F}, {0.15F, 0.06F}, {0.3127F, 0.329F}});
        const std::vector<half> numbers(64, half(0.5F));
        Imf::FrameBuffer buffer;
        buffer.insert("Y", Imf::Slice::Make(Imf::HALF, numbers.data(), Imath::V2i(0, 0), 8, 8));
        {
            Imf::OutputFile file(path("adobe.exr").toLocal8Bit().constData(), header);
            file.setFrameBuffer(buffer);
            file.writePixels(8);
        }
        const QImage light =
            picture::read(path("adobe.exr"), asking(ReadOptions::Light::Floats)).image;
        QCOMPARE(light.colorSpace().primaries(), QColorSpace::Primaries::AdobeRgb);
        const QImage shown =
            picture::read(path("adobe.exr"), asking(ReadOptions::Light::Shown)).image;
        QCOMPARE(shown.colorSpace().primaries(), QColorSpace::Primaries::AdobeRgb);
        QCOMPARE(shown.colorSpace().transferFunction(), QColorSpace::TransferFunction::SRgb);
    }

    void decode_noColours_isRefused()
    {
        ExrRecipe recipe;
        recipe.channels = {"Z"};
        writeExr(path("depth.exr"), recipe);
        const DecodedPicture refused =
            picture::read(path("depth.exr"), asking(ReadOptions::Light::Floats));
        QCOMPARE(refused.error, DecodeError::Unsupported);
        QVERIFY(refused.reason.startsWith(QStringLiteral("OpenEXR")));
    }

    /// The header alone promises more rows than the file has room for their places.
    void decode_hugeHeight_isDamagedBeforeMemoryIsTaken()
    {
        QByteArray file = written(lightPicture({1, 1}), PictureFormat::OpenExr);
        for (const char *window : {"dataWindow", "displayWindow"}) {
            const qsizetype value = file.indexOf(QByteArray(window) + '\0' + "box2i");
            QVERIFY(value > 0);
            const qsizetype maxY = value + qsizetype(std::strlen(window)) + 1 + 6 + 4 + 12;
            file.replace(maxY, 4, QByteArray("\xFF\xFF\xFF\x07", 4));
        }
        QCOMPARE(picture::read(folder.save(QStringLiteral("huge.exr"), file),
                               asking(ReadOptions::Light::Floats))
                     .error,
                 DecodeError::Damaged);
    }
};

QTEST_GUILESS_MAIN(TestExrDecoder)
#include "tst_exr_decoder.moc"
