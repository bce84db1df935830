#pragma once

#include <QDialog>

#include <optional>

class QSlider;

/// Asks how strongly a JPEG file may be compressed. GUI thread.
class JpegQualityDialog : public QDialog
{
    Q_OBJECT

public:
    /// quality: 1..100, shown first. isTransparent: whether to warn that transparency is lost.
    JpegQualityDialog(int quality, bool isTransparent, QWidget *parent = nullptr);

    int quality() const;

private:
    QSlider *slider;
};

namespace document {

/// Nothing when the user cancels.
std::optional<int> askJpegQuality(QWidget *window, int quality, bool isTransparent);

} // namespace document
