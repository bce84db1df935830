#include "PhotoDock.h"
#include "picture_document.h"

#include <VeskContext.h>
#include <metadata_reader.h>

#include <QLocale>
#include <QTreeWidget>

#include <cmath>

namespace {

using Directory = ExifTags::Directory;

QString number(double value, int digits)
{
    QString text = QLocale().toString(value, 'f', digits);
    const QString zero = QLocale().decimalPoint() + QLatin1Char('0');
    return text.endsWith(zero) ? text.chopped(zero.size()) : text;
}

/// Whole seconds, or a fraction of one.
QString seconds(double time)
{
    //: A time in seconds.
    const QString unit = PhotoDock::tr("%1 s");
    if (time >= 0.4)
        return unit.arg(number(time, 1));
    return unit.arg(QStringLiteral("1/%1").arg(std::lround(1 / time)));
}

QString camera(const ExifTags &tags)
{
    const QString make = tags.text(Directory::Picture, ExifTags::Make);
    const QString model = tags.text(Directory::Picture, ExifTags::Model);
    return model.startsWith(make) ? model : (make + QLatin1Char(' ') + model).trimmed();
}

} // namespace

PhotoDock::PhotoDock(QWidget *parent)
    : QDockWidget(tr("Photograph"), parent)
    , list(new QTreeWidget)
{
    setObjectName(QStringLiteral("photoDock"));
    list->setColumnCount(2);
    list->setHeaderHidden(true);
    list->setRootIsDecorated(false);
    list->setAccessibleName(tr("Photograph"));
    setWidget(list);
    worker.setMaxThreadCount(1);
}

PhotoDock::~PhotoDock()
{
    worker.waitForDone();
}

PhotoDock::Rows PhotoDock::rowsOf(const Metadata &metadata)
{
    const ExifTags &tags = metadata.exif;
    Rows rows;
    const auto addText = [&rows](const QString &name, const QString &text) {
        if (!text.isEmpty())
            rows.append({name, text});
    };
    const auto fraction = [&tags](quint16 tag) { return tags.fraction(Directory::Exposure, tag); };
    addText(tr("Camera"), camera(tags));
    addText(tr("Lens"), tags.text(Directory::Exposure, ExifTags::LensModel));
    addText(tr("Taken"), tags.text(Directory::Exposure, ExifTags::DateTimeOriginal));
    const auto time = fraction(ExifTags::ExposureTime);
    if (time && *time > 0)
        addText(tr("Exposure time"), seconds(*time));
    const auto aperture = fraction(ExifTags::FNumber);
    if (aperture && *aperture > 0)
        addText(tr("Aperture"), QStringLiteral("f/%1").arg(number(*aperture, 1)));
    const auto sensitivity = tags.number(Directory::Exposure, ExifTags::Sensitivity);
    if (sensitivity)
        addText(tr("Sensitivity"), QStringLiteral("ISO %1").arg(*sensitivity));
    const auto length = fraction(ExifTags::FocalLength);
    if (length && *length > 0)
        //: A length in millimetres.
        addText(tr("Focal length"), tr("%1 mm").arg(number(*length, 1)));
    const auto bias = fraction(ExifTags::ExposureBias);
    if (bias)
        //: An exposure in stops, with its sign.
        addText(tr("Correction"),
                tr("%1 EV").arg((*bias > 0 ? QStringLiteral("+") : QString()) + number(*bias, 1)));
    return rows;
}

void PhotoDock::showDocument(VeskContext *document)
{
    shown = document;
    refresh();
}

void PhotoDock::showEvent(QShowEvent *event)
{
    QDockWidget::showEvent(event);
    refresh();
}

void PhotoDock::refresh()
{
    const QString source = shown ? document::metadataSource(*shown) : QString();
    if (!isVisible() || source == shownSource)
        return;
    shownSource = source;
    list->clear();
    if (source.isEmpty())
        return;
    worker.clear(); // what nobody waits for any more
    worker.start([this, source] {
        const Rows rows = rowsOf(metadata::read(source));
        QMetaObject::invokeMethod(
            this,
            [this, source, rows] {
                if (source == shownSource)
                    showRows(rows);
            },
            Qt::QueuedConnection);
    });
}

void PhotoDock::showRows(const Rows &rows)
{
    list->clear();
    for (const auto &[name, text] : rows)
        list->addTopLevelItem(new QTreeWidgetItem({name, text}));
    list->resizeColumnToContents(0);
}
