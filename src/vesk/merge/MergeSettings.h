#pragma once

#include <set_merge.h>

#include <QStringList>

/// What the user has chosen for a merge. References are places among the shots that are on.
struct MergeSettings
{
    exposure::Method method = exposure::Method::Fusion;
    exposure::Options options;

    bool isMean() const { return method == exposure::Method::Mean; }
    /// Whether both give the same picture but for the look.
    bool isSameButLook(const MergeSettings &other) const;
    /// What differs from the usual, as options of 'veskhdr merge'. paths: of the shots.
    QString asOptions(const QStringList &paths) const;
    /// The word that --method takes.
    QString methodWord() const
    {
        return isMean() ? QStringLiteral("mean") : QStringLiteral("fusion");
    }
};
