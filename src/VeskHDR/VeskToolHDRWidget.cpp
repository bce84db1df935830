#include "VeskToolHDRWidget.h"

#include "VeskDeviceInfo.h"
#include "VeskOpenCLDeviceSelection.h"
#include "VeskToolHDR.h"

#include <QFileDialog>
#include <QImage>
#include <QImageReader>

#include <algorithm>

namespace {

constexpr int kPathRole = Qt::UserRole;

/// Fits into 160 x 120 pixels, never larger than the picture. A side of a very narrow picture may
/// come out as 0.
QSize thumbnailSize(const QSize &picture)
{
    const double byHeight = 120.0 / picture.height();
    const double byWidth = 160.0 / picture.width();
    const double factor = std::min(byHeight <= byWidth ? byHeight : byWidth, 1.0);
    return {int(picture.width() * factor), int(picture.height() * factor)};
}

QIcon thumbnail(const QImage &picture)
{
    return QIcon(QPixmap::fromImage(picture.scaled(thumbnailSize(picture.size()),
                                                   Qt::KeepAspectRatio, Qt::FastTransformation)));
}

void addPicture(QListWidget *list, const QString &path, const QImage &picture)
{
    auto *item = new QListWidgetItem(path, list);
    item->setData(Qt::DecorationRole, thumbnail(picture));
    item->setData(kPathRole, path);
}

void addPictures(QListWidget *list, const QMap<QString, QImage *> &pictures)
{
    for (auto picture = pictures.begin(); picture != pictures.end(); ++picture)
        addPicture(list, picture.key(), *picture.value());
}

QString formatPatterns()
{
    QString patterns;
    const QList<QByteArray> formats = QImageReader::supportedImageFormats();
    for (const QByteArray &format : formats)
        patterns += QStringLiteral(" *.") + QString::fromLatin1(format);
    return patterns;
}

} // namespace

VeskToolHDRWidget::VeskToolHDRWidget(QWidget *parent)
    : QWidget(parent)
{
    ui.setupUi(this);
    setWindowFlags(Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint);
    ui.fileList->setIconSize(QSize(90, 90));
    // Of a path that is too long for the panel, the end tells the pictures apart.
    ui.fileList->setTextElideMode(Qt::ElideLeft);
    ui.fileList->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
}

void VeskToolHDRWidget::setTool(VeskToolHDR *toolToServe)
{
    tool = toolToServe;
    updateState();
}

void VeskToolHDRWidget::updateState()
{
    ui.fileList->clear();
    if (tool)
        addPictures(ui.fileList, tool->sourcePictures());
    ui.okBtn->setEnabled(tool && tool->fileList().size() >= 2);
}

void VeskToolHDRWidget::showEvent(QShowEvent *event)
{
    VeskDeviceInfo *registry = VeskDeviceInfo::getInstance();
    const bool isCapable = registry->isOpenCLCapable();
    ui.cudaCheck->setEnabled(isCapable);
    ui.deviceButton->setEnabled(isCapable);
    ui.cudaCheck->setChecked(isCapable && ui.cudaCheck->isChecked());
    ui.deviceButton->setText(registry->getCurrentOpenCLDeviceName());
    // Changing the box by program does not reach its slot.
    if (tool)
        tool->setCuda(isCapable && ui.cudaCheck->isChecked());
    QWidget::showEvent(event);
}

void VeskToolHDRWidget::on_cancelBtn_clicked()
{
    if (tool)
        tool->clear();
    hideWithFrame();
}

void VeskToolHDRWidget::on_okBtn_clicked()
{
    const QPointer<VeskToolHDR> served = tool;
    hideWithFrame();
    if (served)
        served->apply();
}

void VeskToolHDRWidget::on_browseBtn_clicked()
{
    if (!tool)
        return;
    const QString filter = tr("Image files(") + formatPatterns() + QLatin1Char(')');
    // A chooser that is asked for no directory starts in the one that was visited last; setting
    // the directory of another chooser is what makes it so.
    QFileDialog visitor(nullptr, QString(), QString(), QString());
    visitor.setDirectory(tool->getDir());
    const QPointer<VeskToolHDR> served = tool;
    const QStringList paths =
        QFileDialog::getOpenFileNames(nullptr, tr("Open a image for HDR"), QString(), filter);
    if (served && !paths.isEmpty())
        served->addFiles(paths);
}

void VeskToolHDRWidget::on_removeBtn_clicked()
{
    const QListWidgetItem *item = ui.fileList->currentItem();
    // An entry can be current without being selected: the first one is once the list has the
    // keyboard. What the user does not see selected stays.
    if (tool && item && item->isSelected())
        tool->removeFile(item->data(kPathRole).toString());
}

void VeskToolHDRWidget::on_alignCheck_clicked()
{
    if (tool)
        tool->setAlignment(ui.alignCheck->isChecked());
}

void VeskToolHDRWidget::on_cudaCheck_clicked()
{
    const bool isCapable = VeskDeviceInfo::getInstance()->isOpenCLCapable();
    if (tool)
        tool->setCuda(isCapable && ui.cudaCheck->isChecked());
}

void VeskToolHDRWidget::on_deviceButton_clicked()
{
    const QPointer<VeskToolHDRWidget> self(this);
    VeskOpenCLDeviceSelection::setDevice();
    if (self)
        ui.deviceButton->setText(VeskDeviceInfo::getInstance()->getCurrentOpenCLDeviceName());
}

void VeskToolHDRWidget::hideWithFrame()
{
    const QPointer<VeskToolHDRWidget> self(this);
    if (parentWidget())
        parentWidget()->setVisible(false);
    if (self)
        hide();
}
