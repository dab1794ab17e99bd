#pragma once

#include <QStringList>
#include <optional>
#include <string>

namespace tessivo {

/// A pane of the desktop's own settings, as the command that opens it.
struct SettingsPane {
    QString program; ///< its path
    QStringList arguments;

    /// Whether the link names a pane of a Mac's settings.
    static bool isLink(const std::string& url);
    /// The pane of the running desktop in which access to microphones or cameras is given, or sound is set
    /// up; nothing where the desktop has none, or its program isn't installed. Main thread.
    static std::optional<SettingsPane> find(const std::string& url);
};

} // namespace tessivo
