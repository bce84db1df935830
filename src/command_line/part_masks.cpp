#include "part_masks.h"

#include "command_steps.h"
#include "parallel_rows.h"
#include "stroke_parts.h"

namespace {

/// 255 where the picture is light.
QImage lightPartsOf(const QImage &picture)
{
    constexpr int kLight = 128;
    QImage mask = picture.convertToFormat(QImage::Format_Grayscale8);
    uchar *const bits = mask.bits();
    if (!bits)
        return {};
    const qsizetype rowBytes = mask.bytesPerLine();
    const int width = mask.width();
    parallel::rows(mask.size(), [&](int begin, int end) {
        for (int y = begin; y < end; ++y) {
            uchar *row = bits + y * rowBytes;
            for (int x = 0; x < width; ++x)
                row[x] = row[x] >= kLight ? 255 : 0;
        }
    });
    return mask;
}

ExitCode checkSize(ProgressBar &bar, const QString &path, QSize size, QSize wanted)
{
    if (size == wanted)
        return ExitCode::Ok;
    return command_line::refuse(bar, ExitCode::BadData, path,
                                QStringLiteral("as a mask it must have the size of the pictures, "
                                               "%1 x %2, not %3 x %4")
                                    .arg(wanted.width())
                                    .arg(wanted.height())
                                    .arg(size.width())
                                    .arg(size.height()));
}

} // namespace

ExitCode command_line::readParts(ProgressBar &bar, const MergeOptions &options, QSize size,
                                 exposure::Options &how)
{
    for (const TakeFile &take : options.takes) {
        ReadOptions reading;
        reading.pixelLimit = options.pixelLimit;
        QList<QImage> read;
        ExitCode code = readPictures(bar, 0.0, {{take.mask}, {take.mask}, reading}, read);
        if (code == ExitCode::Ok)
            code = checkSize(bar, take.mask, read.first().size(), size);
        if (code != ExitCode::Ok)
            return code;
        how.takes.push_back({take.shot, lightPartsOf(read.first())});
        if (how.takes.back().mask.isNull())
            return refuse(bar, ExitCode::NoMemory, take.mask, QStringLiteral("not enough memory"));
    }
    brush::Parts painted = brush::parts(options.strokes, size);
    how.takes.insert(how.takes.end(), painted.takes.begin(), painted.takes.end());
    how.things = std::move(painted.things);
    return ExitCode::Ok;
}
