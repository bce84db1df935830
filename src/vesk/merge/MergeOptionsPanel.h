#pragma once

#include "MergeSettings.h"

#include <QStringList>
#include <QWidget>

class LookBox;
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
    /// The same the other way round; ghosts from a shot are those of setShots.
    void setSettings(const MergeSettings &settings);
    void setLook(const exposure::Look &look);
    /// Where there is no picture for a look to suit.
    void offerForManyPictures();

Q_SIGNALS:
    void changed();
    /// Wants setLook with a look that suits the picture.
    void automaticLookWanted();

private:
    QWidget *makeMergeBox();
    void onMethodChanged();
    void offerAlignments();

    QComboBox *method;
    QComboBox *alignment;
    QComboBox *ghosts;
    QCheckBox *crop;
    LookBox *look;
};
