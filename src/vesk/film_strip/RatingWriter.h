#pragma once

#include <QObject>
#include <QThreadPool>

/// Writes the stars of pictures beside the GUI thread, one after the other. Destroying it waits
/// until all are written. GUI thread.
class RatingWriter : public QObject
{
    Q_OBJECT

public:
    explicit RatingWriter(QObject *parent = nullptr);
    ~RatingWriter() override;

    void write(const QString &path, int stars);

Q_SIGNALS:
    /// reason: in words.
    void failed(const QString &path, const QString &reason);

private:
    QThreadPool worker; // one thread
};
