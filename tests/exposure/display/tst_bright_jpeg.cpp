// From shots to a JPEG file that glows, and back by a decoder of the test's own: how near what a
// bright screen shows comes to the radiance.

#include "BrightJpeg.h"
#include "gain_map_maker.h"
#include "merge_job.h"
#include "picture_writer.h"
#include "sample_bracket.h"

#include <QBuffer>
#include <QDir>
#include <QtTest>

#include <algorithm>
#include <cmath>

class TestBrightJpeg : public QObject
{
    Q_OBJECT

private slots:
    void renderedBracket_shownLight_isWithinATenthOfAStop();
    void photographedArch_shownLight_isWithinATenthOfAStop();
};

namespace {

struct Distance
{
    double luminance = 0.0; ///< stops rms, where all channels' gains lie within the map's range
    double channels = 0.0;  ///< of each channel by itself, where its own does
    double share = 0.0;     ///< of the pixels that luminance is of
};

struct Mean
{
    double sum = 0.0;
    double count = 0.0;

    void add(double one, double other)
    {
        constexpr double kBlack = 1e-4;
        const double error = std::log2(std::max(one, kBlack) / std::max(other, kBlack));
        sum += error * error;
        ++count;
    }
    double root() const { return std::sqrt(sum / std::max(count, 1.0)); }
};

double luminanceOf(const double *light)
{
    return 0.2126 * light[0] + 0.7152 * light[1] + 0.0722 * light[2];
}

/// The scale is found by the test itself: the median of shown over true where all is in range.
double scaleOf(const std::vector<float> &shown, const QImage &light)
{
    std::vector<double> ratios;
    for (int y = 0; y < light.height(); ++y) {
        const auto *row = reinterpret_cast<const float *>(light.constScanLine(y));
        for (int x = 0; x < light.width(); ++x) {
            const double bright =
                double(shown[3 * (size_t(y) * size_t(light.width()) + size_t(x)) + 1]);
            if (row[4 * x + 1] > 0.0F && bright > 1.5 && bright < 8.0)
                ratios.push_back(bright / double(row[4 * x + 1]));
        }
    }
    std::nth_element(ratios.begin(), ratios.begin() + qsizetype(ratios.size() / 2), ratios.end());
    return ratios[ratios.size() / 2];
}

Distance distanceOf(const BrightJpeg &file, const QImage &light)
{
    const std::vector<float> shown = file.shown();
    const double scale = scaleOf(shown, light);
    Mean luminance;
    Mean channels;
    for (int y = 0; y < light.height(); ++y) {
        const auto *row = reinterpret_cast<const float *>(light.constScanLine(y));
        for (int x = 0; x < light.width(); ++x) {
            const QRgb word = file.base.pixel(x, y);
            const int levels[] = {qRed(word), qGreen(word), qBlue(word)};
            double truth[3];
            double seen[3];
            bool allInRange = true;
            for (int c = 0; c < 3; ++c) {
                truth[c] = scale * double(row[4 * x + c]);
                seen[c] =
                    double(shown[3 * (size_t(y) * size_t(light.width()) + size_t(x)) + size_t(c)]);
                const BrightJpeg::Channel &terms = file.channels[size_t(c)];
                const double gain = std::log2((truth[c] + terms.alternateOffset) /
                                              (BrightJpeg::lightOf(levels[c]) + terms.baseOffset));
                const bool isInRange = gain >= terms.least && gain <= terms.most;
                allInRange = allInRange && isInRange;
                if (isInRange)
                    channels.add(seen[c], truth[c]);
            }
            if (allInRange)
                luminance.add(luminanceOf(seen), luminanceOf(truth));
        }
    }
    return {luminance.root(), channels.root(),
            luminance.count / (double(light.width()) * light.height())};
}

Distance measured(const QList<QImage> &shots, const std::vector<double> &exposures)
{
    exposure::Options how;
    how.product = exposure::Product::Both;
    how.exposures = exposures;
    const exposure::Outcome merged = exposure::merge(shots, how);
    if (merged.picture.isNull() || merged.light.size() != merged.picture.size())
        return {9.0, 9.0, 0.0};
    WriteOptions options;
    options.gainMap = display::makeGainMap({merged.picture, merged.light, merged.bounds});
    QByteArray file;
    QBuffer device(&file);
    device.open(QIODevice::ReadWrite);
    picture::write(merged.picture, device, PictureFormat::Jpeg, options);
    const BrightJpeg read(file);
    if (!read.problem.isEmpty())
        qWarning("%s", read.problem.constData());
    return read.problem.isEmpty() ? distanceOf(read, merged.light) : Distance{9.0, 9.0, 0.0};
}

void tell(const Distance &distance)
{
    qInfo("luminance %.4f stops rms over %.0f %% of the pixels, channels %.3f", distance.luminance,
          100.0 * distance.share, distance.channels);
}

} // namespace

void TestBrightJpeg::renderedBracket_shownLight_isWithinATenthOfAStop()
{
    QList<QImage> shots;
    std::vector<double> exposures;
    sample::BracketSettings settings;
    settings.size = QSize(1800, 1200);
    settings.offsets = QVector<QPoint>(5);
    for (const sample::Shot &shot : sample::photographBracket(settings)) {
        shots += shot.picture;
        exposures.push_back(std::exp2(shot.exposure.stops));
    }
    const Distance distance = measured(shots, exposures);
    tell(distance);
    QVERIFY(distance.share > 0.1);
    QVERIFY(distance.luminance <= 0.10);
}

void TestBrightJpeg::photographedArch_shownLight_isWithinATenthOfAStop()
{
    const QDir folder(qEnvironmentVariable("VESK_TEST_PICTURES") + QStringLiteral("/arch"));
    QList<QImage> shots;
    std::vector<double> exposures;
    for (const char *stops : {"-4.72", "-1.82", "+1.51", "+4.09"}) {
        const QImage shot(
            folder.filePath(QStringLiteral("StLouisArchMultExpEV%1.jpeg").arg(stops)));
        if (shot.isNull())
            QSKIP("the photographs are missing, see VESK_TEST_PICTURES");
        shots += shot.convertToFormat(QImage::Format_RGB32);
        exposures.push_back(std::exp2(QByteArray(stops).toDouble()));
    }
    const Distance distance = measured(shots, exposures);
    tell(distance);
    QVERIFY(distance.share > 0.1);
    QVERIFY(distance.luminance <= 0.10);
}

QTEST_GUILESS_MAIN(TestBrightJpeg)
#include "tst_bright_jpeg.moc"
