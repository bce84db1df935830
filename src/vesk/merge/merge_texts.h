#pragma once

#include "MergeShot.h"

#include <set_merge.h>

#include <QString>

/// What the merge workspace says, in the user's language. Any thread.
namespace merge_texts {

QString reading();
QString doing(exposure::Step step);

/// Empty for Error::None and for what the user has cancelled.
QString problem(exposure::Error error);
QString notRead(const QString &path, const QString &reason);
QString otherSize(const QString &path, QSize size, const QString &first, QSize firstSize);

/// How a shot lies over the reference: "aligned, 93 % sure", or why it does not.
QString alignment(const registration::Transform &transform);
/// The whole sentence for a shot that was left unaligned; empty for others.
QString unaligned(const QString &path, const registration::Transform &transform);

} // namespace merge_texts
