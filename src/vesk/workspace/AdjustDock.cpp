#include "AdjustDock.h"

#include <DocumentHistory.h>
#include <LookPreview.h>
#include <LookSlider.h>
#include <PictureEditor.h>
#include <VeskCanvas.h>
#include <VeskContext.h>
#include <automatic_look.h>
#include <picture_edits.h>

#include <QFormLayout>
#include <QLabel>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QScrollArea>
#include <QStyle>

namespace {

constexpr int kRestMs = 300;
constexpr int kReadyMs = 50;

using exposure::Look;

} // namespace

AdjustDock::AdjustDock(PictureEditor *pictureEditor, QWidget *parent)
    : QDockWidget(tr("Adjust"), parent)
    , editor(pictureEditor)
{
    setObjectName(QStringLiteral("adjustDock"));
    auto *area = new QScrollArea;
    area->setWidgetResizable(true);
    area->setFrameShape(QFrame::NoFrame);
    area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    QWidget *panel = makePanel();
    area->setWidget(panel);
    area->setMinimumWidth(panel->minimumSizeHint().width() +
                          style()->pixelMetric(QStyle::PM_ScrollBarExtent));
    setWidget(area);
    rest.setSingleShot(true);
    rest.setInterval(kRestMs);
    getReady.setSingleShot(true);
    getReady.setInterval(kReadyMs);
    connect(&rest, &QTimer::timeout, this, &AdjustDock::apply);
    connect(&getReady, &QTimer::timeout, this, [this] {
        nameSource();
        if (lookPreview && !hasChange)
            lookPreview->prepare();
    });
    proposer.setMaxThreadCount(1);
    connect(editor, &PictureEditor::finished, this, &AdjustDock::onEdited);
    showDocument(nullptr);
}

AdjustDock::~AdjustDock()
{
    proposer.waitForDone();
}

QWidget *AdjustDock::makePanel()
{
    auto *panel = new QWidget;
    auto *form = new QFormLayout(panel);
    addSlider(*form, tr("Exposure:"), "exposure", -4, 4, &Look::exposure);
    addSlider(*form, tr("Contrast:"), "contrast", -1, 1, &Look::contrast);
    addSlider(*form, tr("Highlights:"), "highlights", -1, 1, &Look::highlights);
    addSlider(*form, tr("Shadows:"), "shadows", -1, 1, &Look::shadows);
    addSlider(*form, tr("Black point:"), "blackPoint", 0, 0.4, &Look::blackPoint);
    addSlider(*form, tr("White point:"), "whitePoint", 0.6, 1, &Look::whitePoint);
    addSlider(*form, tr("Saturation:"), "saturation", 0, 3, &Look::saturation);
    auto *automatic = new QPushButton(tr("Auto"));
    automatic->setObjectName(QStringLiteral("autoLookButton"));
    automatic->setToolTip(tr("Propose a look from how light and dark the picture is"));
    connect(automatic, &QPushButton::clicked, this, &AdjustDock::propose);
    auto *reset = new QPushButton(tr("Reset"));
    reset->setObjectName(QStringLiteral("resetLookButton"));
    connect(reset, &QPushButton::clicked, this, [this] { setLook({}); });
    compare = new QPushButton(tr("Compare"));
    compare->setObjectName(QStringLiteral("compareLookButton"));
    compare->setToolTip(tr("Hold to see the picture without these changes"));
    connect(compare, &QPushButton::pressed, this, &AdjustDock::showLook);
    connect(compare, &QPushButton::released, this, &AdjustDock::showAfter);
    auto *row = new QHBoxLayout;
    row->addWidget(automatic);
    row->addWidget(reset);
    form->addRow(row);
    form->addRow(compare);
    return panel;
}

void AdjustDock::addSlider(QFormLayout &form, const QString &text, const char *name, double least,
                           double most, double Look::*member)
{
    const QString accessible = QString(text).remove(QLatin1Char(':')).remove(QChar(0xFF1A));
    auto *slider = new LookSlider(accessible, least, most, Look().*member);
    slider->setObjectName(QLatin1String(name) + QStringLiteral("Slider"));
    form.addRow(text, slider);
    sliders.push_back({slider, member});
    connect(slider, &LookSlider::changed, this, &AdjustDock::onChanged);
}

Look AdjustDock::look() const
{
    Look look;
    for (const auto &[slider, member] : sliders)
        look.*member = slider->value();
    return look;
}

void AdjustDock::setLook(const Look &look)
{
    {
        const QScopedValueRollback<bool> quiet(isReading, true);
        for (const auto &[slider, member] : sliders)
            slider->setValue(look.*member);
    }
    onChanged();
}

