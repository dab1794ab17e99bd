#pragma once

#include <QProcess>
#include <QString>
#include <QStringList>

class QWidget;

namespace tessivo::windowtest {

/// Starts an X server without a screen, of a size such as "800x600", on a display number that was free, and
/// gives what DISPLAY is for it. Throws std::runtime_error if it doesn't come up.
QByteArray startServer(QProcess& server, const QString& size, const QStringList& arguments = {});

/// A real X server without a screen, with a window manager, on a display number that was free. While it
/// lives this process' DISPLAY names it. Throws std::runtime_error if it doesn't come up.
class XServer final {
public:
    XServer();
    ~XServer();

private:
    QProcess m_server;
    QProcess m_windowManager;
};

/// Another program's window on the same server, to take the keyboard away. Made by running this program
/// with `bystanderArgument`.
class Bystander final {
public:
    Bystander();
    ~Bystander();

private:
    QProcess m_program;
};
inline constexpr const char* bystanderArgument = "--bystander";

/// Runs xdotool with these arguments while events are handled; false if it failed.
bool xdotool(const QStringList& arguments);
/// Presses and releases a key of the real keyboard: "a", "Shift_L", "ctrl+q", or a scan code above 9.
bool key(const QString& name);
/// Moves the real pointer to the middle of a widget and clicks.
bool clickWith(QWidget* widget, int button = 1);

} // namespace tessivo::windowtest
