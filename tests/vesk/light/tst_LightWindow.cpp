// Light in the editor: its window, and what becomes of it.

#include "DocumentArea.h"
#include "FileDialogAnswerer.h"
#include "LightCommand.h"
#include "LightWindow.h"
#include "LookSlider.h"
#include "MergePreview.h"
#include "MessageBoxAnswerer.h"
#include "picture_document.h"

#include <VeskContext.h>
#include <develop.h>
#include <gain_map.h>
#include <layer_composition.h>
#include <screen_colours.h>

#include <QCheckBox>
#include <QComboBox>
#include <QMessageBox>
#include <QPushButton>
#include <QSignalSpy>
#include <QtTest>

#include <cmath>

using develop::Method;

Q_DECLARE_METATYPE(develop::Method)

namespace {

constexpr int kPatienceMs = 60000;
constexpr QSize kSize(160, 120);

/// Brighter from left to right by a stop every 10 pixels, from -8 stops.
QImage ramp(QSize size = kSize)
{
    QImage light(size, QImage::Format_RGBX32FPx4);
    for (int y = 0; y < size.height(); ++y) {
        auto *pixel = reinterpret_cast<float *>(light.scanLine(y));
        for (int x = 0; x < size.width(); ++x, pixel += 4) {
            const auto value = static_cast<float>(std::exp2(16.0 * x / size.width() - 8));
            pixel[0] = value;
            pixel[1] = value * 0.9F;
            pixel[2] = value * 0.8F;
            pixel[3] = 1.0F;
        }
    }
    light.setColorSpace(QColorSpace::SRgbLinear);
    return light;
}

} // namespace

class TestLightWindow : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void preview_opens_asOneShotShowsIt();
    void everyControl_changesThePreview();
    void marks_brighterThanWhite_areRed();
    void develop_eachMethod_equalsTheLibrary_data();
    void develop_eachMethod_equalsTheLibrary();
    void develop_cancelled_givesNothing();
    void close_lightInNoFile_asks();
    void close_lightOfAFile_doesNotAsk();
    void save_writesTheLightWhole_data();
    void save_writesTheLightWhole();
    void save_forBrightScreens_isThePictureAndMore();
    void save_kindWithoutLight_isRefused();
    void command_developed_becomesADocument();
    void command_sameFileTwice_comesToTheFront();
    void everyControl_isNamed();
    void smallScreen_isLargeEnough();

private:
    void open(const light_file::Light &light);
    void change(const std::function<void()> &how);
    template <typename Part>
    Part *part(const char *name) const
    {
        return window->findChild<Part *>(QLatin1String(name));
    }
    QImage previewed() const { return part<MergePreview>("lightPreview")->shown(); }
    void choose(Method method)
    {
        auto *box = part<QComboBox>("lightMethod");
        box->setCurrentIndex(box->findData(int(method)));
    }
    light_file::Light light(const QString &path = {}) const
    {
        light_file::Light of;
        of.picture = ramp();
        of.name = QStringLiteral("scene");
        of.path = path;
        return of;
    }

    std::unique_ptr<QTemporaryDir> folder;
    std::unique_ptr<MessageBoxAnswerer> boxes;
    std::unique_ptr<FileDialogAnswerer> dialogs;
    std::unique_ptr<LightWindow> window;
};

void TestLightWindow::init()
{
    folder = std::make_unique<QTemporaryDir>();
    boxes = std::make_unique<MessageBoxAnswerer>();
    dialogs = std::make_unique<FileDialogAnswerer>();
}

void TestLightWindow::cleanup()
{
    window.reset();
    dialogs.reset();
    boxes.reset();
}

void TestLightWindow::open(const light_file::Light &light)
{
    window = std::make_unique<LightWindow>(light, folder->path());
    window->show();
    QVERIFY(QTest::qWaitForWindowExposed(window.get()));
    QTRY_VERIFY_WITH_TIMEOUT(!previewed().isNull(), kPatienceMs);
    QTest::qWait(0);
}

