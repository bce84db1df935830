#pragma once

#include <QImage>
#include <QList>

#include <memory>
#include <vector>

/// A bracket to measure with: one textured scene, each picture brighter than the one before and
/// offset by some pixels, as a hand-held camera takes it. Format_RGB32.
class BenchBracket
{
public:
    BenchBracket(int count, QSize size);

    /// The pictures; they stay this object's.
    QList<QImage *> list() const;

    /// Copies that the caller owns.
    QList<QImage *> copies() const;

private:
    std::vector<std::unique_ptr<QImage>> pictures;
};

/// About so many megapixels at 4:3.
QSize sizeOfMegapixels(double megapixels);
