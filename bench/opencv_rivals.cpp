#include "opencv_rivals.h"

#include <opencv2/core.hpp>
#include <opencv2/photo.hpp>

struct opencv::Bracket::Pictures
{
    std::vector<cv::Mat> inputs; ///< 8-bit BGR, as OpenCV decodes pictures
    std::vector<cv::Mat> aligned;
    cv::Mat merged;
};

opencv::Bracket::Bracket(const QList<QImage *> &pictures)
    : d(std::make_unique<Pictures>())
{
    for (const QImage *picture : pictures) {
        const QImage bgr = picture->convertToFormat(QImage::Format_BGR888);
        d->inputs.push_back(cv::Mat(bgr.height(), bgr.width(), CV_8UC3,
                                    const_cast<uchar *>(bgr.constBits()),
                                    size_t(bgr.bytesPerLine()))
                                .clone());
    }
}

opencv::Bracket::~Bracket() = default;

void opencv::Bracket::alignMtb()
{
    d->aligned.clear();
    cv::createAlignMTB()->process(d->inputs, d->aligned);
}

void opencv::Bracket::mergeMertens()
{
    cv::createMergeMertens()->process(d->inputs, d->merged);
}

void opencv::setThreads(int threads)
{
    cv::setNumThreads(threads);
}
