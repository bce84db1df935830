#include "parallel_rows.h"
#include "registration.h"
#include "rendered_shots.h"
#include "resample.h"
#include "vector_targets.h"

#include <QDir>
#include <QImageReader>
#include <QPainter>
#include <QtTest>

#include <cmath>

using namespace registration;
using rendered::Camera;

namespace {

constexpr QSize kSize(640, 480);

Transform registeredPair(const QImage &reference, const QImage &shot)
{
    Options options;
    options.reference = 0;
    const Result result = registerShots({reference, shot}, options);
    return result.outcome == Outcome::Done ? result.transforms[1] : Transform();
}

/// How far the transform sets the corners from where they belong.
double error(const Transform &transform, const Matrix &truth, QSize size = kSize)
{
    return cornerDistance(transform.matrix, truth, size);
}

Camera movedCamera(const Matrix &toReference, double stops = 0.0)
{
    Camera camera;
    camera.toReference = toReference;
    camera.stops = stops;
    camera.noise = 1.0;
    camera.seed = 7;
    return camera;
}

QImage readPicture(const QString &name)
{
    QImageReader reader(QDir(qEnvironmentVariable("VESK_TEST_PICTURES")).filePath(name));
    reader.setAutoTransform(true);
    return reader.read();
}

QStringList namesIn(const QString &start, const QStringList &ends)
{
    QStringList names;
    for (const QString &end : ends)
        names += start + end;
    return names;
}

QList<QImage> readPictures(const QStringList &names)
{
    QList<QImage> pictures;
    for (const QString &name : names)
        pictures += readPicture(name);
    return pictures;
}

/// Every pixel is the mean of 2 x 2, so that its own sharpness does not limit the rendering.
rendered::Scene sceneOf(const QImage &picture)
{
    const auto photograph =
        rendered::photograph(picture.scaledToWidth(2000, Qt::SmoothTransformation));
    return [photograph](double x, double y) { return photograph(2 * x + 100.5, 2 * y + 80.5); };
}

bool areEqual(const Result &a, const Result &b)
{
    if (a.reference != b.reference || a.transforms.size() != b.transforms.size())
        return false;
    for (size_t i = 0; i < a.transforms.size(); ++i) {
        const Transform &p = a.transforms[i];
        const Transform &q = b.transforms[i];
        if (p.kind != q.kind || p.matrix != q.matrix || p.confidence != q.confidence ||
            p.residualPixels != q.residualPixels)
            return false;
    }
    return true;
}

Matrix bracketMotion(int shot, QSize size)
{
    return rendered::turned(size, 0.1 * (shot % 7), 1.3 * (shot % 11), -0.7 * (shot % 13));
}

/// A bracket of a scene, each shot with a small motion of its own.
QList<QImage> handHeldBracket(int count, QSize size)
{
    QList<QImage> shots;
    for (int i = 0; i < count; ++i) {
        Camera camera = movedCamera(bracketMotion(i, size), i % 5 - 2);
        camera.size = size;
        camera.seed = unsigned(i);
        shots.append(rendered::shot(rendered::texturedScene(3), camera));
    }
    return shots;
}

} // namespace

class tst_registration : public QObject
{
    Q_OBJECT

private slots:
    void knownMotion_anyExposure_fitsAtTheCorners_data();
    void knownMotion_anyExposure_fitsAtTheCorners();
    void turn_withoutTilt_isRigid();
    void tilt_isPerspective();
    void noise_ofTenLevels_fitsAtTheCorners();
    void movingThird_isLeftOut();
    void repeatedWindows_fitAtTheCorners();
    void repeatedTiles_fitAtTheCorners();
    void flatSky_doesNotBendThePicture();
    void identicalPictures_giveTheIdentity_data();
    void identicalPictures_giveTheIdentity();
    void wholeShift_isFoundExactly();
    void linearLight_fiveStopsApart_fits();
    void unrelatedPictures_areRefused();
    void flatPicture_hasNoDetail();
    void manyShots_allFit_data();
    void manyShots_allFit();
    void chain_carriesAShotThatShowsTooLittle();
    void loop_wrongPair_isReplacedByTheChain();
    void tripodSet_givesWayByHalfAPixel_staysAsItIs();
    void tinyPictures_areNotAligned_data();
    void tinyPictures_areNotAligned();
    void sizesDiffer_placesAreFound();
    void reference_isTheBestExposedUnlessGiven();
    void threadsAndTargets_giveEqualResults();
    void cancel_fromProgress_endsWithoutResult();
    void progress_risesToOne();
    void noShots_isSaid();
    void photograph_knownMotion_fits_data();
    void photograph_knownMotion_fits();
    void photograph_movingThird_isLeftOut();
    void photographs_fromATripod_stayAsTheyAre_data();
    void photographs_fromATripod_stayAsTheyAre();
    void filmScans_oneWarped_onlyThatIsResampled();
    void photographs_nearThingsShifted_areConfirmedByTheWayBack();
};