/// Does it, and waits until the preview has followed.
void TestLightWindow::change(const std::function<void()> &how)
{
    const QImage before = previewed();
    how();
    QTRY_VERIFY_WITH_TIMEOUT(previewed() != before, kPatienceMs);
}

void TestLightWindow::preview_opens_asOneShotShowsIt()
{
    open(light());
    develop::Options how;
    how.method = Method::Exposure;
    QTRY_COMPARE(previewed(), screen_colours::shown(develop::picture(ramp(), how).picture));
}

void TestLightWindow::everyControl_changesThePreview()
{
    open(light());
    change([this] { part<LookSlider>("lightExposure")->setValue(-3); });
    change([this] { choose(Method::Global); });
    change([this] { choose(Method::Local); });
    change([this] { choose(Method::Exposure); });
    develop::Options how;
    how.method = Method::Exposure;
    how.exposure = -3;
    QTRY_COMPARE(previewed(), screen_colours::shown(develop::picture(ramp(), how).picture));
}

void TestLightWindow::marks_brighterThanWhite_areRed()
{
    open(light());
    part<QCheckBox>("lightMarks")->setChecked(true);
    const auto isRed = [this](int x) {
        return QColor(previewed().pixel(x, 60)) == QColor(255, 0, 0);
    };
    QTRY_VERIFY(isRed(159));
    QVERIFY(isRed(81) && !isRed(78) && !isRed(0)); // light 1 is at 80
    change([this] { part<LookSlider>("lightExposure")->setValue(-4); });
    QVERIFY(isRed(121) && !isRed(118));
}

void TestLightWindow::develop_eachMethod_equalsTheLibrary_data()
{
    QTest::addColumn<Method>("method");
    QTest::newRow("exposure") << Method::Exposure;
    QTest::newRow("global") << Method::Global;
    QTest::newRow("local") << Method::Local;
}

void TestLightWindow::develop_eachMethod_equalsTheLibrary()
{
    QFETCH(Method, method);
    open(light());
    const QSignalSpy developed(window.get(), &LightWindow::developed);
    choose(method);
    part<LookSlider>("lightExposure")->setValue(1.5);
    part<QCheckBox>("lightMarks")->setChecked(true); // is for looking only
    part<QPushButton>("developButton")->click();
    QTRY_COMPARE_WITH_TIMEOUT(developed.count(), 1, kPatienceMs);
    develop::Options how;
    how.method = method;
    how.exposure = 1.5;
    QCOMPARE(developed.first().first().value<QImage>(), develop::picture(ramp(), how).picture);
    QVERIFY(part<QPushButton>("developButton")->isEnabled());
}

void TestLightWindow::develop_cancelled_givesNothing()
{
    light_file::Light large = light();
    large.picture = ramp({2400, 1600});
    open(large);
    const QSignalSpy developed(window.get(), &LightWindow::developed);
    choose(Method::Local);
    part<QPushButton>("developButton")->click();
    QVERIFY(!part<QPushButton>("developButton")->isEnabled());
    window->reject();
    QVERIFY(window->isVisible());
    QVERIFY(part<QPushButton>("developButton")->isEnabled());
    QTest::qWait(300);
    QCOMPARE(developed.count(), 0);
}

void TestLightWindow::close_lightInNoFile_asks()
{
    open(light());
    boxes->answerNextWith(QMessageBox::Cancel);
    window->close();
    QVERIFY(window->isVisible());
    boxes->answerNextWith(QMessageBox::Discard);
    window->close();
    QVERIFY(!window->isVisible());
}

void TestLightWindow::close_lightOfAFile_doesNotAsk()
{
    open(light(folder->filePath(QStringLiteral("scene.exr"))));
    window->close();
    QVERIFY(!window->isVisible());
    QCOMPARE(boxes->shown().size(), 0);
}

void TestLightWindow::save_writesTheLightWhole_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("radiance") << QStringLiteral("a.hdr");
    QTest::newRow("tiff") << QStringLiteral("a.tif");
}

