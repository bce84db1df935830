#include "DecodedPicture.h"

#include <QCoreApplication>

namespace {

struct PictureDecoder
{
    Q_DECLARE_TR_FUNCTIONS(PictureDecoder)
};

QString tooLarge(QSize size)
{
    return PictureDecoder::tr("the picture is too large (%1 x %2 pixels)")
        .arg(size.width())
        .arg(size.height());
}

QString noMemory(QSize size)
{
    if (size.isEmpty())
        return PictureDecoder::tr("not enough memory");
    return PictureDecoder::tr("not enough memory for %1 x %2 pixels")
        .arg(size.width())
        .arg(size.height());
}

QString reasonFor(DecodeError error, QSize size)
{
    switch (error) {
    case DecodeError::None:
        return {};
    case DecodeError::Missing:
        return PictureDecoder::tr("no such file");
    case DecodeError::Directory:
        return PictureDecoder::tr("is a directory");
    case DecodeError::NotRegularFile:
        return PictureDecoder::tr("not a regular file");
    case DecodeError::NoPermission:
        return PictureDecoder::tr("no permission to read it");
    case DecodeError::Unreadable:
        return PictureDecoder::tr("cannot be read");
    case DecodeError::Empty:
        return PictureDecoder::tr("the file is empty");
    case DecodeError::NotAPicture:
    case DecodeError::Unsupported:
        return PictureDecoder::tr("not a picture");
    case DecodeError::Damaged:
        return PictureDecoder::tr("the picture is truncated or damaged");
    case DecodeError::TooLarge:
        return tooLarge(size);
    case DecodeError::NoMemory:
        return noMemory(size);
    case DecodeError::Cancelled:
        return PictureDecoder::tr("cancelled");
    }
    return {};
}

} // namespace

DecodedPicture picture::failure(DecodeError error, QSize size)
{
    return {{}, error, reasonFor(error, size)};
}

DecodedPicture picture::unsupported(const QString &kind)
{
    //: %1 is the name of a file format, such as HEIC
    const QString reason =
        PictureDecoder::tr("%1, a kind of picture that this build does not read");
    return {{}, DecodeError::Unsupported, reason.arg(kind)};
}
