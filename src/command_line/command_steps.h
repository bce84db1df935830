#pragma once

#include "ExitCode.h"
#include "ProgressBar.h"
#include "ReadOptions.h"

#include <OutputFile.h>

#include <QImage>
#include <QList>
#include <QString>
#include <QStringList>

/// Steps that commands which make pictures out of pictures have in common. Each says on standard
/// error what is wrong, if anything is, and returns the exit code for it. Main thread only.
namespace command_line {

ExitCode exitCodeOf(OutputFile::Error error);

/// Says the reason, without the bar in between, and returns the code.
ExitCode refuse(ProgressBar &bar, ExitCode code, const QString &file, const QString &reason);

/// Whether the path can be written to; it must not be one of the pictures.
ExitCode checkTarget(ProgressBar &bar, const QString &path, bool mayReplace,
                     const QStringList &pictures);

struct PictureFiles
{
    QStringList paths;
    QStringList names; ///< that people know them by: the paths, or "-" for standard input
    ReadOptions how;
};

/// Decodes them, upright, into `pictures`, while the bar goes from 0 to `share`. All that cannot be
/// read, and what was wrong with others, are named; the code is that of the first failure.
ExitCode readPictures(ProgressBar &bar, double share, const PictureFiles &files,
                      QList<QImage> &pictures);

/// Names all that have not the first one's size.
ExitCode checkSizes(ProgressBar &bar, const QStringList &paths, const QList<QImage> &pictures);

/// Whether two paths lead to one existing file.
bool isSameFile(const QString &one, const QString &other);

} // namespace command_line
