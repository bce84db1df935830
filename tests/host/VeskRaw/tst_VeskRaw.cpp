#include "dng_writer.h"

#include <VeskRaw.h>

#include <QColor>
#include <QtTest>

#include <atomic>
#include <memory>
#include <random>
#include <thread>
#include <vector>

namespace {

VeskRaw *converter()
{
    return VeskRaw::getInstance();
}

/// 8-bit sRGB value of a linear light.
int encoded(double light)
{
    return qRound(255.0 * (1.055 * std::pow(light, 1.0 / 2.4) - 0.055));
}

bool isClose(QRgb pixel, int red, int green, int blue, int tolerance)
{
    return qAbs(qRed(pixel) - red) <= tolerance && qAbs(qGreen(pixel) - green) <= tolerance &&
           qAbs(qBlue(pixel) - blue) <= tolerance;
}

QString describe(QRgb pixel)
{
    return QStringLiteral("%1 %2 %3").arg(qRed(pixel)).arg(qGreen(pixel)).arg(qBlue(pixel));
}

/// White where the first rows and columns meet, dark elsewhere: shows how a picture is turned.
DngRecipe markedCorner(int orientation)
{
    DngRecipe recipe;
    recipe.orientation = orientation;
    recipe.scene = [](int x, int y, int) { return x < 24 && y < 16 ? 0.9 : 0.02; };
    return recipe;
}

} // namespace

