#include "large_memory.h"

#include <QtTest>

class tst_large_memory : public QObject
{
    Q_OBJECT

private slots:
    void largeImage_anySize_isLikeAnyImage_data();
    void largeImage_anySize_isLikeAnyImage();
    void largeImage_invalidSize_isNull();
    void largeImage_copied_outlivesTheFirst();
    void large_isAligned();
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

QTEST_GUILESS_MAIN(tst_large_memory)
#include "tst_large_memory.moc"
