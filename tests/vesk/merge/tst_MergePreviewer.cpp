#include "MergePreviewer.h"

#include <QColorSpace>
#include <QPainter>
#include <QtTest>

#include <random>

namespace {

constexpr int kPatienceMs = 60000;
const QSize kSize(480, 360);

/// Blocks of random colours, with a white thing that stands elsewhere in each shot.
QImage shot(double factor, QPoint by, int thing)
{
    QImage picture(kSize, QImage::Format_RGB32);
    picture.fill(QColor(90, 80, 70));
    QPainter painter(&picture);
    painter.translate(-by);
    std::mt19937 random(5);
    for (int i = 0; i < 1500; ++i) {
        const auto level = [&] { return std::min(255, int(double(random() % 140 + 10) * factor)); };
        const int red = level();
        const int green = level();
        const QColor color(red, green, level());
        const int x = int(random() % 540) - 30;
        const int y = int(random() % 420) - 30;
        const int width = int(random() % 20) + 3;
        painter.fillRect(x, y, width, int(random() % 20) + 3, color);
    }
    painter.fillRect(thing, 150, 40, 60, QColor(250, 250, 250));
    return picture;
}

QList<QImage> bracket()
{
    QList<QImage> shots{shot(0.6, {}, 100), shot(1.0, {3, -2}, 220), shot(1.6, {-4, 5}, 330)};
    shots[0].setColorSpace(QColorSpace::DisplayP3);
    shots[1].setColorSpace(QColorSpace::SRgb);
    shots[2].setColorSpace(QColorSpace::DisplayP3);
    return shots;
}

} // namespace

/// What is kept from one answer to the next must not show.
class TestMergePreviewer : public QObject
{
    Q_OBJECT

private slots:
    void anyOrderOfChanges_answersAsFromScratch();
    void strokes_changeThePreviewWhereTheyAre();
    void otherShots_areMergedAnew();
    void requestsOneAfterTheOther_onlyTheLastIsAnswered();
    void failedMerge_isAnsweredWithItsError();

private:
    MergePreviewResult ask(MergePreviewer &previewer, const QList<QImage> &shots,
                           const MergeSettings &settings);
    void compare(const MergePreviewResult &kept, const MergePreviewResult &fresh);
};

MergePreviewResult TestMergePreviewer::ask(MergePreviewer &previewer, const QList<QImage> &shots,
                                           const MergeSettings &settings)
{
    MergePreviewResult answer;
    bool isReady = false;
    QObject context;
    connect(&previewer, &MergePreviewer::ready, &context, [&](const MergePreviewResult &result) {
        answer = result;
        isReady = true;
    });
    previewer.request(shots, settings);
    return QTest::qWaitFor([&] { return isReady; }, kPatienceMs) ? answer : MergePreviewResult();
}

void TestMergePreviewer::compare(const MergePreviewResult &kept, const MergePreviewResult &fresh)
{
    QVERIFY(!fresh.picture.isNull());
    QCOMPARE(kept.picture, fresh.picture);
    QCOMPARE(kept.error, fresh.error);
    QCOMPARE(kept.report.reference, fresh.report.reference);
    QCOMPARE(kept.report.area, fresh.report.area);
    QCOMPARE(kept.report.transforms.size(), fresh.report.transforms.size());
    for (size_t i = 0; i < fresh.report.transforms.size(); ++i) {
        QCOMPARE(kept.report.transforms[i].kind, fresh.report.transforms[i].kind);
        QCOMPARE(kept.report.transforms[i].matrix, fresh.report.transforms[i].matrix);
    }
}

