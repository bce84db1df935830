#pragma once

#include <QKeySequence>
#include <QStringList>
#include <QWidget>

#include <functional>

class QComboBox;
class QPushButton;
class QSlider;

/// The controls of the brush, with their keys: values and signals, nothing is painted here.
/// GUI thread.
class BrushBar : public QWidget
{
    Q_OBJECT

public:
    explicit BrushBar(QWidget *parent = nullptr);

    /// The shots that are on, in merge order. The choice stays with its name.
    void setShots(const QStringList &names);
    void chooseShot(int place);
    int shot() const; ///< its place; -1 for none
    /// The diameter as a share of the picture's longer side.
    double diameter() const;
    bool isOn() const;
    bool isErasing() const;
    void setUsable(bool isUsable);
    void setPainted(bool isPainted, bool canUndo);

Q_SIGNALS:
    void toggled(bool isOn);
    /// Shot, size or eraser.
    void changed();
    void undoWanted();
    void clearWanted();

private:
    QPushButton *add(const QString &text, const char *name, const QString &tip);
    void addShotBox();
    void addSizeSlider();
    void onKey(const QKeySequence &keys, const std::function<void()> &what);
    void showParts(bool isOn);

    QPushButton *brush;
    QComboBox *shots;
    QSlider *size;
    QPushButton *eraser;
    QPushButton *undo;
    QPushButton *clear;
};
