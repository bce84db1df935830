#include "BrightJpeg.h"

#include <algorithm>
#include <cmath>

namespace {

const QByteArray kIso = QByteArray("urn:iso:std:iso:ts:21496:-1") + '\0';

unsigned byteAt(const QByteArray &bytes, int place)
{
    return place >= 0 && place < bytes.size() ? static_cast<unsigned char>(bytes[place]) : 0U;
}

unsigned number(const QByteArray &bytes, int place, int count, bool isBigEndian = true)
{
    unsigned value = 0;
    for (int i = 0; i < count; ++i)
        value = value * 256 + byteAt(bytes, place + (isBigEndian ? i : count - 1 - i));
    return value;
}

/// A numerator and a denominator of 32 bits each.
double fraction(const QByteArray &bytes, int place, bool isSigned)
{
    const unsigned top = number(bytes, place, 4);
    const double numerator =
        isSigned && top > 0x7FFFFFFFU ? double(top) - 4294967296.0 : double(top);
    return numerator / double(number(bytes, place + 4, 4));
}

} // namespace

double BrightJpeg::lightOf(int level)
{
    const double v = level / 255.0;
    return v <= 0.04045 ? v / 12.92 : std::pow((v + 0.055) / 1.055, 2.4);
}

/// Up to the start of the scan.
std::vector<BrightJpeg::Segment> BrightJpeg::segmentsOf(const QByteArray &file)
{
    std::vector<Segment> segments;
    int place = 2;
    while (byteAt(file, place) == 0xFF && byteAt(file, place + 1) != 0xDA) {
        const int length = int(number(file, place + 2, 2));
        segments.push_back({int(byteAt(file, place + 1)), place + 4, length - 2});
        place += 2 + length;
    }
    return segments;
}

BrightJpeg::BrightJpeg(const QByteArray &file)
{
    for (const Segment &segment : segmentsOf(file))
        hasBaseVersion |= segment.marker == 0xE2 &&
                          file.mid(segment.begin, segment.length) == kIso + QByteArray(4, '\0');
    readList(file);
    if (!problem.isEmpty())
        return;
    readTerms();
    base = QImage::fromData(file).convertToFormat(QImage::Format_RGB32);
    map = QImage::fromData(mapFile).convertToFormat(QImage::Format_RGB32);
    if (base.isNull() || map.isNull())
        problem = "a picture cannot be decoded";
}

/// DC-007, 5.2: a TIFF head and directory; offsets count from the head.
void BrightJpeg::readList(const QByteArray &file)
{
    int head = -1;
    for (const Segment &segment : segmentsOf(file)) {
        if (segment.marker == 0xE2 && file.mid(segment.begin, 4) == QByteArray("MPF", 4))
            head = segment.begin + 4;
    }
    const bool isBig = file.mid(head, 4) == QByteArray("MM\0*", 4);
    if (head < 0 || (!isBig && file.mid(head, 4) != QByteArray("II*\0", 4))) {
        problem = "no list of pictures";
        return;
    }
    const int directory = head + int(number(file, head + 4, 4, isBig));
    int entries = 0;
    unsigned pictures = 0;
    for (int i = 0; i < int(number(file, directory, 2, isBig)); ++i) {
        const int field = directory + 2 + 12 * i;
        const unsigned tag = number(file, field, 2, isBig);
        if (tag == 0xB001)
            pictures = number(file, field + 8, 4, isBig);
        if (tag == 0xB002)
            entries = head + int(number(file, field + 8, 4, isBig));
    }
    if (pictures != 2) {
        problem = "not two pictures";
        return;
    }
    listedBaseBytes = number(file, entries + 4, 4, isBig);
    const qint64 bytes = number(file, entries + 20, 4, isBig);
    baseBytes = head + number(file, entries + 24, 4, isBig);
    mapFile = file.mid(baseBytes, bytes);
    if (!mapFile.startsWith("\xFF\xD8") || !mapFile.endsWith("\xFF\xD9") ||
        baseBytes + bytes != file.size() || file.mid(baseBytes - 2, 2) != "\xFF\xD9")
        problem = "the second picture is not where the list says";
}

/// ISO 21496-1, annex C.2.
void BrightJpeg::readTerms()
{
    QByteArray terms;
    for (const Segment &segment : segmentsOf(mapFile)) {
        const QByteArray contents = mapFile.mid(segment.begin, segment.length);
        if (segment.marker == 0xE2 && contents.startsWith(kIso))
            terms = contents.mid(kIso.size());
    }
    const unsigned flags = byteAt(terms, 4);
    const bool hasThree = (flags & 0x80U) != 0;
    if (terms.size() != 4 + 1 + 16 + (hasThree ? 3 : 1) * 40 || number(terms, 0, 2) != 0 ||
        (flags & 0x40U) == 0) {
        problem = "no terms, or unknown ones";
        return;
    }
    baseHeadroom = fraction(terms, 5, false);
    alternateHeadroom = fraction(terms, 13, false);
    for (int c = 0; c < 3; ++c) {
        const int place = 21 + (hasThree ? 40 * c : 0);
        channels[size_t(c)] = {fraction(terms, place, true), fraction(terms, place + 8, true),
                               fraction(terms, place + 16, false),
                               fraction(terms, place + 24, true),
                               fraction(terms, place + 32, true)};
    }
}

/// In stops, between the map's samples by straight lines.
double BrightJpeg::gainAt(int x, int y, int channel) const
{
    const auto levelAt = [&](int i, int j) {
        const QRgb word =
            map.pixel(std::clamp(i, 0, map.width() - 1), std::clamp(j, 0, map.height() - 1));
        return channel == 0 ? qRed(word) : channel == 1 ? qGreen(word) : qBlue(word);
    };
    const double across = (x + 0.5) * map.width() / base.width() - 0.5;
    const double down = (y + 0.5) * map.height() / base.height() - 0.5;
    const int left = int(std::floor(across));
    const int top = int(std::floor(down));
    const double right = across - left;
    const double low = down - top;
    const double level =
        (1 - low) * ((1 - right) * levelAt(left, top) + right * levelAt(left + 1, top)) +
        low * ((1 - right) * levelAt(left, top + 1) + right * levelAt(left + 1, top + 1));
    const Channel &terms = channels[size_t(channel)];
    return terms.least + (terms.most - terms.least) * std::pow(level / 255.0, 1.0 / terms.gamma);
}

std::vector<float> BrightJpeg::shown() const
{
    std::array<double, 256> lights = {};
    for (int level = 0; level < 256; ++level)
        lights[size_t(level)] = lightOf(level);
    std::vector<float> light;
    for (int y = 0; y < base.height(); ++y) {
        for (int x = 0; x < base.width(); ++x) {
            const QRgb word = base.pixel(x, y);
            const int levels[] = {qRed(word), qGreen(word), qBlue(word)};
            for (int c = 0; c < 3; ++c) {
                const Channel &terms = channels[size_t(c)];
                light.push_back(float((lights[size_t(levels[c])] + terms.baseOffset) *
                                          std::exp2(gainAt(x, y, c)) -
                                      terms.alternateOffset));
            }
        }
    }
    return light;
}
