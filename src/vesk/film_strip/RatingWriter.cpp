#include "RatingWriter.h"

#include <picture_rating.h>

RatingWriter::RatingWriter(QObject *parent)
    : QObject(parent)
{
    worker.setMaxThreadCount(1);
}

RatingWriter::~RatingWriter()
{
    worker.waitForDone();
}

void RatingWriter::write(const QString &path, int stars)
{
    worker.start([this, path, stars] {
        const QString reason = rating::write(path, stars);
        if (reason.isEmpty())
            return;
        QMetaObject::invokeMethod(
            this, [=] { Q_EMIT failed(path, reason); }, Qt::QueuedConnection);
    });
}