void tst_registration::knownMotion_anyExposure_fitsAtTheCorners_data()
{
    QTest::addColumn<Matrix>("truth");
    QTest::addColumn<double>("stops");
    const std::pair<const char *, Matrix> motions[] = {
        {"hand", rendered::turned(kSize, 0.26, 11.4, -7.7)},
        {"strong turn", rendered::turned(kSize, -2.0, 25.2, 14.9)},
        {"tilt", rendered::tilted(kSize, 1.1, -0.8, 0.5)},
    };
    for (const auto &[name, truth] : motions) {
        for (double stops : {-4.0, -2.0, 0.0, 2.0, 4.0})
            QTest::addRow("%s, %+g stops", name, stops) << truth << stops;
    }
}

void tst_registration::knownMotion_anyExposure_fitsAtTheCorners()
{
    QFETCH(Matrix, truth);
    QFETCH(double, stops);
    const auto scene = rendered::texturedScene(3);
    const QImage reference = rendered::shot(scene, movedCamera(identityMatrix()));
    const Transform found =
        registeredPair(reference, rendered::shot(scene, movedCamera(truth, stops)));
    qInfo("error %.3f px, confidence %.2f", error(found, truth), found.confidence);
    QVERIFY(error(found, truth) <= 0.3);
}

void tst_registration::turn_withoutTilt_isRigid()
{
    const auto scene = rendered::texturedScene(5);
    const Matrix truth = rendered::turned(kSize, 0.8, 5, 9);
    const QImage reference = rendered::shot(scene, movedCamera(identityMatrix()));
    QCOMPARE(registeredPair(reference, rendered::shot(scene, movedCamera(truth, 1))).kind,
             Kind::Rigid);
}

void tst_registration::tilt_isPerspective()
{
    const auto scene = rendered::texturedScene(5);
    const Matrix truth = rendered::tilted(kSize, 1.5, 1.0, 0.0);
    const QImage reference = rendered::shot(scene, movedCamera(identityMatrix()));
    QCOMPARE(registeredPair(reference, rendered::shot(scene, movedCamera(truth, 1))).kind,
             Kind::Perspective);
}

void tst_registration::noise_ofTenLevels_fitsAtTheCorners()
{
    const auto scene = rendered::texturedScene(4);
    const Matrix truth = rendered::turned(kSize, 0.3, -8.6, 4.2);
    Camera camera = movedCamera(truth, -1);
    camera.noise = 10;
    const QImage reference = rendered::shot(scene, movedCamera(identityMatrix()));
    const Transform found = registeredPair(reference, rendered::shot(scene, camera));
    QVERIFY2(error(found, truth) <= 0.3, qPrintable(QString::number(error(found, truth))));
}

void tst_registration::movingThird_isLeftOut()
{
    const auto ground = rendered::texturedScene(3);
    const auto thing = rendered::texturedScene(40);
    const auto scene = [=](double at) {
        return [=](double x, double y) {
            const bool isThing = x > 180 + at && x < 390 + at;
            return isThing ? thing(x - at, y) : ground(x, y);
        };
    };
    const Matrix truth = rendered::turned(kSize, 0.2, 6.3, -4.1);
    const QImage reference = rendered::shot(scene(0), movedCamera(identityMatrix()));
    const Transform found =
        registeredPair(reference, rendered::shot(scene(15), movedCamera(truth, 1)));
    QVERIFY2(error(found, truth) <= 0.3, qPrintable(QString::number(error(found, truth))));
}

void tst_registration::repeatedWindows_fitAtTheCorners()
{
    const auto scene = rendered::houseFront();
    const Matrix truth = rendered::turned(kSize, 0.25, 13.0, 9.5);
    const QImage reference = rendered::shot(scene, movedCamera(identityMatrix()));
    const Transform found = registeredPair(reference, rendered::shot(scene, movedCamera(truth, 1)));
    QVERIFY2(error(found, truth) <= 0.3, qPrintable(QString::number(error(found, truth))));
}

