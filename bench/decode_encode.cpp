// What a merge cannot do without: decodes the pictures and writes the first one, with the code that
// veskhdr uses. The whole process is measured beside 'veskhdr merge' (scripts/bench).

#include "PictureFormat.h"
#include "picture_loader.h"
#include "picture_writer.h"

#include <QCoreApplication>

#include <cstdio>

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    const QStringList arguments = app.arguments();
    if (arguments.size() < 3) {
        std::fprintf(stderr, "usage: decode_encode PICTURE... OUT.jpg\n");
        return 64;
    }
    const auto decoded = command_line::loadPictures(arguments.mid(1, arguments.size() - 2),
                                                    ReadOptions(), [](int) {});
    for (const DecodedPicture &picture : decoded) {
        if (picture.error != DecodeError::None)
            return 65;
    }
    WriteOptions options;
    options.mayReplace = true;
    return picture::write(decoded.front().image, arguments.last(), PictureFormat::Jpeg, options)
                   .reason.isEmpty()
               ? 0
               : 74;
}