LookPreview *AdjustDock::preview() const
{
    return lookPreview;
}

void AdjustDock::showDocument(VeskContext *document)
{
    settle();
    if (shown)
        DocumentHistory::of(*shown).disconnect(this);
    if (lookPreview)
        lookPreview->end();
    delete lookPreview;
    shown = document;
    widget()->setEnabled(document);
    if (document && document->getCanvas())
        lookPreview = new LookPreview(document->getCanvas());
    if (document)
        connect(&DocumentHistory::of(*document), &DocumentHistory::changed, this,
                &AdjustDock::onDocumentChanged);
    onDocumentChanged();
}

/// The sliders say what the document has, so that an undone look goes from them, too.
void AdjustDock::readLook()
{
    const Look has = shown ? edits::lookOf(DocumentHistory::of(*shown)) : Look();
    const QScopedValueRollback<bool> quiet(isReading, true);
    for (const auto &[slider, member] : sliders)
        slider->setValue(has.*member);
}

void AdjustDock::onDocumentChanged()
{
    isSourceKnown = false;
    if (!hasChange)
        prepareSoon();
    // The history tells of the pictures before it has the step.
    QMetaObject::invokeMethod(
        this,
        [this] {
            if (!hasChange && !editor->isBusy())
                readLook();
            if (lookPreview && lookPreview->isUnderWay())
                showLook();
        },
        Qt::QueuedConnection);
}

void AdjustDock::prepareSoon()
{
    if (isVisible())
        getReady.start();
}

/// The preview reads the pictures when it needs them, beside this thread.
void AdjustDock::nameSource()
{
    if (isSourceKnown || !shown || !lookPreview)
        return;
    lookPreview->setSource({DocumentHistory::of(*shown).picturesToContinue(edits::kLook),
                            document::layerOpacities(*shown)});
    isSourceKnown = true;
}

void AdjustDock::onChanged()
{
    if (isReading || !shown)
        return;
    setPending(true);
    rest.start();
    showLook();
}

void AdjustDock::showLook()
{
    nameSource();
    if (lookPreview)
        lookPreview->show(compare->isDown() ? Look() : look());
}

void AdjustDock::setPending(bool isPendingNow)
{
    if (hasChange == isPendingNow)
        return;
    hasChange = isPendingNow;
    Q_EMIT pendingChanged();
}

void AdjustDock::apply()
{
    rest.stop();
    if (!hasChange || !shown)
        return;
    setPending(false);
    editor->whenFree(*shown, [this, document = shown, wanted = look()] {
        if (wanted == edits::lookOf(DocumentHistory::of(*document))) {
            onEdited();
            return;
        }
        editor->start(
            *document,
            [wanted](const QList<QImage> &pictures) { return edits::adjust(pictures, wanted); },
            edits::kLook);
    });
}

/// Compare is up again.
void AdjustDock::showAfter()
{
    if (hasChange || editor->isBusy())
        showLook();
    else if (lookPreview)
        lookPreview->end();
}

/// Unless more is on its way.
void AdjustDock::onEdited()
{
    if (editor->isBusy())
        return;
    if (lookPreview && !hasChange && !compare->isDown())
        lookPreview->end();
    if (!hasChange)
        readLook();
}

void AdjustDock::commit()
{
    ++proposals; // what comes later would change what is saved, or undone, by now
    apply();
}

void AdjustDock::settle()
{
    commit();
    editor->finish();
}

void AdjustDock::propose()
{
    if (!shown)
        return;
    const DocumentHistory &history = DocumentHistory::of(*shown);
    proposer.start([this, mine = ++proposals, document = shown, revision = history.revision(),
                    pictures = history.picturesToContinue(edits::kLook)] {
        const Look proposed = exposure::automaticLook(pictures().value(0));
        QMetaObject::invokeMethod(
            this,
            [=] {
                if (mine == proposals && document && document == shown &&
                    DocumentHistory::of(*document).revision() == revision)
                    setLook(proposed);
            },
            Qt::QueuedConnection);
    });
}

void AdjustDock::showEvent(QShowEvent *event)
{
    QDockWidget::showEvent(event);
    QMetaObject::invokeMethod(this, &QWidget::raise, Qt::QueuedConnection); // before other tabs
    prepareSoon();
}

/// Nobody needs the picture without its look for now.
void AdjustDock::hideEvent(QHideEvent *event)
{
    QDockWidget::hideEvent(event);
    if (hasChange || !lookPreview)
        return;
    lookPreview->setSource({});
    isSourceKnown = false;
}
