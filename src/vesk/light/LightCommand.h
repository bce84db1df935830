#pragma once

#include "light_saving.h"

#include <QList>
#include <QObject>
#include <QPointer>

class DocumentArea;
class LightWindow;
class QWidget;

/// Shows light in windows of its own, one for each, and makes documents of what is developed there.
/// GUI thread.
class LightCommand : public QObject
{
    Q_OBJECT

public:
    /// Both are borrowed.
    LightCommand(DocumentArea *documents, QWidget *window);
    ~LightCommand() override;

    /// Light of a file that is shown already comes to the front.
    void show(const light_file::Light &light);
    /// Where light is saved that has no folder of its own.
    void setFolder(const QString &path) { folder = path; }
    /// Closes all windows; false as soon as the user wants to keep one.
    bool closeAll();

Q_SIGNALS:
    void saved(const QString &path);

private:
    void open(const light_file::Light &light, const QImage &picture, const QString &options);

    DocumentArea *documents;
    QWidget *window;
    QString folder;
    QList<QPointer<LightWindow>> windows;
};
