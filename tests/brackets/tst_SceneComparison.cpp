#include "SceneComparison.h"

#include "ExifTags.h"
#include "exif_thumbnail.h"
#include "jpeg_encoder.h"

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QImageReader>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QtEndian>
#include <QtTest>

#include <cmath>

namespace {

/// Smooth hills by chance, moved and brightened.
QImage scene(quint32 seed, double stops, QPoint shift = {}, QSize size = {240, 160})
{
    QRandomGenerator random(seed);
    QImage hills(32, 22, QImage::Format_Grayscale8);
    for (int y = 0; y < hills.height(); ++y) {
        for (int x = 0; x < hills.width(); ++x)
            hills.scanLine(y)[x] = uchar(random.bounded(20, 200));
    }
    QImage picture =
        hills.scaled(size + QSize(40, 40), Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
            .copy(QRect(QPoint(20, 20) + shift, size))
            .convertToFormat(QImage::Format_RGB32);
    for (int y = 0; y < picture.height(); ++y) {
        auto *row = reinterpret_cast<QRgb *>(picture.scanLine(y));
        for (int x = 0; x < picture.width(); ++x) {
            const int level = qBound(0, int(qRed(row[x]) * std::exp2(stops)), 255);
            row[x] = qRgb(level, level, level);
        }
    }
    return picture;
}

QByteArray bigEndian(quint32 number, int bytes)
{
    QByteArray word(4, '\0');
    qToBigEndian(number, word.data());
    return word.right(bytes);
}

/// A big-endian block with this orientation and, behind its first directory, a thumbnail.
QByteArray blockWithThumbnail(int orientation, const QByteArray &thumbnail)
{
    const auto entry = [](int tag, int type, quint32 value) {
        return bigEndian(quint32(tag), 2) + bigEndian(quint32(type), 2) + bigEndian(1, 4) +
               (type == 3 ? bigEndian(value, 2) + QByteArray(2, '\0') : bigEndian(value, 4));
    };
    constexpr quint32 kSecond = 8 + 2 + 12 + 4;
    constexpr quint32 kThumbnail = kSecond + 2 + 2 * 12 + 4;
    return QByteArray("MM\0*", 4) + bigEndian(8, 4) + bigEndian(1, 2) +
           entry(0x112, 3, quint32(orientation)) + bigEndian(kSecond, 4) + bigEndian(2, 2) +
           entry(0x201, 4, kThumbnail) + entry(0x202, 4, quint32(thumbnail.size())) +
           bigEndian(0, 4) + thumbnail;
}

QByteArray jpegOf(const QImage &picture)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    picture.save(&buffer, "jpg", 90);
    return bytes;
}

} // namespace

class TestSceneComparison : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir folder;
    int count = 0;

    Shot save(const QImage &picture)
    {
        Shot shot;
        shot.path = folder.filePath(QStringLiteral("%1.png").arg(++count));
        shot.size = picture.size();
        picture.save(shot.path);
        return shot;
    }

    /// A JPEG file whose thumbnail shows something else than its pixels.
    Shot saveWithThumbnail(const QImage &picture, const QImage &thumbnail, int orientation = 1)
    {
        const QByteArray block =
            QByteArray("Exif\0\0", 6) + blockWithThumbnail(orientation, jpegOf(thumbnail));
        QByteArray file = jpegOf(picture);
        file.insert(2, "\xFF\xE1" + bigEndian(quint32(block.size()) + 2, 2) + block);
        Shot shot;
        shot.path = folder.filePath(QStringLiteral("%1.jpg").arg(++count));
        shot.size = orientation >= 5 ? picture.size().transposed() : picture.size();
        shot.orientation = orientation;
        QFile out(shot.path);
        out.open(QIODevice::WriteOnly);
        out.write(file);
        return shot;
    }

