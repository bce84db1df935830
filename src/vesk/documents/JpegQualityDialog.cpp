#include "JpegQualityDialog.h"

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

QLabel *wrapped(const QString &text)
{
    auto *label = new QLabel(text);
    label->setWordWrap(true);
    return label;
}

} // namespace

JpegQualityDialog::JpegQualityDialog(int quality, bool isTransparent, QWidget *parent)
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
    slider->setAccessibleName(windowTitle());
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Save | QDialogButtonBox::Cancel);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    buttons->button(QDialogButtonBox::Save)->setDefault(true);

    auto *grid = new QGridLayout(this);
    grid->setSizeConstraint(QLayout::SetFixedSize); // smaller, the sentences would be cut
    grid->addWidget(label, 0, 0);
    grid->addWidget(slider, 0, 1);
    grid->addWidget(number, 0, 2);
    grid->addWidget(wrapped(tr("Low values give small files, high ones keep more detail. "
                               "From about 95 on, losses are hard to see.")),
                    1, 0, 1, 3);
    if (isTransparent)
        grid->addWidget(wrapped(tr("JPEG files cannot hold transparency: what is transparent "
                                   "becomes white.")),
                        2, 0, 1, 3);
    grid->addWidget(buttons, 3, 0, 1, 3);
    number->setFocus();
    number->selectAll();
}

int JpegQualityDialog::quality() const
{
    return slider->value();
}

std::optional<int> document::askJpegQuality(QWidget *window, int quality, bool isTransparent)
{
    JpegQualityDialog dialog(quality, isTransparent, window);
    return dialog.exec() == QDialog::Accepted ? std::optional<int>(dialog.quality()) : std::nullopt;
}
