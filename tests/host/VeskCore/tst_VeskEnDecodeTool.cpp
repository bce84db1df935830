#include <VeskEnDecodeTool.h>

#include <QtTest>

namespace {

QString hostKey()
{
    QString key = QStringLiteral("rubbish");
    VeskEnDecodeTool::VeskGetMM(key);
    return key;
}

QByteArray enciphered(const QString &text, const QString &key = hostKey())
{
    QByteArray cipherText;
    VeskEnDecodeTool::DES_Encrypt(text, key, cipherText);
    return cipherText;
}

QByteArray fileContents(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

class TestVeskEnDecodeTool : public QObject
{
    Q_OBJECT

private slots:
    void key_isTheSameEveryTimeAndNotEmpty()
    {
        QVERIFY(!hostKey().isEmpty());
        QVERIFY(hostKey() != QStringLiteral("rubbish"));
        QCOMPARE(hostKey(), hostKey());
    }

    void roundTrip_givesTheText_data()
    {
        QTest::addColumn<QString>("text");
        QTest::newRow("empty") << QString(QLatin1String(""));
        QTest::newRow("one letter") << QStringLiteral("a");
        QTest::newRow("a whole block") << QStringLiteral("12345678");
        QTest::newRow("several lines") << QStringLiteral("__kernel void f()\n{\n}\n");
        QTest::newRow("beyond Latin-1") << QString::fromUtf8("\u00fc \u65e5\u672c \U0001F4F7");
        QTest::newRow("long") << QString(100000, QLatin1Char('x'));
    }
    void roundTrip_givesTheText()
    {
        QFETCH(QString, text);
        const QByteArray cipherText = enciphered(text);
        QVERIFY(!cipherText.isEmpty());
        QCOMPARE(cipherText.size() % 8, 0);
        QString plainText;
        QVERIFY(VeskEnDecodeTool::DES_Decrypt(cipherText, hostKey(), plainText));
        QCOMPARE(plainText, text);
    }

    void cipherText_doesNotShowTheText()
    {
        QVERIFY(!enciphered(QStringLiteral("simple kernel text")).contains("kernel"));
    }

    void cipherText_isTheSameEveryTime()
    {
        // Bytes from an independent computation: SHA-256 digest and text through DES-CBC (PKCS #7
        // padding), key and initial block from the digest of the key.
        QCOMPARE(enciphered(QStringLiteral("text"), QStringLiteral("key")).toHex(),
                 QByteArray("6c39685161faff65902dd1f868a71184f33820dc0d3ef464518b29744a4dd6cd7e0415"
                            "1028261902"));
    }

    void damagedCipherText_everyByteFlipped_givesEmptyText()
    {
        const QByteArray whole = enciphered(QStringLiteral("__kernel void f() { }"));
        for (int i = 0; i < whole.size(); ++i) {
            QByteArray damaged = whole;
            damaged[i] = static_cast<char>(damaged.at(i) ^ 0x10);
            QString plainText = QStringLiteral("old");
            QVERIFY(!VeskEnDecodeTool::DES_Decrypt(damaged, hostKey(), plainText));
            QVERIFY(plainText.isEmpty());
        }
    }

    void damagedCipherText_everyLength_givesEmptyText()
    {
        const QByteArray whole = enciphered(QStringLiteral("__kernel void f() { }"));
        for (int length = 0; length < whole.size(); ++length) {
            QString plainText = QStringLiteral("old");
            QVERIFY(!VeskEnDecodeTool::DES_Decrypt(whole.left(length), hostKey(), plainText));
            QVERIFY(plainText.isEmpty());
        }
    }

    void anotherKey_givesEmptyText()
    {
        QString plainText = QStringLiteral("old");
        QVERIFY(!VeskEnDecodeTool::DES_Decrypt(enciphered(QStringLiteral("text")),
                                               QStringLiteral("another"), plainText));
        QVERIFY(plainText.isEmpty());
    }

    void encipherProgram_writesWhatTheHostDeciphers()
    {
        const QTemporaryDir folder;
        const QString input = folder.filePath(QStringLiteral("a b.cl"));
        const QString output = folder.filePath(QStringLiteral("a b.cl_"));
        QFile file(input);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("kernel text\n");
        file.close();

        QCOMPARE(QProcess::execute(encipherProgram(), {input, output}), 0);
        QString plainText;
        QVERIFY(VeskEnDecodeTool::DES_Decrypt(fileContents(output), hostKey(), plainText));
        QCOMPARE(plainText, QStringLiteral("kernel text\n"));
    }

    void encipherProgram_missingInput_failsAndWritesNothing()
    {
        const QTemporaryDir folder;
        const QString output = folder.filePath(QStringLiteral("out"));
        QProcess program;
        program.start(encipherProgram(), {folder.filePath(QStringLiteral("missing")), output});
        QVERIFY(program.waitForFinished());
        QCOMPARE(program.exitCode(), EXIT_FAILURE);
        QVERIFY(program.readAllStandardError().contains("missing"));
        QVERIFY(!QFile::exists(output));
        QCOMPARE(QProcess::execute(encipherProgram(), {}), EXIT_FAILURE);
    }

private:
    static QString encipherProgram()
    {
        return QFile::decodeName(qgetenv("VESK_BIN_DIR")) + QStringLiteral("/encipher");
    }
};

QTEST_GUILESS_MAIN(TestVeskEnDecodeTool)
#include "tst_VeskEnDecodeTool.moc"
