// Depth and colours in the whole editor, from the file to the screen and back to a file.

#include "DocumentArea.h"
#include "EditorWindow.h"
#include "FilmStrip.h"
#include "FilmStripModel.h"
#include "HistogramDock.h"
#include "HistogramView.h"
#include "MainWindow.h"
#include "ScreenColoursMenu.h"
#include "editor_settings.h"

#include <VeskCanvas.h>
#include <VeskContext.h>
#include <picture_reader.h>
#include <picture_writer.h>

#include <QAction>
#include <QColorSpace>
#include <QIcon>
#include <QLabel>
#include <QRgba64>
#include <QtTest>

namespace {

constexpr int kLevels = 65536;
const QColor kWide(200, 100, 50); // in Display P3
const QColor kSrgb(215, 93, 31);  // the same colour

/// All levels of 16 bits in each channel, each once.
QImage deepRamp()
{
    QImage ramp(256, 256, QImage::Format_RGBX64);
    for (int level = 0; level < kLevels; ++level) {
        auto *row = reinterpret_cast<QRgba64 *>(ramp.scanLine(level / 256));
        row[level % 256] = QRgba64::fromRgba64(quint16(level), quint16(kLevels - 1 - level),
                                               quint16(level ^ 0x5555), 0xFFFF);
    }
    ramp.setColorSpace(QColorSpace::ProPhotoRgb);
    return ramp;
}

QImage readDeep(const QString &path)
{
    ReadOptions options;
    options.depth = ReadOptions::Depth::AsStored;
    return picture::read(path, options).image;
}

bool isNear(const QColor &one, const QColor &other)
{
    return qAbs(one.red() - other.red()) <= 1 && qAbs(one.green() - other.green()) <= 1 &&
           qAbs(one.blue() - other.blue()) <= 1;
}

} // namespace

class TestEditorDepth : public QObject, private EditorWindow
{
    Q_OBJECT

private slots:
    void init() { setUp(); }
    void cleanup() { tearDown(); }
    void ramp_openedAndSaved_losesNoLevel_data();
    void ramp_openedAndSaved_losesNoLevel();
    void ramp_savedAsJpeg_isRounded();
    void wideColours_showAsSrgb();
    void wideColours_onTheirOwnScreen_showAsTheyAre();
    void pointer_overDeepPicture_tellsItsNumbers();
    void screenMenu_damagedProfile_isRefused();

private:
    QString addPatch() const;
    QColor shownAtMiddle() const;
    void saveAs(const QString &path);
    QAction *menuAction(int index) const;
};

/// A file of one wide colour.
QString TestEditorDepth::addPatch() const
{
    QImage patch(300, 200, QImage::Format_RGB32);
    patch.fill(kWide);
    patch.setColorSpace(QColorSpace::DisplayP3);
    const QString path = pictures->path(QStringLiteral("wide.png"));
    picture::write(patch, path, PictureFormat::Png, {});
    return path;
}

QColor TestEditorDepth::shownAtMiddle() const
{
    const QImage canvas = current()->getCanvas()->grab().toImage();
    return canvas.pixelColor(canvas.rect().center());
}

void TestEditorDepth::saveAs(const QString &path)
{
    dialogs->answerNextWith(path);
    action(QStringLiteral("Save As"))->trigger();
    QTRY_COMPARE(current()->getFilePath(), path);
}

QAction *TestEditorDepth::menuAction(int index) const
{
    return window->findChild<ScreenColoursMenu *>()->actions().at(index);
}

void TestEditorDepth::ramp_openedAndSaved_losesNoLevel_data()
{
    QTest::addColumn<QString>("from");
    QTest::addColumn<QString>("to");
    QTest::newRow("PNG to PNG") << "ramp.png"
                                << "saved.png";
    QTest::newRow("PNG to TIFF") << "ramp.png"
                                 << "saved.tif";
    QTest::newRow("TIFF to PNG") << "ramp.tif"
                                 << "saved.png";
    QTest::newRow("TIFF to TIFF") << "ramp.tif"
                                  << "saved.tif";
    QTest::newRow("PNG to itself") << "ramp.png"
                                   << "ramp.png";
}

void TestEditorDepth::ramp_openedAndSaved_losesNoLevel()
{
    QFETCH(QString, from);
    QFETCH(QString, to);
    const QString source = pictures->path(from);
    const auto format = *picture::formatOfSuffix(source);
    QCOMPARE(picture::write(deepRamp(), source, format, {}).error, OutputFile::Error::None);
    openAndWait({source});
    boxes->answerNextWith(QMessageBox::Yes);
    saveAs(pictures->path(to));

    const QImage saved = readDeep(pictures->path(to));
    QCOMPARE(saved.format(), QImage::Format_RGBX64);
    QCOMPARE(saved.colorSpace().iccProfile(), readDeep(source).colorSpace().iccProfile());
    QVERIFY(!saved.colorSpace().iccProfile().isEmpty());
    const QImage expected = deepRamp();
    for (int level = 0; level < kLevels; ++level)
        QCOMPARE(saved.pixelColor(level % 256, level / 256).rgba64(),
                 expected.pixelColor(level % 256, level / 256).rgba64());
}

