#include "VeskOpenCLDeviceSelection.h"

#include "VeskDeviceInfo.h"
#include "VeskDialog.h"

#include <QHeaderView>
#include <QScreen>
#include <QScrollBar>
#include <QStyledItemDelegate>

#include <algorithm>
#include <array>

namespace {

using Device = VeskDeviceInfo::OpenCLDevice;

QString wholeNumber(double number)
{
    return QString::number(number, 'f', 0);
}

QString kilobytes(cl_ulong bytes)
{
    return wholeNumber(double(bytes) * (1.0 / 1024)) + QStringLiteral(" KB");
}

QString megabytes(cl_ulong bytes)
{
    return wholeNumber(double(bytes) * (1.0 / 1024) * (1.0 / 1024)) + QStringLiteral(" MB");
}

/// Empty for a device that is of several types at once.
QString typeText(cl_device_type type)
{
    switch (type) {
    case CL_DEVICE_TYPE_DEFAULT:
        return QStringLiteral("Default");
    case CL_DEVICE_TYPE_CPU:
        return QStringLiteral("CPU");
    case CL_DEVICE_TYPE_GPU:
        return QStringLiteral("GPU");
    case CL_DEVICE_TYPE_ACCELERATOR:
        return QStringLiteral("Accelerator");
    default:
        return QString();
    }
}

QString cacheTypeText(cl_device_mem_cache_type type)
{
    switch (type) {
    case CL_NONE:
        return VeskOpenCLDeviceSelection::tr("None");
    case CL_READ_ONLY_CACHE:
        return VeskOpenCLDeviceSelection::tr("Read Only");
    case CL_READ_WRITE_CACHE:
        return VeskOpenCLDeviceSelection::tr("Read and Write");
    default:
        return QString();
    }
}

/// Of caption and value, when the value takes several lines.
constexpr Qt::Alignment kBesideItsFirstLine = Qt::AlignLeft | Qt::AlignTop;

struct Fact
{
    QString caption;
    QString value;
};

std::array<Fact, 13> factsOf(const Device &device)
{
    return {{
        {VeskOpenCLDeviceSelection::tr("OpenCL Device Name"), device.name},
        {VeskOpenCLDeviceSelection::tr("OpenCL Device Vendor"), device.vendor},
        {VeskOpenCLDeviceSelection::tr("OpenCL Device Driver Version"), device.driverVersion},
        {VeskOpenCLDeviceSelection::tr("OpenCL Device Global Cache Type"),
         cacheTypeText(device.globalCacheType)},
        {VeskOpenCLDeviceSelection::tr("OpenCL Device Cores"),
         QString::number(device.computeUnits)},
        {VeskOpenCLDeviceSelection::tr("OpenCL Device Frequency"),
         QString::number(device.maxClockFrequency) + QStringLiteral(" MHz")},
        {VeskOpenCLDeviceSelection::tr("OpenCL Device Local Memory Size"),
         kilobytes(device.localMemSize)},
        {VeskOpenCLDeviceSelection::tr("OpenCL Device Global Memory Size"),
         megabytes(device.globalMemSize)},
        {VeskOpenCLDeviceSelection::tr("OpenCL Device Global Cache Size"),
         kilobytes(device.globalCacheSize)},
        {VeskOpenCLDeviceSelection::tr("OpenCL Device Global Cache Line"),
         QString::number(device.globalCacheLineSize)},
        {VeskOpenCLDeviceSelection::tr("OpenCL Device Image Support"),
         device.imageSupport ? VeskOpenCLDeviceSelection::tr("Support")
                             : VeskOpenCLDeviceSelection::tr("No Support")},
        {VeskOpenCLDeviceSelection::tr("OpenCL Device Type"), typeText(device.type)},
        {VeskOpenCLDeviceSelection::tr("OpenCL Device Extensions"),
         device.extensions.join(QLatin1Char(','))},
    }};
}

/// Shows a list of names, which has no blanks, in as many lines as it takes.
class ListDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QString displayText(const QVariant &value, const QLocale &locale) const override
    {
        constexpr QChar kMayBreakHere(0x200B);
        return QStyledItemDelegate::displayText(value, locale)
            .replace(QLatin1Char(','), QLatin1Char(',') + QString(kMayBreakHere));
    }
};

/// A list once more, for a name in it that is longer than its line; empty for other values.
QString toolTipOf(const QString &value)
{
    const QString list = QString(value).replace(QLatin1Char(','), QStringLiteral(", "));
    return list == value ? QString()
                         : QStringLiteral("<p>%1</p>").arg(list.toHtmlEscaped()); // breaks lines
}

