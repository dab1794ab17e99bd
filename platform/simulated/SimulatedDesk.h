#pragma once

#include "platform/Desktop.h"
#include "platform/Storage.h"
#include "platform/simulated/SimulatedMac.h"

#include <QSettings>
#include <QTemporaryDir>

namespace tessivo {

/// Records what the desktop was asked for. Main thread.
class SimulatedDesktop final : public Desktop {
public:
    explicit SimulatedDesktop(SimulatedMac& mac) : m_mac(mac) {}

    void openURL(const std::string& url) override { m_mac.openedURLs.push_back(url); }
    bool canOpenURL(const std::string& url) const override;
    void setPasteboardText(const std::string& text) override { m_mac.pasteboard = text; }
    std::optional<Paper> paper() const override { return m_mac.paper; }

private:
    SimulatedMac& m_mac;
};

class SimulatedUpdates final : public UpdateFramework {
public:
    explicit SimulatedUpdates(SimulatedMac& mac) : m_mac(mac) {}

    std::optional<std::string> feedURL() const override { return m_mac.feedURL; }
    void checkForUpdates() override { ++m_mac.updateChecks; }

private:
    SimulatedMac& m_mac;
};

class SimulatedFingers final : public FingerTouches {
public:
    explicit SimulatedFingers(SimulatedMac& mac) : m_mac(mac) {}

    bool tellsOfEveryWindow() const override { return !m_mac.touchesAreAimed; }
    void start(Handlers handlers) override { m_mac.fingers = std::move(handlers); }
    void stop() override { m_mac.fingers = {}; }

private:
    SimulatedMac& m_mac;
};

/// Defaults in memory, or in an ini file, which another simulated Mac can then find. Main thread.
class SimulatedDefaults final : public Defaults {
public:
    /// An empty path keeps them in memory.
    SimulatedDefaults(SimulatedMac& mac, const std::filesystem::path& file);

    std::optional<std::string> data(const std::string& key) const override;
    std::optional<std::string> text(const std::string& key) const override;
    void setData(const std::string& key, const std::string& bytes) override;
    void setText(const std::string& key, const std::string& text) override;

private:
    bool mayWrite();
    void store(const std::string& key, const QVariant& value);

    SimulatedMac& m_mac;
    std::map<std::string, std::string> m_data;
    std::map<std::string, std::string> m_text;
    std::unique_ptr<QSettings> m_settings;
};

/// The given folders, or a temporary one that goes with the object.
class SimulatedFolders final : public Folders {
public:
    explicit SimulatedFolders(std::optional<std::vector<std::filesystem::path>> applicationSupport);

    std::vector<std::filesystem::path> applicationSupport() const override { return m_applicationSupport; }

private:
    std::unique_ptr<QTemporaryDir> m_temporary;
    std::vector<std::filesystem::path> m_applicationSupport;
};

} // namespace tessivo