void tst_registration::repeatedTiles_fitAtTheCorners()
{
    const auto scene = rendered::tiledFloor();
    const Matrix truth = rendered::tilted(kSize, 0.4, 0.7, -0.3);
    const QImage reference = rendered::shot(scene, movedCamera(identityMatrix()));
    const Transform found =
        registeredPair(reference, rendered::shot(scene, movedCamera(truth, -2)));
    QVERIFY2(error(found, truth) <= 0.3, qPrintable(QString::number(error(found, truth))));
}

void tst_registration::flatSky_doesNotBendThePicture()
{
    const auto scene = rendered::skyAbove(260, 8);
    const Matrix truth = rendered::turned(kSize, 0.25, 9.1, -6.4);
    const QImage reference = rendered::shot(scene, movedCamera(identityMatrix()));
    const Transform found =
        registeredPair(reference, rendered::shot(scene, movedCamera(truth, -1)));
    QVERIFY2(error(found, truth) <= 0.3, qPrintable(QString::number(error(found, truth))));
}

void tst_registration::identicalPictures_giveTheIdentity_data()
{
    QTest::addColumn<QImage>("picture");
    Camera camera = movedCamera(identityMatrix());
    const QImage picture = rendered::shot(rendered::texturedScene(3), camera);
    QTest::newRow("8 bits") << picture;
    QTest::newRow("grey") << picture.convertToFormat(QImage::Format_Grayscale8);
    QTest::newRow("16 bits") << rendered::linearShot(rendered::texturedScene(3), camera);
    camera.size = QSize(200, 133);
    QTest::newRow("small") << rendered::shot(rendered::texturedScene(3), camera);
}

void tst_registration::identicalPictures_giveTheIdentity()
{
    QFETCH(QImage, picture);
    const Transform found = registeredPair(picture, picture);
    QCOMPARE(found.kind, Kind::Identity);
    QCOMPARE(found.matrix, identityMatrix());
    QVERIFY(found.confidence > 0.9);
}

void tst_registration::wholeShift_isFoundExactly()
{
    const auto scene = rendered::texturedScene(6);
    const QImage reference = rendered::shot(scene, movedCamera(identityMatrix()));
    const QImage moved = rendered::shot(scene, movedCamera(shiftMatrix(-17, 31), 2));
    const Transform found = registeredPair(reference, moved);
    QCOMPARE(found.kind, Kind::Shift);
    QCOMPARE(found.matrix, shiftMatrix(-17, 31));
}

void tst_registration::linearLight_fiveStopsApart_fits()
{
    const auto scene = rendered::texturedScene(3);
    const Matrix truth = rendered::turned(kSize, 0.4, 3.3, 5.2);
    const QImage reference = rendered::linearShot(scene, movedCamera(identityMatrix()));
    const Transform found =
        registeredPair(reference, rendered::linearShot(scene, movedCamera(truth, -5)));
    QVERIFY2(error(found, truth) <= 0.3, qPrintable(QString::number(error(found, truth))));
}

void tst_registration::unrelatedPictures_areRefused()
{
    const QImage reference =
        rendered::shot(rendered::texturedScene(3), movedCamera(identityMatrix()));
    for (unsigned seed : {100U, 200U, 300U}) {
        const QImage other =
            rendered::shot(rendered::texturedScene(seed), movedCamera(identityMatrix()));
        const Transform found = registeredPair(reference, other);
        QCOMPARE(found.kind, Kind::Unaligned);
        QCOMPARE(found.matrix, identityMatrix());
        QVERIFY(found.confidence < kLeastConfidence);
        QCOMPARE(found.reason, Reason::NoMatch);
        QVERIFY(!reasonText(found.reason).isEmpty());
    }
}

void tst_registration::flatPicture_hasNoDetail()
{
    const QImage reference =
        rendered::shot(rendered::texturedScene(3), movedCamera(identityMatrix()));
    QImage flat(kSize, QImage::Format_RGB32);
    for (QRgb colour : {qRgb(0, 0, 0), qRgb(128, 128, 128), qRgb(255, 255, 255)}) {
        flat.fill(colour);
        const Transform found = registeredPair(reference, flat);
        QCOMPARE(found.kind, Kind::Unaligned);
        QCOMPARE(found.reason, Reason::NoDetail);
    }
}

