#pragma once

#include <Stroke.h>
#include <set_merge.h>

#include <QStringList>

/// What the user has chosen for a merge. References are places among the shots that are on.
struct MergeSettings
{
    exposure::Method method = exposure::Method::Fusion;
    exposure::Options options; ///< without what strokes ask for
    brush::Strokes strokes;    ///< shots as references
    /// The size of the shots that the strokes are on; empty: that of what is merged.
    QSize paintedOn;

    /// Those of a merge of pictures of this size: with what the strokes ask for.
    exposure::Options optionsFor(QSize size) const;
    bool isMean() const { return method == exposure::Method::Mean; }
    /// What is made is the light of the scene: no picture for a screen, and without a look.
    bool isLight() const { return method == exposure::Method::Radiance; }
    bool hasLook() const { return method == exposure::Method::Fusion; }
    /// Whether both give the same picture but for the look.
    bool isSameButLook(const MergeSettings &other) const;
    MergeSettings withoutLook() const;
    /// What differs from the usual, as options of 'veskhdr merge'; without strokes that are too
    /// long to be kept with a picture. paths: of the shots.
    QString asOptions(const QStringList &paths) const;
    /// What a merge of these files was made with, by the words that its mark has. What is not
    /// understood stays as usual.
    static MergeSettings fromMark(const QString &method, const QString &options,
                                  const QStringList &paths);
    /// From places among paths to places among the same in another order.
    void followOrder(const QStringList &paths, const QStringList &ordered);
    /// The word that --method takes.
    QString methodWord() const
    {
        return isMean()    ? QStringLiteral("mean")
               : isLight() ? QStringLiteral("radiance")
                           : QStringLiteral("fusion");
    }
};
