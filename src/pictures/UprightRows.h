#pragma once

#include <QImage>
#include <QImageIOHandler>

#include <cstddef>
#include <vector>

/// A picture that a decoder fills row by row as the file stores it, and that comes out upright.
/// Turning needs no second picture: rows are placed some at a time, while the cache holds them.
/// One thread at a time.
class UprightRows
{
public:
    /// stored: the size in the file; format: one of 8, 16, 32, 64 or 128 bits per pixel.
    UprightRows(QSize stored, QImage::Format format,
                QImageIOHandler::Transformations transformation);

    /// True when memory is lacking; then nothing else may be called.
    bool isNull() const { return picture.isNull(); }

    /// Where to write stored row y (width pixels). Ask in the order of the rows.
    uchar *row(int y);
    /// Stored row y is written.
    void rowWritten(int y);

    /// The upright picture, complete once the last row is written.
    QImage &image() { return picture; }

private:
    template <typename Pixel>
    void placeStrip(int firstRow, int rowCount);
    bool isTurned() const { return transformation != QImageIOHandler::TransformationNone; }
    size_t pixelBytes() const { return static_cast<size_t>(picture.depth()) / 8; }

    const QSize storedSize;
    const QImageIOHandler::Transformations transformation;
    QImage picture;
    std::vector<uchar> strip; ///< rows waiting to be placed; empty when they need no turning
};
