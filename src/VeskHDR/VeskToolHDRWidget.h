#pragma once

#include "veskhdr_export.h"

#include "ui_VeskToolHDRWidget.h"

#include <QPointer>
#include <QWidget>

class VeskToolHDR;

/// The side panel of the "Merge to HDR" tool: thumbnails of the source pictures, the merge options,
/// OK and Cancel. It owns no data: every action goes to the tool, which calls updateState when its
/// pictures have changed. GUI thread only.
class VESKHDR_EXPORT VeskToolHDRWidget : public QWidget
{
    Q_OBJECT

public:
    explicit VeskToolHDRWidget(QWidget *parent = nullptr);

    /// The tool to serve, borrowed. Without one, or once it is gone, the panel shows nothing and
    /// its controls do nothing.
    void setTool(VeskToolHDR *toolToServe);

    /// Rebuilds the thumbnails; OK is enabled from two pictures on.
    void updateState();

public slots:
    /// Offers OpenCL only when there is a device, and tells the tool whether to merge with it.
    void showEvent(QShowEvent *event) override;

private slots:
    // Connected by their names, when the form is set up.
    void on_cancelBtn_clicked();
    void on_okBtn_clicked();
    void on_browseBtn_clicked();
    void on_removeBtn_clicked();
    void on_alignCheck_clicked();
    void on_cudaCheck_clicked();
    void on_deviceButton_clicked();

private:
    void hideWithFrame();

    Ui_VeskToolHDRWidgetClass ui;
    QPointer<VeskToolHDR> tool;
};
