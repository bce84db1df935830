#include "dng_writer.h"

#include <QFile>
#include <QtEndian>

#include <algorithm>
#include <cmath>
#include <vector>

namespace {

constexpr int kBlackLevel = 256;
constexpr int kWhiteLevel = 16383;

enum FieldType : std::uint16_t {
    Byte = 1,
    Ascii = 2,
    Short = 3,
    Long = 4,
    Rational = 5,
    SRational = 10
};

template <typename T>
void append(QByteArray &bytes, T value)
{
    const T little = qToLittleEndian(value);
    bytes.append(reinterpret_cast<const char *>(&little), sizeof little);
}

/// The fields of one directory of a little-endian TIFF file.
class TiffBuilder
{
public:
    void text(std::uint16_t tag, const QByteArray &value)
    {
        if (!value.isEmpty())
            add(tag, Ascii, value.size() + 1, value + '\0');
    }

    void bytes(std::uint16_t tag, const QByteArray &value) { add(tag, Byte, value.size(), value); }

    void shorts(std::uint16_t tag, std::initializer_list<int> values)
    {
        QByteArray data;
        for (const int value : values)
            append(data, static_cast<std::uint16_t>(value));
        add(tag, Short, static_cast<int>(values.size()), data);
    }

    void longs(std::uint16_t tag, std::initializer_list<int> values)
    {
        QByteArray data;
        for (const int value : values)
            append(data, static_cast<std::uint32_t>(value));
        add(tag, Long, static_cast<int>(values.size()), data);
    }

    void rationals(std::uint16_t tag, FieldType type, std::initializer_list<double> values)
    {
        constexpr int kDenominator = 10000;
        QByteArray data;
        for (const double value : values) {
            append(data, static_cast<std::int32_t>(std::lround(value * kDenominator)));
            append(data, static_cast<std::int32_t>(kDenominator));
        }
        add(tag, type, static_cast<int>(values.size()), data);
    }

    /// The whole file: header, this directory, its exposure directory if there is one, pixels.
    QByteArray build(const QByteArray &pixels, TiffBuilder *exposure = nullptr)
    {
        constexpr int kHeaderBytes = 8;
        constexpr int kStripOffsets = 273;
        constexpr int kExposureDirectory = 34665;
        longs(kStripOffsets, {0}); // both known only when all fields are there
        if (exposure)
            longs(kExposureDirectory, {0});
        const int exposureStart = kHeaderBytes + byteCount();
        const int pixelStart = exposureStart + (exposure ? exposure->byteCount() : 0);
        setLong(kStripOffsets, pixelStart);
        if (exposure)
            setLong(kExposureDirectory, exposureStart);

        QByteArray file("II*\0", 4);
        append<std::uint32_t>(file, kHeaderBytes);
        file += directoryAt(kHeaderBytes);
        if (exposure)
            file += exposure->directoryAt(exposureStart);
        return file + pixels;
    }

private:
    struct Field
    {
        std::uint16_t tag;
        FieldType type;
        int count;
        QByteArray data;
    };

    static int evenSize(const QByteArray &data) { return (data.size() + 1) / 2 * 2; }

    int entryBytes() const { return 2 + 12 * static_cast<int>(fields.size()) + 4; }

    /// With the values that do not fit into the entries.
    int byteCount() const
    {
        int bytes = entryBytes();
        for (const Field &field : fields)
            bytes += field.data.size() > 4 ? evenSize(field.data) : 0;
        return bytes;
    }

    QByteArray directoryAt(int start)
    {
        std::sort(fields.begin(), fields.end(),
                  [](const Field &a, const Field &b) { return a.tag < b.tag; });
        QByteArray entries;
        QByteArray outside; // values that do not fit into the entries
        append(entries, static_cast<std::uint16_t>(fields.size()));
        for (const Field &field : fields) {
            append(entries, field.tag);
            append(entries, static_cast<std::uint16_t>(field.type));
            append(entries, static_cast<std::uint32_t>(field.count));
            if (field.data.size() <= 4) {
                entries += field.data.leftJustified(4, '\0');
            } else {
                append(entries, static_cast<std::uint32_t>(start + entryBytes() + outside.size()));
                outside += field.data.leftJustified(evenSize(field.data), '\0');
            }
        }
        append<std::uint32_t>(entries, 0); // no directory follows
        return entries + outside;
    }

