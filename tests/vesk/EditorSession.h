#pragma once

#include <QProcess>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

/// The real editor in a real window on a display of its own, driven as a user does. Every wait ends
/// as soon as what it waits for is there. Titles are regular expressions.
class EditorSession
{
public:
    ~EditorSession();

    /// Starts the display. Returns why that is not possible here, empty on success.
    QString startDisplay();
    /// Another editor on the display of first, with the same home.
    void join(const EditorSession &first);
    /// Where the editor keeps its settings and its recovery files.
    QString dataFolder() const;
    /// For the editor, before it is launched.
    void setVariable(const QString &name, const QString &value);
    /// Starts the editor with a home of its own, which is kept between launches.
    bool launch(const QStringList &arguments);

    bool waitForWindow(const QString &title);
    bool waitUntilGone(const QString &title);
    bool hasWindow(const QString &title);
    /// Gives the window the keyboard and presses keys, such as "ctrl+s".
    bool press(const QString &title, const QStringList &keys);
    bool type(const QString &title, const QString &text);
    /// Negative positions count from the right or lower edge of the window.
    bool click(const QString &title, int x, int y);

    /// Asks the window to close with the message that a window manager sends. False without such a
    /// window.
    bool askToClose(const QString &title);

    /// Ends it as a crash does.
    void kill();
    bool isRunning() const { return editor.state() == QProcess::Running; }
    /// Waits until the editor has ended; -1 when it does not, or crashed.
    int exitCode();
    /// What the editor wrote to the terminal.
    QString output();

private:
    QString xdotool(const QStringList &arguments);
    QString windowOf(const QString &title);

    QTemporaryDir home;
    QProcess display;
    QProcess editor;
    QProcessEnvironment environment;
};
