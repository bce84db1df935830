#include "DebevecRival.h"

#include <opencv2/core.hpp>
#include <opencv2/photo.hpp>

struct DebevecRival::Pictures
{
    std::vector<cv::Mat> inputs; ///< 8-bit BGR
    std::vector<float> times;
    cv::Mat response;
    cv::Mat merged;
};

DebevecRival::DebevecRival(const std::vector<QImage> &shots, const std::vector<double> &exposures)
    : d(std::make_unique<Pictures>())
{
    for (const QImage &shot : shots) {
        const QImage bgr = shot.convertToFormat(QImage::Format_BGR888);
        d->inputs.push_back(cv::Mat(bgr.height(), bgr.width(), CV_8UC3,
                                    const_cast<uchar *>(bgr.constBits()),
                                    size_t(bgr.bytesPerLine()))
                                .clone());
    }
    d->times.assign(exposures.begin(), exposures.end());
}

DebevecRival::~DebevecRival() = default;

void DebevecRival::calibrate()
{
    cv::createCalibrateDebevec(400, 50.0F)->process(d->inputs, d->response, d->times);
}

void DebevecRival::merge()
{
    cv::createMergeDebevec()->process(d->inputs, d->merged, d->times, d->response);
}

const float *DebevecRival::row(int y) const
{
    return d->merged.ptr<float>(y);
}
