#include "DocumentSaver.h"
#include "editor_settings.h"
#include "picture_document.h"
#include "picture_saving.h"

#include <VeskContext.h>
#include <layer_composition.h>

#include <QDir>
#include <QFileInfo>
#include <QMessageBox>
#include <QPushButton>

#include <algorithm>

DocumentSaver::DocumentSaver(QWidget *dialogWindow)
    : QObject(dialogWindow)
    , window(dialogWindow)
{
}

bool DocumentSaver::save(VeskContext *document)
{
    if (refuseNothingVisible(*document))
        return false;
    // Other kinds of file (camera raw files above all) are never overwritten.
    const QString path = document->getFilePath();
    const std::optional<PictureFormat> format = picture::formatOfSuffix(path);
    if (!format)
        return saveAs(document);
    const Outcome agreed = agreeToReplace(*document);
    if (agreed != Outcome::Saved)
        return agreed == Outcome::SaveElsewhere && saveAs(document);
    const Outcome outcome = write(
        *document, {path, *format, settings::jpegQuality(), true, document::savedBits(*document)});
    return outcome == Outcome::SaveElsewhere ? saveAs(document) : outcome == Outcome::Saved;
}

bool DocumentSaver::saveAs(VeskContext *document)
{
    if (refuseNothingVisible(*document))
        return false;
    const QPointer<VeskContext> guard = document;
    const QImage picture = composition::composedPicture(document);
    QString start = suggestedPath(*document);
    while (const std::optional<SaveTarget> target =
               document::askSaveTarget(window, start, picture)) {
        if (!guard)
            return false;
        const Outcome outcome = write(*document, *target);
        if (outcome != Outcome::SaveElsewhere)
            return outcome == Outcome::Saved;
        start = target->path;
    }
    return false;
}

bool DocumentSaver::settleUnsavedChanges(VeskContext *document)
{
    if (!document->isSaveAble())
        return true;
    QMessageBox question(QMessageBox::Warning, tr("Unsaved Changes"),
                         tr("Save the changes to “%1”?").arg(document->getFileName()),
                         QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel, window);
    question.setInformativeText(tr("If you do not save them, they will be lost."));
    question.setDefaultButton(QMessageBox::Save);
    const QPointer<VeskContext> guard = document;
    const int answer = question.exec();
    if (!guard)
        return true;
    if (answer == QMessageBox::Save)
        return save(document);
    return answer == QMessageBox::Discard;
}

bool DocumentSaver::settleUnsavedChanges(const QList<VeskContext *> &documents)
{
    QList<QPointer<VeskContext>> modified;
    QStringList names;
    for (VeskContext *document : documents) {
        if (!document->isSaveAble())
            continue;
        modified.append(document);
        names.append(document->getFileName());
    }
    if (modified.size() <= 1)
        return modified.isEmpty() || settleUnsavedChanges(modified.constFirst());
    QMessageBox question(QMessageBox::Warning, tr("Unsaved Changes"),
                         tr("%1 documents have unsaved changes.").arg(modified.size()),
                         QMessageBox::SaveAll | QMessageBox::Discard | QMessageBox::Cancel, window);
    question.setInformativeText(names.join(QLatin1Char('\n')));
    question.button(QMessageBox::SaveAll)->setText(tr("&Save All"));
    question.button(QMessageBox::Discard)->setText(tr("&Discard All"));
    question.setDefaultButton(QMessageBox::SaveAll);
    const int answer = question.exec();
    if (answer != QMessageBox::SaveAll)
        return answer == QMessageBox::Discard;
    return std::all_of(modified.cbegin(), modified.cend(),
                       [this](const QPointer<VeskContext> &each) { return !each || save(each); });
}

