// encipher INPUT OUTPUT
//
// Run by the build, not installed: reads a UTF-8 text and writes it enciphered with the key that
// VeskEnDecodeTool::VeskGetMM gives, for a tool's resources.

#include "VeskEnDecodeTool.h"

#include <QFile>
#include <QSaveFile>

#include <cstdio>
#include <cstdlib>

namespace {

int fail(const QString &path, const QString &reason)
{
    std::fprintf(stderr, "encipher: %s: %s\n", qUtf8Printable(path), qUtf8Printable(reason));
    return EXIT_FAILURE;
}

} // namespace

int main(int argc, char *argv[])
{
    if (argc != 3) {
        std::fprintf(stderr, "usage: encipher INPUT OUTPUT\n");
        return EXIT_FAILURE;
    }
    QFile input(QFile::decodeName(argv[1]));
    if (!input.open(QIODevice::ReadOnly))
        return fail(input.fileName(), input.errorString());

    QString key;
    VeskEnDecodeTool::VeskGetMM(key);
    QByteArray cipherText;
    if (!VeskEnDecodeTool::DES_Encrypt(QString::fromUtf8(input.readAll()), key, cipherText))
        return fail(input.fileName(), QStringLiteral("the crypto library refuses to encipher"));

    QSaveFile output(QFile::decodeName(argv[2]));
    if (!output.open(QIODevice::WriteOnly) || output.write(cipherText) != cipherText.size() ||
        !output.commit())
        return fail(output.fileName(), output.errorString());
    return EXIT_SUCCESS;
}
