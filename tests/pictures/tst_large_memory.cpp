#include "large_memory.h"

#include <QtTest>

#include <algorithm>
#include <utility>

class tst_large_memory : public QObject
{
    Q_OBJECT

private slots:
    void largeImage_anySize_isLikeAnyImage_data();
    void largeImage_anySize_isLikeAnyImage();
    void largeImage_invalidSize_isNull();
    void largeImage_copied_outlivesTheFirst();
    void large_isAligned();
    void giveBack_anyPart_keepsWhatIsOutside();
};

void tst_large_memory::largeImage_anySize_isLikeAnyImage_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<QImage::Format>("format");
    for (const QSize size : {QSize(1, 1), QSize(3, 5), QSize(1033, 1019), QSize(2048, 1500)}) {
        for (const QImage::Format format :
             {QImage::Format_RGB32, QImage::Format_RGBX64, QImage::Format_Grayscale8})
            QTest::addRow("%d x %d, format %d", size.width(), size.height(), int(format))
                << size << format;
    }
}

void tst_large_memory::largeImage_anySize_isLikeAnyImage()
{
    QFETCH(QSize, size);
    QFETCH(QImage::Format, format);
    QImage image = memory::largeImage(size, format);
    const QImage usual(size, format);
    QCOMPARE(image.size(), size);
    QCOMPARE(image.format(), format);
    QCOMPARE(image.bytesPerLine(), usual.bytesPerLine());
    uchar *const bits = image.bits();
    QVERIFY(bits == image.constBits());
    image.fill(Qt::gray);
    QCOMPARE(image.pixel(size.width() - 1, size.height() - 1), image.pixel(0, 0));
    QVERIFY2(image.constBits() == bits, "writing made a copy");
}

void tst_large_memory::largeImage_invalidSize_isNull()
{
    QVERIFY(memory::largeImage({}, QImage::Format_RGB32).isNull());
    QVERIFY(memory::largeImage({-3, 4000000}, QImage::Format_RGB32).isNull());
    QVERIFY(memory::largeImage({0, 7}, QImage::Format_RGB32).isNull());
}

void tst_large_memory::largeImage_copied_outlivesTheFirst()
{
    QImage copy;
    {
        QImage image = memory::largeImage({1500, 1500}, QImage::Format_RGB32);
        image.fill(qRgb(1, 2, 3));
        copy = image;
    }
    QCOMPARE(copy.pixel(1499, 1499), qRgb(1, 2, 3));
}

void tst_large_memory::large_isAligned()
{
    for (const size_t bytes : {size_t(1), size_t(1000), size_t(5) << 20})
        QCOMPARE(quintptr(memory::large(bytes).get()) % 64, quintptr(0));
}

/// What is given back may read as anything, and can be written again; large pages that are not
/// wholly within stay.
void tst_large_memory::giveBack_anyPart_keepsWhatIsOutside()
{
    constexpr size_t kMebibyte = size_t(1) << 20;
    constexpr size_t kBytes = 9 * kMebibyte;
    const memory::Large owned = memory::large(kBytes);
    auto *bytes = static_cast<uchar *>(owned.get());
    for (const auto &[begin, end] :
         {std::pair(kMebibyte, 7 * kMebibyte), std::pair(size_t(0), kBytes),
          std::pair(3 * kMebibyte, 3 * kMebibyte + 5)}) {
        std::fill(bytes, bytes + kBytes, uchar(201));
        memory::giveBack(bytes + begin, bytes + end);
        const auto isKept = [](uchar byte) { return byte == 201; };
        QVERIFY(std::all_of(bytes, bytes + begin, isKept));
        QVERIFY(std::all_of(bytes + end, bytes + kBytes, isKept));
        const bool isSmall = end - begin < 2 * kMebibyte;
        QVERIFY(!isSmall || std::all_of(bytes + begin, bytes + end, isKept));
        std::fill(bytes + begin, bytes + end, uchar(7));
        QCOMPARE(int(bytes[(begin + end) / 2]), 7);
    }
}

QTEST_GUILESS_MAIN(tst_large_memory)
#include "tst_large_memory.moc"
