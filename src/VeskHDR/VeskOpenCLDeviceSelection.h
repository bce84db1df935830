#pragma once

#include "veskhdr_export.h"

#include "ui_VeskOpenCLDeviceSelection.h"

#include <QWidget>

/// Shows the OpenCL platform and its devices, and lets the user make one of them current.
///
/// Reads the device registry once, when it is created, and writes to it only when the user presses
/// Ok. GUI thread only; reports no errors: without a device, list and table are empty.
class VESKHDR_EXPORT VeskOpenCLDeviceSelection : public QWidget
{
    Q_OBJECT

public:
    explicit VeskOpenCLDeviceSelection(QWidget *parent = nullptr);

    /// Runs the selection as a modal dialog and returns when it is closed. The outcome stands in
    /// the device registry.
    static void setDevice();

signals:
    /// The choice has been stored.
    void closed();

private slots:
    void updateDeviceTable(QString name);
    void ok();

private:
    void growWithTheFont();

    Ui_VeskOpenCLDeviceSelection ui;
};
