#include "light_primaries.h"

#include "cicp_profile.h"
#include "colour_profile.h"

#include <QtTest>

#include <cmath>

/// Linear light from the primaries of one space to those of another.
class TestLightPrimaries : public QObject
{
    Q_OBJECT

private slots:
    void between_rec709AndRec2020_isTheKnownMatrix();
    void between_oneSpace_changesNothing();
    void bring_white_staysWhite_data();
    void bring_white_staysWhite();
    void bring_thereAndBack_givesTheSameLight();
};

namespace {

QImage onePixel(float red, float green, float blue, const QColorSpace &space)
{
    QImage light(1, 1, QImage::Format_RGBX32FPx4);
    auto *pixel = reinterpret_cast<float *>(light.scanLine(0));
    pixel[0] = red;
    pixel[1] = green;
    pixel[2] = blue;
    pixel[3] = 1.0F;
    light.setColorSpace(space.withTransferFunction(QColorSpace::TransferFunction::Linear));
    return light;
}

} // namespace

/// ITU-R BT.2087, table 4.
void TestLightPrimaries::between_rec709AndRec2020_isTheKnownMatrix()
{
    constexpr float kKnown[] = {0.6274F, 0.3293F, 0.0433F, 0.0691F, 0.9195F,
                                0.0114F, 0.0164F, 0.0880F, 0.8956F};
    constexpr int kRec2020 = 9;
    constexpr int kLinear = 8;
    const light_primaries::Matrix matrix = light_primaries::between(
        colour_profile::of(colour_profile::Space::Srgb), cicp_profile::of(kRec2020, kLinear));
    for (size_t i = 0; i < matrix.size(); ++i)
        QVERIFY2(std::abs(matrix[i] - kKnown[i]) < 0.001F, qPrintable(QString::number(matrix[i])));
}

void TestLightPrimaries::between_oneSpace_changesNothing()
{
    const QByteArray profile = colour_profile::of(colour_profile::Space::AdobeRgb);
    const light_primaries::Matrix matrix = light_primaries::between(profile, profile);
    for (size_t i = 0; i < matrix.size(); ++i)
        QVERIFY(std::abs(matrix[i] - (i % 4 == 0 ? 1.0F : 0.0F)) < 1e-5F);
}

void TestLightPrimaries::bring_white_staysWhite_data()
{
    QTest::addColumn<QColorSpace>("space");
    QTest::newRow("sRGB") << QColorSpace(QColorSpace::SRgb);
    QTest::newRow("Adobe RGB") << QColorSpace(QColorSpace::AdobeRgb);
    QTest::newRow("ProPhoto RGB") << QColorSpace(QColorSpace::ProPhotoRgb);
    QTest::newRow("none") << QColorSpace();
}

void TestLightPrimaries::bring_white_staysWhite()
{
    QFETCH(QColorSpace, space);
    QImage light = onePixel(3.0F, 3.0F, 3.0F, QColorSpace(QColorSpace::DisplayP3));
    QVERIFY(light_primaries::bring(light, space));
    const auto *pixel = reinterpret_cast<const float *>(light.constScanLine(0));
    for (int c = 0; c < 3; ++c)
        QVERIFY2(std::abs(pixel[c] - 3.0F) < 0.01F, qPrintable(QString::number(pixel[c])));
    QCOMPARE(light.colorSpace().transferFunction(), QColorSpace::TransferFunction::Linear);
}

void TestLightPrimaries::bring_thereAndBack_givesTheSameLight()
{
    QImage light = onePixel(0.1F, 5.0F, 0.7F, QColorSpace(QColorSpace::SRgb));
    QVERIFY(light_primaries::bring(light, QColorSpace(QColorSpace::AdobeRgb)));
    const auto *pixel = reinterpret_cast<const float *>(light.constScanLine(0));
    QVERIFY(pixel[0] > 0.2F); // a duller green needs red
    QVERIFY(light_primaries::bring(light, QColorSpace(QColorSpace::SRgb)));
    pixel = reinterpret_cast<const float *>(light.constScanLine(0));
    QVERIFY(std::abs(pixel[0] - 0.1F) < 0.01F);
    QVERIFY(std::abs(pixel[1] - 5.0F) < 0.01F);
    QVERIFY(std::abs(pixel[2] - 0.7F) < 0.01F);
}

QTEST_GUILESS_MAIN(TestLightPrimaries)
#include "tst_light_primaries.moc"