private slots:
    void compare_otherExposuresOfOneScene_isTheSame()
    {
        SceneComparison scenes;
        const Shot middle = save(scene(1, 0));
        for (const double stops : {-3.0, -2.0, -1.0, 0.5, 1.0}) {
            QCOMPARE(scenes.compare(middle, save(scene(1, stops))), brackets::Scene::Same);
            QCOMPARE(scenes.compare(save(scene(1, stops)), middle), brackets::Scene::Same);
        }
    }

    void compare_otherScenes_areToldApart()
    {
        SceneComparison scenes;
        const Shot first = save(scene(1, 0));
        for (quint32 seed = 2; seed < 40; ++seed)
            QCOMPARE(scenes.compare(first, save(scene(seed, -1))), brackets::Scene::Other);
    }

    void compare_movedByTheHand_isTheSame()
    {
        SceneComparison scenes;
        const Shot first = save(scene(1, 0));
        for (const QPoint shift : {QPoint(12, 0), QPoint(-12, 6), QPoint(0, -10)})
            QCOMPARE(scenes.compare(first, save(scene(1, -1, shift))), brackets::Scene::Same);
    }

    void compare_whatShowsNothing_isUnknown()
    {
        SceneComparison scenes;
        const Shot first = save(scene(1, 0));
        QCOMPARE(scenes.compare(first, save(scene(1, 6))), brackets::Scene::Unknown);
        QCOMPARE(scenes.compare(first, save(scene(1, -12))), brackets::Scene::Unknown);
        QCOMPARE(scenes.compare(first, save(scene(1, 0, {}, {160, 240}))),
                 brackets::Scene::Unknown);
        Shot missing = first;
        missing.path = folder.filePath("missing.jpg");
        QCOMPARE(scenes.compare(first, missing), brackets::Scene::Unknown);
        QCOMPARE(scenes.compare(missing, first), brackets::Scene::Unknown);
    }

    void compare_tinyPictures_areSafe()
    {
        SceneComparison scenes;
        for (const QSize size : {QSize(1, 1), QSize(1, 7), QSize(7, 1), QSize(2, 3)})
            scenes.compare(save(scene(1, 0, {}, size)), save(scene(1, -1, {}, size)));
    }

    void compare_cameraThumbnail_isTaken()
    {
        SceneComparison scenes;
        const Shot plain = save(scene(1, 0));
        const QSize small(120, 80);
        const Shot same = saveWithThumbnail(scene(2, 0), scene(1, -1).scaled(small));
        QCOMPARE(scenes.compare(plain, same), brackets::Scene::Same);
        const Shot tiny = saveWithThumbnail(scene(1, 0), scene(2, 0).scaled(30, 20));
        QCOMPARE(scenes.compare(plain, tiny), brackets::Scene::Same);
    }

    void compare_thumbnailWithBars_isTakenWithoutThem()
    {
        SceneComparison scenes;
        QImage barred(160, 120, QImage::Format_RGB32);
        barred.fill(Qt::black);
        const QImage inside = scene(1, -1).scaled(160, 107);
        for (int y = 0; y < inside.height(); ++y)
            std::memcpy(barred.scanLine(y + 7), inside.constScanLine(y), size_t(160 * 4));
        const Shot shot = saveWithThumbnail(scene(2, 0), barred);
        QCOMPARE(scenes.compare(save(scene(1, 0)), shot), brackets::Scene::Same);
    }

    void compare_thumbnailOfATurnedPicture_isTurned_data()
    {
        QTest::addColumn<int>("orientation");
        for (int orientation = 1; orientation <= 8; ++orientation)
            QTest::addRow("%d", orientation) << orientation;
    }

    void compare_thumbnailOfATurnedPicture_isTurned()
    {
        QFETCH(const int, orientation);
        const QSize stored(240, 160);
        const QImage shown = scene(1, 0, {}, orientation >= 5 ? stored.transposed() : stored);
        // What must be done to the upright picture to store it so.
        QImage turned = shown;
        const auto rotated = [&](int degrees) {
            return turned.transformed(QTransform().rotate(degrees));
        };
        switch (orientation) {
        case 2:
            turned = turned.mirrored(true, false);
            break;
        case 3:
            turned = rotated(180);
            break;
        case 4:
            turned = turned.mirrored(false, true);
            break;
        case 5:
            turned = rotated(-90).mirrored(false, true);
            break;
        case 6:
            turned = rotated(-90);
            break;
        case 7:
            turned = rotated(-90).mirrored(true, false);
            break;
        case 8:
            turned = rotated(90);
            break;
        default:
            break;
        }
        SceneComparison scenes;
        const Shot shot =
            saveWithThumbnail(scene(2, 0), turned.scaled(turned.size() / 2), orientation);
        QCOMPARE(scenes.compare(save(shown), shot), brackets::Scene::Same);
    }

    void thumbnailIn_cutOrDamagedAnywhere_isSafe()
    {
        const QByteArray thumbnail = jpegOf(scene(1, 0, {}, {8, 8}));
        const QByteArray block = blockWithThumbnail(1, thumbnail);
        QCOMPARE(exif::thumbnailIn(block), thumbnail);
        for (int i = 0; i < 60; ++i) {
            QByteArray damaged = block;
            damaged[i] = '\xFF';
            for (const QByteArray &bytes : {damaged, block.left(i)})
                QVERIFY(exif::thumbnailIn(bytes).size() <= block.size());
        }
        QCOMPARE(exif::thumbnailIn({}), QByteArray());
    }

    /// Photographs: neighbours of one bracket, and of two.
    void compare_photographs_areToldApart()
    {
        const QString pictures = qEnvironmentVariable("VESK_TEST_PICTURES") + "/brackets/";
        const QStringList names = QDir(pictures).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
        if (names.isEmpty())
            QSKIP("there are no photographs here");
        SceneComparison scenes;
        std::vector<QList<Shot>> sets;
        for (const QString &name : names) {
            QList<Shot> shots;
            for (const QFileInfo &file :
                 QDir(pictures + name).entryInfoList({"*.png", "*.jpg"}, QDir::Files, QDir::Name)) {
                Shot shot;
                shot.path = file.filePath();
                shot.size = QImageReader(shot.path).size();
                shots += shot;
            }
            sets.push_back(shots);
        }
        for (size_t i = 0; i < sets.size(); ++i) {
            for (qsizetype k = 1; k < sets[i].size(); ++k)
                QCOMPARE(scenes.compare(sets[i][k - 1], sets[i][k]), brackets::Scene::Same);
            for (size_t other = 0; other < i; ++other)
                QVERIFY(scenes.compare(sets[i].first(), sets[other].last()) !=
                        brackets::Scene::Same);
        }
    }
};

QTEST_GUILESS_MAIN(TestSceneComparison)
#include "tst_SceneComparison.moc"
