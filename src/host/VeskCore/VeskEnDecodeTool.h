#pragma once

#include "veskcore_export.h"

#include <QByteArray>
#include <QString>

/// Enciphers and deciphers the texts that the tools keep in their resources, so that a stored
/// program is not edited by accident. It keeps no secret: the key is in the library.
///
/// Form of the cipher text: the text in UTF-8, preceded by its SHA-256 digest (32 bytes), padded
/// as PKCS #7 does and enciphered with DES in cipher block chaining. The first 8 bytes of the
/// SHA-256 digest of the key (UTF-8) are the DES key, the next 8 the initial block. The same text
/// and key always give the same bytes.
///
/// Any thread, reentrant, never throws.
///
/// A tool calls VeskGetMM and DES_Decrypt.
class VESKCORE_EXPORT VeskEnDecodeTool
{
public:
    VeskEnDecodeTool() = delete;

    /// Sets key to the key that the editor and the build of its tools share.
    static void VeskGetMM(QString &key);

    /// Deciphers cipherText into plainText. Returns false and leaves plainText empty when
    /// cipherText is damaged or was made with another key.
    static bool DES_Decrypt(const QByteArray &cipherText, const QString &key, QString &plainText);

    /// Enciphers plainText into cipherText. Returns false and leaves cipherText empty when the
    /// crypto library refuses.
    static bool DES_Encrypt(const QString &plainText, const QString &key, QByteArray &cipherText);
};
