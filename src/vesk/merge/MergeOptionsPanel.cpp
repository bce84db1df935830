#include "MergeOptionsPanel.h"
#include "LookBox.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

namespace {

// Places in the list of ghosts, behind the automatic choice.
constexpr int kKeepGhosts = 1;
constexpr int kFirstShot = 2;

exposure::Method methodOf(const QComboBox &box)
{
    return exposure::Method(box.currentData().toInt());
}

void addMethod(QComboBox &box, const QString &text, exposure::Method method)
{
    box.addItem(text, int(method));
}

void addAlignment(QComboBox &box, const QString &text, exposure::Alignment alignment)
{
    box.addItem(text, int(alignment));
}

void addRow(QFormLayout &form, const QString &text, QWidget *field)
{
    auto *label = new QLabel(text);
    label->setBuddy(field);
    field->setAccessibleName(QString(text).remove(QLatin1Char('&')).remove(QLatin1Char(':')));
    form.addRow(label, field);
}

} // namespace

MergeOptionsPanel::MergeOptionsPanel(QWidget *parent)
    : QWidget(parent)
    , method(new QComboBox)
    , alignment(new QComboBox)
    , ghosts(new QComboBox)
    , crop(new QCheckBox(tr("C&rop to what all shots cover")))
    , look(new LookBox)
{
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(makeMergeBox());
    column->addWidget(look);
    column->addStretch();
    setShots({});
    onMethodChanged();
    connect(method, &QComboBox::currentIndexChanged, this, &MergeOptionsPanel::onMethodChanged);
    for (QComboBox *box : {alignment, ghosts})
        connect(box, &QComboBox::currentIndexChanged, this, &MergeOptionsPanel::changed);
    connect(crop, &QCheckBox::toggled, this, &MergeOptionsPanel::changed);
    connect(look, &LookBox::changed, this, &MergeOptionsPanel::changed);
    connect(look, &LookBox::automaticWanted, this, &MergeOptionsPanel::automaticLookWanted);
}

QWidget *MergeOptionsPanel::makeMergeBox()
{
    auto *box = new QGroupBox(tr("Merge"));
    auto *form = new QFormLayout(box);
    addMethod(*method, tr("Exposure fusion"), exposure::Method::Fusion);
    addMethod(*method, tr("Light of the scene"), exposure::Method::Radiance);
    addMethod(*method, tr("Mean (as Merge to HDR)"), exposure::Method::Mean);
    method->setObjectName(QStringLiteral("methodBox"));
    alignment->setObjectName(QStringLiteral("alignmentBox"));
    ghosts->setObjectName(QStringLiteral("ghostsBox"));
    crop->setObjectName(QStringLiteral("cropBox"));
    for (QComboBox *list : {method, alignment, ghosts}) // long names must not widen the panel
        list->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    addRow(*form, tr("M&ethod:"), method);
    addRow(*form, tr("&Alignment:"), alignment);
    //: What moved between the shots.
    addRow(*form, tr("&Ghosts:"), ghosts);
    form->addRow(crop);
    return box;
}

void MergeOptionsPanel::setLook(const exposure::Look &wanted)
{
    look->setLook(wanted);
}

void MergeOptionsPanel::offerForManyPictures()
{
    look->hideAutomatic();
    method->removeItem(method->findData(int(exposure::Method::Radiance)));
}

void MergeOptionsPanel::setShots(const QStringList &names)
{
    const QSignalBlocker quiet(ghosts);
    const QString chosen = ghosts->currentText();
    ghosts->clear();
    ghosts->addItem(tr("Remove, automatically"));
    ghosts->addItem(tr("Leave them in"));
    for (const QString &name : names)
        //: %1 is the name of a shot.
        ghosts->addItem(tr("From %1").arg(name));
    ghosts->setCurrentIndex(std::max(0, ghosts->findText(chosen)));
}

/// Light has no look; the mean has no ghosts either, and is aligned as the tool does.
void MergeOptionsPanel::onMethodChanged()
{
    const bool isMean = methodOf(*method) == exposure::Method::Mean;
    offerAlignments();
    ghosts->setEnabled(!isMean);
    look->setEnabled(methodOf(*method) == exposure::Method::Fusion);
    Q_EMIT changed();
}

void MergeOptionsPanel::offerAlignments()
{
    const QSignalBlocker quiet(alignment);
    const int none = alignment->findData(int(exposure::Alignment::None));
    const bool isNone = alignment->count() > 0 && alignment->currentIndex() == none;
    alignment->clear();
    if (methodOf(*method) != exposure::Method::Mean)
        addAlignment(*alignment, tr("Perspective"), exposure::Alignment::Perspective);
    addAlignment(*alignment, tr("Whole pixels"), exposure::Alignment::Shift);
    addAlignment(*alignment, tr("None (tripod)"), exposure::Alignment::None);
    alignment->setCurrentIndex(isNone ? alignment->count() - 1 : 0);
}

MergeSettings MergeOptionsPanel::settings() const
{
    MergeSettings settings;
    settings.method = methodOf(*method);
    exposure::Options &options = settings.options;
    options.alignment = exposure::Alignment(alignment->currentData().toInt());
    options.crop = crop->isChecked();
    if (settings.isMean())
        return settings;
    const int choice = ghosts->currentIndex();
    options.ghosts = choice == kKeepGhosts ? exposure::Ghosts::Keep : exposure::Ghosts::Remove;
    if (choice >= kFirstShot)
        options.ghostReference = choice - kFirstShot;
    if (settings.hasLook())
        options.adjustment = look->look();
    return settings;
}

void MergeOptionsPanel::setSettings(const MergeSettings &settings)
{
    const exposure::Options &options = settings.options;
    method->setCurrentIndex(method->findData(int(settings.method)));
    alignment->setCurrentIndex(std::max(0, alignment->findData(int(options.alignment))));
    crop->setChecked(options.crop);
    if (options.ghosts == exposure::Ghosts::Keep)
        ghosts->setCurrentIndex(kKeepGhosts);
    else
        ghosts->setCurrentIndex(options.ghostReference < 0 ? 0
                                                           : kFirstShot + options.ghostReference);
    look->setLook(options.adjustment);
}
