#include "PreviewBar.h"
#include "MergePreview.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QShortcut>

namespace {

constexpr int kBeatMs = 600;
constexpr double kZoomStep = 1.25;

} // namespace

PreviewBar::PreviewBar(MergePreview *shownPreview, QWidget *parent)
    : QWidget(parent)
    , preview(shownPreview)
{
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(4);
    before = add(tr("Before"), "beforeButton",
                 tr("The reference as it was taken, while B or this is held"));
    split = addSwitch(tr("Split"), "splitButton",
                      tr("Before and after side by side; drag the line (S)"), Qt::Key_S);
    blinking = addSwitch(tr("Blink"), "blinkButton",
                         tr("The aligned shots, one after the other (K)"), Qt::Key_K);
    clipping =
        addSwitch(tr("Clipping"), "clippingButton",
                  tr("Red where it is too bright, blue where it is too dark (C)"), Qt::Key_C);
    loupe = addSwitch(tr("Loupe"), "loupeButton", tr("100 % around the pointer (L)"), Qt::Key_L);
    addZoom();
    connect(before, &QPushButton::pressed, this, [this] { Q_EMIT beforeHeld(true); });
    connect(before, &QPushButton::released, this, [this] { Q_EMIT beforeHeld(false); });
    connect(split, &QPushButton::toggled, this, &PreviewBar::splitToggled);
    connect(split, &QPushButton::toggled, preview, &MergePreview::setSplit);
    connect(clipping, &QPushButton::toggled, preview, &MergePreview::setClippingShown);
    connect(loupe, &QPushButton::toggled, preview, &MergePreview::setLoupe);
    connect(blinking, &QPushButton::toggled, this, [this](bool isOn) {
        if (isOn)
            Q_EMIT shotsWanted();
        else
            setShots({}, {});
    });
    beat.setInterval(kBeatMs);
    connect(&beat, &QTimer::timeout, this, &PreviewBar::blink);
}

QPushButton *PreviewBar::add(const QString &text, const char *name, const QString &tip)
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

QPushButton *PreviewBar::addSwitch(const QString &text, const char *name, const QString &tip,
                                   Qt::Key key)
{
    QPushButton *button = add(text, name, tip);
    button->setCheckable(true);
    connect(new QShortcut(key, this), &QShortcut::activated, button, &QPushButton::click);
    return button;
}

void PreviewBar::addZoom()
{
    //: On a button: the picture as large as it fits.
    QPushButton *fit = add(tr("Fit"), "fitButton", tr("As large as it fits (Ctrl+0)"));
    //: On a button: one pixel of the picture on one of the screen.
    QPushButton *actual = add(tr("100 %"), "actualSizeButton", tr("Pixel for pixel (Ctrl+1)"));
    zoomLabel = new QLabel;
    zoomLabel->setObjectName(QStringLiteral("zoomLabel"));
    zoomLabel->setMinimumWidth(zoomLabel->fontMetrics().horizontalAdvance(tr("%1 %").arg(1600)));
    layout()->addWidget(zoomLabel);
    qobject_cast<QHBoxLayout *>(layout())->addStretch();
    const auto onKey = [this](const QKeySequence &keys, const auto &what) {
        connect(new QShortcut(keys, this), &QShortcut::activated, preview, what);
    };
    const auto toFit = [this] { preview->zoomToFit(); };
    const auto toActual = [this] { preview->zoomTo(1); };
    connect(fit, &QPushButton::clicked, preview, toFit);
    connect(actual, &QPushButton::clicked, preview, toActual);
    onKey(Qt::CTRL | Qt::Key_0, toFit);
    onKey(Qt::CTRL | Qt::Key_1, toActual);
    for (const QKeySequence &keys :
         {QKeySequence(QKeySequence::ZoomIn), QKeySequence(Qt::CTRL | Qt::Key_Equal)})
        onKey(keys, [this] { preview->zoomTo(preview->zoom() * kZoomStep); });
    onKey(QKeySequence::ZoomOut, [this] { preview->zoomTo(preview->zoom() / kZoomStep); });
    connect(preview, &MergePreview::zoomChanged, this, &PreviewBar::showZoom);
}

void PreviewBar::showZoom()
{
    zoomLabel->setText(tr("%1 %").arg(qRound(preview->zoom() * 100)));
}

void PreviewBar::setUsable(bool isUsable)
{
    setEnabled(isUsable);
    if (!isUsable)
        stopBlinking();
}

bool PreviewBar::isBlinking() const
{
    return blinking->isChecked();
}

void PreviewBar::stopBlinking()
{
    blinking->setChecked(false);
}

void PreviewBar::setShots(const QList<QImage> &aligned, const QStringList &shotNames)
{
    shots = aligned;
    names = shotNames;
    shownShot = -1;
    if (shots.isEmpty()) {
        beat.stop();
        preview->showShot({}, {});
    } else {
        beat.start();
        blink();
    }
}

void PreviewBar::blink()
{
    shownShot = (shownShot + 1) % shots.size();
    preview->showShot(shots[shownShot], names.value(shownShot));
}
