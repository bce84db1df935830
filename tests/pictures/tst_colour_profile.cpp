#include "colour_profile.h"

#include <QColorSpace>
#include <QtTest>

#include <lcms2.h>

namespace {

QByteArray saved(cmsHPROFILE profile)
{
    cmsUInt32Number length = 0;
    cmsSaveProfileToMem(profile, nullptr, &length);
    QByteArray bytes(int(length), '\0');
    cmsSaveProfileToMem(profile, bytes.data(), &length);
    cmsCloseProfile(profile);
    return bytes;
}

QByteArray greyProfile()
{
    cmsToneCurve *curve = cmsBuildGamma(nullptr, 2.2);
    const QByteArray profile = saved(cmsCreateGrayProfile(cmsD50_xyY(), curve));
    cmsFreeToneCurve(curve);
    return profile;
}

QByteArray cmykProfile()
{
    return saved(cmsCreateInkLimitingDeviceLink(cmsSigCmykData, 200));
}

} // namespace

class TestColourProfile : public QObject
{
    Q_OBJECT

private slots:
    void fitsRgbPixels_knownSpaces_fit()
    {
        for (const QColorSpace::NamedColorSpace space :
             {QColorSpace::SRgb, QColorSpace::SRgbLinear, QColorSpace::AdobeRgb,
              QColorSpace::DisplayP3, QColorSpace::ProPhotoRgb})
            QVERIFY(colour_profile::fitsRgbPixels(QColorSpace(space).iccProfile()));
        QVERIFY(colour_profile::fitsRgbPixels(saved(cmsCreate_sRGBProfile())));
    }

    void fitsRgbPixels_otherPixels_doNotFit()
    {
        QVERIFY(!colour_profile::fitsRgbPixels(greyProfile()));
        QVERIFY(!colour_profile::fitsRgbPixels(cmykProfile()));
        QVERIFY(!colour_profile::fitsRgbPixels(saved(cmsCreateLab4Profile(nullptr))));
        QVERIFY(!colour_profile::fitsRgbPixels(saved(cmsCreateXYZProfile())));
    }

    void fitsRgbPixels_nothingOrRubbish_doesNotFit()
    {
        const QByteArray profile = QColorSpace(QColorSpace::SRgb).iccProfile();
        QVERIFY(!colour_profile::fitsRgbPixels({}));
        QVERIFY(!colour_profile::fitsRgbPixels(QByteArray(3000, 'x')));
        for (int length = 0; length < profile.size(); ++length)
            QVERIFY(!colour_profile::fitsRgbPixels(profile.left(length)));
    }
};

QTEST_GUILESS_MAIN(TestColourProfile)
#include "tst_colour_profile.moc"