void TestEditorDepth::ramp_savedAsJpeg_isRounded()
{
    const QString source = pictures->path(QStringLiteral("flat.png"));
    QImage flat(32, 32, QImage::Format_RGBX64);
    flat.fill(QColor::fromRgba64(257 * 100 + 200, 257 * 100 + 200, 257 * 100 + 200));
    QCOMPARE(picture::write(flat, source, PictureFormat::Png, {}).error, OutputFile::Error::None);
    openAndWait({source});
    dialogs->quality = 100;
    saveAs(pictures->path(QStringLiteral("flat.jpg")));
    QCOMPARE(readDeep(current()->getFilePath()).pixelColor(16, 16), QColor(101, 101, 101));
}

void TestEditorDepth::wideColours_showAsSrgb()
{
    openAndWait({addPatch()});
    for (const qreal zoom : {1.0, 0.3, 2.5}) {
        current()->getCanvas()->setZoom(zoom);
        QVERIFY(isNear(shownAtMiddle(), kSrgb));
    }
    // The film strip shows the folder of the picture.
    auto *model = strip->findChild<FilmStripModel *>();
    const auto thumbnail = [model] {
        const QIcon icon = model->data(model->index(0), Qt::DecorationRole).value<QIcon>();
        return icon.pixmap(icon.availableSizes().value(0)).toImage();
    };
    QTRY_VERIFY(model->rowCount() == 1 && thumbnail().width() != thumbnail().height());
    QVERIFY(isNear(thumbnail().pixelColor(20, 20), kSrgb));
    // The histogram compares pictures, so it counts in one space.
    const HistogramView &histogram = window->findChild<HistogramDock *>()->view();
    const auto pixelsAround = [](const std::array<quint32, 256> &levels, int level) {
        return levels[size_t(level - 1)] + levels[size_t(level)] + levels[size_t(level + 1)];
    };
    QTRY_COMPARE(pixelsAround(histogram.histogram().red, kSrgb.red()), 300U * 200U);
    QCOMPARE(pixelsAround(histogram.histogram().blue, kSrgb.blue()), 300U * 200U);
    // The document's numbers are its own.
    QCOMPARE(current()->getCanvas()->colorAt({5, 5}), kWide);
}

void TestEditorDepth::wideColours_onTheirOwnScreen_showAsTheyAre()
{
    QFile profile(pictures->path(QStringLiteral("screen.icc")));
    QVERIFY(profile.open(QIODevice::WriteOnly));
    profile.write(QColorSpace(QColorSpace::DisplayP3).iccProfile());
    profile.close();
    openAndWait({addPatch()});
    QVERIFY(isNear(shownAtMiddle(), kSrgb));
    dialogs->answerNextWith(profile.fileName());
    menuAction(1)->trigger();
    QCOMPARE(settings::screenProfile(), profile.fileName());
    QVERIFY(menuAction(1)->isChecked());
    QVERIFY(menuAction(1)->text().contains(QStringLiteral("screen.icc")));
    QVERIFY(isNear(shownAtMiddle(), kWide)); // at once
    menuAction(0)->trigger();
    QVERIFY(isNear(shownAtMiddle(), kSrgb));
    QCOMPARE(settings::screenProfile(), QString());
}

void TestEditorDepth::pointer_overDeepPicture_tellsItsNumbers()
{
    const QString source = pictures->path(QStringLiteral("ramp.png"));
    QCOMPARE(picture::write(deepRamp(), source, PictureFormat::Png, {}).error,
             OutputFile::Error::None);
    openAndWait({source});
    VeskCanvas *canvas = current()->getCanvas();
    canvas->setZoom(1);
    QTest::mouseMove(canvas, canvas->toWidget({10, 20}).toPoint());
    const auto *label = window->findChild<QLabel *>(QStringLiteral("pointerLabel"));
    const int level = 20 * 256 + 10;
    QTRY_COMPARE(label->text(), QStringLiteral("10, 20   R %1 G %2 B %3")
                                    .arg(level)
                                    .arg(kLevels - 1 - level)
                                    .arg(level ^ 0x5555));
}

void TestEditorDepth::screenMenu_damagedProfile_isRefused()
{
    QFile profile(pictures->path(QStringLiteral("rubbish.icc")));
    QVERIFY(profile.open(QIODevice::WriteOnly));
    profile.write("no profile");
    profile.close();
    dialogs->answerNextWith(profile.fileName());
    menuAction(1)->trigger();
    QCOMPARE(boxes->shown().size(), 1);
    QVERIFY(boxes->shown().first().text.contains(QStringLiteral("rubbish.icc")));
    QCOMPARE(settings::screenProfile(), QString());
    QVERIFY(menuAction(0)->isChecked());
}

QTEST_MAIN(TestEditorDepth)
#include "tst_editor_depth.moc"
