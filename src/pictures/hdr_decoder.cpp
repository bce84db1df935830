#include "hdr_decoder.h"

#include "Chromaticities.h"
#include "LightRows.h"

#include <QList>

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

namespace {

using Pixel = std::array<uchar, 4>; // mantissas of red, green and blue, exponent

struct Header
{
    QByteArray format;
    double exposure = 0.0; ///< product of all that are told; 0: none
    QColorSpace space = QColorSpace(QColorSpace::SRgbLinear);
    QSize size; ///< as stored: a row is as long as it is wide
    QImageIOHandler::Transformations transformation;
};

bool isRadiance(QIODevice &file)
{
    const QByteArray start = file.peek(10);
    return start.startsWith("#?RADIANCE") || start.startsWith("#?RGBE");
}

void takePrimaries(const QByteArray &text, Header &header)
{
    std::array<double, 8> numbers = {};
    const QList<QByteArray> words = text.simplified().split(' ');
    if (words.size() != qsizetype(numbers.size()))
        return;
    std::transform(words.begin(), words.end(), numbers.begin(),
                   [](const QByteArray &word) { return word.toDouble(); });
    const Chromaticities told = {{numbers[0], numbers[1]},
                                 {numbers[2], numbers[3]},
                                 {numbers[4], numbers[5]},
                                 {numbers[6], numbers[7]}};
    const QColorSpace space = told.linearSpace();
    if (space.isValid())
        header.space = space;
}

void takeLine(const QByteArray &line, Header &header)
{
    const auto value = [&line] { return line.mid(line.indexOf('=') + 1).trimmed(); };
    if (line.startsWith("FORMAT="))
        header.format = value();
    else if (line.startsWith("EXPOSURE="))
        header.exposure = (header.exposure == 0.0 ? 1.0 : header.exposure) * value().toDouble();
    else if (line.startsWith("PRIMARIES="))
        takePrimaries(value(), header);
}

/// "-Y 3 +X 4": four pixels in a row, three rows from top to bottom. The first of the two counts
/// the rows, whose pixels run along the second.
bool takeOrder(const QByteArray &line, Header &header)
{
    const QList<QByteArray> words = line.simplified().split(' ');
    if (words.size() != 4 || words[0].size() != 2 || words[2].size() != 2)
        return false;
    const bool areRows = words[0][1] == 'Y' && words[2][1] == 'X';
    const bool areColumns = words[0][1] == 'X' && words[2][1] == 'Y';
    header.size = QSize(words[3].toInt(), words[1].toInt());
    // Columns from left to right that run downwards are a picture turned against the clock, upside
    // down.
    if (words[0][0] == '+')
        header.transformation |= QImageIOHandler::TransformationFlip;
    if (words[2][0] == (areColumns ? '+' : '-'))
        header.transformation |= QImageIOHandler::TransformationMirror;
    if (areColumns)
        header.transformation |= QImageIOHandler::TransformationRotate90;
    return (areRows || areColumns) && !header.size.isEmpty();
}

/// The lines up to an empty one, and the one behind it. file is left at the pixels.
std::optional<Header> readHeader(QIODevice &file)
{
    constexpr qint64 kLongestLine = 4096;
    constexpr qint64 kLongestHeader = 1 << 20;
    Header header;
    QByteArray line;
    do {
        line = file.readLine(kLongestLine);
        if (!line.endsWith('\n') || file.pos() > kLongestHeader)
            return std::nullopt;
        takeLine(line, header);
    } while (!line.trimmed().isEmpty());
    line = file.readLine(kLongestLine);
    return line.endsWith('\n') && takeOrder(line, header) ? std::optional(header) : std::nullopt;
}

/// The rows of the pixels, one after the other.
class Rows
{
public:
    Rows(QIODevice &device, int width)
        : file(device)
        , pixels(size_t(width))
    {
    }

    /// Null when the file ends or makes no sense.
    const std::vector<Pixel> *next()
    {
        constexpr size_t kShortestCoded = 8;
        constexpr size_t kLongestCoded = 0x7FFF;
        Pixel first = {};
        if (!read(first))
            return nullptr;
        const bool isCoded = first[0] == 2 && first[1] == 2 && first[2] < 128 &&
                             pixels.size() >= kShortestCoded && pixels.size() <= kLongestCoded;
        const bool isSound =
            isCoded ? size_t(first[2] << 8 | first[3]) == pixels.size() && readChannels()
                    : readPixels(first);
        return isSound ? &pixels : nullptr;
    }

private:
    int byte()
    {
        constexpr qint64 kPieceBytes = 1 << 16;
        if (place == piece.size()) {
            piece = file.read(kPieceBytes);
            place = 0;
        }
        return place < piece.size() ? uchar(piece[place++]) : -1;
    }

