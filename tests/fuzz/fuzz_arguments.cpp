// The words after "veskhdr merge", one per line of the input.

#include "MergeOptions.h"
#include "fuzz_require.h"
#include "fuzz_target.h"

#include <QCoreApplication>

int LLVMFuzzerInitialize(int *argc, char ***argv)
{
    new QCoreApplication(*argc, *argv);
    return 0;
}

int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QByteArray input(reinterpret_cast<const char *>(data), int(size));
    QStringList words;
    for (const QByteArray &line : input.split('\n'))
        words.append(QString::fromLocal8Bit(line));
    const ParsedMergeOptions parsed = command_line::parseMergeOptions(words);
    if (!parsed.problem.isEmpty())
        return 0;
    const MergeOptions &options = parsed.options;
    FUZZ_REQUIRE(options.pictures.size() >= 2);
    QStringList pictures = options.pictures;
    FUZZ_REQUIRE(pictures.removeDuplicates() == 0);
    for (const QString &picture : options.pictures)
        FUZZ_REQUIRE(words.contains(picture));
    FUZZ_REQUIRE(options.hasFormat || picture::formatOfSuffix(options.output) == options.format);
    FUZZ_REQUIRE(options.pixelLimit >= 1000 * 1000);
    FUZZ_REQUIRE(options.quality >= 1 && options.quality <= 100);
    return 0;
}
