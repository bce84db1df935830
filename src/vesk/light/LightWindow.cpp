#include "LightWindow.h"

#include <LookSlider.h>
#include <MergePreview.h>

#include <QCheckBox>
#include <QCloseEvent>
#include <QComboBox>
#include <QFormLayout>
#include <QLabel>
#include <QMessageBox>
#include <QProgressBar>
#include <QPushButton>
#include <QScreen>

namespace {

constexpr QSize kFirstSize(1100, 700);
constexpr int kOptionWidth = 300;
constexpr int kDelayMs = 15; // changes that follow one another are answered once
constexpr int kProgressSteps = 1000;
constexpr double kMostStops = 12.0;

void addRow(QFormLayout &form, const QString &text, QWidget *field)
{
    auto *label = new QLabel(text);
    label->setBuddy(field);
    field->setAccessibleName(QString(text).remove(QLatin1Char('&')).remove(QLatin1Char(':')));
    form.addRow(label, field);
}

} // namespace

LightWindow::LightWindow(const light_file::Light &light, const QString &saveFolder, QWidget *parent)
    : QDialog(parent)
    , shown(light)
    , folder(saveFolder)
    , isUnsaved(light.path.isEmpty())
    , preview(new MergePreview)
    , state(new QLabel)
    , progress(new QProgressBar)
    , method(new QComboBox)
    , exposure(new LookSlider(tr("Exposure"), -kMostStops, kMostStops, 0))
    , marks(new QCheckBox(tr("Mar&k what is brighter than white")))
    , saveButton(new QPushButton(tr("&Save Light…")))
    , developButton(new QPushButton(tr("&Develop")))
    , closeButton(new QPushButton(tr("Close")))
{
    //: %1 is the name of a picture.
    setWindowTitle(tr("%1 — Light").arg(light.name));
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    auto *columns = new QHBoxLayout(this);
    columns->addWidget(makePreviewColumn(), 1);
    columns->addWidget(makeOptionColumn());
    connectParts();
    showDeveloping(false);
    resize(kFirstSize.boundedTo(screen()->availableSize() * 0.9));
    requestPreview();
}

LightWindow::~LightWindow() = default;

// --- Building ---

QWidget *LightWindow::makePreviewColumn()
{
    auto *column = new QWidget;
    preview->setObjectName(QStringLiteral("lightPreview"));
    progress->setRange(0, kProgressSteps);
    progress->setTextVisible(false);
    auto *below = new QHBoxLayout;
    below->addWidget(state, 1);
    below->addWidget(progress, 1);
    auto *layout = new QVBoxLayout(column);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(preview, 1);
    layout->addLayout(below);
    return column;
}

QWidget *LightWindow::makeOptionColumn()
{
    auto *column = new QWidget;
    column->setFixedWidth(kOptionWidth);
    method->setObjectName(QStringLiteral("lightMethod"));
    method->addItem(tr("As one shot shows it"), int(develop::Method::Exposure));
    method->addItem(tr("One curve for all of it"), int(develop::Method::Global));
    method->addItem(tr("Each place at its best"), int(develop::Method::Local));
    exposure->setObjectName(QStringLiteral("lightExposure"));
    marks->setObjectName(QStringLiteral("lightMarks"));
    saveButton->setObjectName(QStringLiteral("saveLightButton"));
    developButton->setObjectName(QStringLiteral("developButton"));
    developButton->setDefault(true);
    closeButton->setAutoDefault(false);
    saveButton->setAutoDefault(false);
    auto *form = new QFormLayout;
    addRow(*form, tr("&Method:"), method);
    addRow(*form, tr("&Exposure:"), exposure);
    form->addRow(marks);
    auto *buttons = new QHBoxLayout;
    buttons->addWidget(closeButton);
    buttons->addWidget(developButton);
    auto *layout = new QVBoxLayout(column);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addLayout(form);
    layout->addStretch(1);
    layout->addWidget(saveButton);
    layout->addLayout(buttons);
    return column;
}

