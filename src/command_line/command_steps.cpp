#include "command_steps.h"

#include "console.h"
#include "file_names.h"
#include "library_messages.h"
#include "picture_loader.h"

#include <filesystem>

namespace {

ExitCode exitCodeOf(DecodeError error)
{
    switch (error) {
    case DecodeError::None:
        return ExitCode::Ok;
    case DecodeError::Missing:
    case DecodeError::Directory:
    case DecodeError::NotRegularFile:
    case DecodeError::NoPermission:
    case DecodeError::Unreadable:
        return ExitCode::NoInput;
    case DecodeError::NoMemory:
        return ExitCode::NoMemory;
    case DecodeError::Empty:
    case DecodeError::NotAPicture:
    case DecodeError::Unsupported:
    case DecodeError::Damaged:
    case DecodeError::TooLarge:
    case DecodeError::Cancelled:
        break;
    }
    return ExitCode::BadData;
}

} // namespace

ExitCode command_line::exitCodeOf(OutputFile::Error error)
{
    switch (error) {
    case OutputFile::Error::None:
        return ExitCode::Ok;
    case OutputFile::Error::WriteFailed:
        return ExitCode::WriteFailed;
    case OutputFile::Error::Exists:
    case OutputFile::Error::CannotCreate:
        break;
    }
    return ExitCode::CannotCreate;
}

bool command_line::isSameFile(const QString &one, const QString &other)
{
    std::error_code ignored;
    return std::filesystem::equivalent(file_names::toBytes(one).toStdString(),
                                       file_names::toBytes(other).toStdString(), ignored);
}

ExitCode command_line::refuse(ProgressBar &bar, ExitCode code, const QString &file,
                              const QString &reason)
{
    bar.clear();
    console::complain(file, reason);
    return code;
}

ExitCode command_line::checkTarget(ProgressBar &bar, const QString &path, bool mayReplace,
                                   const QStringList &pictures)
{
    OutputFile output(path, mayReplace);
    if (output.check() != OutputFile::Error::None)
        return refuse(bar, exitCodeOf(output.error()), path,
                      output.error() == OutputFile::Error::Exists
                          ? output.reason() + QStringLiteral(", --force replaces it")
                          : output.reason());
    for (const QString &picture : pictures) {
        if (isSameFile(picture, path))
            return refuse(bar, ExitCode::Usage, path, QStringLiteral("is one of the pictures"));
    }
    return ExitCode::Ok;
}

ExitCode command_line::readPictures(ProgressBar &bar, double share, const PictureFiles &files,
                                    QList<QImage> &pictures)
{
    bar.show(0.0, QStringLiteral("Reading"));
    const LibraryMute mute;
    const qsizetype all = files.paths.size();
    const std::vector<DecodedPicture> decoded =
        loadPictures(files.paths, files.how, [&](int count) {
            bar.show(share * count / double(all), QStringLiteral("Reading"));
        });
    ExitCode first = ExitCode::Ok;
    for (size_t i = 0; i < decoded.size(); ++i) {
        const DecodedPicture &picture = decoded[i];
        if (picture.error != DecodeError::None) {
            const ExitCode code =
                refuse(bar, ::exitCodeOf(picture.error), files.names[int(i)], picture.reason);
            first = first == ExitCode::Ok ? code : first;
        }
        for (const QString &warning : picture.warnings)
            refuse(bar, ExitCode::Ok, files.names[int(i)], QStringLiteral("warning: ") + warning);
        pictures.append(picture.image);
    }
    return first;
}

ExitCode command_line::checkSizes(ProgressBar &bar, const QStringList &paths,
                                  const QList<QImage> &pictures)
{
    const QSize size = pictures.first().size();
    ExitCode code = ExitCode::Ok;
    for (qsizetype i = 1; i < pictures.size(); ++i) {
        const QSize other = pictures[i].size();
        if (other != size)
            code = refuse(bar, ExitCode::BadData, paths[i],
                          QStringLiteral("its size %1 x %2 is not that of %3 (%4 x %5)")
                              .arg(other.width())
                              .arg(other.height())
                              .arg(paths.first())
                              .arg(size.width())
                              .arg(size.height()));
    }
    return code;
}
