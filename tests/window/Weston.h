#pragma once

#include "tests/TemporaryFolder.h"

#include <QByteArray>
#include <QColor>
#include <QProcess>

namespace tessivo::windowtest {

/// A Wayland session with two screens on an X server of its own, which turns the server's keys into the
/// session's. While it lives this process' DISPLAY names that server, for xdotool. Throws std::runtime_error
/// if it doesn't come up.
class Weston final {
public:
    Weston();
    ~Weston();

    /// What a program is started with there: this session alone, and folders of its own.
    QProcessEnvironment environment() const;
    const TemporaryFolder& folder() const { return m_folder; }
    /// Whether all corners of a screen, 0 or 1, are of this colour now.
    bool shows(int screen, const QColor& color) const;

private:
    TemporaryFolder m_folder;
    QProcess m_server;
    QProcess m_session;
    QByteArray m_displayBefore;
};

} // namespace tessivo::windowtest
