#pragma once

#include "Chromaticities.h"
#include "DecodedPicture.h"
#include "ReadOptions.h"
#include "UprightRows.h"

#include <vector>

/// What a decoder of light fills row by row, and that comes out as the picture that is asked for:
/// the light itself in floats, or as a screen shows it, cut off at white. One thread at a time.
class LightRows
{
public:
    struct Layout
    {
        QSize size; ///< in the file
        QImageIOHandler::Transformations transformation = QImageIOHandler::TransformationNone;
        bool hasAlpha = false;
        bool isMultiplied = false; ///< the colours, with alpha
        /// The numbers are levels of the space and not light.
        bool areLevels = false;
        QColorSpace space; ///< whose primaries count; not valid: sRGB
    };

    /// options: of light and depth.
    LightRows(const Layout &layout, const ReadOptions &options);

    /// True when memory is lacking; then nothing else may be called.
    bool isNull() const { return rows.isNull(); }

    /// Where to write stored row y: red, green, blue and alpha of each pixel. Ask in the order of
    /// the rows.
    float *row(int y);
    /// Stored row y is written.
    void rowWritten(int y);

    /// The upright picture with its colour space, once the last row is written; null when memory is
    /// lacking.
    QImage taken();

private:
    template <typename Word>
    void convertRow(Word *words, float white) const;

    const Layout layout;
    const bool isLightWanted;
    UprightRows rows;
    std::vector<float> scratch; ///< a row; empty when the picture holds floats itself
};
