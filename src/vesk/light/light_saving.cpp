#include "light_saving.h"

#include <bright_merge.h>
#include <develop.h>
#include <editor_settings.h>
#include <picture_saving.h>

#include <QCoreApplication>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>

#include <algorithm>
#include <iterator>

namespace {

constexpr int kFloatBits = 32;

struct LightSaving
{
    Q_DECLARE_TR_FUNCTIONS(LightSaving)
};

struct Kind
{
    PictureFormat format;
    QString suffix;
    QString filter;
};

QList<Kind> kinds()
{
    const QList<Kind> all = {
        {PictureFormat::OpenExr, QStringLiteral("exr"),
         LightSaving::tr("OpenEXR picture") + QStringLiteral(" (*.exr)")},
        {PictureFormat::RadianceHdr, QStringLiteral("hdr"),
         LightSaving::tr("Radiance picture") + QStringLiteral(" (*.hdr)")},
        {PictureFormat::Tiff, QStringLiteral("tif"),
         LightSaving::tr("TIFF picture, floating point") + QStringLiteral(" (*.tif *.tiff)")},
        {PictureFormat::Jpeg, QStringLiteral("jpg"),
         LightSaving::tr("JPEG picture that bright screens show brighter") +
             QStringLiteral(" (*.jpg *.jpeg)")},
        {PictureFormat::Avif, QStringLiteral("avif"),
         LightSaving::tr("AVIF picture for bright screens") + QStringLiteral(" (*.avif)")},
        {PictureFormat::JpegXl, QStringLiteral("jxl"),
         LightSaving::tr("JPEG XL picture for bright screens") + QStringLiteral(" (*.jxl)")}};
    QList<Kind> writable;
    std::copy_if(all.begin(), all.end(), std::back_inserter(writable),
                 [](const Kind &kind) { return picture::isWritable(kind.format); });
    return writable;
}

QString suffixOf(const QString &filter)
{
    const QList<Kind> all = kinds();
    const auto kind = std::find_if(all.begin(), all.end(), [&filter](const Kind &candidate) {
        return candidate.filter == filter;
    });
    return kind == all.end() ? all.constFirst().suffix : kind->suffix;
}

QString askPath(QWidget *window, const QString &suggested)
{
    QFileDialog dialog(window, LightSaving::tr("Save Light"));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    QStringList filters;
    const QList<Kind> all = kinds();
    for (const Kind &kind : all)
        filters += kind.filter;
    dialog.setNameFilters(filters);
    dialog.setDefaultSuffix(all.constFirst().suffix);
    dialog.setDirectory(QFileInfo(suggested).path());
    dialog.selectFile(QFileInfo(suggested).fileName());
    QObject::connect(
        &dialog, &QFileDialog::filterSelected, &dialog,
        [&dialog](const QString &filter) { dialog.setDefaultSuffix(suffixOf(filter)); });
    const bool isChosen = dialog.exec() == QDialog::Accepted && !dialog.selectedFiles().isEmpty();
    return isChosen ? dialog.selectedFiles().constFirst() : QString();
}

/// How the light goes into a file of that name, or nothing when it does not.
std::optional<SaveTarget> targetFor(const QString &path)
{
    const std::optional<PictureFormat> bright = picture::brightFormatOfSuffix(path);
    const std::optional<PictureFormat> format = bright ? bright : picture::formatOfSuffix(path);
    if (!format || *format == PictureFormat::Png || !picture::isWritable(*format))
        return std::nullopt;
    const int bits = *format == PictureFormat::Tiff         ? kFloatBits
                     : picture::isForBrightScreens(*format) ? display::kBrightBits
                                                            : 0;
    return SaveTarget{path, *format, settings::jpegQuality(), true, bits};
}

/// What goes into the file: the light itself, or the picture that it is developed to, and what
/// bright screens show beyond that. Null when memory is lacking.
QImage contentFor(PictureFormat format, const QImage &light, const develop::Options &how,
                  GainMap &gainMap)
{
    const bool isBright = format == PictureFormat::Jpeg || picture::isForBrightScreens(format);
    if (!isBright)
        return light;
    display::BrightSource source;
    source.base = develop::picture(light, how).picture;
    source.light = light;
    QImage content;
    const bool isMade =
        !source.base.isNull() && display::makeBright(std::move(source), format, content, gainMap);
    return isMade ? content : QImage();
}

QString refuse(QWidget *window, const QString &path, const QString &reason)
{
    QMessageBox::warning(window, LightSaving::tr("Not Saved"),
                         LightSaving::tr("“%1” could not be saved: %2.")
                             .arg(QDir::toNativeSeparators(path), reason));
    return {};
}

} // namespace

QString light_file::saveAs(QWidget *window, const Light &light, const develop::Options &how,
                           const QString &folder)
{
    const QString path = askPath(window, QDir(folder).filePath(light.name));
    if (path.isEmpty())
        return {};
    const std::optional<SaveTarget> target = targetFor(path);
    if (!target)
        return refuse(window, path,
                      LightSaving::tr("files of this kind hold no light; choose .exr, .hdr "
                                      "or .tif"));
    document::SavedMetadata metadata;
    metadata.sources = QStringList(light.metadataSource);
    metadata.mark = light.mark;
    QString reason = LightSaving::tr("not enough memory");
    document::workBeside([&] {
        const QImage content = contentFor(target->format, light.picture, how, metadata.gainMap);
        if (!content.isNull())
            reason = document::savePicture(content, *target, metadata).reason;
    });
    return reason.isEmpty() ? path : refuse(window, path, reason);
}

bool light_file::holdsLight(const QString &path)
{
    return !picture::brightFormatOfSuffix(path);
}
