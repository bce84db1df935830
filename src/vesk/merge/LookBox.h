#pragma once

#include <Look.h>

#include <QGroupBox>

#include <vector>

class LookSlider;
class QFormLayout;
class QPushButton;

/// The look of the merged picture as sliders. GUI thread.
class LookBox : public QGroupBox
{
    Q_OBJECT

public:
    explicit LookBox(QWidget *parent = nullptr);

    exposure::Look look() const;
    /// Tells of one change, if it is one.
    void setLook(const exposure::Look &look);

    /// Where there is no picture for a look to suit.
    void hideAutomatic();

Q_SIGNALS:
    void changed();
    /// Wants setLook with a look that suits the picture.
    void automaticWanted();

private:
    struct Part
    {
        LookSlider *slider;
        double exposure::Look::*number;
    };

    void add(const QString &text, const char *name, double least, double most,
             double exposure::Look::*number);
    void addButtons();

    QFormLayout *form;
    QPushButton *automatic;
    std::vector<Part> parts;
};
