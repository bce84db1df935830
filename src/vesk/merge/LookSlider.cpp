#include "LookSlider.h"

#include <QDoubleSpinBox>
#include <QHBoxLayout>
#include <QSlider>

namespace {

constexpr int kStepsPerUnit = 100;
constexpr double kStep = 0.05;
constexpr double kWidest = 12;

} // namespace

LookSlider::LookSlider(const QString &name, double least, double most, double neutralValue,
                       QWidget *parent)
    : QWidget(parent)
    , neutral(neutralValue)
    , slider(new QSlider(Qt::Horizontal))
    , number(new QDoubleSpinBox)
{
    slider->setRange(qRound(least * kStepsPerUnit), qRound(most * kStepsPerUnit));
    slider->setPageStep(kStepsPerUnit / 4);
    slider->setAccessibleName(name);
    number->setRange(-kWidest, kWidest); // all as wide, so that sliders end below each other
    number->setMinimumWidth(number->sizeHint().width());
    number->setRange(least, most);
    number->setSingleStep(kStep);
    number->setAccessibleName(name);
    setFocusProxy(number);
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(slider, 1);
    row->addWidget(number);
    reset();
    connect(slider, &QSlider::valueChanged, number,
            [this](int steps) { number->setValue(double(steps) / kStepsPerUnit); });
    connect(number, QOverload<double>::of(&QDoubleSpinBox::valueChanged), this,
            [this](double value) {
                slider->setValue(qRound(value * kStepsPerUnit));
                Q_EMIT changed();
            });
}

double LookSlider::value() const
{
    return number->value();
}

void LookSlider::setValue(double value)
{
    number->setValue(value);
    slider->setValue(qRound(value * kStepsPerUnit));
}
