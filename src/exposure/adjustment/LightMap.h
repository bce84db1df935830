#pragma once

#include <QImage>

#include <vector>

namespace exposure {

/// How light the surroundings of each pixel are: an edge-preserving mean of the luma, so that
/// brightening what is dark moves whole parts of the picture and leaves the detail in them its
/// contrast. The guided filter of He, Sun and Tang (2010), section 3, guided by the picture itself
/// and on a small copy of it as He and Sun have it ("Fast Guided Filter", 2015): the surroundings
/// of a pixel are slope * luma + offset. The window is a part of the picture's size, so a reduced
/// copy of a picture has the same surroundings. Any thread.
class LightMap
{
public:
    static constexpr int kSide = 320; ///< most cells along the longer side

    /// picture: Format_RGB32, ARGB32, RGBX64 or RGBA64. Work in proportion to its pixels.
    explicit LightMap(const QImage &picture);

    struct Line
    {
        float slope;
        float offset; ///< on the scale of 0 to 65535
    };

    /// At a pixel: between the cells, whose numbers are those of their middles.
    Line at(int x, int y) const;

    /// Where the pixels of a part, or of a reduced copy of one, lie in the picture.
    struct Window
    {
        Window(QPoint topLeft = {}, double pictureStep = 1) // also: a part as it is
            : corner(topLeft)
            , step(float(pictureStep))
        {
        }

        QPoint corner;
        float step; ///< pixels of the picture to one of the part
    };

    /// Those of `count` pixels of a part from x on, in two arrays.
    void row(const Window &window, int x, int y, int count, float *slopes, float *offsets) const;

    QSize cells() const { return {columns, rows}; }
    int cellSide() const { return side; }

private:
    struct Place
    {
        int first;
        int second;
        float share; ///< of the second
    };

    Place placeOf(float middle, int count) const;
    static Line mixed(const Line &a, const Line &b, float shareOfB);
    void measure(const QImage &picture, std::vector<double> &lumas) const;
    void filter(const std::vector<double> &lumas);

    int side;
    int columns;
    int rows;
    std::vector<Line> lines; ///< a cell each, by rows
};

} // namespace exposure
