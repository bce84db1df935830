#include "picture_edits.h"

#include <adjust.h>
#include <area_mean.h>
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

/// stepOf(i): that of picture i.
template <typename StepOf>
DocumentEdit editOf(const QString &name, const QList<QImage> &pictures, const StepOf &stepOf)
{
    std::vector<std::unique_ptr<PictureStep>> steps;
    for (int i = 0; i < pictures.size(); ++i)
        steps.push_back(pictures[i].isNull() ? nullptr : stepOf(i));
    DocumentEdit edit;
    edit.text = name;
    edit.steps = std::make_shared<PictureSteps>(std::move(steps));
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

QImage straightened(const QImage &picture, QSize size, double radians)
{
    registration::Transform transform;
    transform.kind = registration::Kind::Rigid;
    transform.matrix = rotation(picture.size(), size, radians);
    return inFormatOf(picture, registration::resample(picture, transform, size));
}

/// The same with fewer pixels, made of fewer: near enough for a look ahead.
QImage straightenedSmall(const QImage &picture, QSize size, QSize smallSize, double radians)
{
    const auto scaled = [](int length, int from, int to) {
        return std::max(1, qRound(double(length) * to / from));
    };
    const QSize before(scaled(picture.width(), size.width(), smallSize.width()),
                       scaled(picture.height(), size.height(), smallSize.height()));
    return straightened(picture::areaMean(picture, before), smallSize, radians);
}

} // namespace

DocumentEdit edits::crop(const QList<QImage> &pictures, const QRect &area)
{
    return editOf(text(QT_TRANSLATE_NOOP("Edits", "Crop")), pictures, [&](int i) {
        return picture_step::toCrop(pictures[i], area & pictures[i].rect());
    });
}

DocumentEdit edits::turn(const QList<QImage> &pictures, int quarters)
{
    return editOf(text(QT_TRANSLATE_NOOP("Edits", "Rotate")), pictures,
                  [&](int i) { return picture_step::toTurn(pictures[i], quarters); });
}

/// The new picture is smaller, so it is seen as a whole: nobody looks ahead at a part of it.
DocumentEdit edits::straighten(const QList<QImage> &pictures, double degrees)
{
    const double radians = qDegreesToRadians(std::clamp(degrees, -45.0, 45.0));
    return editOf(text(QT_TRANSLATE_NOOP("Edits", "Straighten")), pictures, [&](int i) {
        const QSize size = insideSize(pictures[i].size(), radians);
        picture_step::Change change;
        change.size = size;
        change.made = [size, radians](const QImage &before) {
            return straightened(before, size, radians);
        };
        change.reduced = [size, radians](const QImage &before, const QRect &, QSize small) {
            return straightenedSmall(before, size, small, radians);
        };
        return picture_step::toChange(change);
    });
}

DocumentEdit edits::adjust(const QList<QImage> &pictures, const exposure::Look &look)
{
    QList<QImage> after;
    for (const QImage &before : pictures)
        after.append(before.isNull() ? before : adjusted(before, look));
    DocumentEdit edit = editOf(text(QT_TRANSLATE_NOOP("Edits", "Adjust")), pictures, [&](int i) {
        return picture_step::ofChange(pictures[i], after[i]);
    });
    edit.pictures = after;
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
