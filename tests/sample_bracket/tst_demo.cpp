#include <QImage>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QVector>
#include <QtTest>

namespace {

/// Every pair of numbers that the pattern captures, in the order of the text.
QVector<QPoint> pointsIn(const QString &text, const QString &pattern)
{
    QVector<QPoint> points;
    QRegularExpressionMatchIterator match = QRegularExpression(pattern).globalMatch(text);
    while (match.hasNext()) {
        const QRegularExpressionMatch numbers = match.next();
        points.append({numbers.captured(1).toInt(), numbers.captured(2).toInt()});
    }
    return points;
}

/// Share of the pixels that show nothing because they are white or black.
double lostShare(const QImage &picture)
{
    int lost = 0;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            const int grey = qGray(picture.pixel(x, y));
            lost += grey > 250 || grey < 12;
        }
    }
    return static_cast<double>(lost) / (picture.width() * picture.height());
}

} // namespace

/// Runs scripts/demo as 'make demo' does, at a smaller size.
class TestDemo : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void demo_shifts_areThoseOfTheHand();
    void demo_everyStep_namesItsTime();
    void demo_result_existsWhereItSays();
    void demo_mean_showsMoreThanAnyShot();
    void demo_fusion_showsMoreThanTheMiddleShot();

private:
    QTemporaryDir folder_;
    QString output_;
};

void TestDemo::initTestCase()
{
    constexpr int kTimeLimitMs = 240000;
    QProcess demo;
    demo.setProcessChannelMode(QProcess::MergedChannels);
    demo.start(QStringLiteral(DEMO_SCRIPT),
               {QStringLiteral(BUILD_FOLDER), folder_.filePath(QStringLiteral("new")),
                QStringLiteral("600x400")});
    QVERIFY(demo.waitForFinished(kTimeLimitMs));
    output_ = QString::fromLocal8Bit(demo.readAll());
    QVERIFY2(demo.exitStatus() == QProcess::NormalExit && demo.exitCode() == 0,
             qPrintable(output_));
}

void TestDemo::demo_shifts_areThoseOfTheHand()
{
    const QString point = QStringLiteral("\\((-?\\d+), (-?\\d+)\\)");
    QVector<QPoint> places = pointsIn(output_, QStringLiteral("scene at ") + point);
    QCOMPARE(places.size(), 5);
    places.removeFirst();
    for (QPoint &place : places)
        place = -place;
    QCOMPARE(pointsIn(output_, point + QStringLiteral(" from the first")), places);
}

void TestDemo::demo_everyStep_namesItsTime()
{
    for (const char *step : {"decode", "align", "ghosts", "merge", "encode", "total"}) {
        const QRegularExpression line(QStringLiteral("^%1 +\\d+ ms$").arg(QLatin1String(step)),
                                      QRegularExpression::MultilineOption);
        QVERIFY2(line.match(output_).hasMatch(), step);
    }
    QCOMPARE(output_.count(QStringLiteral("Done in ")), 3);
}

void TestDemo::demo_result_existsWhereItSays()
{
    const QRegularExpression line(QStringLiteral("The merged picture: (.*)\n"));
    const QString path = line.match(output_).captured(1);
    const QImage merged(path);
    QVERIFY2(!merged.isNull(), qPrintable(path));
    // The hand moves by less than 4 pixels at this size, and what not every shot has is cut off.
    QVERIFY(merged.width() >= 592 && merged.width() <= 600);
    QVERIFY(merged.height() >= 392 && merged.height() <= 400);
}

void TestDemo::demo_mean_showsMoreThanAnyShot()
{
    const double lost = lostShare(QImage(folder_.filePath(QStringLiteral("new/sample_mean.png"))));
    for (int i = 1; i <= 5; ++i) {
        const QImage shot(folder_.filePath(QStringLiteral("new/sample_0%1.jpg").arg(i)));
        QVERIFY(!shot.isNull());
        QVERIFY2(lost <= lostShare(shot), qPrintable(QStringLiteral("shot %1").arg(i)));
    }
    QVERIFY2(lost < 0.01, qPrintable(QString::number(lost)));
}

/// The fusion is brighter than the mean, and its sky nearly white: not better than the one shot
/// that was made for the sky.
void TestDemo::demo_fusion_showsMoreThanTheMiddleShot()
{
    const QImage fused(folder_.filePath(QStringLiteral("new/sample_merged.png")));
    const QImage middle(folder_.filePath(QStringLiteral("new/sample_03.jpg")));
    QVERIFY(!fused.isNull() && !middle.isNull());
    QVERIFY2(lostShare(fused) < lostShare(middle), qPrintable(QString::number(lostShare(fused))));
}

QTEST_GUILESS_MAIN(TestDemo)
#include "tst_demo.moc"
