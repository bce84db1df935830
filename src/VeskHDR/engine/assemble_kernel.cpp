// assemble_kernel INPUT OUTPUT
//
// Run by the build, not installed: writes the OpenCL program INPUT with its line
// #include "merge_weights.clh" replaced by the tables of weights. They come from the code that
// weighs the pixels on the processor, so that the two cannot drift apart.

#include "merge_weights.h"

#include <QFile>
#include <QSaveFile>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace {

constexpr unsigned kChannelValues = 256;
constexpr unsigned kSums = 2 * (kChannelValues - 1) + 1;
constexpr unsigned kPairs = kChannelValues * (kChannelValues + 1) / 2;
constexpr unsigned kWordBits = 32;

/// The weights of all pairs (largest, smallest channel).
struct WeightTables
{
    /// Bits of the float, two for each sum of the pair; the second repeats the first where there
    /// is only one.
    std::array<quint32, 2 * kSums> weights{};
    /// One bit for each pair, at largest * (largest + 1) / 2 + smallest.
    std::array<quint32, kPairs / kWordBits> secondWeight{};
};
static_assert(kPairs % kWordBits == 0);

quint32 weightBits(unsigned largest, unsigned smallest)
{
    const float weight = weights::of(
        qRgb(static_cast<int>(largest), static_cast<int>(smallest), static_cast<int>(smallest)));
    quint32 bits = 0;
    static_assert(sizeof(bits) == sizeof(weight));
    std::memcpy(&bits, &weight, sizeof(bits));
    return bits;
}

/// False when a sum has more than two weights: it is then rounded as never before.
bool addPair(unsigned largest, unsigned smallest, WeightTables &tables)
{
    const quint32 bits = weightBits(largest, smallest);
    quint32 &first = tables.weights[2 * (largest + smallest)];
    quint32 &second = tables.weights[2 * (largest + smallest) + 1];
    if (first == 0)
        first = second = bits;
    if (bits == first)
        return true;
    if (second == first)
        second = bits;
    const unsigned pair = largest * (largest + 1) / 2 + smallest;
    tables.secondWeight[pair / kWordBits] |= 1U << pair % kWordBits;
    return bits == second;
}

bool fill(WeightTables &tables)
{
    for (unsigned largest = 0; largest < kChannelValues; ++largest)
        for (unsigned smallest = 0; smallest <= largest; ++smallest)
            if (!addPair(largest, smallest, tables))
                return false;
    return true;
}

template <size_t Size>
QByteArray constantTable(const char *name, const std::array<quint32, Size> &values)
{
    QByteArray text =
        QByteArray("__constant uint ") + name + "[" + QByteArray::number(int(Size)) + "] = {";
    for (size_t i = 0; i < Size; ++i)
        text += (i % 8 ? "0x" : "\n0x") + QByteArray::number(values[i], 16) + ",";
    return text + "\n};\n";
}

int fail(const QString &path, const QString &reason)
{
    std::fprintf(stderr, "assemble_kernel: %s: %s\n", qUtf8Printable(path), qUtf8Printable(reason));
    return EXIT_FAILURE;
}

} // namespace

int main(int argc, char *argv[])
{
    if (argc != 3) {
        std::fprintf(stderr, "usage: assemble_kernel INPUT OUTPUT\n");
        return EXIT_FAILURE;
    }
    QFile input(QFile::decodeName(argv[1]));
    if (!input.open(QIODevice::ReadOnly))
        return fail(input.fileName(), input.errorString());
    QByteArray program = input.readAll();

    const QByteArray placeholder("#include \"merge_weights.clh\"\n");
    if (program.count(placeholder) != 1)
        return fail(input.fileName(), QStringLiteral("has no place for the tables of weights"));
    WeightTables tables;
    if (!fill(tables))
        return fail(input.fileName(), QStringLiteral("more than two weights for one sum"));
    program.replace(placeholder, constantTable("kWeights", tables.weights) +
                                     constantTable("kSecondWeight", tables.secondWeight));

    QSaveFile output(QFile::decodeName(argv[2]));
    if (!output.open(QIODevice::WriteOnly) || output.write(program) != program.size() ||
        !output.commit())
        return fail(output.fileName(), output.errorString());
    return EXIT_SUCCESS;
}
