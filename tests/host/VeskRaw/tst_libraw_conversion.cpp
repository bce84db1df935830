#include "libraw_conversion.h"

#include "dng_writer.h"

#include <VeskRaw.h>

#include <QColorSpace>
#include <QtTest>

namespace {

QImage pictureOf(const raw::Conversion &conversion)
{
    QImage picture(conversion.width, conversion.height,
                   conversion.bitsPerChannel == 8 ? QImage::Format_RGB32 : QImage::Format_RGBX64);
    for (int y = 0; y < picture.height(); ++y)
        raw::writeRow(conversion, y, picture.scanLine(y));
    return picture;
}

/// Every channel at its own slope, so that no two pixels are alike.
DngRecipe slopes(int width, int height)
{
    DngRecipe recipe;
    recipe.width = width;
    recipe.height = height;
    recipe.scene = [width, height](int x, int y, int channel) {
        return channel == 0 ? double(x) / width : channel == 1 ? double(y) / height : 0.3;
    };
    return recipe;
}

} // namespace

/// The conversion within the process, and that the program of its own gives the same pixels.
class TestLibRawConversion : public QObject
{
    Q_OBJECT

private slots:
    void program_givesThePixelsOfTheProcess_data()
    {
        QTest::addColumn<QString>("file");
        QTest::addColumn<bool>("quick");
        QTest::addColumn<int>("bits");
        QTest::addColumn<int>("space");
        const QString photograph = QDir(QFile::decodeName(qgetenv("VESK_TEST_PICTURES")))
                                       .filePath(QStringLiteral("kodak-dc50.kdc"));
        const QStringList files = {written("slopes.dng", dngFile(slopes(70, 54))), photograph};
        for (const QString &file : files)
            for (const bool quick : {false, true})
                for (const int bits : {8, 16})
                    for (int space = 0; space < int(raw::ColourSpace::Count); ++space)
                        QTest::addRow("%s %d %d %d", qPrintable(QFileInfo(file).fileName()), quick,
                                      bits, space)
                            << file << quick << bits << space;
    }
    void program_givesThePixelsOfTheProcess()
    {
        QFETCH(const QString, file);
        QFETCH(const bool, quick);
        QFETCH(const int, bits);
        QFETCH(const int, space);
        if (!QFile::exists(file))
            QSKIP("The folder with photographs is missing");
        const raw::Conversion inside =
            raw::convert(QFile::encodeName(file), {VeskRaw::kDefaultPixelLimit, quick, bits,
                                                   static_cast<raw::ColourSpace>(space)});
        QCOMPARE(inside.failure, raw::Failure::None);
        QImage outside =
            VeskRaw::convert(file, {quick, bits, static_cast<VeskRaw::ColourSpace>(space)}).picture;
        QCOMPARE(outside.colorSpace().isValid(), space != 0);
        outside.setColorSpace(QColorSpace());
        QCOMPARE(outside, pictureOf(inside));
    }

    void deepPicture_hasTheShallowOnesColours()
    {
        const QString file = written("deep.dng", dngFile(slopes(500, 48)));
        const QImage shallow = VeskRaw::convert(file).picture;
        const QImage deep = VeskRaw::convert(file, {false, 16, {}}).picture;
        QCOMPARE(deep.format(), QImage::Format_RGBX64);
        QSet<int> levels;
        for (int y = 0; y < deep.height(); ++y)
            for (int x = 0; x < deep.width(); ++x) {
                const QRgba64 fine = deep.pixelColor(x, y).rgba64();
                QVERIFY(qAbs(fine.red() / 257.0 - qRed(shallow.pixel(x, y))) <= 1.01);
                QVERIFY(qAbs(fine.green() / 257.0 - qGreen(shallow.pixel(x, y))) <= 1.01);
                levels += fine.red();
            }
        QVERIFY2(levels.size() > 256, qPrintable(QString::number(levels.size())));
    }

