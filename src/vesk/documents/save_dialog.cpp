#include "save_dialog.h"
#include "JpegQualityDialog.h"
#include "editor_settings.h"

#include <picture_writer.h>

#include <QCoreApplication>
#include <QFileDialog>

namespace {

struct Kind
{
    PictureFormat format;
    QString suffix;
    QString filter;
};

struct SaveDialog
{
    Q_DECLARE_TR_FUNCTIONS(SaveDialog)
};

QList<Kind> kinds()
{
    return {{PictureFormat::Jpeg, QStringLiteral("jpg"),
             SaveDialog::tr("JPEG picture") + QStringLiteral(" (*.jpg *.jpeg)")},
            {PictureFormat::Png, QStringLiteral("png"),
             SaveDialog::tr("PNG picture") + QStringLiteral(" (*.png)")},
            {PictureFormat::Tiff, QStringLiteral("tif"),
             SaveDialog::tr("TIFF picture") + QStringLiteral(" (*.tif *.tiff)")}};
}

Kind kindOfFilter(const QString &filter)
{
    const QList<Kind> all = kinds();
    for (const Kind &kind : all) {
        if (kind.filter == filter)
            return kind;
    }
    return all.first();
}

Kind kindOfFile(const QString &path)
{
    const QList<Kind> all = kinds();
    const std::optional<PictureFormat> format = picture::formatOfSuffix(path);
    for (const Kind &kind : all) {
        if (kind.format == format)
            return kind;
    }
    return all.first();
}

void setUp(QFileDialog &dialog, const QString &suggestedPath)
{
    QStringList filters;
    const QList<Kind> all = kinds();
    for (const Kind &kind : all)
        filters.append(kind.filter);
    const Kind suggested = kindOfFile(suggestedPath);
    dialog.setWindowTitle(SaveDialog::tr("Save As"));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    dialog.setNameFilters(filters);
    dialog.selectNameFilter(suggested.filter);
    dialog.setDefaultSuffix(suggested.suffix);
    dialog.setDirectory(QFileInfo(suggestedPath).path());
    dialog.selectFile(QFileInfo(suggestedPath).fileName());
    QObject::connect(&dialog, &QFileDialog::filterSelected, &dialog, [&](const QString &filter) {
        dialog.setDefaultSuffix(kindOfFilter(filter).suffix);
    });
}

SaveTarget targetFor(const QString &path, const Kind &chosen)
{
    if (const std::optional<PictureFormat> format = picture::formatOfSuffix(path))
        return {path, *format, settings::jpegQuality(), true};
    // The dialog has asked about replacing another name than this one.
    return {path + QLatin1Char('.') + chosen.suffix, chosen.format, settings::jpegQuality(), false};
}

} // namespace

std::optional<SaveTarget> document::askSaveTarget(QWidget *window, const QString &suggestedPath,
                                                  const QImage &picture)
{
    QFileDialog dialog(window);
    setUp(dialog, suggestedPath);
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return std::nullopt;
    SaveTarget target =
        targetFor(dialog.selectedFiles().constFirst(), kindOfFilter(dialog.selectedNameFilter()));
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