    void setLong(std::uint16_t tag, int value)
    {
        for (Field &field : fields) {
            if (field.tag == tag)
                qToLittleEndian(static_cast<std::uint32_t>(value), field.data.data());
        }
    }

    void add(std::uint16_t tag, FieldType type, int count, const QByteArray &data)
    {
        fields.push_back({tag, type, count, data});
    }

    std::vector<Field> fields;
};

QByteArray mosaic(const DngRecipe &recipe)
{
    const double neutral[] = {recipe.neutralRed, 1.0, recipe.neutralBlue};
    QByteArray pixels;
    pixels.reserve(recipe.width * recipe.height * 2);
    for (int y = 0; y < recipe.height; ++y)
        for (int x = 0; x < recipe.width; ++x) {
            const int channel = x % 2 + y % 2;
            const double light =
                std::clamp(recipe.scene(x, y, channel) * neutral[channel], 0.0, 1.0);
            append(pixels, static_cast<std::uint16_t>(
                               std::lround(kBlackLevel + light * (kWhiteLevel - kBlackLevel))));
        }
    return pixels;
}

} // namespace

QByteArray dngFile(const DngRecipe &recipe)
{
    const QByteArray pixels = mosaic(recipe);
    TiffBuilder tiff;
    tiff.longs(254, {0}); // full-resolution picture
    tiff.longs(256, {recipe.width});
    tiff.longs(257, {recipe.height});
    tiff.shorts(258, {16});    // bits per sample
    tiff.shorts(259, {1});     // no compression
    tiff.shorts(262, {32803}); // colour filter array
    tiff.text(271, recipe.make);
    tiff.text(272, recipe.model);
    tiff.shorts(274, {recipe.orientation});
    tiff.shorts(277, {1});            // samples per pixel
    tiff.longs(278, {recipe.height}); // rows per strip
    tiff.longs(279, {int(pixels.size())});
    tiff.shorts(284, {1});                        // planar configuration
    tiff.shorts(33421, {2, 2});                   // mosaic of two by two:
    tiff.bytes(33422, QByteArray("\0\1\1\2", 4)); // red green / green blue
    if (recipe.dngVersion) {
        tiff.bytes(50706, QByteArray("\1\4\0\0", 4));
        tiff.bytes(50707, QByteArray("\1\1\0\0", 4));
        tiff.text(50708, recipe.make + ' ' + recipe.model);
        tiff.shorts(50714, {kBlackLevel});
        tiff.longs(50717, {kWhiteLevel});
        // From XYZ to the camera: the camera's colours are those of linear sRGB.
        tiff.rationals(
            50721, SRational,
            {3.2405, -1.5371, -0.4985, -0.9693, 1.8760, 0.0416, 0.0556, -0.2040, 1.0572});
        tiff.rationals(50728, Rational, {recipe.neutralRed, 1.0, recipe.neutralBlue});
        tiff.shorts(50778, {21}); // daylight, 6500 K
    }
    if (recipe.takenAt.isEmpty())
        return tiff.build(pixels);
    TiffBuilder exposure;
    exposure.rationals(33434, Rational, {recipe.exposureSeconds});
    exposure.rationals(33437, Rational, {8.0}); // f-number
    exposure.shorts(34855, {100});              // sensitivity
    exposure.text(36867, recipe.takenAt);
    exposure.rationals(37380, SRational, {recipe.exposureBias});
    return tiff.build(pixels, &exposure);
}

bool writeDng(const QString &path, const DngRecipe &recipe)
{
    QFile file(path);
    const QByteArray bytes = dngFile(recipe);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

QByteArray plainTiff(int width, int height, int channels, int bits, std::uint8_t value,
                     const QByteArray &make, const QByteArray &model)
{
    const QByteArray pixels(width * height * channels * bits / 8, static_cast<char>(value));
    TiffBuilder tiff;
    tiff.longs(256, {width});
    tiff.longs(257, {height});
    if (channels == 3)
        tiff.shorts(258, {bits, bits, bits});
    else
        tiff.shorts(258, {bits});
    tiff.shorts(259, {1});
    tiff.shorts(262, {channels == 3 ? 2 : 1});
    tiff.text(271, make);
    tiff.text(272, model);
    tiff.shorts(277, {channels});
    tiff.longs(278, {height});
    tiff.longs(279, {int(pixels.size())});
    tiff.shorts(284, {1});
    return tiff.build(pixels);
}
