#include "jpeg_quality_dialog.h"

#include <QDialogButtonBox>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QSlider>
#include <QSpinBox>

namespace {

constexpr int kLowest = 1;
constexpr int kHighest = 100;
constexpr int kSliderWidth = 260;

} // namespace

JpegQualityDialog::JpegQualityDialog(int quality, QWidget *parent)
    : QDialog(parent)
    , slider(new QSlider(Qt::Horizontal))
{
    setWindowTitle(tr("JPEG Quality"));
    auto *number = new QSpinBox;
    number->setRange(kLowest, kHighest);
    slider->setRange(kLowest, kHighest);
    slider->setMinimumWidth(kSliderWidth);
    connect(slider, &QSlider::valueChanged, number, &QSpinBox::setValue);
    connect(number, QOverload<int>::of(&QSpinBox::valueChanged), slider, &QSlider::setValue);
    slider->setValue(quality);

    auto *label = new QLabel(tr("&Quality:"));
    label->setBuddy(number);
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Save | QDialogButtonBox::Cancel);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    buttons->button(QDialogButtonBox::Save)->setDefault(true);

    auto *grid = new QGridLayout(this);
    grid->addWidget(label, 0, 0);
    grid->addWidget(slider, 0, 1);
    grid->addWidget(number, 0, 2);
    auto *ends = new QLabel(tr("Low values give small files, high ones keep more detail. "
                               "From about 95 on, losses are hard to see."));
    ends->setWordWrap(true);
    grid->addWidget(ends, 1, 0, 1, 3);
    grid->addWidget(buttons, 2, 0, 1, 3);
    number->setFocus();
    number->selectAll();
}

int JpegQualityDialog::quality() const
{
    return slider->value();
}

std::optional<int> askJpegQuality(QWidget *window, int quality)
{
    JpegQualityDialog dialog(quality, window);
    return dialog.exec() == QDialog::Accepted ? std::optional<int>(dialog.quality()) : std::nullopt;
}
