#pragma once

#include "LightDeveloper.h"
#include "light_saving.h"

#include <QDialog>
#include <QTimer>

class LookSlider;
class MergePreview;
class QCheckBox;
class QComboBox;
class QLabel;
class QProgressBar;
class QPushButton;

/// The window that shows the light of a scene: through an exposure, as with a lamp, or as a picture
/// that it is developed to. GUI thread.
class LightWindow : public QDialog
{
    Q_OBJECT

public:
    /// folder: where the dialog that saves the light starts.
    LightWindow(const light_file::Light &light, const QString &folder, QWidget *parent = nullptr);
    ~LightWindow() override;

    const light_file::Light &light() const { return shown; }

    /// While the light is developed at full size, only that is cancelled; before light that is in
    /// no file is lost, the user is asked.
    void reject() override;

Q_SIGNALS:
    /// options: how, as words.
    void developed(const QImage &picture, const QString &options);
    void saved(const QString &path);

protected:
    void closeEvent(QCloseEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    QWidget *makePreviewColumn();
    QWidget *makeOptionColumn();
    void connectParts();
    void requestPreview();
    void showPreview(const develop::Result &result);
    void startDeveloping();
    void finish(const develop::Result &result);
    void showDeveloping(bool isUnderWay);
    void save();
    bool mayLoseLight();
    develop::Options options() const;
    QString optionsAsWords() const;

    light_file::Light shown;
    QString folder;
    bool isUnsaved;
    LightDeveloper previewer;
    LightDeveloper developer;
    MergePreview *preview;
    QLabel *state;
    QProgressBar *progress;
    QComboBox *method;
    LookSlider *exposure;
    QCheckBox *marks;
    QPushButton *saveButton;
    QPushButton *developButton;
    QPushButton *closeButton;
    QTimer delay;
};