void TestLightWindow::save_writesTheLightWhole()
{
    QFETCH(QString, name);
    open(light());
    const QString path = folder->filePath(name);
    dialogs->answerNextWith(path);
    part<QPushButton>("saveLightButton")->click();
    QCOMPARE(boxes->shown().size(), 0);
    QVERIFY(QFileInfo(path).size() > 0);
    window->close(); // it is in a file now
    QVERIFY(!window->isVisible());
}

/// As any reader sees it: the picture that it is developed to. The light is in no file by that.
void TestLightWindow::save_forBrightScreens_isThePictureAndMore()
{
    open(light());
    choose(Method::Local);
    const QString path = folder->filePath(QStringLiteral("a.jpg"));
    dialogs->answerNextWith(path);
    part<QPushButton>("saveLightButton")->click();
    QCOMPARE(boxes->shown().size(), 0);
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const std::optional<gain_map::Found> map = gain_map::read(file);
    QVERIFY(map.has_value());
    QCOMPARE(map->problem, QString());
    QVERIFY(map->terms.alternateHeadroom > 0.5);
    develop::Options how;
    const QImage developed = develop::picture(ramp(), how).picture;
    const QImage read(path);
    QCOMPARE(read.size(), developed.size());
    for (const int x : {5, 80, 150}) {
        const QColor expected = developed.pixelColor(x, 60);
        QVERIFY(std::abs(read.pixelColor(x, 60).green() - expected.green()) < 6);
    }
    boxes->answerNextWith(QMessageBox::Discard);
    window->close();
    QCOMPARE(boxes->shown().size(), 1);
}

void TestLightWindow::save_kindWithoutLight_isRefused()
{
    open(light());
    const QString path = folder->filePath(QStringLiteral("a.png"));
    dialogs->answerNextWith(path);
    boxes->answerNextWith(QMessageBox::Ok);
    part<QPushButton>("saveLightButton")->click();
    QVERIFY(!QFileInfo::exists(path));
    QCOMPARE(boxes->shown().size(), 1);
    QVERIFY(boxes->shown().first().text.contains(QStringLiteral("a.png")));
}

void TestLightWindow::command_developed_becomesADocument()
{
    DocumentArea documents(new QWidget);
    LightCommand command(&documents, &documents);
    command.show(light(folder->filePath(QStringLiteral("scene.exr"))));
    auto *shown = documents.findChild<LightWindow *>();
    QVERIFY(shown);
    shown->findChild<QPushButton *>(QStringLiteral("developButton"))->click();
    QTRY_COMPARE_WITH_TIMEOUT(documents.documents().size(), 1, kPatienceMs);
    VeskContext *document = documents.documents().first();
    QVERIFY(document->isSaveAble());
    QVERIFY(document->getFileName().contains(QStringLiteral("scene")));
    develop::Options how;
    how.method = Method::Exposure;
    QCOMPARE(composition::composedPicture(document), develop::picture(ramp(), how).picture);
    QCOMPARE(document::resultMark(*document)->method, QStringLiteral("develop"));
    QVERIFY(command.closeAll());
}

void TestLightWindow::command_sameFileTwice_comesToTheFront()
{
    DocumentArea documents(new QWidget);
    LightCommand command(&documents, &documents);
    command.show(light(folder->filePath(QStringLiteral("scene.exr"))));
    command.show(light(folder->filePath(QStringLiteral("scene.exr"))));
    QCOMPARE(documents.findChildren<LightWindow *>().size(), 1);
    command.show(light(folder->filePath(QStringLiteral("other.exr"))));
    QCOMPARE(documents.findChildren<LightWindow *>().size(), 2);
}

void TestLightWindow::everyControl_isNamed()
{
    open(light());
    for (const char *name : {"lightPreview", "lightMethod", "lightExposure"})
        QVERIFY2(!part<QWidget>(name)->accessibleName().isEmpty(), name);
}

void TestLightWindow::smallScreen_isLargeEnough()
{
    open(light());
    QVERIFY(window->minimumSizeHint().width() <= 1366);
    QVERIFY(window->minimumSizeHint().height() <= 700);
}

QTEST_MAIN(TestLightWindow)
#include "tst_LightWindow.moc"
