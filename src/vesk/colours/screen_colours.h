#pragma once

#include <QImage>
#include <QString>

/// The editor's screen, as the settings describe it: sRGB, or an ICC profile from a file. Pictures
/// without a profile count as sRGB. GUI thread, except shown.
namespace screen_colours {

/// All canvases follow the settings from now on. A profile file that has gone counts as sRGB.
void applySettings();

/// Whether the file holds a profile for a screen: one of red, green and blue.
bool isScreenProfile(const QString &path);

/// The screen's profile is read from that file from now on; empty: sRGB.
void setProfileFile(const QString &path);

/// The picture in the screen's colours; the same when they are its own. Any thread.
QImage shown(const QImage &picture);

} // namespace screen_colours