void tst_registration::manyShots_allFit_data()
{
    QTest::addColumn<int>("count");
    QTest::newRow("1 shot") << 1;
    QTest::newRow("2 shots") << 2;
    QTest::newRow("9 shots") << 9;
    QTest::newRow("30 shots") << 30;
}

void tst_registration::manyShots_allFit()
{
    QFETCH(int, count);
    constexpr QSize kSmall(320, 240);
    const QList<QImage> shots = handHeldBracket(count, kSmall);
    Options options;
    options.reference = 0;
    const Result result = registerShots(shots, options);
    QCOMPARE(result.outcome, Outcome::Done);
    QCOMPARE(int(result.transforms.size()), count);
    for (int i = 0; i < count; ++i) {
        const Matrix truth = bracketMotion(i, kSmall);
        const double off = error(result.transforms[size_t(i)], truth, kSmall);
        QVERIFY2(off <= 0.5, qPrintable(QStringLiteral("shot %1: %2 px").arg(i).arg(off)));
    }
}

void tst_registration::chain_carriesAShotThatShowsTooLittle()
{
    // The left half is dark, the right half bright: of the two outer exposures each shows one half,
    // both show some of what the middle one shows.
    const auto texture = rendered::texturedScene(3);
    const auto scene = [&](double x, double y) {
        return texture(x, y) * (x < 320 ? 1.0 / 100 : 8.0);
    };
    const Matrix middle = rendered::turned(kSize, 0.2, 4.4, 2.3);
    const Matrix last = rendered::turned(kSize, 0.4, 8.1, 5.9);
    const QImage dark = rendered::shot(scene, movedCamera(identityMatrix(), -4));
    const QImage mid = rendered::shot(scene, movedCamera(middle, 0));
    const QImage bright = rendered::shot(scene, movedCamera(last, 5));
    QCOMPARE(registeredPair(dark, bright).kind, Kind::Unaligned);
    Options options;
    options.reference = 0;
    const Result result = registerShots({dark, mid, bright}, options);
    QVERIFY(result.transforms[2].kind != Kind::Unaligned);
    QVERIFY2(error(result.transforms[2], last) <= 2.0,
             qPrintable(QString::number(error(result.transforms[2], last))));
}

void tst_registration::loop_wrongPair_isReplacedByTheChain()
{
    // A thing fills most of the first and of the last shot, elsewhere by 15 pixels: these two agree
    // on the thing. In the shots between it is small, so that they agree on the ground.
    const auto ground = rendered::texturedScene(3);
    const auto thing = rendered::texturedScene(40);
    const auto scene = [=](double at, double width) {
        return [=](double x, double y) {
            return x > at && x < at + width ? thing(x - at, y) : ground(x, y);
        };
    };
    const auto shot = [&](double at, double width, double stops) {
        return rendered::shot(scene(at, width),
                              movedCamera(bracketMotion(int(stops), kSize), stops));
    };
    const QList<QImage> shots{shot(100, 360, 0), shot(20, 90, 1), shot(520, 90, 2),
                              shot(115, 360, 3)};
    const Matrix last = bracketMotion(3, kSize);
    QVERIFY(error(registeredPair(shots[0], shots[3]), last) > 10);
    Options options;
    options.reference = 0;
    const Result result = registerShots(shots, options);
    for (int i = 1; i < 4; ++i) {
        const double off = error(result.transforms[size_t(i)], bracketMotion(i, kSize));
        QVERIFY2(off <= 0.6, qPrintable(QStringLiteral("shot %1: %2 px").arg(i).arg(off)));
    }
}

void tst_registration::tripodSet_givesWayByHalfAPixel_staysAsItIs()
{
    const auto scene = rendered::texturedScene(3);
    QList<QImage> shots;
    for (double off : {0.0, 0.3, 0.5})
        shots.append(rendered::shot(scene, movedCamera(shiftMatrix(off, -off), 4 * off)));
    const Result result = registerShots(shots);
    for (const Transform &transform : result.transforms) {
        QCOMPARE(transform.kind, Kind::Identity);
        QCOMPARE(transform.matrix, identityMatrix());
    }
}

void tst_registration::tinyPictures_areNotAligned_data()
{
    QTest::addColumn<QSize>("size");
    for (QSize size : {QSize(1, 1), QSize(1, 300), QSize(300, 1), QSize(5, 7), QSize(15, 16)})
        QTest::addRow("%d x %d", size.width(), size.height()) << size;
}

