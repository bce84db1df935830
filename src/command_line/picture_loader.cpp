#include "picture_loader.h"

#include "file_names.h"
#include "parallel_rows.h"

namespace {

DecodedPicture load(const QString &name, const ReadOptions &options)
{
    const file_names::ReadablePath file(name);
    DecodedPicture picture = picture::read(file.path(), options);
    if (picture.error == DecodeError::TooLarge)
        picture.reason += QStringLiteral(", --max-megapixels allows more");
    return picture;
}

} // namespace

std::vector<DecodedPicture> command_line::loadPictures(const QStringList &paths,
                                                       const ReadOptions &options,
                                                       const std::function<void(int)> &onDecoded)
{
    std::vector<DecodedPicture> pictures(size_t(paths.size()));
    parallel::each(
        int(paths.size()), [&](int i) { pictures[size_t(i)] = load(paths[i], options); },
        onDecoded);
    return pictures;
}