/// Captions must not be cut, they begin alike; values take as many lines as they need.
void fitTable(QTableWidget &table)
{
    const int usualWidth = table.columnWidth(0);
    table.resizeColumnToContents(0);
    table.setColumnWidth(0, std::max(usualWidth, table.columnWidth(0)));
    table.setItemDelegateForColumn(1, new ListDelegate(&table));
    table.setVerticalScrollMode(QAbstractItemView::ScrollPerPixel); // a row may be a page long
    // Queued: rows that are fitted while the header resizes its sections keep their old height.
    QObject::connect(table.horizontalHeader(), &QHeaderView::sectionResized, &table,
                     &QTableView::resizeRowsToContents, Qt::QueuedConnection);
    table.resizeRowsToContents();
}

/// What the table's size lacks to show captions, usual values and a list of a few lines at once.
QSize missingRoom(const QTableWidget &table)
{
    constexpr int kLettersOfValue = 28;
    constexpr int kLines = 16;
    const int valueWidth = kLettersOfValue * table.fontMetrics().averageCharWidth();
    const int barWidth = table.verticalScrollBar()->sizeHint().width();
    const int headHeight = table.horizontalHeader()->sizeHint().height();
    const int lineHeight = table.verticalHeader()->minimumSectionSize();
    const QSize cells(table.columnWidth(0) + valueWidth + barWidth,
                      headHeight + kLines * lineHeight);
    const QSize frame = QSize(2, 2) * table.frameWidth();
    return (cells + frame - table.size()).expandedTo(QSize(0, 0));
}

} // namespace

VeskOpenCLDeviceSelection::VeskOpenCLDeviceSelection(QWidget *parent)
    : QWidget(parent)
{
    ui.setupUi(this);
    setWindowTitle(tr("OpenCL Device Selection"));

    VeskDeviceInfo *registry = VeskDeviceInfo::getInstance();
    ui.openCLPlatformLabel->setText(tr("OpenCL Platform:") + registry->getOpenCLPlatform() +
                                    QLatin1Char('\n') + tr("OpenCL Version:") +
                                    registry->getOpenCLVersion());

    const QList<Device> devices = registry->getOpenCLDeviceList();
    const QString currentName = registry->getCurrentOpenCLDeviceName();
    int currentIndex = 0;
    for (int i = 0; i < devices.size(); ++i) {
        ui.deviceCombo->addItem(devices.at(i).name);
        if (devices.at(i).name == currentName) {
            currentIndex = i;
        }
    }
    ui.deviceCombo->setCurrentIndex(currentIndex);
    updateDeviceTable(ui.deviceCombo->currentText());
    fitTable(*ui.deviceInfoTable);

    // Connected last, so that the table has been filled exactly once.
    connect(ui.deviceCombo, &QComboBox::currentIndexChanged, this,
            [this] { updateDeviceTable(ui.deviceCombo->currentText()); });
    connect(ui.okButton, &QPushButton::clicked, this, &VeskOpenCLDeviceSelection::ok);
    growWithTheFont();
}

/// The form's size is made for fonts of usual size.
void VeskOpenCLDeviceSelection::growWithTheFont()
{
    layout()->activate();
    ui.verticalLayout->activate();
    const QSize limit = screen()->availableSize() * 0.9;
    resize((size() + missingRoom(*ui.deviceInfoTable)).boundedTo(limit).expandedTo(size()));
}

void VeskOpenCLDeviceSelection::setDevice()
{
    auto *selection = new VeskOpenCLDeviceSelection; // the frame deletes it
    VeskDialog frame(selection, VeskTitleWidget::TitleButtonFlag(0), false, nullptr, false);
    connect(selection, &VeskOpenCLDeviceSelection::closed, &frame, &QDialog::accept);
    frame.exec();
}

void VeskOpenCLDeviceSelection::updateDeviceTable(QString name)
{
    QTableWidget *table = ui.deviceInfoTable;
    table->clear();
    table->setColumnCount(2);
    table->setHorizontalHeaderItem(0, new QTableWidgetItem(tr("Name")));
    table->setHorizontalHeaderItem(1, new QTableWidgetItem(tr("Value")));
    if (name.isEmpty()) {
        return;
    }

    const QList<Device> devices = VeskDeviceInfo::getInstance()->getOpenCLDeviceList();
    const auto device = std::find_if(devices.begin(), devices.end(),
                                     [&name](const Device &each) { return each.name == name; });
    if (device == devices.end()) {
        return;
    }

    const std::array<Fact, 13> facts = factsOf(*device);
    table->setRowCount(int(facts.size()));
    for (int row = 0; row < table->rowCount(); ++row) {
        auto *caption = new QTableWidgetItem(facts[row].caption);
        caption->setTextAlignment(kBesideItsFirstLine);
        table->setItem(row, 0, caption);
        auto *value = new QTableWidgetItem(facts[row].value);
        value->setTextAlignment(kBesideItsFirstLine);
        value->setToolTip(toolTipOf(facts[row].value));
        table->setItem(row, 1, value);
    }
    table->resizeRowsToContents();
}

void VeskOpenCLDeviceSelection::ok()
{
    VeskDeviceInfo::getInstance()->setCurrentOpenCLDeviceName(ui.deviceCombo->currentText());
    emit closed();
}