DocumentSaver::Outcome DocumentSaver::write(VeskContext &document, const SaveTarget &target)
{
    const QImage picture = composition::composedPicture(&document);
    if (picture.isNull())
        return reportFailure(target.path, tr("not enough memory"));
    document::SavedMetadata metadata{{document::metadataSource(document), document.getFilePath()},
                                     document::resultMark(document)};
    metadata.sources.removeAll({}); // a document without a file has none of its own
    const QPointer<VeskContext> guard = &document;
    const WriteResult result = document::savePictureBeside(picture, target, metadata);
    if (result.error != OutputFile::Error::None)
        return reportFailure(target.path, result.reason);
    if (guard) {
        document.setFilePath(target.path);
        document.setFileName(QFileInfo(target.path).fileName());
        document::setSavedBits(document, target.bitsPerSample);
        document::setFileStamp(document, FileStamp::of(target.path));
        document::setGainMapInFile(document, false);
        document::markSaved(document);
    }
    Q_EMIT saved(target.path);
    return Outcome::Saved;
}

/// Saved where nothing speaks against it, or the user agrees.
DocumentSaver::Outcome DocumentSaver::agreeToReplace(const VeskContext &document)
{
    const QString name = document.getFileName();
    if (document::isFileChanged(document)) {
        const Outcome answer =
            askToReplace(tr("“%1” has been changed by another program.").arg(name),
                         tr("If you replace it, what was changed there is lost."));
        if (answer != Outcome::Saved)
            return answer;
    }
    if (!document::hasGainMapInFile(document))
        return Outcome::Saved;
    return askToReplace(
        tr("“%1” holds a gain map: bright screens show it brighter.").arg(name),
        tr("Vesk cannot keep that. The file would look the same on all screens from now on."));
}

DocumentSaver::Outcome DocumentSaver::askToReplace(const QString &text, const QString &consequence)
{
    QMessageBox question(QMessageBox::Warning, tr("Replace the File?"), text,
                         QMessageBox::Yes | QMessageBox::Save | QMessageBox::Cancel, window);
    question.setInformativeText(consequence);
    question.button(QMessageBox::Yes)->setText(tr("&Replace"));
    question.button(QMessageBox::Save)->setText(tr("Save &As…"));
    question.setDefaultButton(QMessageBox::Save);
    const int answer = question.exec();
    if (answer == QMessageBox::Save)
        return Outcome::SaveElsewhere;
    return answer == QMessageBox::Yes ? Outcome::Saved : Outcome::Failed;
}

/// Another place would not help, so none is offered.
bool DocumentSaver::refuseNothingVisible(const VeskContext &document)
{
    if (!composition::visibleLayers(&document).empty())
        return false;
    QMessageBox box(
        QMessageBox::Warning, tr("Not Saved"),
        tr("“%1” could not be saved: %2.").arg(document.getFileName(), tr("no layer is visible")),
        QMessageBox::Ok, window);
    box.setInformativeText(tr("Show a layer in the list of layers, then save again."));
    box.exec();
    return true;
}

DocumentSaver::Outcome DocumentSaver::reportFailure(const QString &path, const QString &reason)
{
    QMessageBox box(QMessageBox::Warning, tr("Not Saved"),
                    tr("“%1” could not be saved: %2.").arg(QDir::toNativeSeparators(path), reason),
                    QMessageBox::Save | QMessageBox::Close, window);
    box.setInformativeText(
        tr("The picture is still open, with all its changes. You can save it elsewhere."));
    box.button(QMessageBox::Save)->setText(tr("Save &As…"));
    box.setDefaultButton(QMessageBox::Save);
    return box.exec() == QMessageBox::Save ? Outcome::SaveElsewhere : Outcome::Failed;
}

QString DocumentSaver::suggestedPath(const VeskContext &document) const
{
    const QString own = document.getFilePath();
    if (picture::formatOfSuffix(own))
        return own;
    if (!own.isEmpty())
        return QFileInfo(own).path() + QLatin1Char('/') + QFileInfo(own).completeBaseName() +
               QStringLiteral(".jpg");
    // A merged picture: beside the first of the bracket, and named after it.
    const QFileInfo source(document::metadataSource(document));
    if (!source.filePath().isEmpty())
        return source.path() + QLatin1Char('/') + source.completeBaseName() +
               QStringLiteral("-HDR.jpg");
    return folder + QLatin1Char('/') + tr("Untitled") + QStringLiteral(".jpg");
}
