#pragma once

#include "MergeSettings.h"

#include <QStringList>
#include <QWidget>

class LookSlider;
class QCheckBox;
class QComboBox;

/// The options of a merge: values and a signal, no pixels. What the method does not have is
/// switched off. GUI thread.
class MergeOptionsPanel : public QWidget
{
    Q_OBJECT

public:
    explicit MergeOptionsPanel(QWidget *parent = nullptr);

    /// The shots that are on, in merge order: what moving things may come from. The choice stays
    /// with its shot.
    void setShots(const QStringList &names);
    /// All but the reference for the alignment.
    MergeSettings settings() const;
    void resetLook();

Q_SIGNALS:
    void changed();

private:
    QWidget *makeMergeBox();
    QWidget *makeLookBox();
    void onMethodChanged();
    void offerAlignments();

    QComboBox *method;
    QComboBox *alignment;
    QComboBox *ghosts;
    QCheckBox *crop;
    LookSlider *exposureSlider;
    LookSlider *contrastSlider;
    LookSlider *saturationSlider;
    QWidget *look = nullptr;
};
