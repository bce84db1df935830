#pragma once

#include "Transform.h"
#include "line_rows.h"
#include "row_places.h"

namespace registration {

/// True when all rows of a picture of this size lie on nearly level lines of the shot, and in its
/// size, as those of hand-held shots do: the two passes then lose no detail.
bool areRowsLevel(const Matrix &toShot, QSize size);

/// Makes rows of a resampled picture whose rows are level, in two passes (see line_rows.h). Keeps
/// what a row needs for the next one; one for each thread. source, borrowed: as deep as Channel.
template <typename Channel>
class LineResampler
{
public:
    LineResampler(const SourcePixels &source, const Matrix &toShot, int width);

    /// out: four channels for each pixel; 0 where the shot does not cover it.
    void makeRow(int y, Channel *out);

private:
    void findDownPlaces(int y, ColumnRange range);

    const SourcePixels source;
    const Matrix toShot;
    RowPlaces places;
    std::vector<int32_t> downPlaces; ///< of the columns, in rows times kPhases
    LineColumns<Channel> columns;
};

extern template class LineResampler<uint8_t>;
extern template class LineResampler<uint16_t>;

} // namespace registration
