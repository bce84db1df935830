#include "EditorSession.h"

#include <QFile>
#include <QStandardPaths>
#include <QTest>

#include <cstdlib>
#include <memory>

#include <xcb/xcb.h>

namespace {

constexpr int kStartMs = 20000;
constexpr int kWaitMs = 30000;

xcb_atom_t atomNamed(xcb_connection_t *connection, const QByteArray &name)
{
    const std::unique_ptr<xcb_intern_atom_reply_t, decltype(&std::free)> reply(
        xcb_intern_atom_reply(
            connection,
            xcb_intern_atom(connection, 0, std::uint16_t(name.size()), name.constData()), nullptr),
        &std::free);
    return reply ? reply->atom : xcb_atom_t(XCB_ATOM_NONE);
}

} // namespace

EditorSession::~EditorSession()
{
    editor.kill();
    editor.waitForFinished();
    display.terminate(); // politely: it removes its lock file
    display.waitForFinished();
}

QString EditorSession::startDisplay()
{
    for (const char *program : {"Xvfb", "xdotool"}) {
        if (QStandardPaths::findExecutable(QLatin1String(program)).isEmpty())
            return QLatin1String(program) + QStringLiteral(" is not installed");
    }
    // A free number of its own choice, told on its standard output.
    display.start(QStringLiteral("Xvfb"),
                  {QStringLiteral("-displayfd"), QStringLiteral("1"), QStringLiteral("-screen"),
                   QStringLiteral("0"), QStringLiteral("1280x900x24"), QStringLiteral("-noreset"),
                   QStringLiteral("-nolisten"), QStringLiteral("tcp")});
    while (!display.canReadLine()) {
        if (!display.waitForReadyRead(kStartMs))
            return QStringLiteral("Xvfb does not start");
    }
    const QString number = QString::fromLatin1(display.readLine()).trimmed();
    environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("DISPLAY"), QLatin1Char(':') + number);
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("xcb"));
    for (const char *name : {"HOME", "XDG_DATA_HOME", "XDG_CONFIG_HOME", "XDG_CACHE_HOME"})
        environment.insert(QLatin1String(name), home.path());
    return {};
}

void EditorSession::join(const EditorSession &first)
{
    environment = first.environment;
}

QString EditorSession::dataFolder() const
{
    return environment.value(QStringLiteral("XDG_DATA_HOME")) + QStringLiteral("/vesk");
}

void EditorSession::kill()
{
    editor.kill();
    editor.waitForFinished();
}

void EditorSession::setVariable(const QString &name, const QString &value)
{
    environment.insert(name, value);
}

bool EditorSession::launch(const QStringList &arguments)
{
    editor.setProcessEnvironment(environment);
    editor.start(qEnvironmentVariable("VESK_BIN_DIR") + QStringLiteral("/vesk"), arguments);
    return editor.waitForStarted() && waitForWindow(QStringLiteral("Vesk$"));
}

bool EditorSession::waitForWindow(const QString &title)
{
    return QTest::qWaitFor([&] { return hasWindow(title) || !isRunning(); }, kWaitMs) &&
           isRunning();
}

bool EditorSession::waitUntilGone(const QString &title)
{
    return QTest::qWaitFor([&] { return !hasWindow(title); }, kWaitMs);
}

bool EditorSession::hasWindow(const QString &title)
{
    return !windowOf(title).isEmpty();
}

bool EditorSession::press(const QString &title, const QStringList &keys)
{
    const QString window = windowOf(title);
    if (window.isEmpty())
        return false;
    // Without a window manager nobody else gives the keyboard to a window.
    xdotool({QStringLiteral("windowfocus"), window});
    xdotool(QStringList{QStringLiteral("key"), QStringLiteral("--delay"), QStringLiteral("40")} +
            keys);
    return true;
}

bool EditorSession::type(const QString &title, const QString &text)
{
    const QString window = windowOf(title);
    if (window.isEmpty())
        return false;
    xdotool({QStringLiteral("windowfocus"), window});
    xdotool({QStringLiteral("type"), QStringLiteral("--delay"), QStringLiteral("5"), text});
    return true;
}

bool EditorSession::click(const QString &title, int x, int y)
{
    const QString window = windowOf(title);
    if (window.isEmpty())
        return false;
    const QStringList geometry =
        xdotool({QStringLiteral("getwindowgeometry"), QStringLiteral("--shell"), window})
            .split(QLatin1Char('\n'));
    int width = 0;
    int height = 0;
    for (const QString &line : geometry) {
        if (line.startsWith(QLatin1String("WIDTH=")))
            width = line.mid(6).toInt();
        if (line.startsWith(QLatin1String("HEIGHT=")))
            height = line.mid(7).toInt();
    }
    xdotool({QStringLiteral("mousemove"), QStringLiteral("--window"), window,
             QString::number(x < 0 ? width + x : x), QString::number(y < 0 ? height + y : y),
             QStringLiteral("click"), QStringLiteral("1")});
    return width > 0;
}

bool EditorSession::askToClose(const QString &title)
{
    const xcb_window_t window = windowOf(title).toUInt();
    const QByteArray name = environment.value(QStringLiteral("DISPLAY")).toLatin1();
    const std::unique_ptr<xcb_connection_t, decltype(&xcb_disconnect)> connection(
        xcb_connect(name.constData(), nullptr), &xcb_disconnect);
    if (window == 0 || xcb_connection_has_error(connection.get()))
        return false;
    xcb_client_message_event_t message = {};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = window;
    message.type = atomNamed(connection.get(), "WM_PROTOCOLS");
    message.data.data32[0] = atomNamed(connection.get(), "WM_DELETE_WINDOW");
    message.data.data32[1] = XCB_CURRENT_TIME;
    xcb_send_event(connection.get(), 0, window, XCB_EVENT_MASK_NO_EVENT,
                   reinterpret_cast<const char *>(&message));
    return xcb_flush(connection.get()) > 0;
}

int EditorSession::exitCode()
{
    if (!QTest::qWaitFor([this] { return !isRunning(); }, kWaitMs))
        return -1;
    return editor.exitStatus() == QProcess::NormalExit ? editor.exitCode() : -1;
}

QString EditorSession::output()
{
    return QString::fromLocal8Bit(editor.readAllStandardError());
}

QString EditorSession::xdotool(const QStringList &arguments)
{
    QProcess process;
    process.setProcessEnvironment(environment);
    process.start(QStringLiteral("xdotool"), arguments);
    process.waitForFinished();
    return QString::fromLocal8Bit(process.readAllStandardOutput()).trimmed();
}

/// The newest of its visible windows with such a title; empty for none.
QString EditorSession::windowOf(const QString &title)
{
    return xdotool({QStringLiteral("search"), QStringLiteral("--all"), QStringLiteral("--pid"),
                    QString::number(editor.processId()), QStringLiteral("--onlyvisible"),
                    QStringLiteral("--name"), title})
        .split(QLatin1Char('\n'))
        .constLast();
}
