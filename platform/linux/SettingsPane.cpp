#include "platform/linux/SettingsPane.h"

#include <QStandardPaths>

namespace tessivo {
namespace {

/// One pane that a desktop may have.
struct Row {
    const char* desktop; ///< as XDG_CURRENT_DESKTOP has it; empty: any
    const char* link;    ///< how the link ends
    const char* program;
    const char* argument;
    const char* entry; ///< what the pane installs among the applications; empty: it comes with the program
};

constexpr const char *microphone = "Privacy_Microphone", *camera = "Privacy_Camera";

// Newer versions of GNOME's settings have joined the panes of privacy into one.
constexpr Row rows[] = {
    {"GNOME", microphone, "gnome-control-center", "microphone", "gnome-microphone-panel.desktop"},
    {"GNOME", microphone, "gnome-control-center", "sound", ""},
    {"GNOME", camera, "gnome-control-center", "camera", "gnome-camera-panel.desktop"},
    {"GNOME", camera, "gnome-control-center", "privacy", "gnome-privacy-panel.desktop"},
    {"KDE", microphone, "systemsettings", "kcm_pulseaudio", "kcm_pulseaudio.desktop"},
    {"X-Cinnamon", microphone, "cinnamon-settings", "sound", ""},
    {"", microphone, "pavucontrol", "--tab=4", ""}, // its input devices
};

} // namespace

bool SettingsPane::isLink(const std::string& url) {
    return url.starts_with("x-apple.systempreferences:");
}

std::optional<SettingsPane> SettingsPane::find(const std::string& url) {
    const auto desktops = qEnvironmentVariable("XDG_CURRENT_DESKTOP").split(QLatin1Char(':'));
    for (const Row& row : rows) {
        if (!url.ends_with(row.link)) continue;
        if (*row.desktop && !desktops.contains(QLatin1String(row.desktop), Qt::CaseInsensitive)) continue;
        if (*row.entry &&
            QStandardPaths::locate(QStandardPaths::ApplicationsLocation, QString::fromLatin1(row.entry))
                .isEmpty())
            continue;
        const QString program = QStandardPaths::findExecutable(QString::fromLatin1(row.program));
        if (!program.isEmpty()) return SettingsPane{program, {QString::fromLatin1(row.argument)}};
    }
    return std::nullopt;
}

} // namespace tessivo
