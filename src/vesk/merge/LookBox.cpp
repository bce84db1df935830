#include "LookBox.h"
#include "LookSlider.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>

LookBox::LookBox(QWidget *parent)
    : QGroupBox(tr("Look"), parent)
    , form(new QFormLayout(this))
    , automatic(new QPushButton(tr("Aut&o")))
{
    using exposure::Look;
    add(tr("Exposure:"), "exposureSlider", -4, 4, &Look::exposure);
    add(tr("Highlights:"), "highlightsSlider", -1, 1, &Look::highlights);
    add(tr("Shadows:"), "shadowsSlider", -1, 1, &Look::shadows);
    add(tr("Contrast:"), "contrastSlider", -1, 1, &Look::contrast);
    add(tr("Black point:"), "blackPointSlider", 0, 0.4, &Look::blackPoint);
    add(tr("White point:"), "whitePointSlider", 0.6, 1, &Look::whitePoint);
    add(tr("Saturation:"), "saturationSlider", 0, 3, &Look::saturation);
    addButtons();
}

void LookBox::add(const QString &text, const char *name, double least, double most,
                  double exposure::Look::*number)
{
    const QString spoken = QString(text).remove(QLatin1Char(':')).remove(QChar(0xFF1A)).trimmed();
    auto *slider = new LookSlider(spoken, least, most, exposure::Look().*number);
    slider->setObjectName(QLatin1String(name));
    slider->setAccessibleName(spoken);
    auto *label = new QLabel(text);
    label->setBuddy(slider);
    form->addRow(label, slider);
    parts.push_back({slider, number});
    connect(slider, &LookSlider::changed, this, &LookBox::changed);
}

void LookBox::addButtons()
{
    automatic->setObjectName(QStringLiteral("autoButton"));
    automatic->setToolTip(tr("A look that suits the picture, to begin with"));
    auto *reset = new QPushButton(tr("Rese&t"));
    reset->setObjectName(QStringLiteral("resetButton"));
    auto *row = new QHBoxLayout;
    for (QPushButton *button : {automatic, reset}) {
        button->setAutoDefault(false);
        row->addWidget(button);
    }
    form->addRow(row);
    connect(automatic, &QPushButton::clicked, this, &LookBox::automaticWanted);
    connect(reset, &QPushButton::clicked, this, [this] { setLook({}); });
}

void LookBox::hideAutomatic()
{
    automatic->hide();
}

exposure::Look LookBox::look() const
{
    exposure::Look look;
    for (const Part &part : parts)
        look.*part.number = part.slider->value();
    return look;
}

void LookBox::setLook(const exposure::Look &wanted)
{
    const exposure::Look before = look();
    {
        const QSignalBlocker quiet(this);
        for (const Part &part : parts)
            part.slider->setValue(wanted.*part.number);
    }
    if (look() != before)
        Q_EMIT changed();
}
