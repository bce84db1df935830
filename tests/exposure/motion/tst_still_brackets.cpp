// Where nothing moves, next to nothing is found: a false ghost costs range.

#include "motion.h"
#include "sample_bracket.h"

#include <QDir>
#include <QtTest>

class tst_still_brackets : public QObject
{
    Q_OBJECT

private slots:
    void find_renderedTripodBracket_findsNothing_data();
    void find_renderedTripodBracket_findsNothing();
    void find_fineStripesBesideWhite_findsNothing();
    void find_colourShiftBesideWhite_findsNothing();
    void find_photographedStillSet_findsNoMoreThanMoved_data();
    void find_photographedStillSet_findsNoMoreThanMoved();
};

namespace {

/// Of all pixels the share that is found, in percent.
double foundPercent(const std::vector<QImage> &shots)
{
    const motion::Result result = motion::find(shots);
    if (result.status != motion::Status::Done)
        return 100.0;
    qint64 found = 0;
    for (int y = 0; y < result.found.height(); ++y)
        for (int x = 0; x < result.found.width(); ++x)
            found += result.found.constScanLine(y)[x] > 127;
    const qint64 all = qMax<qint64>(1, qint64(result.found.width()) * result.found.height());
    return 100.0 * double(found) / double(all);
}

std::vector<QImage> load(const QDir &folder)
{
    std::vector<QImage> shots;
    for (const QString &name : folder.entryList(QDir::Files, QDir::Name))
        shots.push_back(QImage(folder.filePath(name)).convertToFormat(QImage::Format_RGB32));
    return shots;
}

/// Levels of an exposure of light 0..1.
int exposed(double light, double exposure)
{
    return int(255 * std::min(1.0, std::pow(light * exposure, 1 / 2.2)) + 0.5);
}

} // namespace

void tst_still_brackets::find_renderedTripodBracket_findsNothing_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<int>("count");
    QTest::newRow("5 shots, 320 x 240") << QSize(320, 240) << 5;
    QTest::newRow("5 shots, 321 x 203") << QSize(321, 203) << 5;
    QTest::newRow("3 shots, 640 x 480") << QSize(640, 480) << 3;
    QTest::newRow("9 shots, 320 x 240") << QSize(320, 240) << 9;
}

/// Rendered with sensor noise, then through a JPEG, whose blocks of colour are coarser than pixels.
void tst_still_brackets::find_renderedTripodBracket_findsNothing()
{
    QFETCH(QSize, size);
    QFETCH(int, count);
    sample::BracketSettings settings;
    settings.size = size;
    settings.stops = sample::evenStops(count);
    settings.offsets = QVector<QPoint>(count);
    std::vector<QImage> shots;
    for (const sample::Shot &shot : sample::photographBracket(settings))
        shots.push_back(
            QImage::fromData(sample::encoded(shot, "jpg")).convertToFormat(QImage::Format_RGB32));
    QCOMPARE(foundPercent(shots), 0.0);
}

/// A block that holds dark and white has a mean that no single level of its maps to.
void tst_still_brackets::find_fineStripesBesideWhite_findsNothing()
{
    std::vector<QImage> shots;
    for (const double exposure : {1.0, 4.0, 16.0}) {
        QImage shot(400, 300, QImage::Format_RGB32);
        for (int y = 0; y < 300; ++y) {
            for (int x = 0; x < 400; ++x) {
                const double plain = std::pow(2.0, -8.0 * y / 300);
                const bool isStriped = x > 180 && x < 220;
                const double light = isStriped ? ((x + y) % 3 == 0 ? 0.9 : 0.01) : plain;
                const int level = exposed(light, exposure);
                shot.setPixel(x, y, qRgb(level, level, level));
            }
        }
        shots.push_back(shot);
    }
    QCOMPARE(foundPercent(shots), 0.0);
}

/// Cameras give what has one channel white another colour.
void tst_still_brackets::find_colourShiftBesideWhite_findsNothing()
{
    std::vector<QImage> shots;
    for (const double exposure : {1.0, 4.0}) {
        QImage shot(400, 300, QImage::Format_RGB32);
        for (int y = 0; y < 300; ++y) {
            for (int x = 0; x < 400; ++x) {
                const double light = std::pow(2.0, -6.0 * y / 300);
                const bool isOrange = x > 150 && x < 250;
                const int red = exposed(light, exposure);
                int blue = exposed(isOrange ? light / 6 : light, exposure);
                if (isOrange && red == 255)
                    blue = qMin(255, blue + 30);
                shot.setPixel(x, y, qRgb(red, red, blue));
            }
        }
        shots.push_back(shot);
    }
    QCOMPARE(foundPercent(shots), 0.0);
}

void tst_still_brackets::find_photographedStillSet_findsNoMoreThanMoved_data()
{
    QTest::addColumn<double>("most");
    for (const char *name : {"Arno", "Cave", "Landscape", "Mask", "Office"})
        QTest::newRow(name) << 0.0;
    QTest::newRow("House") << 4.0;         // leaves behind the panes
    QTest::newRow("ChineseGarden") << 8.0; // water and leaves
    QTest::newRow("Venice") << 14.0;       // boats and their wake
}

void tst_still_brackets::find_photographedStillSet_findsNoMoreThanMoved()
{
    QFETCH(double, most);
    QDir folder(qEnvironmentVariable("VESK_TEST_PICTURES"));
    if (!folder.cd(QString("brackets/") + QTest::currentDataTag()))
        QSKIP("No brackets in the folder of test pictures (VESK_TEST_PICTURES)");
    const double found = foundPercent(load(folder));
    QVERIFY2(found <= most, qPrintable(QString::number(found)));
}

QTEST_GUILESS_MAIN(tst_still_brackets)
#include "tst_still_brackets.moc"
