#include "BrushBar.h"
#include "BrushLayer.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QIcon>
#include <QPixmap>
#include <QPushButton>
#include <QShortcut>
#include <QSignalBlocker>
#include <QSlider>

#include <algorithm>

namespace {

constexpr int kLargestSize = 100;
constexpr int kUsualSize = 35;
constexpr int kSizeStep = 4;
constexpr double kLargestDiameter = 0.5; // of the longer side
constexpr int kIconSide = 12;
constexpr int kSliderWidth = 90;

QIcon iconOf(int shot)
{
    QPixmap square(kIconSide, kIconSide);
    square.fill(BrushLayer::colourOf(shot));
    return square;
}

} // namespace

BrushBar::BrushBar(QWidget *parent)
    : QWidget(parent)
    , shots(new QComboBox)
    , size(new QSlider(Qt::Horizontal))
{
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(4);
    brush = add(tr("Brush"), "brushButton",
                tr("Paint over the preview which shot a part comes from (P)"));
    brush->setCheckable(true);
    addShotBox();
    addSizeSlider();
    eraser = add(tr("Eraser"), "eraserButton", tr("Erase what was painted (E, Alt, right button)"));
    eraser->setCheckable(true);
    undo = add(tr("Undo"), "undoStrokeButton", tr("Take the last stroke back (Ctrl+Z)"));
    clear = add(tr("Clear"), "clearStrokesButton", tr("Take all strokes away"));
    row->addStretch(1);
    connect(brush, &QPushButton::toggled, this, &BrushBar::showParts);
    connect(brush, &QPushButton::toggled, this, &BrushBar::toggled);
    connect(eraser, &QPushButton::toggled, this, &BrushBar::changed);
    connect(undo, &QPushButton::clicked, this, &BrushBar::undoWanted);
    connect(clear, &QPushButton::clicked, this, &BrushBar::clearWanted);
    onKey(Qt::Key_P, [this] { brush->click(); });
    onKey(Qt::Key_E, [this] {
        if (isOn())
            eraser->click();
    });
    onKey(QKeySequence::Undo, [this] { undo->click(); });
    onKey(Qt::Key_BracketLeft, [this] { size->setValue(size->value() - kSizeStep); });
    onKey(Qt::Key_BracketRight, [this] { size->setValue(size->value() + kSizeStep); });
    showParts(false);
    setPainted(false, false);
}

QPushButton *BrushBar::add(const QString &text, const char *name, const QString &tip)
{
    auto *button = new QPushButton(text);
    button->setObjectName(QLatin1String(name));
    button->setAutoDefault(false);
    button->setToolTip(tip);
    // Short words, so that the bar fits small windows in every language.
    button->setMinimumWidth(button->fontMetrics().horizontalAdvance(text) + 18);
    layout()->addWidget(button);
    return button;
}

void BrushBar::addShotBox()
{
    shots->setObjectName(QStringLiteral("brushShotBox"));
    shots->setAccessibleName(tr("Shot to paint with"));
    shots->setToolTip(tr("What is painted comes from this shot. Shift and a click take what moved "
                         "there, whole; Ctrl moves the picture."));
    shots->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    shots->setMinimumContentsLength(6);
    qobject_cast<QHBoxLayout *>(layout())->addWidget(shots, 1);
    connect(shots, &QComboBox::currentIndexChanged, this, &BrushBar::changed);
}

void BrushBar::addSizeSlider()
{
    size->setObjectName(QStringLiteral("brushSizeSlider"));
    size->setAccessibleName(tr("Size of the brush"));
    size->setToolTip(tr("Size of the brush ([ and ])"));
    size->setRange(1, kLargestSize);
    size->setValue(kUsualSize);
    size->setMinimumWidth(kSliderWidth / 2);
    size->setMaximumWidth(kSliderWidth);
    layout()->addWidget(size);
    connect(size, &QSlider::valueChanged, this, &BrushBar::changed);
}

void BrushBar::onKey(const QKeySequence &keys, const std::function<void()> &what)
{
    connect(new QShortcut(keys, this), &QShortcut::activated, this, what);
}

void BrushBar::showParts(bool isOn)
{
    for (QWidget *part : QList<QWidget *>{shots, size, eraser, undo, clear})
        part->setVisible(isOn);
}

void BrushBar::setShots(const QStringList &names)
{
    const QString chosen = shots->currentText();
    {
        const QSignalBlocker quiet(shots);
        shots->clear();
        for (int i = 0; i < names.size(); ++i)
            shots->addItem(iconOf(i), names[i]);
        shots->setCurrentIndex(std::max(0, shots->findText(chosen)));
    }
    Q_EMIT changed();
}

void BrushBar::chooseShot(int place)
{
    if (place >= 0)
        shots->setCurrentIndex(place);
}

int BrushBar::shot() const
{
    return shots->currentIndex();
}

double BrushBar::diameter() const
{
    const double share = double(size->value()) / kLargestSize;
    return kLargestDiameter * share * share;
}

bool BrushBar::isOn() const
{
    return isEnabled() && brush->isChecked();
}

bool BrushBar::isErasing() const
{
    return eraser->isChecked();
}

void BrushBar::setUsable(bool isUsable)
{
    setEnabled(isUsable);
    Q_EMIT toggled(isOn());
}

void BrushBar::setPainted(bool isPainted, bool canUndo)
{
    undo->setEnabled(canUndo);
    clear->setEnabled(isPainted);
}
