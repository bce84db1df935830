#include "save_dialog.h"
#include "JpegQualityDialog.h"
#include "editor_settings.h"

#include <layer_composition.h>
#include <picture_writer.h>

#include <QCoreApplication>
#include <QFileDialog>

namespace {

struct Kind
{
    PictureFormat format;
    int bits; // per sample; 0 where there is no choice
    QString suffix;
    QString filter;
};

struct SaveDialog
{
    Q_DECLARE_TR_FUNCTIONS(SaveDialog)
};

const QLatin1String kPngPattern(" (*.png)");
const QLatin1String kTiffPattern(" (*.tif *.tiff)");

Kind png(int bits, const QString &name)
{
    return {PictureFormat::Png, bits, QStringLiteral("png"), name + kPngPattern};
}

Kind tiff(int bits, const QString &name)
{
    return {PictureFormat::Tiff, bits, QStringLiteral("tif"), name + kTiffPattern};
}

/// The document's own depth comes first.
QList<Kind> kinds(bool isDeep)
{
    const Kind jpeg = {PictureFormat::Jpeg, 0, QStringLiteral("jpg"),
                       SaveDialog::tr("JPEG picture") + QStringLiteral(" (*.jpg *.jpeg)")};
    if (!isDeep)
        return {jpeg, png(0, SaveDialog::tr("PNG picture")),
                tiff(0, SaveDialog::tr("TIFF picture"))};
    return {jpeg, png(16, SaveDialog::tr("PNG picture, 16 bits per channel")),
            png(8, SaveDialog::tr("PNG picture, 8 bits per channel")),
            tiff(16, SaveDialog::tr("TIFF picture, 16 bits per channel")),
            tiff(8, SaveDialog::tr("TIFF picture, 8 bits per channel"))};
}

Kind kindOfFilter(const QList<Kind> &all, const QString &filter)
{
    for (const Kind &kind : all) {
        if (kind.filter == filter)
            return kind;
    }
    return all.first();
}

Kind kindOfFile(const QList<Kind> &all, const QString &path)
{
    const std::optional<PictureFormat> format = picture::formatOfSuffix(path);
    for (const Kind &kind : all) {
        if (kind.format == format)
            return kind;
    }
    return all.first();
}

void setUp(QFileDialog &dialog, const QList<Kind> &all, const QString &suggestedPath)
{
    QStringList filters;
    for (const Kind &kind : all)
        filters.append(kind.filter);
    const Kind suggested = kindOfFile(all, suggestedPath);
    dialog.setWindowTitle(SaveDialog::tr("Save As"));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    dialog.setNameFilters(filters);
    dialog.selectNameFilter(suggested.filter);
    dialog.setDefaultSuffix(suggested.suffix);
    dialog.setDirectory(QFileInfo(suggestedPath).path());
    dialog.selectFile(QFileInfo(suggestedPath).fileName());
    QObject::connect(&dialog, &QFileDialog::filterSelected, &dialog,
                     [&dialog, all](const QString &filter) {
                         dialog.setDefaultSuffix(kindOfFilter(all, filter).suffix);
                     });
}

SaveTarget targetFor(const QString &path, const Kind &chosen)
{
    // The kind chosen tells the depth of its own format only.
    if (const std::optional<PictureFormat> format = picture::formatOfSuffix(path))
        return {path, *format, settings::jpegQuality(), true,
                *format == chosen.format ? chosen.bits : 0};
    // The dialog has asked about replacing another name than this one.
    return {path + QLatin1Char('.') + chosen.suffix, chosen.format, settings::jpegQuality(), false,
            chosen.bits};
}

} // namespace

std::optional<SaveTarget> document::askSaveTarget(QWidget *window, const QString &suggestedPath,
                                                  const QImage &picture)
{
    const QList<Kind> all = kinds(composition::bitsPerChannel({{picture, 1.0}}) > 8);
    QFileDialog dialog(window);
    setUp(dialog, all, suggestedPath);
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return std::nullopt;
    SaveTarget target = targetFor(dialog.selectedFiles().constFirst(),
                                  kindOfFilter(all, dialog.selectedNameFilter()));
    if (target.format != PictureFormat::Jpeg)
        return target;
    const std::optional<int> quality =
        askJpegQuality(window, target.quality, picture::hasTransparency(picture));
    if (!quality)
        return std::nullopt;
    settings::setJpegQuality(*quality);
    target.quality = *quality;
    return target;
}
