#pragma once

#include <QWidget>

class QDoubleSpinBox;
class QSlider;

/// A number between bounds, as a slider and as a field beside it. GUI thread.
class LookSlider : public QWidget
{
    Q_OBJECT

public:
    /// name: for screen readers.
    LookSlider(const QString &name, double least, double most, double neutral,
               QWidget *parent = nullptr);

    double value() const;
    void setValue(double value);
    void reset() { setValue(neutral); }

Q_SIGNALS:
    void changed();

private:
    const double neutral;
    QSlider *slider;
    QDoubleSpinBox *number;
};
