// Merge and alignment of pictures of any size, row length and format: equal to the plain code.

#include "InputReader.h"
#include "exposure_merge.h"
#include "exposure_merge_plain.h"
#include "fuzz_require.h"
#include "fuzz_target.h"
#include "mtb_alignment.h"
#include "mtb_alignment_plain.h"
#include "mtb_shifts.h"
#include "parallel_rows.h"

#include <QCoreApplication>

#include <memory>
#include <vector>

namespace {

constexpr int kLargestSide = 80;
constexpr int kMostPictures = 5;

struct Picture
{
    std::vector<uchar> bytes; ///< exactly as many as the picture needs
    std::unique_ptr<QImage> image;
};

QRgb nextColour(quint32 &state)
{
    state = state * 1664525U + 1013904223U;
    return state;
}

/// The input gives the shape and the beginning, a generator that it seeds gives the rest.
Picture makePicture(InputReader &input, QSize size)
{
    const auto format =
        static_cast<QImage::Format>(input.between(QImage::Format_Mono, QImage::NImageFormats - 1));
    const int bits = QImage(1, 1, format).depth();
    const int rowBytes = (size.width() * bits + 7) / 8 + input.between(0, 9);
    const int alignment = bits > 32 ? 8 : bits > 16 ? 4 : bits > 8 ? 2 : 1;
    const int alignedRowBytes = (rowBytes + alignment - 1) / alignment * alignment;

    Picture picture;
    picture.bytes.resize(size_t(alignedRowBytes) * size_t(size.height()));
    const quint32 kind = input.byte();
    quint32 state = kind * 2654435761U + input.byte();
    for (uchar &byte : picture.bytes)
        byte = kind % 3 == 0 ? input.byte() : uchar(nextColour(state) >> 24);
    picture.image = std::make_unique<QImage>(picture.bytes.data(), size.width(), size.height(),
                                             alignedRowBytes, format);
    FUZZ_REQUIRE(!picture.image->isNull());
    if (format == QImage::Format_Indexed8 || format == QImage::Format_Mono ||
        format == QImage::Format_MonoLSB) {
        const int colours = format == QImage::Format_Indexed8 ? 256 : 2;
        for (int i = 0; i < colours; ++i)
            picture.image->setColor(i, nextColour(state));
    }
    return picture;
}

void requireEqual(const QImage *one, const QImage *other)
{
    FUZZ_REQUIRE(!one == !other);
    FUZZ_REQUIRE(!one || *one == *other);
}

void mergeBothWays(const QList<QImage *> &pictures)
{
    const std::unique_ptr<QImage> fast(mergeExposures(pictures));
    const std::unique_ptr<QImage> plain(plain::mergeExposures(pictures));
    requireEqual(fast.get(), plain.get());
}

void shiftBothWays(const QList<QImage *> &pictures, const std::vector<QPoint> &sums,
                   shift::Memory memory)
{
    QList<QImage *> shifted;
    for (const QImage *picture : pictures)
        shifted.append(new QImage(picture->copy()));
    shift::pictures(shifted, sums, memory);
    for (int i = 1; i < pictures.size(); ++i) {
        const QPoint shift = sums[size_t(i) - 1];
        const std::unique_ptr<QImage> copy(shiftQImage(pictures[i], shift.x(), shift.y()));
        FUZZ_REQUIRE(*copy == *shifted[i]);
    }
    qDeleteAll(shifted);
}

void alignBothWays(const QList<QImage *> &pictures)
{
    const std::vector<QPoint> shifts = mtb::pairShifts(pictures);
    FUZZ_REQUIRE(shifts == plain::pairShifts(pictures));
    const std::vector<QPoint> sums = mtb::summedShifts(shifts);
    shiftBothWays(pictures, sums, shift::Memory::New);
    shiftBothWays(pictures, sums, shift::Memory::Reused);
}

} // namespace

int LLVMFuzzerInitialize(int *argc, char ***argv)
{
    new QCoreApplication(*argc, *argv);
    return 0;
}

int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    InputReader input(data, size);
    parallel::setThreadLimit(input.between(1, 3));
    const int count = input.between(0, kMostPictures);
    const bool isOneSize = input.byte() % 4 != 0;
    QSize pictureSize;
    std::vector<Picture> owned;
    QList<QImage *> pictures;
    for (int i = 0; i < count; ++i) {
        if (i == 0 || !isOneSize)
            pictureSize = {input.between(1, kLargestSide), input.between(1, kLargestSide)};
        owned.push_back(makePicture(input, pictureSize));
        pictures.append(owned.back().image.get());
    }
    mergeBothWays(pictures);
    if (count >= 2)
        alignBothWays(pictures);
    return 0;
}
