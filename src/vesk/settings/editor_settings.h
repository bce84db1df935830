#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

/// What the editor remembers from one start to the next, in the settings file that it shares with
/// the tools. Missing or damaged values read as defaults. GUI thread.
namespace settings {

/// 1..100.
int jpegQuality();
void setJpegQuality(int quality);

/// File of the screen's colour profile; empty: the screen shows sRGB.
QString screenProfile();
void setScreenProfile(const QString &path);

/// Folder shown last; the user's pictures folder, or home, before.
QString folder();
void setFolder(const QString &path);

/// How the film strip sorts, as FilmStripOrder numbers it, and whether it leaves out what was
/// merged.
int filmStripOrder();
void setFilmStripOrder(int key);
bool areResultsHidden();
void setResultsHidden(bool areHidden);

/// How brackets were merged last, one after the other: as a result's mark has it.
QString batchMethod();
QString batchOptions();
void setBatch(const QString &method, const QString &options);

/// How the user has arranged the brackets of a folder for the batch started last: the folder, and
/// the texts of a table of brackets. Empty when they are as they were found.
QStringList batchBrackets();
void setBatchBrackets(const QStringList &texts);

/// Latest first.
QStringList recentFiles();
void setRecentFiles(const QStringList &paths);

/// "dark", "light", or empty: as the desktop has it.
QString theme();
void setTheme(const QString &name);

/// Files of the documents that were open last, the one in front at the end.
QStringList session();
void setSession(const QStringList &paths);

/// How long after a change a document's recovery file is written at the latest: 1 to 20.
int recoverySeconds();

/// As QWidget and QMainWindow save them; empty before the first time.
QByteArray windowGeometry();
QByteArray windowLayout();
void setWindow(const QByteArray &geometry, const QByteArray &layout);

} // namespace settings
