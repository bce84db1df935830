#include "VeskEnDecodeTool.h"

#include <openssl/evp.h>

#include <QCryptographicHash>

#include <memory>

namespace {

constexpr int kDesBlockSize = 8;
constexpr int kDigestSize = 32;

enum class Direction { Decipher = 0, Encipher = 1 };

using CipherContext = std::unique_ptr<EVP_CIPHER_CTX, decltype(&EVP_CIPHER_CTX_free)>;

const unsigned char *bytes(const QByteArray &array)
{
    return reinterpret_cast<const unsigned char *>(array.constData());
}

unsigned char *bytes(QByteArray &array)
{
    return reinterpret_cast<unsigned char *>(array.data());
}

QByteArray digest(const QByteArray &data)
{
    return QCryptographicHash::hash(data, QCryptographicHash::Sha256);
}

/// Empty when the crypto library refuses or, deciphering, when the padding is wrong.
QByteArray des(Direction direction, const QByteArray &input, const QString &key)
{
    const QByteArray keyDigest = digest(key.toUtf8());
    const QByteArray initialBlock = keyDigest.mid(kDesBlockSize, kDesBlockSize);
    // Single DES is no longer offered by default; triple DES with one key three times equals it.
    const QByteArray tripleKey = keyDigest.left(kDesBlockSize).repeated(3);

    const CipherContext context(EVP_CIPHER_CTX_new(), &EVP_CIPHER_CTX_free);
    QByteArray output(input.size() + kDesBlockSize, Qt::Uninitialized);
    int written = 0;
    int writtenLast = 0;
    if (!context ||
        EVP_CipherInit_ex(context.get(), EVP_des_ede3_cbc(), nullptr, bytes(tripleKey),
                          bytes(initialBlock), static_cast<int>(direction)) != 1 ||
        EVP_CipherUpdate(context.get(), bytes(output), &written, bytes(input), input.size()) != 1 ||
        EVP_CipherFinal_ex(context.get(), bytes(output) + written, &writtenLast) != 1)
        return {};
    output.truncate(written + writtenLast);
    return output;
}

} // namespace

void VeskEnDecodeTool::VeskGetMM(QString &key)
{
    key = QStringLiteral("773B3550-Vesk-stored-program");
}

bool VeskEnDecodeTool::DES_Decrypt(const QByteArray &cipherText, const QString &key,
                                   QString &plainText)
{
    plainText.clear();
    const QByteArray payload = des(Direction::Decipher, cipherText, key);
    if (payload.size() < kDigestSize)
        return false;
    const QByteArray text = payload.mid(kDigestSize);
    if (digest(text) != payload.left(kDigestSize))
        return false;
    plainText = QString::fromUtf8(text);
    return true;
}

bool VeskEnDecodeTool::DES_Encrypt(const QString &plainText, const QString &key,
                                   QByteArray &cipherText)
{
    const QByteArray text = plainText.toUtf8();
    cipherText = des(Direction::Encipher, digest(text) + text, key);
    return !cipherText.isEmpty();
}