class TestVeskRaw : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { VeskRaw::setPixelLimit(VeskRaw::kDefaultPixelLimit); }

    void getInstance_isAlwaysTheSame() { QCOMPARE(VeskRaw::getInstance(), converter()); }

    void greyScene_isGreyThroughTheCamerasWhiteBalance_data()
    {
        QTest::addColumn<double>("neutralRed");
        QTest::addColumn<double>("neutralBlue");
        QTest::newRow("daylight") << 0.5 << 0.6;
        QTest::newRow("lamp light") << 0.9 << 0.3;
    }
    void greyScene_isGreyThroughTheCamerasWhiteBalance()
    {
        QFETCH(double, neutralRed);
        QFETCH(double, neutralBlue);
        DngRecipe recipe;
        recipe.neutralRed = neutralRed;
        recipe.neutralBlue = neutralBlue;
        const QImage picture = converted(recipe);
        const QRgb middle = picture.pixel(32, 24);
        const int grey = encoded(0.5);
        QVERIFY2(isClose(middle, grey, grey, grey, 3), qPrintable(describe(middle)));
    }

    void exposures_areKeptApart()
    {
        for (const double light : {0.05, 0.2, 0.8}) {
            DngRecipe recipe;
            recipe.scene = [light](int, int, int) { return light; };
            const QRgb middle = converted(recipe).pixel(32, 24);
            const int grey = encoded(light);
            QVERIFY2(isClose(middle, grey, grey, grey, 3), qPrintable(describe(middle)));
        }
    }

    void colours_areThoseOfSrgb()
    {
        DngRecipe recipe;
        recipe.scene = [](int, int, int channel) { return channel == 0 ? 0.6 : 0.1; };
        const QRgb middle = converted(recipe).pixel(32, 24);
        QVERIFY2(isClose(middle, encoded(0.6), encoded(0.1), encoded(0.1), 8),
                 qPrintable(describe(middle)));
    }

    void picture_isRgb32OfTheSensorsSizeAndOpaque()
    {
        DngRecipe recipe;
        recipe.width = 66;
        recipe.height = 50;
        const QImage picture = converted(recipe);
        QCOMPARE(picture.format(), QImage::Format_RGB32);
        QCOMPARE(picture.size(), QSize(66, 50));
        for (int y = 0; y < picture.height(); ++y)
            for (int x = 0; x < picture.width(); ++x)
                QCOMPARE(qAlpha(picture.pixel(x, y)), 255);
    }

    void turnedPicture_isUpright_data()
    {
        QTest::addColumn<int>("orientation");
        QTest::addColumn<QSize>("size");
        QTest::addColumn<QPoint>("white");
        QTest::newRow("upright") << 1 << QSize(64, 48) << QPoint(8, 6);
        QTest::newRow("upside down") << 3 << QSize(64, 48) << QPoint(55, 41);
        QTest::newRow("a quarter clockwise") << 6 << QSize(48, 64) << QPoint(41, 8);
        QTest::newRow("a quarter counter-clockwise") << 8 << QSize(48, 64) << QPoint(6, 55);
    }
    void turnedPicture_isUpright()
    {
        QFETCH(int, orientation);
        QFETCH(QSize, size);
        QFETCH(QPoint, white);
        const QImage picture = converted(markedCorner(orientation));
        QCOMPARE(picture.size(), size);
        const QPoint opposite(size.width() - 1 - white.x(), size.height() - 1 - white.y());
        QVERIFY(qGreen(picture.pixel(white)) > 200);
        QVERIFY(qGreen(picture.pixel(opposite)) < 80);
    }

    void quick_givesHalfTheSize()
    {
        const QString path = written(DngRecipe{});
        const VeskRaw::Conversion conversion = VeskRaw::convert(path, true);
        QCOMPARE(conversion.picture.size(), QSize(32, 24));
        const QRgb middle = conversion.picture.pixel(16, 12);
        const int grey = encoded(0.5);
        QVERIFY2(isClose(middle, grey, grey, grey, 3), qPrintable(describe(middle)));

        converter()->activate(path, nullptr, true);
        const std::unique_ptr<QImage> picture(converter()->grabConvertedPicture());
        QCOMPARE(*picture, conversion.picture);
    }

    void grabConvertedPicture_handsThePictureOverOnce()
    {
        converter()->activate(written(DngRecipe{}), nullptr, false);
        std::unique_ptr<QImage> picture(converter()->grabConvertedPicture());
        QVERIFY(picture);
        QCOMPARE(picture->size(), QSize(64, 48));
        QVERIFY(picture->isDetached());
        QVERIFY(converter()->lastError().isEmpty());
        QCOMPARE(converter()->grabConvertedPicture(), nullptr);
    }

    void failedConversion_dropsThePictureKeptBefore()
    {
        converter()->activate(written(DngRecipe{}), nullptr, false);
        converter()->activate(folder.filePath(QStringLiteral("missing.dng")), nullptr, false);
        QCOMPARE(converter()->grabConvertedPicture(), nullptr);
        QVERIFY(!converter()->lastError().isEmpty());
    }

    void noRawFile_givesNullWithReason_data()
    {
        QTest::addColumn<QByteArray>("contents");
        QTest::newRow("empty") << QByteArray();
        QTest::newRow("text") << QByteArray("not a picture\n").repeated(1000);
        QTest::newRow("ordinary picture") << plainTiff(64, 48, 3, 8, 128, "Canon", "Canon EOS");
    }
    void noRawFile_givesNullWithReason()
    {
        QFETCH(QByteArray, contents);
        const VeskRaw::Conversion conversion = VeskRaw::convert(written(contents));
        QVERIFY(conversion.picture.isNull());
        QVERIFY(!conversion.error.isEmpty());
    }

    void truncatedFile_anywhere_givesNull()
    {
        const QByteArray whole = dngFile({});
        const int pixelBytes = 64 * 48 * 2;
        // Many lengths, more of them within the tags than within the pixels.
        for (int length = 0; length < whole.size();
             length += length < whole.size() - pixelBytes ? 5 : 97)
            QVERIFY2(VeskRaw::convert(written(whole.left(length))).picture.isNull(),
                     qPrintable(QString::number(length)));
        QVERIFY(VeskRaw::convert(written(whole.left(whole.size() - 1))).picture.isNull());
    }

    void flippedBytesInTheTags_giveNullOrAWholePicture()
    {
        const QByteArray whole = dngFile({});
        const int tagBytes = whole.size() - 64 * 48 * 2;
        for (int i = 0; i < tagBytes; ++i) {
            QByteArray damaged = whole;
            damaged[i] = static_cast<char>(~damaged.at(i));
            expectNullOrWhole(damaged, QStringLiteral("byte %1").arg(i));
        }
    }

    void randomDamage_givesNullOrAWholePicture()
    {
        const QByteArray whole = dngFile({});
        const int tagBytes = whole.size() - 64 * 48 * 2;
        std::mt19937 random(20260401);
        for (int round = 0; round < 100; ++round) {
            QByteArray damaged = whole;
            for (int i = 0; i < 8; ++i)
                damaged[static_cast<int>(random() % static_cast<unsigned>(tagBytes))] =
                    static_cast<char>(random());
            expectNullOrWhole(damaged, QStringLiteral("round %1").arg(round));
        }
    }

    void pictureAbovePixelLimit_isRefused()
    {
        const QString path = written(DngRecipe{});
        VeskRaw::setPixelLimit(64 * 48 - 1);
        QCOMPARE(VeskRaw::pixelLimit(), qint64(64 * 48 - 1));
        const VeskRaw::Conversion refused = VeskRaw::convert(path);
        QVERIFY(refused.picture.isNull());
        QVERIFY(!refused.error.isEmpty());
        VeskRaw::setPixelLimit(64 * 48);
        QVERIFY(!VeskRaw::convert(path).picture.isNull());
    }

    void cancelledBeforehand_givesNullWithReason()
    {
        const std::atomic<bool> cancelled{true};
        const VeskRaw::Conversion conversion =
            VeskRaw::convert(written(DngRecipe{}), false, &cancelled);
        QVERIFY(conversion.picture.isNull());
        QVERIFY(!conversion.error.isEmpty());
    }

    void cancel_fromAnotherThread_endsActivateWithoutPicture()
    {
        DngRecipe recipe;
        recipe.width = 1200;
        recipe.height = 800;
        const QString path = written(recipe);
        std::atomic<bool> cancelling{false};
        std::atomic<bool> ended{false};
        std::thread user([&] {
            while (!ended) {
                converter()->cancel();
                cancelling = true;
                std::this_thread::yield();
            }
        });
        while (!cancelling)
            std::this_thread::yield();
        converter()->activate(path, nullptr, false);
        ended = true;
        user.join();
        QCOMPARE(converter()->grabConvertedPicture(), nullptr);
        QVERIFY(!converter()->lastError().isEmpty());

        // A later conversion is not affected.
        converter()->activate(path, nullptr, true);
        const std::unique_ptr<QImage> picture(converter()->grabConvertedPicture());
        QVERIFY(picture);
    }

    void severalThreads_giveTheSamePicture()
    {
        const QString path = written(markedCorner(6));
        const QImage expected = VeskRaw::convert(path).picture;
        std::vector<QImage> pictures(4);
        std::vector<std::thread> threads;
        threads.reserve(pictures.size());
        for (QImage &picture : pictures)
            threads.emplace_back([&picture, &path] { picture = VeskRaw::convert(path).picture; });
        for (std::thread &thread : threads)
            thread.join();
        for (const QImage &picture : pictures)
            QCOMPARE(picture, expected);
    }

    void photographOfAnOldCamera_isConverted()
    {
        const QString path = photograph();
        if (!QFile::exists(path))
            QSKIP("The folder with photographs is missing");
        converter()->activate(path, nullptr, false);
        const std::unique_ptr<QImage> picture(converter()->grabConvertedPicture());
        QVERIFY2(picture, qPrintable(converter()->lastError()));
        QCOMPARE(picture->format(), QImage::Format_RGB32);
        QVERIFY(picture->width() > 700 && picture->width() > picture->height());
    }

    void photographOfAnOldCamera_truncated_givesNull()
    {
        QFile file(photograph());
        if (!file.open(QIODevice::ReadOnly))
            QSKIP("The folder with photographs is missing");
        const QByteArray whole = file.readAll();
        for (const double part : {0.01, 0.1, 0.25, 0.5, 0.9})
            QVERIFY2(
                VeskRaw::convert(written(whole.left(int(whole.size() * part)))).picture.isNull(),
                qPrintable(QString::number(part)));
    }