    /// Half of the light has half of the number; the curve on it gives the usual picture.
    void linear_isTheLightOfTheCurve_data()
    {
        QTest::addColumn<int>("space");
        QTest::newRow("sRGB") << int(VeskRaw::ColourSpace::Srgb);
        QTest::newRow("Adobe RGB") << int(VeskRaw::ColourSpace::AdobeRgb);
        QTest::newRow("Display P3") << int(VeskRaw::ColourSpace::DisplayP3);
    }
    void linear_isTheLightOfTheCurve()
    {
        QFETCH(const int, space);
        const QString file = written("linear.dng", dngFile(slopes(70, 54)));
        VeskRaw::Options how{false, 16, static_cast<VeskRaw::ColourSpace>(space)};
        QImage usual = VeskRaw::convert(file, how).picture;
        how.isLinear = true;
        const QImage linear = VeskRaw::convert(file, how).picture;
        QCOMPARE(linear.format(), QImage::Format_RGBX64);
        QCOMPARE(linear.colorSpace().transferFunction(), QColorSpace::TransferFunction::Linear);
        if (!usual.colorSpace().isValid())
            usual.setColorSpace(QColorSpace::SRgb);
        const QImage expected = usual.convertedToColorSpace(linear.colorSpace());
        int brightest = 0;
        for (int y = 0; y < linear.height(); ++y) {
            const auto *row = reinterpret_cast<const quint16 *>(linear.constScanLine(y));
            const auto *light = reinterpret_cast<const quint16 *>(expected.constScanLine(y));
            for (int i = 0; i < 4 * linear.width(); ++i) {
                QVERIFY2(qAbs(int(row[i]) - int(light[i])) <= 300,
                         qPrintable(QStringLiteral("%1 %2").arg(row[i]).arg(light[i])));
                if (i % 4 != 3)
                    brightest = qMax(brightest, int(row[i]));
            }
        }
        QVERIFY(brightest > 20000);
    }

    /// The same colour has other numbers in another space: less of each in a wider one.
    void colourSpace_isThatOfTheTag_data()
    {
        QTest::addColumn<int>("space");
        QTest::newRow("Adobe RGB") << int(VeskRaw::ColourSpace::AdobeRgb);
        QTest::newRow("ProPhoto RGB") << int(VeskRaw::ColourSpace::ProPhotoRgb);
        QTest::newRow("Display P3") << int(VeskRaw::ColourSpace::DisplayP3);
    }
    void colourSpace_isThatOfTheTag()
    {
        QFETCH(const int, space);
        DngRecipe recipe;
        recipe.scene = [](int, int, int channel) { return channel == 0 ? 0.5 : 0.2; };
        const QString file = written("tagged.dng", dngFile(recipe));
        const QImage inSrgb = VeskRaw::convert(file, {false, 16, {}}).picture;
        QImage wide =
            VeskRaw::convert(file, {false, 16, static_cast<VeskRaw::ColourSpace>(space)}).picture;
        QVERIFY(wide.pixelColor(32, 24).redF() < inSrgb.pixelColor(32, 24).redF() - 0.02F);
        wide.convertToColorSpace(QColorSpace::SRgb);
        const QColor back = wide.pixelColor(32, 24);
        const QColor expected = inSrgb.pixelColor(32, 24);
        const QString numbers = QStringLiteral("%1 %2 %3 for %4 %5 %6")
                                    .arg(back.red())
                                    .arg(back.green())
                                    .arg(back.blue())
                                    .arg(expected.red())
                                    .arg(expected.green())
                                    .arg(expected.blue());
        QVERIFY2(qAbs(back.red() - expected.red()) <= 2, qPrintable(numbers));
        QVERIFY2(qAbs(back.green() - expected.green()) <= 2, qPrintable(numbers));
        QVERIFY2(qAbs(back.blue() - expected.blue()) <= 2, qPrintable(numbers));
    }

    void failure_isTyped_data()
    {
        QTest::addColumn<QString>("file");
        QTest::addColumn<VeskRaw::Failure>("failure");
        const QByteArray whole = dngFile({});
        QTest::newRow("missing") << folder.filePath("missing.dng") << VeskRaw::Failure::Unreadable;
        QTest::newRow("text") << written("text.dng", QByteArray("no picture\n").repeated(1000))
                              << VeskRaw::Failure::NotRaw;
        QTest::newRow("truncated")
            << written("cut.dng", whole.chopped(100)) << VeskRaw::Failure::Damaged;
        QTest::newRow("too large")
            << written("large.dng", dngFile(slopes(80, 60))) << VeskRaw::Failure::TooLarge;
    }
    void failure_isTyped()
    {
        QFETCH(const QString, file);
        QFETCH(const VeskRaw::Failure, failure);
        VeskRaw::setPixelLimit(70 * 60);
        const VeskRaw::Conversion conversion = VeskRaw::convert(file);
        VeskRaw::setPixelLimit(VeskRaw::kDefaultPixelLimit);
        QCOMPARE(conversion.failure, failure);
        QVERIFY(!conversion.error.isEmpty());
    }

private:
    QString written(const QString &name, const QByteArray &bytes) const
    {
        QFile file(folder.filePath(name));
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
            qFatal("cannot write %s", qPrintable(name));
        return file.fileName();
    }

    QTemporaryDir folder;
};

QTEST_GUILESS_MAIN(TestLibRawConversion)
#include "tst_libraw_conversion.moc"
