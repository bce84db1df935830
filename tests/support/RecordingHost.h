#pragma once

#include <QStringList>

#include <functional>
#include <map>

class QImage;

/// Remembers the calls that the tool makes into the editor's libraries, in their order, and lets
/// them through. A call that the editor's libraries make among themselves is not remembered.
///
/// It works by defining the libraries' functions once more in the test program, where the dynamic
/// linker finds them first. That takes ELF: isAvailable() is false elsewhere, and tests of an order
/// of calls skip. One at a time, GUI thread.
///
/// Calls read as "reSizeCanvas 20 10 true"; an object is named by what name() was told.
class RecordingHost
{
public:
    RecordingHost();
    ~RecordingHost();

    static bool isAvailable();

    /// How object is called in the calls; "?" without a name.
    void name(const void *object, const QString &text);
    /// Adds a line of the test's own, such as what its fakes were asked.
    void note(const QString &call);

    const QStringList &calls() const { return lines; }
    void forget() { lines.clear(); }

    /// While set, every path is a raw file and this stands in for its conversion: it returns a new
    /// picture, which the caller owns, or null.
    std::function<QImage *(const QString &path)> rawConversion;

    /// Called when a call has returned, with its line: the editor's reaction to it.
    std::function<void(const QString &call)> afterCall;

    // For the recorded functions only.
    static RecordingHost *current();
    QString nameOf(const void *object) const;
    int depth = 0;

private:
    std::map<const void *, QString> names;
    QStringList lines;
};
