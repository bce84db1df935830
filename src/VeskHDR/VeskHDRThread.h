#pragma once

#include "veskhdr_export.h"

#include <QCloseEvent>
#include <QList>
#include <QThread>

QT_BEGIN_NAMESPACE
class QDialog;
class QImage;
QT_END_NAMESPACE

/// The close event that a run posts. Its type tells it from a close that anybody else asks for
/// while the worker is still busy.
class MergeCompletionEvent final : public QCloseEvent
{
};

/// One merge off the GUI thread: aligns the pictures when asked to, merges them on the processor or
/// on the current OpenCL device, and ends the modal loop of a dialog by one posted close event, its
/// only notification and its last action.
///
/// One object serves one run: construct, setParams, start, run the dialog's modal loop, wait, then
/// read the results and destroy the object. It never has a Qt parent: its owner destroys it, and
/// waits (QThread::wait) before doing so, because run may still be returning when the dialog
/// closes.
///
/// Owner: the pictures belong to whoever filled the list until a run succeeds, which deletes them.
/// A failed run leaves them alone; should memory run out during the alignment, pictures may already
/// have been replaced by shifted copies, so remainingPictures() tells what is left. The result
/// belongs to whoever calls getData.
/// Thread: everything but run on the owner's thread, and nothing between start and the close event.
class VESKHDR_EXPORT VeskHDRThread : public QThread
{
    Q_OBJECT

public:
    /// parent is accepted for the callers' sake and not used.
    explicit VeskHDRThread(QObject *parent = nullptr);
    ~VeskHDRThread() override;

    /// images: in merge order, the first is the alignment's reference; one to five of one size, two
    /// or more when alignFirst is set. On the device a picture of another size than the first is
    /// cut or padded with black; more than five fail. result: read, never written; what getData
    /// gives after a failure.
    void setParams(QList<QImage *> images, QImage *&result, QDialog *toClose, bool onDevice,
                   bool alignFirst);

    /// For pictures that own their pixels, which nobody else knows: the alignment then moves them
    /// where they are and needs no memory for new ones. Otherwise it does not write to them, for a
    /// picture may only borrow its memory. Before start.
    void allowReuseOfPixels();

    /// The merged image (QImage::Format_RGB32), with the colour profile and resolution of the first
    /// picture, which the caller takes over; what setParams was given when there is none.
    void getData(QImage *&out) const;

    /// Processor time of the run in ticks of clock(), of the whole process; 0 after a failure.
    quint64 getTime() const;

    /// True when there was nothing to merge, when the pictures could not be merged, or when memory
    /// was lacking. A failing OpenCL device is not noticed.
    bool isFailed() const;

    /// The pictures of the list that no one has deleted: none after a success.
    QList<QImage *> remainingPictures() const;

    /// Entry point of the worker thread, called by start.
    void run() override;

private:
    void mergePictures();

    QList<QImage *> imageList;
    bool failed = false;
    QImage *resultImage = nullptr;
    QDialog *dialog = nullptr;
    quint64 elapsedTicks = 0;
    bool useOpenCL = true;
    bool align = true;
    bool mayReusePixels = false;
};
