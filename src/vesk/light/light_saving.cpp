#include "light_saving.h"

#include <exr_encoder.h>
#include <picture_saving.h>

#include <QCoreApplication>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>

namespace {

constexpr int kFloatBits = 32;

struct LightSaving
{
    Q_DECLARE_TR_FUNCTIONS(LightSaving)
};

QStringList filters()
{
    QStringList all = {LightSaving::tr("Radiance picture") + QStringLiteral(" (*.hdr)"),
                       LightSaving::tr("TIFF picture, floating point") +
                           QStringLiteral(" (*.tif *.tiff)")};
    if (exr_file::isAvailable())
        all.prepend(LightSaving::tr("OpenEXR picture") + QStringLiteral(" (*.exr)"));
    return all;
}

QString suffixOf(const QString &filter)
{
    for (const char *suffix : {"exr", "hdr"}) {
        if (filter.contains(QStringLiteral("*.") + QLatin1String(suffix)))
            return QLatin1String(suffix);
    }
    return QStringLiteral("tif");
}

QString askPath(QWidget *window, const QString &suggested)
{
    QFileDialog dialog(window, LightSaving::tr("Save Light"));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    dialog.setNameFilters(filters());
    dialog.setDefaultSuffix(suffixOf(filters().constFirst()));
    dialog.setDirectory(QFileInfo(suggested).path());
    dialog.selectFile(QFileInfo(suggested).fileName());
    QObject::connect(
        &dialog, &QFileDialog::filterSelected, &dialog,
        [&dialog](const QString &filter) { dialog.setDefaultSuffix(suffixOf(filter)); });
    const bool isChosen = dialog.exec() == QDialog::Accepted && !dialog.selectedFiles().isEmpty();
    return isChosen ? dialog.selectedFiles().constFirst() : QString();
}

/// What a file of that name holds of light, or nothing when it holds none.
std::optional<SaveTarget> targetFor(const QString &path)
{
    const std::optional<PictureFormat> format = picture::formatOfSuffix(path);
    if (!format || (*format != PictureFormat::Tiff && !picture::isForLight(*format)))
        return std::nullopt;
    const int bits = *format == PictureFormat::Tiff ? kFloatBits : 0;
    return SaveTarget{path, *format, kDefaultQuality, true, bits};
}

QString refuse(QWidget *window, const QString &path, const QString &reason)
{
    QMessageBox::warning(window, LightSaving::tr("Not Saved"),
                         LightSaving::tr("“%1” could not be saved: %2.")
                             .arg(QDir::toNativeSeparators(path), reason));
    return {};
}

} // namespace

QString light_file::saveAs(QWidget *window, const Light &light, const QString &folder)
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
    const WriteResult result = document::savePictureBeside(light.picture, *target, metadata);
    return result.error == OutputFile::Error::None ? path : refuse(window, path, result.reason);
}
