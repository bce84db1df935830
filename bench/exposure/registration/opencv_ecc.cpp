#include "opencv_ecc.h"

#include <opencv2/imgproc.hpp>
#include <opencv2/video/tracking.hpp>

namespace {

constexpr int kIterations = 50;
constexpr double kEpsilon = 1e-4;
constexpr int kSmoothing = 5;

cv::Mat prepared(const QImage &picture)
{
    const QImage rgb = picture.convertToFormat(QImage::Format_RGB32);
    const cv::Mat words(rgb.height(), rgb.width(), CV_8UC4, const_cast<uchar *>(rgb.constBits()),
                        size_t(rgb.bytesPerLine()));
    cv::Mat grey;
    cv::cvtColor(words, grey, cv::COLOR_BGRA2GRAY);
    cv::Mat half;
    cv::resize(grey, half, cv::Size(), 0.5, 0.5, cv::INTER_AREA);
    cv::Mat equalised;
    cv::createCLAHE(4.0)->apply(half, equalised);
    return equalised;
}

/// Between pictures of full size, out of one between pictures of half the size.
registration::Matrix atFullSize(const cv::Mat &map)
{
    registration::Matrix half;
    for (int i = 0; i < 9; ++i)
        half[size_t(i)] = double(map.at<float>(i / 3, i % 3));
    const registration::Matrix up = {2, 0, 0.5, 0, 2, 0.5, 0, 0, 1};
    return registration::product(up, registration::product(half, registration::inverse(up)));
}

} // namespace

registration::Matrix opencv::eccHomography(const QImage &reference, const QImage &shot)
{
    cv::Mat map = cv::Mat::eye(3, 3, CV_32F);
    const cv::TermCriteria criteria(cv::TermCriteria::COUNT | cv::TermCriteria::EPS, kIterations,
                                    kEpsilon);
    try {
        cv::findTransformECC(prepared(reference), prepared(shot), map, cv::MOTION_HOMOGRAPHY,
                             criteria, cv::noArray(), kSmoothing);
    } catch (const cv::Exception &) {
        return registration::identityMatrix();
    }
    return registration::inverse(atFullSize(map));
}

void opencv::setThreads(int threads)
{
    cv::setNumThreads(threads);
}