void TestMergePreviewer::anyOrderOfChanges_answersAsFromScratch()
{
    const QList<QImage> shots = bracket();
    std::vector<MergeSettings> steps(1);
    const auto change = [&steps](const std::function<void(MergeSettings &)> &how) {
        steps.push_back(steps.back());
        how(steps.back());
    };
    change([](MergeSettings &next) { next.options.adjustment.exposure = 0.5; });
    change([](MergeSettings &next) { next.options.ghosts = exposure::Ghosts::Keep; });
    change([](MergeSettings &next) { next.options.crop = true; });
    change([](MergeSettings &next) { next.options.ghosts = exposure::Ghosts::Remove; });
    change([](MergeSettings &next) { next.options.ghostReference = 2; });
    change([](MergeSettings &next) { next.options.reference = 0; });
    change([](MergeSettings &next) { next.options.crop = false; });
    change([](MergeSettings &next) { next.options.alignment = exposure::Alignment::Shift; });
    change([](MergeSettings &next) { next.options.adjustment.saturation = 0; });
    change([](MergeSettings &next) { next.method = exposure::Method::Mean; });
    change([](MergeSettings &next) { next.method = exposure::Method::Fusion; });
    change([](MergeSettings &next) { next.options.alignment = exposure::Alignment::None; });
    change([](MergeSettings &next) { next.options.ghosts = exposure::Ghosts::Keep; });
    change([](MergeSettings &next) {
        next.strokes = {{2, 80, {{700, 340}, {760, 400}}}, {0, 0, {{460, 340}}}};
        next.paintedOn = kSize * 2;
    });
    change([](MergeSettings &next) { next.options.alignment = exposure::Alignment::Perspective; });
    change([](MergeSettings &next) { next.options.crop = true; });
    change([](MergeSettings &next) { next.options.ghosts = exposure::Ghosts::Remove; });
    change([](MergeSettings &next) { // left of what the crop leaves
        next.strokes.push_back({1, 0, {{2, 340}}});
    });
    change([](MergeSettings &next) { next.strokes.pop_back(); });
    change([](MergeSettings &next) { next.strokes.clear(); });
    MergePreviewer keeping;
    for (const MergeSettings &settings : steps) {
        const MergePreviewResult kept = ask(keeping, shots, settings);
        MergePreviewer fresh;
        compare(kept, ask(fresh, shots, settings));
    }
}

/// The white thing stands at 330 in the third shot alone.
void TestMergePreviewer::strokes_changeThePreviewWhereTheyAre()
{
    const QList<QImage> shots = bracket();
    MergeSettings settings;
    settings.options.reference = 0;
    settings.options.ghostReference = 0;
    MergePreviewer previewer;
    const MergePreviewResult without = ask(previewer, shots, settings);
    QVERIFY(!without.ghosts.isNull());
    settings.paintedOn = kSize * 4;
    settings.strokes = {{2, 200, {{1400, 720}}}};
    const MergePreviewResult with = ask(previewer, shots, settings);
    const QPoint thing(350, 180);
    QVERIFY(qGray(with.picture.pixel(thing)) > qGray(without.picture.pixel(thing)) + 60);
    const QPoint other(30, 30);
    QVERIFY(std::abs(qGray(with.picture.pixel(other)) - qGray(without.picture.pixel(other))) < 12);
}

void TestMergePreviewer::otherShots_areMergedAnew()
{
    const QList<QImage> shots = bracket();
    MergePreviewer previewer;
    const QImage all = ask(previewer, shots, {}).picture;
    const MergePreviewResult two = ask(previewer, shots.mid(0, 2), {});
    QVERIFY(two.picture != all);
    QCOMPARE(two.report.transforms.size(), size_t(2));
}

void TestMergePreviewer::requestsOneAfterTheOther_onlyTheLastIsAnswered()
{
    MergePreviewer previewer;
    int answers = 0;
    MergePreviewResult last;
    connect(&previewer, &MergePreviewer::ready, this, [&](const MergePreviewResult &result) {
        ++answers;
        last = result;
    });
    const QList<QImage> shots = bracket();
    MergeSettings settings;
    for (int i = 0; i < 10; ++i) {
        settings.options.adjustment.exposure = 0.1 * i;
        settings.options.crop = i % 2 == 0;
        previewer.request(shots, settings);
    }
    QTRY_COMPARE_WITH_TIMEOUT(answers, 1, kPatienceMs);
    MergePreviewer fresh;
    compare(last, ask(fresh, shots, settings));
    previewer.request(shots, settings);
    previewer.cancel();
    QTest::qWait(0);
    QCOMPARE(answers, 1);
}

void TestMergePreviewer::failedMerge_isAnsweredWithItsError()
{
    MergePreviewer previewer;
    const QList<QImage> shots{shot(1, {}, 0), shot(1, {}, 0).copy(0, 0, 100, 100)};
    const MergePreviewResult result = ask(previewer, shots, {});
    QCOMPARE(result.error, exposure::Error::DifferentSizes);
    QVERIFY(result.picture.isNull());
}

QTEST_GUILESS_MAIN(TestMergePreviewer)
#include "tst_MergePreviewer.moc"
