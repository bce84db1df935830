#pragma once

#include <QByteArray>
#include <QList>

/// Several pictures in one JPEG file, one behind the other: the Multi-Picture Format, CIPA DC-007.
/// Any thread; what is read may be damaged or hostile.
namespace multi_picture {

/// Where a picture lies in the file.
struct Place
{
    qint64 offset = 0;
    qint64 length = 0;
};

/// The contents of the APP2 segment for two pictures, always as many bytes. firstBytes: of the
/// first picture's file, this segment included. headerOffset: of the byte behind the segment's
/// signature in the file, from which offsets count.
QByteArray segment(qint64 firstBytes, qint64 secondBytes, qint64 headerOffset);

/// How long the signature is.
constexpr qsizetype kSignatureBytes = 4;

bool isSegment(const QByteArray &bytes);

/// The pictures behind the first one. bytes: for which isSegment() holds; headerOffset: as above.
/// Places may lie outside of the file. Empty when the segment is damaged.
QList<Place> laterPictures(const QByteArray &bytes, qint64 headerOffset);

} // namespace multi_picture
