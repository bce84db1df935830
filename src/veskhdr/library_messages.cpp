#include "library_messages.h"

#include <QString>

#include <cstdio>

#include <tiffio.h>

namespace {

/// Warnings of the toolkit are about the files; what ends the process is about the program.
void showOnlyFatal(QtMsgType type, const QMessageLogContext &, const QString &text)
{
    if (type == QtFatalMsg)
        std::fprintf(stderr, "%s\n", text.toLocal8Bit().constData());
}

} // namespace

void silenceImageLibraries()
{
    qInstallMessageHandler(showOnlyFatal);
    TIFFSetWarningHandler(nullptr);
    TIFFSetErrorHandler(nullptr);
}
