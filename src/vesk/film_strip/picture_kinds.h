#pragma once

#include <QString>
#include <QStringList>

/// The files that the editor offers to open, judged by their names only: what is inside decides
/// when they are opened. Any thread.
namespace pictures {

/// Lower case, without dot: Qt's formats, our own and those of camera raw files.
const QStringList &suffixes();
bool hasPictureSuffix(const QString &path);
/// For file dialogs: "*.jpg *.png ...", each in lower and upper case.
QString dialogPatterns();

} // namespace pictures
