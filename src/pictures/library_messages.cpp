#include "library_messages.h"

#include <QString>

#include <tiffio.h>

#include <fcntl.h>
#include <unistd.h>

namespace {

int copyOf(int descriptor)
{
    return ::fcntl(descriptor, F_DUPFD_CLOEXEC, 0);
}

/// Warnings of Qt are about the files; what ends the process is about the program.
void showOnlyFatal(QtMsgType type, const QMessageLogContext &, const QString &text)
{
    if (type == QtFatalMsg)
        std::fprintf(stderr, "%s\n", text.toLocal8Bit().constData());
}

} // namespace

void library_messages::silence()
{
    qInstallMessageHandler(showOnlyFatal);
    TIFFSetWarningHandler(nullptr);
    TIFFSetErrorHandler(nullptr);
}

std::FILE *library_messages::ownErrorStream()
{
    static std::FILE *const stream = [] {
        const int copy = copyOf(STDERR_FILENO);
        std::FILE *opened = copy < 0 ? nullptr : ::fdopen(copy, "w");
        return opened ? opened : stderr;
    }();
    return stream;
}

LibraryMute::LibraryMute()
{
    library_messages::ownErrorStream(); // before standard error is taken away
    original = copyOf(STDERR_FILENO);
    const int nowhere = ::open("/dev/null", O_WRONLY | O_CLOEXEC);
    if (original >= 0 && nowhere >= 0)
        ::dup2(nowhere, STDERR_FILENO);
    if (nowhere >= 0)
        ::close(nowhere);
}

LibraryMute::~LibraryMute()
{
    if (original < 0)
        return;
    ::dup2(original, STDERR_FILENO);
    ::close(original);
}
