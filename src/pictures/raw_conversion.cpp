#include "picture_reader.h"

#include <VeskRaw.h>

#include <QCoreApplication>

namespace {

struct PictureDecoder
{
    Q_DECLARE_TR_FUNCTIONS(PictureDecoder)
};

/// What VeskRaw says in words, as an error. The only place that knows these words.
DecodeError errorOf(const QString &words)
{
    static constexpr struct
    {
        const char *words;
        DecodeError error;
    } kErrors[] = {
        {"Not enough memory", DecodeError::NoMemory},
        {"Unsufficient memory", DecodeError::NoMemory},
        {"The picture has more pixels than allowed", DecodeError::TooLarge},
        {"Image too big for processing", DecodeError::TooLarge},
        {"Cancelled by user callback", DecodeError::Cancelled},
    };
    for (const auto &known : kErrors) {
        if (words == QCoreApplication::translate("VeskRaw", known.words))
            return known.error;
    }
    return DecodeError::Damaged;
}

} // namespace

DecodedPicture picture::convertRaw(const QString &path, const ReadOptions &options)
{
    VeskRaw::setPixelLimit(options.pixelLimit);
    const bool isHalfEnough = options.side > 0;
    VeskRaw::Conversion raw = VeskRaw::convert(path, isHalfEnough, options.cancelled);
    if (!raw.picture.isNull())
        return {std::move(raw.picture), DecodeError::None, {}};
    const QString reason = PictureDecoder::tr("the camera raw file cannot be converted: %1");
    return {{}, errorOf(raw.error), reason.arg(raw.error)};
}