private:
    static QString photograph()
    {
        return QDir(QFile::decodeName(qgetenv("VESK_TEST_PICTURES")))
            .filePath(QStringLiteral("kodak-dc50.kdc"));
    }

    /// Path of a file with those contents, another one at each call.
    QString written(const QByteArray &contents)
    {
        const QString path = folder.filePath(QStringLiteral("%1.dng").arg(++files));
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly) || file.write(contents) != contents.size())
            qFatal("cannot write %s", qPrintable(path));
        return path;
    }

    QString written(const DngRecipe &recipe) { return written(dngFile(recipe)); }

    QImage converted(const DngRecipe &recipe)
    {
        const VeskRaw::Conversion conversion = VeskRaw::convert(written(recipe));
        if (conversion.picture.isNull())
            qFatal("not converted: %s", qPrintable(conversion.error));
        return conversion.picture;
    }

    void expectNullOrWhole(const QByteArray &contents, const QString &what)
    {
        VeskRaw::setPixelLimit(1000 * 1000); // damaged sizes would only take time
        const QString path = written(contents);
        const VeskRaw::Conversion conversion = VeskRaw::convert(path);
        QFile::remove(path);
        QVERIFY2(conversion.picture.isNull() != conversion.error.isEmpty(), qPrintable(what));
        QVERIFY2(conversion.picture.isNull() || conversion.picture.format() == QImage::Format_RGB32,
                 qPrintable(what));
    }

    QTemporaryDir folder;
    int files = 0;
};

QTEST_GUILESS_MAIN(TestVeskRaw)
#include "tst_VeskRaw.moc"