    bool read(Pixel &pixel)
    {
        for (uchar &number : pixel) {
            const int next = byte();
            if (next < 0)
                return false;
            number = uchar(next);
        }
        return true;
    }

    /// One channel after the other, in runs and pieces.
    bool readChannels()
    {
        for (size_t channel = 0; channel < 4; ++channel) {
            for (size_t x = 0; x < pixels.size();) {
                const int head = byte();
                const bool isRun = head > 128;
                const auto count = size_t(isRun ? head - 128 : head);
                if (head <= 0 || count > pixels.size() - x)
                    return false;
                int value = isRun ? byte() : 0;
                for (const size_t end = x + count; x < end; ++x) {
                    value = isRun ? value : byte();
                    if (value < 0)
                        return false;
                    pixels[x][channel] = uchar(value);
                }
            }
        }
        return true;
    }

    /// A pixel of three ones says how often the last one is repeated; a second one behind it counts
    /// in steps of 256, and so on.
    bool readPixels(Pixel pixel)
    {
        unsigned shift = 0;
        for (size_t x = 0; x < pixels.size();) {
            const bool isRun = pixel[0] == 1 && pixel[1] == 1 && pixel[2] == 1;
            if (isRun) {
                const size_t count = shift < 32 ? size_t(pixel[3]) << shift : 0;
                if (x == 0 || count > pixels.size() - x)
                    return false;
                std::fill_n(pixels.begin() + qsizetype(x), count, pixels[x - 1]);
                x += count;
                shift += 8;
            } else {
                pixels[x++] = pixel;
                shift = 0;
            }
            if (x < pixels.size() && !read(pixel))
                return false;
        }
        return true;
    }

    QIODevice &file;
    QByteArray piece;
    qsizetype place = 0;
    std::vector<Pixel> pixels;
};

void convertRow(const std::vector<Pixel> &pixels, float *numbers)
{
    constexpr int kBias = 128 + 8;
    for (const Pixel &pixel : pixels) {
        const float unit = pixel[3] == 0 ? 0.0F : std::ldexp(1.0F, pixel[3] - kBias);
        for (size_t c = 0; c < 3; ++c)
            *numbers++ = (float(pixel[c]) + 0.5F) * unit;
        *numbers++ = 1.0F;
    }
}

DecodedPicture read(QFile &file, const Header &header, const ReadOptions &options)
{
    LightRows::Layout layout;
    layout.size = header.size;
    layout.transformation = header.transformation;
    layout.space = header.space;
    LightRows rows(layout, options);
    if (rows.isNull())
        return picture::failure(DecodeError::NoMemory, header.size);
    Rows source(file, header.size.width());
    for (int y = 0; y < header.size.height(); ++y) {
        const std::vector<Pixel> *pixels = source.next();
        if (!pixels)
            return picture::failure(DecodeError::Damaged);
        convertRow(*pixels, rows.row(y));
        rows.rowWritten(y);
    }
    constexpr double kLumensPerWatt = 179.0;
    DecodedPicture decoded;
    decoded.image = rows.taken();
    decoded.whiteLuminance = header.exposure > 0.0 ? kLumensPerWatt / header.exposure : 0.0;
    return decoded.image.isNull() ? picture::failure(DecodeError::NoMemory, header.size) : decoded;
}

} // namespace

std::optional<DecodedPicture> hdr_decoder::decode(QFile &file, const ReadOptions &options)
{
    if (!isRadiance(file))
        return std::nullopt;
    file.seek(0);
    const std::optional<Header> header = readHeader(file);
    if (!header)
        return picture::failure(DecodeError::Damaged);
    if (header->format == "32-bit_rle_xyze")
        return picture::unsupported(QStringLiteral("Radiance HDR (CIE XYZ)"));
    if (qint64(header->size.width()) * header->size.height() > options.pixelLimit)
        return picture::failure(DecodeError::TooLarge, header->size);
    return read(file, *header, options);
}

std::optional<PictureHeader> hdr_decoder::headerOf(QIODevice &file)
{
    constexpr int kMantissaBits = 8;
    file.seek(0);
    const std::optional<Header> told =
        isRadiance(file) ? readHeader(file) : std::optional<Header>();
    file.seek(0);
    if (!told)
        return std::nullopt;
    const bool isTurned = told->transformation & QImageIOHandler::TransformationRotate90;
    PictureHeader header;
    header.format = QStringLiteral("Radiance HDR");
    header.size = isTurned ? told->size.transposed() : told->size;
    header.isUpright = true;
    header.bitsPerSample = kMantissaBits;
    return header;
}
