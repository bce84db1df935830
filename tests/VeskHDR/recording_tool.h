#pragma once

#include <QImage>
#include <QMap>
#include <QString>
#include <QStringList>

#include <functional>

/// What the panel asks of its tool, when a test links recording_tool.cpp in place of the real tool.
/// It is a tool that does nothing but hold pictures and write down its calls. One for the process.
struct ToolRecord
{
    /// "setCuda(true)", "addFiles(/a.png,/b.png)", "apply()", ... Questions are not recorded.
    QStringList calls;
    /// What getDir answers.
    QString directory;
    /// The picture that addFile(path) puts into the set; an 8 x 8 one for other paths.
    QMap<QString, QImage> files;
    /// Called by apply() and clear(), if any.
    std::function<void()> whileApplying;
    std::function<void()> whileClearing;

    static ToolRecord &instance();
};
