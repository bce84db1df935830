#include "screen_colours.h"

#include "editor_settings.h"

#include <VeskScreenColours.h>

#include <QColorSpace>
#include <QTemporaryDir>
#include <QtTest>

namespace {

QImage patch(const QColor &color, const QColorSpace &space,
             QImage::Format format = QImage::Format_RGB32)
{
    QImage picture(3, 2, format);
    picture.fill(color);
    picture.setColorSpace(space);
    return picture;
}

bool isNear(const QColor &one, const QColor &other)
{
    return qAbs(one.red() - other.red()) <= 1 && qAbs(one.green() - other.green()) <= 1 &&
           qAbs(one.blue() - other.blue()) <= 1;
}

} // namespace

class TestScreenColours : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void displayP3_onSrgbScreen_showsAsSrgb();
    void srgb_onSrgbScreen_keepsItsPixels();
    void noProfile_countsAsSrgb();
    void halfTransparent_keepsItsAlpha();
    void profileFile_becomesTheScreensAndIsRemembered();
    void profileFileGone_countsAsSrgb();
    void isScreenProfile_otherFiles_areNone();
    void common_staysSrgbWhateverTheScreen();

private:
    QString profileFile(const QColorSpace &space) const;

    QTemporaryDir folder;
    const QColorSpace p3{QColorSpace::DisplayP3};
    const QColorSpace srgb{QColorSpace::SRgb};
};

void TestScreenColours::init()
{
    screen_colours::setProfileFile({});
}

QString TestScreenColours::profileFile(const QColorSpace &space) const
{
    QFile file(folder.filePath(QStringLiteral("screen.icc")));
    if (!file.open(QIODevice::WriteOnly) || file.write(space.iccProfile()) <= 0)
        return {};
    return file.fileName();
}

void TestScreenColours::displayP3_onSrgbScreen_showsAsSrgb()
{
    const QImage shown = screen_colours::shown(patch(QColor(200, 100, 50), p3));
    QVERIFY(isNear(shown.pixelColor(1, 1), QColor(215, 93, 31)));
}

void TestScreenColours::srgb_onSrgbScreen_keepsItsPixels()
{
    const QImage picture = patch(QColor(200, 100, 50), srgb);
    QCOMPARE(screen_colours::shown(picture).constBits(), picture.constBits());
    QVERIFY(!VeskScreenColours::getInstance().toScreen(srgb));
}

void TestScreenColours::noProfile_countsAsSrgb()
{
    QVERIFY(!VeskScreenColours::getInstance().toScreen({}));
    screen_colours::setProfileFile(profileFile(p3));
    const QImage shown = screen_colours::shown(patch(QColor(215, 93, 31), {}));
    QVERIFY(isNear(shown.pixelColor(1, 1), QColor(200, 100, 50)));
}

void TestScreenColours::halfTransparent_keepsItsAlpha()
{
    const QImage shown = screen_colours::shown(
        patch(QColor(200, 100, 50, 128), p3, QImage::Format_ARGB32_Premultiplied));
    QCOMPARE(shown.pixelColor(0, 0).alpha(), 128);
    const QColor color = shown.pixelColor(0, 0);
    QVERIFY(qAbs(color.red() - 215) <= 2 && qAbs(color.green() - 93) <= 2);
}

void TestScreenColours::profileFile_becomesTheScreensAndIsRemembered()
{
    QSignalSpy changes(&VeskScreenColours::getInstance(), &VeskScreenColours::changed);
    const QString file = profileFile(p3);
    QVERIFY(screen_colours::isScreenProfile(file));
    screen_colours::setProfileFile(file);
    QCOMPARE(changes.size(), 1);
    QCOMPARE(settings::screenProfile(), file);
    const QImage picture = patch(QColor(200, 100, 50), p3);
    QCOMPARE(screen_colours::shown(picture), picture);
    QVERIFY(isNear(screen_colours::shown(patch(QColor(215, 93, 31), srgb)).pixelColor(0, 0),
                   QColor(200, 100, 50)));
}

void TestScreenColours::profileFileGone_countsAsSrgb()
{
    const QString file = profileFile(p3);
    screen_colours::setProfileFile(file);
    QVERIFY(QFile::remove(file));
    screen_colours::applySettings();
    QVERIFY(!VeskScreenColours::getInstance().toScreen(srgb));
}

void TestScreenColours::isScreenProfile_otherFiles_areNone()
{
    QFile file(folder.filePath(QStringLiteral("rubbish.icc")));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("no profile");
    file.close();
    QVERIFY(!screen_colours::isScreenProfile(file.fileName()));
    QVERIFY(!screen_colours::isScreenProfile(folder.path()));
    QVERIFY(!screen_colours::isScreenProfile(folder.filePath(QStringLiteral("missing.icc"))));
    QVERIFY(!screen_colours::isScreenProfile({}));
}

void TestScreenColours::common_staysSrgbWhateverTheScreen()
{
    screen_colours::setProfileFile(profileFile(p3));
    QVERIFY(!VeskScreenColours::getInstance().toCommon(srgb));
    QImage picture = patch(QColor(200, 100, 50), p3, QImage::Format_ARGB32_Premultiplied);
    VeskScreenColours::getInstance().toCommon(p3)(picture);
    QVERIFY(isNear(picture.pixelColor(0, 0), QColor(215, 93, 31)));
}

QTEST_GUILESS_MAIN(TestScreenColours)
#include "tst_screen_colours.moc"
