#include "registration.h"
#include "sample_bracket.h"

#include <QtTest>

using namespace registration;

namespace {

constexpr QSize kSize(900, 600);

Matrix matrixOf(const sample::Homography &map)
{
    return map;
}

/// From the shot onto the reference.
Matrix truth(const QVector<sample::Shot> &shots, int shot, int reference)
{
    return product(inverse(matrixOf(shots[reference].toFirst)), matrixOf(shots[shot].toFirst));
}

} // namespace

/// The rendered bracket, whose camera moves as a file says.
class TestSampleMotion : public QObject
{
    Q_OBJECT

private slots:
    void bracket_knownMotion_fitsAtTheCorners_data()
    {
        QTest::addColumn<sample::Motion>("motion");
        QTest::addColumn<quint32>("seed");
        QTest::newRow("hand") << sample::Motion::Hand << 1U;
        QTest::newRow("other hand") << sample::Motion::Hand << 2U;
        QTest::newRow("strong") << sample::Motion::Strong << 1U;
    }

    void bracket_knownMotion_fitsAtTheCorners()
    {
        QFETCH(sample::Motion, motion);
        QFETCH(quint32, seed);
        sample::BracketSettings settings;
        settings.size = kSize;
        settings.motion = motion;
        settings.seed = seed;
        const QVector<sample::Shot> shots = sample::photographBracket(settings);
        QList<QImage> pictures;
        for (const sample::Shot &shot : shots)
            pictures += shot.picture;
        Options options;
        options.reference = 2; // 4 stops from the darkest and from the brightest
        const Result result = registerShots(pictures, options);
        QCOMPARE(result.outcome, Outcome::Done);
        for (int i = 0; i < int(shots.size()); ++i) {
            const double off =
                cornerDistance(result.transforms[size_t(i)].matrix, truth(shots, i, 2), kSize);
            qInfo("%+g stops: error %.3f px", shots[i].exposure.stops, off);
            QVERIFY2(off <= 0.3, qPrintable(QStringLiteral("shot %1: %2 px").arg(i).arg(off)));
        }
    }
};

QTEST_GUILESS_MAIN(TestSampleMotion)
#include "tst_sample_motion.moc"
