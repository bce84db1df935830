// Enciphered programs: what is damaged deciphers to nothing, and what was enciphered comes back.

#include "InputFile.h"
#include "VeskEnDecodeTool.h"
#include "fuzz_require.h"
#include "fuzz_target.h"
#include "opencl_merge.h"

#include <QCoreApplication>
#include <QFile>

#include <memory>

int LLVMFuzzerInitialize(int *argc, char ***argv)
{
    new QCoreApplication(*argc, *argv);
    return 0;
}

int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QByteArray input(reinterpret_cast<const char *>(data), int(size));
    QString key;
    VeskEnDecodeTool::VeskGetMM(key);

    QString text = QStringLiteral("left over");
    const bool isDeciphered = VeskEnDecodeTool::DES_Decrypt(input, key, text);
    FUZZ_REQUIRE(isDeciphered || text.isEmpty());

    const InputFile file(data, size);
    size_t length = 0;
    const std::unique_ptr<char[]> program(
        LoadProgSource(QFile::encodeName(file.path()).constData(), "", &length));
    FUZZ_REQUIRE(program && length == size_t(text.toLatin1().size()));

    const int keyLength = input.isEmpty() ? 0 : uchar(input.at(0)) % input.size();
    const QString otherKey = QString::fromUtf8(input.left(keyLength));
    const QString plain = QString::fromUtf8(input.mid(keyLength));
    QByteArray cipherText;
    FUZZ_REQUIRE(VeskEnDecodeTool::DES_Encrypt(plain, otherKey, cipherText));
    QString back;
    FUZZ_REQUIRE(VeskEnDecodeTool::DES_Decrypt(cipherText, otherKey, back));
    FUZZ_REQUIRE(back == QString::fromUtf8(plain.toUtf8()));
    return 0;
}