void tst_registration::tinyPictures_areNotAligned()
{
    QFETCH(QSize, size);
    Camera camera = movedCamera(identityMatrix());
    camera.size = size;
    const QImage picture = rendered::shot(rendered::texturedScene(3), camera);
    const Transform found = registeredPair(picture, picture);
    QCOMPARE(found.kind, Kind::Unaligned);
    QCOMPARE(found.reason, Reason::TooSmall);
}

void tst_registration::sizesDiffer_placesAreFound()
{
    const auto scene = rendered::texturedScene(3);
    const Matrix truth = shiftMatrix(41.5, 22.25);
    const QImage reference = rendered::shot(scene, movedCamera(identityMatrix()));
    Camera camera = movedCamera(truth, 1);
    for (QSize size : {QSize(571, 433), QSize(700, 500)}) {
        camera.size = size;
        const Transform found = registeredPair(reference, rendered::shot(scene, camera));
        QVERIFY2(error(found, truth, size) <= 0.3,
                 qPrintable(QString::number(error(found, truth))));
    }
}

void tst_registration::reference_isTheBestExposedUnlessGiven()
{
    const auto scene = rendered::texturedScene(3);
    QList<QImage> shots;
    for (double stops : {-5.0, 0.0, 4.0})
        shots.append(rendered::shot(scene, movedCamera(identityMatrix(), stops)));
    QCOMPARE(registerShots(shots).reference, 1);
    Options options;
    options.reference = 2;
    QCOMPARE(registerShots(shots, options).reference, 2);
}

void tst_registration::threadsAndTargets_giveEqualResults()
{
    const QList<QImage> shots = handHeldBracket(3, QSize(517, 401));
    const Result expected = registerShots(shots);
    QVERIFY(expected.transforms[0].kind != Kind::Unaligned);
    for (int threads : {1, 2, 7}) {
        parallel::setThreadLimit(threads);
        QVERIFY(areEqual(registerShots(shots), expected));
    }
    parallel::setThreadLimit(0);
    for (int64_t target : vectorTargets::all()) {
        const vectorTargets::Forced forced(target);
        QVERIFY2(areEqual(registerShots(shots), expected), hwy::TargetName(target));
    }
}

void tst_registration::cancel_fromProgress_endsWithoutResult()
{
    std::atomic<bool> isCancelled{false};
    Options options;
    options.isCancelled = &isCancelled;
    options.onProgress = [&](double) { isCancelled = true; };
    const Result result = registerShots(handHeldBracket(3, QSize(320, 240)), options);
    QCOMPARE(result.outcome, Outcome::Cancelled);
    QVERIFY(result.transforms.empty());
}

void tst_registration::progress_risesToOne()
{
    std::vector<double> seen;
    Options options;
    options.onProgress = [&](double share) { seen.push_back(share); };
    registerShots(handHeldBracket(4, QSize(320, 240)), options);
    QVERIFY(std::is_sorted(seen.begin(), seen.end()));
    QCOMPARE(seen.back(), 1.0);
    QCOMPARE(int(seen.size()), 4);
}

void tst_registration::noShots_isSaid()
{
    QCOMPARE(registerShots({}).outcome, Outcome::NoShots);
    QCOMPARE(registerShots({QImage()}).outcome, Outcome::NoShots);
}

void tst_registration::photograph_knownMotion_fits_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<Matrix>("truth");
    QTest::addColumn<double>("stops");
    const QString night = QStringLiteral("IMG_3873.jpeg");
    const QString river = QStringLiteral("arch/StLouisArchMultExpEV+1.51.jpeg");
    const Matrix tilt = rendered::tilted(kSize, 0.6, -0.5, 0.2);
    const Matrix hand = rendered::turned(kSize, 0.2, 9.3, -5.6);
    const Matrix strong = rendered::tilted(kSize, -1.7, 1.2, 1.8);
    for (double stops : {-4.0, -2.0, 0.0, 2.0, 4.0})
        QTest::addRow("night, tilt, %+g stops", stops) << night << tilt << stops;
    for (double stops : {-2.0, 2.0}) {
        QTest::addRow("night, strong, %+g stops", stops) << night << strong << stops;
        QTest::addRow("river, hand, %+g stops", stops) << river << hand << stops;
        QTest::addRow("river, strong, %+g stops", stops) << river << strong << stops;
    }
}

