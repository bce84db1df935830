#pragma once

#include <QDialog>

#include <optional>

class QSlider;

/// Asks how strongly a JPEG file may be compressed. GUI thread.
class JpegQualityDialog : public QDialog
{
    Q_OBJECT

public:
    /// quality: 1..100, shown first.
    explicit JpegQualityDialog(int quality, QWidget *parent = nullptr);

    int quality() const;

private:
    QSlider *slider;
};

/// Nothing when the user cancels.
std::optional<int> askJpegQuality(QWidget *window, int quality);
