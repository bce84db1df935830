#include "MertensRival.h"

#include <opencv2/core.hpp>
#include <opencv2/photo.hpp>

struct MertensRival::Pictures
{
    std::vector<cv::Mat> inputs; ///< 8-bit BGR
    cv::Mat merged;              ///< floats, 0..1
};

MertensRival::MertensRival(const std::vector<QImage> &shots)
    : d(std::make_unique<Pictures>())
{
    for (const QImage &shot : shots) {
        const QImage bgr = shot.convertToFormat(QImage::Format_BGR888);
        d->inputs.push_back(cv::Mat(bgr.height(), bgr.width(), CV_8UC3,
                                    const_cast<uchar *>(bgr.constBits()),
                                    size_t(bgr.bytesPerLine()))
                                .clone());
    }
}

MertensRival::~MertensRival() = default;

void MertensRival::merge()
{
    cv::createMergeMertens()->process(d->inputs, d->merged);
}

QImage MertensRival::result() const
{
    cv::Mat bytes;
    d->merged.convertTo(bytes, CV_8UC3, 255.0);
    return QImage(bytes.data, bytes.cols, bytes.rows, qsizetype(bytes.step), QImage::Format_BGR888)
        .copy();
}
