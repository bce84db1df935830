#include "picture_edits.h"

#include <adjust.h>
#include <resample.h>

#include <QColorSpace>
#include <QCoreApplication>
#include <QtMath>

#include <algorithm>
#include <cmath>

Q_DECLARE_METATYPE(exposure::Look)

const QString edits::kLook = QStringLiteral("look");

namespace {

constexpr int kMargin = 2; // pixels at the edge of a turned picture that are covered in part

QString text(const char *words)
{
    return QCoreApplication::translate("Edits", words);
}

template <typename Change>
DocumentEdit editOf(const QString &name, const QList<QImage> &pictures, const Change &change)
{
    DocumentEdit edit;
    edit.text = name;
    for (const QImage &before : pictures) {
        std::unique_ptr<PictureStep> back;
        edit.pictures.append(before.isNull() ? before : change(before, back));
        edit.back.push_back(std::move(back));
    }
    return edit;
}

/// Size of the largest part with the picture's shape that lies within it when it is turned.
QSize insideSize(QSize size, double radians)
{
    const double along = std::abs(std::cos(radians));
    const double across = std::abs(std::sin(radians));
    const double width = size.width();
    const double height = size.height();
    const double share =
        1 / std::max(along + across * height / width, along + across * width / height);
    return QSize(int(width * share) - kMargin, int(height * share) - kMargin).expandedTo({1, 1});
}

/// About the middles of two pictures, in pixel centres.
registration::Matrix rotation(QSize from, QSize to, double radians)
{
    const double cosine = std::cos(radians);
    const double sine = std::sin(radians);
    const double x = (from.width() - 1) / 2.0;
    const double y = (from.height() - 1) / 2.0;
    return {cosine, -sine,  (to.width() - 1) / 2.0 - cosine * x + sine * y,
            sine,   cosine, (to.height() - 1) / 2.0 - sine * x - cosine * y,
            0,      0,      1};
}

/// In the format of model, where that is one of many colours or of greys.
QImage inFormatOf(const QImage &model, const QImage &picture)
{
    const bool isPalette = model.depth() < 8 || model.format() == QImage::Format_Indexed8;
    QImage result =
        picture.convertToFormat(isPalette ? exposure::adjustableFormat(model) : model.format());
    result.setColorSpace(model.colorSpace());
    result.setDotsPerMeterX(model.dotsPerMeterX());
    result.setDotsPerMeterY(model.dotsPerMeterY());
    return result;
}

QImage straightened(const QImage &picture, double radians)
{
    const QSize size = insideSize(picture.size(), radians);
    registration::Transform transform;
    transform.kind = registration::Kind::Rigid;
    transform.matrix = rotation(picture.size(), size, radians);
    return inFormatOf(picture, registration::resample(picture, transform, size));
}

} // namespace

DocumentEdit edits::crop(const QList<QImage> &pictures, const QRect &area)
{
    return editOf(text(QT_TRANSLATE_NOOP("Edits", "Crop")), pictures,
                  [&](const QImage &before, std::unique_ptr<PictureStep> &back) {
                      const QRect inside = area & before.rect();
                      back = picture_step::ofCrop(before, inside);
                      return picture_step::part(before, inside);
                  });
}

DocumentEdit edits::turn(const QList<QImage> &pictures, int quarters)
{
    return editOf(text(QT_TRANSLATE_NOOP("Edits", "Rotate")), pictures,
                  [&](const QImage &before, std::unique_ptr<PictureStep> &back) {
                      back = picture_step::ofTurn(before, quarters);
                      return picture_step::turned(before, quarters);
                  });
}

DocumentEdit edits::straighten(const QList<QImage> &pictures, double degrees)
{
    const double radians = qDegreesToRadians(std::clamp(degrees, -45.0, 45.0));
    return editOf(text(QT_TRANSLATE_NOOP("Edits", "Straighten")), pictures,
                  [&](const QImage &before, std::unique_ptr<PictureStep> &back) {
                      const QImage after = straightened(before, radians);
                      back = picture_step::ofChange(before, after);
                      return after;
                  });
}

DocumentEdit edits::adjust(const QList<QImage> &pictures, const exposure::Look &look)
{
    DocumentEdit edit = editOf(text(QT_TRANSLATE_NOOP("Edits", "Adjust")), pictures,
                               [&](const QImage &before, std::unique_ptr<PictureStep> &back) {
                                   const QImage after = adjusted(before, look);
                                   back = picture_step::ofChange(before, after);
                                   return after;
                               });
    edit.kind = kLook;
    if (!look.isNeutral())
        edit.settings = QVariant::fromValue(look);
    return edit;
}

exposure::Look edits::lookOf(const DocumentHistory &history)
{
    return history.settingsToContinue(kLook).value<exposure::Look>();
}

QImage edits::adjusted(const QImage &picture, const exposure::Look &look)
{
    if (look.isNeutral())
        return picture;
    QImage result = picture.convertToFormat(exposure::adjustableFormat(picture));
    exposure::adjust(result, look);
    return inFormatOf(picture, result);
}
