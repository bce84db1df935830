#include "literal_stream.h"

#include <QByteArray>
#include <QtTest>

#include <random>

#include <zlib.h>

using literal_stream::Bytes;

namespace {

/// By zlib itself.
Bytes inflated(const Bytes &stream, size_t count)
{
    Bytes bytes(count + 1);
    uLongf length = uLongf(bytes.size());
    if (uncompress(bytes.data(), &length, stream.data(), uLong(stream.size())) != Z_OK)
        return {1, 2, 3};
    bytes.resize(length);
    return bytes;
}

Bytes noise(size_t count, int levels)
{
    std::minstd_rand random(11);
    Bytes bytes(count);
    for (unsigned char &byte : bytes)
        byte = static_cast<unsigned char>(random() / 7 % unsigned(levels));
    return bytes;
}

/// Each byte about 1.6 times as frequent as the one before: the codes of a tree grow beyond 15
/// bits.
Bytes steep()
{
    Bytes bytes;
    size_t count = 1;
    size_t before = 1;
    for (int symbol = 0; symbol < 24; ++symbol) {
        bytes.insert(bytes.end(), count, static_cast<unsigned char>(symbol));
        before = std::exchange(count, count + before);
    }
    return bytes;
}

} // namespace

class TestLiteralStream : public QObject
{
    Q_OBJECT

private slots:
    void compressed_isReadByZlib_data()
    {
        QTest::addColumn<Bytes>("bytes");
        for (const size_t count :
             {0U, 1U, 2U, 3U, 4U, 5U, 1000U, 262143U, 262144U, 262145U, 600007U})
            QTest::addRow("%zu bytes of noise", count) << noise(count, 256);
        QTest::newRow("one level") << Bytes(5000, 77);
        QTest::newRow("two levels") << noise(5001, 2);
        QTest::newRow("steep") << steep();
    }

    void compressed_isReadByZlib()
    {
        QFETCH(Bytes, bytes);
        const Bytes stream = literal_stream::compressed(bytes.data(), bytes.size());
        QVERIFY(inflated(stream, bytes.size()) == bytes);
        const qint64 told = qint64(literal_stream::sizeOf(bytes.data(), bytes.size()));
        QVERIFY(qAbs(told - qint64(stream.size())) <= 200 * (qint64(bytes.size()) / 262144 + 1));
    }

    void compressed_fewLevels_takeFewBits()
    {
        const Bytes bytes = noise(100000, 16);
        QVERIFY(literal_stream::compressed(bytes.data(), bytes.size()).size() < 51000);
    }
};

QTEST_APPLESS_MAIN(TestLiteralStream)
#include "tst_literal_stream.moc"
