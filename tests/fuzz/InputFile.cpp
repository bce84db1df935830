#include "InputFile.h"

#include "fuzz_require.h"

#if defined(Q_OS_LINUX)
#include <sys/mman.h>
#endif
#include <unistd.h>

InputFile::InputFile(const uint8_t *data, size_t size)
{
#if defined(Q_OS_LINUX)
    descriptor = ::memfd_create("input", MFD_CLOEXEC);
    FUZZ_REQUIRE(descriptor >= 0);
    FUZZ_REQUIRE(::write(descriptor, data, size) == ssize_t(size));
    name = QStringLiteral("/proc/self/fd/%1").arg(descriptor);
#else
    FUZZ_REQUIRE(file.open());
    FUZZ_REQUIRE(file.write(reinterpret_cast<const char *>(data), qint64(size)) == qint64(size));
    file.close();
    name = file.fileName();
#endif
}

InputFile::~InputFile()
{
    if (descriptor >= 0)
        ::close(descriptor);
}