void tst_registration::photograph_knownMotion_fits()
{
    QFETCH(QString, name);
    QFETCH(Matrix, truth);
    QFETCH(double, stops);
    const QImage picture = readPicture(name);
    if (picture.isNull())
        QSKIP("no photographs in VESK_TEST_PICTURES");
    const auto scene = sceneOf(picture);
    const QImage reference = rendered::shot(scene, movedCamera(identityMatrix()));
    const Transform found =
        registeredPair(reference, rendered::shot(scene, movedCamera(truth, stops)));
    qInfo("error %.3f px, confidence %.2f", error(found, truth), found.confidence);
    QVERIFY(error(found, truth) <= 0.3);
}

void tst_registration::photograph_movingThird_isLeftOut()
{
    const QImage picture = readPicture(QStringLiteral("IMG_3873.jpeg"));
    if (picture.isNull())
        QSKIP("no photographs in VESK_TEST_PICTURES");
    const auto ground = sceneOf(picture);
    const auto scene = [&](double at) {
        return [&, at](double x, double y) {
            const bool isThing = x > 200 + at && x < 410 + at;
            return isThing ? ground(x - at + 130, y) : ground(x, y);
        };
    };
    const Matrix truth = rendered::turned(kSize, 0.2, 6.3, -4.1);
    const QImage reference = rendered::shot(scene(0), movedCamera(identityMatrix()));
    const Transform found =
        registeredPair(reference, rendered::shot(scene(17), movedCamera(truth, 1)));
    QVERIFY2(error(found, truth) <= 0.3, qPrintable(QString::number(error(found, truth))));
}

void tst_registration::photographs_fromATripod_stayAsTheyAre_data()
{
    QTest::addColumn<QStringList>("names");
    QTest::newRow("house") << namesIn("brackets/House/", {"A.png", "B.png", "C.png", "D.png"});
    QTest::newRow("office") << namesIn("brackets/Office/",
                                       {"office_2.png", "office_3.png", "office_4.png"});
    QTest::newRow("river") << namesIn("brackets/Arno/", {"arno1.png", "arno2.png", "arno3.png"});
    QTest::newRow("people") << namesIn("moving/dynamic/", {"1.tif", "2.tif", "3.tif", "4.tif"});
}

void tst_registration::photographs_fromATripod_stayAsTheyAre()
{
    QFETCH(QStringList, names);
    const QList<QImage> shots = readPictures(names);
    if (shots.first().isNull())
        QSKIP("no photographs in VESK_TEST_PICTURES");
    for (const Transform &transform : registerShots(shots).transforms)
        QCOMPARE(transform.kind, Kind::Identity);
}

void tst_registration::filmScans_oneWarped_onlyThatIsResampled()
{
    const QList<QImage> shots = readPictures(
        namesIn("test1_memorial00", {"61.png", "64.png", "67.png", "70.png", "73.png"}));
    if (shots.first().isNull())
        QSKIP("no photographs in VESK_TEST_PICTURES");
    const Result result = registerShots(shots);
    QCOMPARE(result.reference, 1);
    for (size_t i : {0U, 1U, 3U, 4U})
        QCOMPARE(result.transforms[i].matrix, identityMatrix());
    QCOMPARE(result.transforms[2].kind, Kind::Perspective);
    const double off = error(result.transforms[2], identityMatrix(), shots[2].size());
    QVERIFY2(off > 2 && off < 6, qPrintable(QString::number(off)));
}

void tst_registration::photographs_nearThingsShifted_areConfirmedByTheWayBack()
{
    const QList<QImage> shots = readPictures(namesIn("moving/pingpong/Img", {"2.JPG", "3.JPG"}));
    if (shots.first().isNull())
        QSKIP("no photographs in VESK_TEST_PICTURES");
    const Transform there = registeredPair(shots[0], shots[1]);
    const Transform back = registeredPair(shots[1], shots[0]);
    QVERIFY(there.kind != Kind::Unaligned);
    QVERIFY(back.kind != Kind::Unaligned);
    QVERIFY(there.confidence < 0.5);
    QVERIFY(error(there, identityMatrix(), shots[0].size()) > 40);
    QVERIFY(error(there, inverse(back.matrix), shots[0].size()) <= 2.0);
}

QTEST_GUILESS_MAIN(tst_registration)
#include "tst_registration.moc"
