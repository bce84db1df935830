#include "merge_texts.h"

#include <QCoreApplication>
#include <QFileInfo>

namespace {

struct MergeTexts
{
    Q_DECLARE_TR_FUNCTIONS(MergeTexts)
};

QString nameOf(const QString &path)
{
    return QFileInfo(path).fileName();
}

QString reasonOf(const registration::Transform &transform)
{
    switch (transform.reason) {
    case registration::Reason::TooSmall:
        return MergeTexts::tr("it is too small");
    case registration::Reason::NoDetail:
        return MergeTexts::tr("it shows too little detail");
    default:
        return MergeTexts::tr("it does not match the others");
    }
}

} // namespace

QString merge_texts::reading()
{
    return MergeTexts::tr("Reading the pictures…");
}

QString merge_texts::doing(exposure::Step step)
{
    switch (step) {
    case exposure::Step::Register:
    case exposure::Step::Resample:
        return MergeTexts::tr("Aligning…");
    case exposure::Step::FindGhosts:
        return MergeTexts::tr("Looking for what moved…");
    case exposure::Step::Fuse:
        break;
    }
    return MergeTexts::tr("Merging…");
}

QString merge_texts::problem(exposure::Error error)
{
    switch (error) {
    case exposure::Error::None:
    case exposure::Error::Cancelled:
        return {};
    case exposure::Error::NoPictures:
        return MergeTexts::tr("At most %1 pictures can be merged.").arg(fusion::kMostShots);
    case exposure::Error::DifferentSizes:
        return MergeTexts::tr("The pictures have different sizes.");
    case exposure::Error::NothingCovered:
        return MergeTexts::tr("Nothing is left to crop to: the pictures do not overlap.");
    case exposure::Error::NoSuchShot:
    case exposure::Error::OtherMaskSize:
        return MergeTexts::tr("A painted part does not belong to these pictures.");
    case exposure::Error::NoMemory:
        break;
    }
    return MergeTexts::tr("There is not enough memory.");
}

QString merge_texts::notRead(const QString &path, const QString &reason)
{
    //: A file, and why it could not be read.
    return MergeTexts::tr("“%1” could not be read: %2.").arg(nameOf(path), reason);
}

QString merge_texts::otherSize(const QString &path, QSize size, const QString &first,
                               QSize firstSize)
{
    const auto inPixels = [](QSize pixels) {
        return QStringLiteral("%1 × %2").arg(pixels.width()).arg(pixels.height());
    };
    return MergeTexts::tr("“%1” (%2 pixels) has not the size of “%3” (%4 pixels).")
        .arg(nameOf(path), inPixels(size), nameOf(first), inPixels(firstSize));
}

QString merge_texts::alignment(const registration::Transform &transform)
{
    if (transform.kind == registration::Kind::Unaligned)
        return MergeTexts::tr("left unaligned: %1").arg(reasonOf(transform));
    if (transform.kind == registration::Kind::Identity)
        return MergeTexts::tr("lies as it is");
    //: How far an alignment can be trusted, in percent.
    return MergeTexts::tr("aligned, %1 % sure").arg(qRound(transform.confidence * 100));
}

QString merge_texts::unaligned(const QString &path, const registration::Transform &transform)
{
    if (transform.kind != registration::Kind::Unaligned)
        return {};
    return MergeTexts::tr("%1 was left unaligned: %2.").arg(nameOf(path), reasonOf(transform));
}