void LightWindow::connectParts()
{
    delay.setSingleShot(true);
    delay.setInterval(kDelayMs);
    connect(&delay, &QTimer::timeout, this, &LightWindow::requestPreview);
    connect(method, &QComboBox::currentIndexChanged, &delay, qOverload<>(&QTimer::start));
    connect(exposure, &LookSlider::changed, &delay, qOverload<>(&QTimer::start));
    connect(marks, &QCheckBox::toggled, &delay, qOverload<>(&QTimer::start));
    connect(&previewer, &LightDeveloper::ready, this, &LightWindow::showPreview);
    connect(&developer, &LightDeveloper::ready, this, &LightWindow::finish);
    connect(&developer, &LightDeveloper::progressed, this,
            [this](double done) { progress->setValue(qRound(done * kProgressSteps)); });
    connect(saveButton, &QPushButton::clicked, this, &LightWindow::save);
    connect(developButton, &QPushButton::clicked, this, &LightWindow::startDeveloping);
    connect(closeButton, &QPushButton::clicked, this, &LightWindow::reject);
}

// --- Preview ---

develop::Options LightWindow::options() const
{
    develop::Options options;
    options.method = develop::Method(method->currentData().toInt());
    options.exposure = exposure->value();
    return options;
}

void LightWindow::requestPreview()
{
    LightDeveloper::Request request;
    request.light = shown.picture;
    request.largest = preview->size() * devicePixelRatioF();
    request.how = options();
    request.isForScreen = true;
    request.marksWhite = marks->isChecked();
    previewer.request(request);
}

void LightWindow::showPreview(const develop::Result &result)
{
    if (result.picture.isNull())
        preview->setText(tr("There is not enough memory to show this."));
    preview->setAfter(result.picture);
}

void LightWindow::resizeEvent(QResizeEvent *event)
{
    QDialog::resizeEvent(event);
    delay.start();
}

// --- Developing ---

QString LightWindow::optionsAsWords() const
{
    const char *const words[] = {"exposure", "global", "local"};
    return QStringLiteral("--method %1 --exposure %2")
        .arg(QLatin1String(words[int(options().method)]))
        .arg(exposure->value());
}

void LightWindow::startDeveloping()
{
    LightDeveloper::Request request;
    request.light = shown.picture;
    request.how = options();
    developer.request(request);
    showDeveloping(true);
}

void LightWindow::finish(const develop::Result &result)
{
    showDeveloping(false);
    if (result.picture.isNull())
        QMessageBox::warning(this, tr("Not Developed"),
                             tr("There is not enough memory for a picture of this size."));
    else
        Q_EMIT developed(result.picture, optionsAsWords());
}

void LightWindow::showDeveloping(bool isUnderWay)
{
    for (QWidget *part : QList<QWidget *>{method, exposure, marks, saveButton, developButton})
        part->setEnabled(!isUnderWay);
    progress->setVisible(isUnderWay);
    progress->setValue(0);
    state->setText(isUnderWay ? tr("Developing…") : QString());
    closeButton->setText(isUnderWay ? tr("Cancel") : tr("Close"));
}

// --- Leaving ---

void LightWindow::save()
{
    const QString path = light_file::saveAs(this, shown, options(), folder);
    if (path.isEmpty())
        return;
    isUnsaved = isUnsaved && !light_file::holdsLight(path);
    Q_EMIT saved(path);
}

bool LightWindow::mayLoseLight()
{
    if (!isUnsaved)
        return true;
    return QMessageBox::question(this, tr("Light Not Saved"),
                                 tr("The light is in no file yet. Close it without saving?"),
                                 QMessageBox::Discard | QMessageBox::Cancel,
                                 QMessageBox::Cancel) == QMessageBox::Discard;
}

void LightWindow::reject()
{
    if (developer.isBusy()) {
        developer.cancel();
        showDeveloping(false);
        return;
    }
    if (mayLoseLight())
        QDialog::reject();
}

void LightWindow::closeEvent(QCloseEvent *event)
{
    developer.cancel();
    QDialog::closeEvent(event); // asks reject()
}
